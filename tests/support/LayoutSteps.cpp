#include "support/LayoutSteps.h"

#include "Managers/Gfx/GfxManager.h"
#include "Widgets/Property.h"

#include <utility>

namespace GfxTest
{

using Core::Patterns::StaticSingleton;
using Gfx::Managers::CLayoutManager;

namespace
{

CLayoutManager& Layouts()
{
    return StaticSingleton<CLayoutManager>::ref();
}

Gfx::Managers::CWidgetManager& Widgets()
{
    return StaticSingleton<Gfx::Managers::CWidgetManager>::ref();
}

/// A child through its parent, as the toolkit asks for.
void Destroy(const std::string& a_id)
{
    const WidgetPtr widget = Widgets().FindWidget(a_id, nullptr);
    if (widget && widget->Parent() != nullptr)
    {
        widget->Parent()->DestroyChild(widget);
    }
    else
    {
        Widgets().DestroyWidget(widget.Get());
    }
}

} // namespace

CLayoutSteps::~CLayoutSteps()
{
    for (const auto& [name, handler] : m_handlers)
    {
        Layouts().RemoveNotificationHandler(name);
    }
    for (const std::string& id : m_applied)
    {
        for (const WidgetPtr& widget : Layouts().RetrieveLayout(id))
        {
            Widgets().DestroyWidget(widget.Get());
        }
    }
    // What the end of one selects may answer with another.
    constexpr int mostBoxes = 100;
    for (int i = 0; i < mostBoxes; ++i)
    {
        Widgets().DestroyWidget(Widgets().FindWidget("WidgetMgrMessage", nullptr).Get());
    }
}

void CLayoutSteps::Handle(const std::string& a_name, bool a_result, const std::string& a_destroys)
{
    using Handler = Core::Functor<bool, WidgetPtr, const std::string&, const std::string&>;
    auto* const handler = Handler::Make(
        [this, a_result, a_destroys](const WidgetPtr& a_widget, const std::string& a_what,
                                     const std::string& a_parameter)
        {
            m_notified += a_what + ' ' + a_parameter + ' ' + (a_widget ? a_widget->GetName() : "") + ';';
            if (a_destroys == "*")
            {
                for (const WidgetPtr& widget : Widgets().TopLevelWidgets())
                {
                    Widgets().DestroyWidget(widget.Get());
                }
            }
            else
            {
                Destroy(a_destroys);
            }
            return a_result;
        });
    m_handlers[a_name].reset(handler);
    Layouts().AddNotificationHandler(a_name, handler);
}

bool CLayoutSteps::Do(const Core::IO::XMLNode& a_step)
{
    const auto text = [&a_step](const char* a_name) { return a_step.Attribute(a_name, ""); };
    const std::string& word = a_step.Name();
    if (word == "Apply")
    {
        m_applied.push_back(text("id"));
        Layouts().ApplyLayout(text("id"));
    }
    else if (word == "Tap")
    {
        const int x = Gfx::Widgets::NumberFromText(text("x"));
        const int y = Gfx::Widgets::NumberFromText(text("y"));
        StaticSingleton<Gfx::Managers::CGfxManager>::ref().InjectMouseEvent(Gfx::Events::FirstDown, x, y, false);
        StaticSingleton<Gfx::Managers::CGfxManager>::ref().InjectMouseEvent(Gfx::Events::FirstUp, x, y, false);
    }
    else if (word == "Type")
    {
        for (const char key : text("text"))
        {
            Widgets().KeyboardEvent(static_cast<unsigned char>(key));
        }
    }
    else if (word == "Show" || word == "Hide" || word == "Set")
    {
        const WidgetPtr widget = Widgets().FindWidget(text("id"), nullptr);
        if (!widget)
        {
            return false;
        }
        word == "Set" ? widget->SetProperty(text("name"), text("value")) : widget->SetShowHide(word == "Show");
    }
    else if (word == "SetFlag")
    {
        Layouts().SetFlag(text("name"), text("value"));
    }
    else if (word == "Handler")
    {
        Handle(text("name"), text("result") == "True", text("destroys"));
    }
    else if (word == "Idle")
    {
        Widgets().Idle();
    }
    else
    {
        return false;
    }
    return true;
}

std::string CLayoutSteps::TakeNotified()
{
    return std::exchange(m_notified, "");
}

} // namespace GfxTest
