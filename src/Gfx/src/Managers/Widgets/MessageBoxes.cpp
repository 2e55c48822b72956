#include "Managers/Gfx/GfxManager.h"
#include "Managers/Widgets/WidgetManager.h"
#include "Widgets/Controls/MessageBox/MessageBox.h"

#include <cstdint>

namespace Gfx::Managers
{

namespace
{

/// Where something begins that lies in the middle of a display.
int Centred(int a_display, int a_length)
{
    return Common::detail::Saturated((std::int64_t{a_display} - a_length) / 2);
}

} // namespace

Widgets::CMessageBox* CWidgetManager::ShowMessageBox(int a_width, int a_height, const std::string& a_title,
                                                     const std::string& a_message, OptionHandler* a_handler,
                                                     const std::string& a_btn1, const std::string& a_btn2,
                                                     const std::string& a_btn3)
{
    const CGfxManager& gfx = Core::Patterns::StaticSingleton<CGfxManager>::ref();
    const Core::SharedPtr<Widgets::CMessageBox> box(new Widgets::CMessageBox(
        "WidgetMgrMessage", Centred(gfx.DisplayWidth(), a_width), Centred(gfx.DisplayHeight(), a_height), a_width,
        a_height, a_title, a_message, a_btn1, a_btn2, a_btn3));
    if (a_handler != nullptr)
    {
        box->SetOptionSelectedEventHandler(a_handler);
    }
    AddWidget(box);
    // Without a stage to be on, or after a handler that has destroyed it at once, nobody else holds it.
    return m_widgets.Find(box.Get()) ? box.Get() : nullptr;
}

} // namespace Gfx::Managers
