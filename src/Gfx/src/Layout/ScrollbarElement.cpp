#include "Layout/ScrollbarElement.h"

#include "Core/Functor.h"
#include "Widgets/Controls/ScrollBar/ScrollBar.h"

#include <array>
#include <map>
#include <string>

namespace Gfx::Layout
{

using Core::IO::XMLNode;

namespace
{

struct SValues
{
    std::string style = "Horizontal";
    int minimum = 0;
    int maximum = 100;
    int current = 0;
    int step = 1;
};

constexpr std::array s_rows{
    SAttribute<SValues>{"style", &SValues::style, "Horizontal; anything else is vertical"},
    SAttribute<SValues>{"minimum", &SValues::minimum, "the lower bound"},
    SAttribute<SValues>{"maximum", &SValues::maximum, "the upper bound"},
    SAttribute<SValues>{"current", &SValues::current, "the value at first"},
    SAttribute<SValues>{"step", &SValues::step, "what a stepper adds"},
};

} // namespace

CElement* CScrollbarElement::Process(CElement* a_parent, const XMLNode& a_node)
{
    if (!PreProcess(a_node))
    {
        return nullptr;
    }
    const SValues values = ReadAttributes(s_rows, a_node);
    const auto bar = Hidden(new Widgets::CScrollBar(Id(), X(), Y(), Width(), Height(), values.style == "Horizontal",
                                                    values.minimum, values.maximum, values.current, values.step));
    Attach(a_parent, bar);
    for (const XMLNode& child : a_node.Children())
    {
        if (child.Name() == "Events")
        {
            ProcessEvents(child);
        }
        else if (child.Name() == "TextureSet")
        {
            ProcessTextureSet(*bar, child);
        }
    }
    return this;
}

void CScrollbarElement::ProcessTextureSet(Widgets::CScrollBar& a_bar, const XMLNode& a_set)
{
    // Of two nodes with one name the last counts.
    std::map<std::string, std::string> names;
    for (const XMLNode& child : a_set.Children())
    {
        names[child.Name()] = TextOf(child);
    }
    a_bar.SetTextures(names["Bar"], names["SliderInactive"], names["SliderActive"], names["StepperInactive"],
                      names["StepperActive"]);
    a_bar.SetImages(names["Stepper1"], names["Stepper2"]);
}

std::vector<SAttributeInfo> CScrollbarElement::Attributes() const
{
    std::vector<SAttributeInfo> list = CElement::Attributes();
    DescribeAttributes(s_rows, list);
    return list;
}

std::vector<SEventInfo> CScrollbarElement::Events() const
{
    std::vector<SEventInfo> list = CElement::Events();
    list.push_back({"Scroll", "the value changes by touch"});
    return list;
}

std::vector<SNodeInfo> CScrollbarElement::Nodes() const
{
    SNodeInfo set{"TextureSet", "other texture elements than those of the theme"};
    for (const char* part :
         {"Bar", "SliderInactive", "SliderActive", "StepperInactive", "StepperActive", "Stepper1", "Stepper2"})
    {
        set.nodes.push_back({part, "a texture element"});
        set.nodes.back().hasText = true;
    }
    return {set};
}

void CScrollbarElement::ProcessEvents(const XMLNode& a_node)
{
    ProcessEventsAnd("Scroll", m_scrollActions, a_node, &Widgets::CScrollBar::SetScrollEventHandler,
                     &CScrollbarElement::ScrollHandler);
}

void CScrollbarElement::ScrollHandler(Widgets::CWidget*, int)
{
    ExecuteActions(m_scrollActions);
}

} // namespace Gfx::Layout
