#include "Layout/KeyboardElement.h"

#include "Core/Functor.h"
#include "Widgets/Controls/Keyboard/OnScreenKeyboard.h"

#include <array>

namespace Gfx::Layout
{

using Core::IO::XMLNode;
using Widgets::COnScreenKeyboard;

namespace
{

struct SValues
{
    std::string layout;
    std::string mode = "Default";
    std::string title;
    int length = COnScreenKeyboard::k_longestText;
};

constexpr std::array s_rows{
    SAttribute<SValues>{"layout", &SValues::layout, "a layout of Configuration/OSK.xml; required"},
    SAttribute<SValues>{"mode", &SValues::mode, "a mode of that layout: the fields of the text"},
    SAttribute<SValues>{"title", &SValues::title, "isn't shown, as a keyboard has no title bar"},
    SAttribute<SValues>{"length", &SValues::length, "the most characters it takes", 1,
                        COnScreenKeyboard::k_longestText},
};

} // namespace

CElement* CKeyboardElement::Process(CElement* a_parent, const XMLNode& a_node)
{
    if (!PreProcess(a_node))
    {
        return nullptr;
    }
    const SValues values = ReadAttributes(s_rows, a_node);
    const auto keyboard = Hidden(new COnScreenKeyboard(Id(), X(), Y(), values.layout, values.mode, values.title));
    keyboard->MaximumLength(values.length);
    Attach(a_parent, keyboard);
    // A keyboard without events has its handlers too.
    ProcessEvents({});
    for (const XMLNode& child : a_node.Children())
    {
        if (child.Name() == "Events")
        {
            ProcessEvents(child);
        }
    }
    return this;
}

std::vector<SAttributeInfo> CKeyboardElement::Attributes() const
{
    std::vector<SAttributeInfo> list = CElement::Attributes();
    DescribeAttributes(s_rows, list);
    return list;
}

std::vector<SEventInfo> CKeyboardElement::Events() const
{
    std::vector<SEventInfo> list = CElement::Events();
    list.push_back({"ClosingDone", "the Done key is touched; a Stop keeps the keyboard open"});
    list.push_back({"ClosingCancelled", "the Cancel key is touched; a Stop keeps the keyboard open"});
    list.push_back({"ClosedDone", "the keyboard closes by the Done key"});
    list.push_back({"ClosedCancelled", "the keyboard closes by the Cancel key"});
    return list;
}

void CKeyboardElement::ProcessEvents(const XMLNode& a_node)
{
    for (const XMLNode& event : a_node.Children())
    {
        if (event.Name() == "ClosingDone")
        {
            m_closingDoneActions = ProcessEventActions(event);
        }
        else if (event.Name() == "ClosingCancelled")
        {
            m_closingCancelledActions = ProcessEventActions(event);
        }
        else if (event.Name() == "ClosedDone")
        {
            m_closedDoneActions = ProcessEventActions(event);
        }
        else if (event.Name() == "ClosedCancelled")
        {
            m_closedCancelledActions = ProcessEventActions(event);
        }
        else
        {
            ProcessEvent(event);
        }
    }
    using Closing = Core::Functor<bool, Widgets::CWidget*, bool, const std::string&>;
    using Closed = Core::Functor<void, Widgets::CWidget*, bool, const std::string&>;
    // An application's subclass may have no such widget.
    if (auto* const keyboard = dynamic_cast<COnScreenKeyboard*>(Widget().Get()))
    {
        keyboard->SetKeyboardClosingEventHandler(
            Keep(new Closing::Method<CKeyboardElement>(this, &CKeyboardElement::ClosingHandler)));
        keyboard->SetKeyboardClosedEventHandler(
            Keep(new Closed::Method<CKeyboardElement>(this, &CKeyboardElement::ClosedHandler)));
    }
}

bool CKeyboardElement::ClosingHandler(Widgets::CWidget*, bool a_done, const std::string&)
{
    return ExecuteActions(a_done ? m_closingDoneActions : m_closingCancelledActions);
}

void CKeyboardElement::ClosedHandler(Widgets::CWidget*, bool a_done, const std::string&)
{
    ExecuteActions(a_done ? m_closedDoneActions : m_closedCancelledActions);
}

} // namespace Gfx::Layout
