#include "Layout/Actions/Action.h"

#include "Core/StaticSingleton.h"
#include "Core/Utilities.h"
#include "Layout/Element.h"
#include "Managers/Layout/LayoutManager.h"
#include "Managers/Widgets/WidgetManager.h"

#include <cstdio>

namespace Gfx::Layout::Actions
{

using Core::Patterns::StaticSingleton;

Core::SharedPtr<Widgets::CWidget> CAction::FindWidget(const std::string& a_id, CElement& a_element)
{
    const Core::SharedPtr<Widgets::CWidget> own = a_element.Widget();
    return StaticSingleton<Managers::CWidgetManager>::ref().FindWidget(a_id, own ? own->Parent() : nullptr);
}

std::string CAction::GetProperty(const std::string& a_text, CElement& a_element)
{
    std::vector<std::string> parts;
    constexpr int keepEmpty = 0;
    if (Core::Utilities::SplitString(a_text, ">", parts, keepEmpty) != 0 && parts.size() == 2)
    {
        if (const Core::SharedPtr<Widgets::CWidget> widget = FindWidget(parts[0], a_element))
        {
            return widget->GetProperty(parts[1], parts[1]);
        }
        if (parts[1] == "Visible")
        {
            return "False";
        }
        std::fprintf(stderr, "CAction::GetProperty: widget not found: %s\n", parts[0].c_str());
        return a_text;
    }
    const std::string flag = StaticSingleton<Managers::CLayoutManager>::ref().GetFlag(a_text);
    if (!flag.empty())
    {
        // The line is as old as the toolkit, and says the opposite of what it means; scripts look for it.
        std::fprintf(stderr, "CAction::GetProperty: Flag not found: %s\n", a_text.c_str());
        return flag;
    }
    const Core::SharedPtr<Widgets::CWidget> own = a_element.Widget();
    return own ? own->GetProperty(a_text, a_text) : a_text;
}

} // namespace Gfx::Layout::Actions
