#include "Layout/EditBoxElement.h"

#include "Core/Functor.h"
#include "Widgets/Controls/EditBox/EditBox.h"

#include <array>
#include <string>

namespace Gfx::Layout
{

using Core::IO::XMLNode;
using Widgets::CEditBox;

namespace
{

struct SValues
{
    std::string text;
    bool isPassword = false;
    int length = CEditBox::k_longestText;
    std::string cursorPlacement = "End";
};

constexpr std::array s_rows{
    SAttribute<SValues>{"text", &SValues::text, "the text at first"},
    SAttribute<SValues>{"isPassword", &SValues::isPassword, "whether the text is masked"},
    SAttribute<SValues>{"length", &SValues::length, "the most characters it takes", 1, CEditBox::k_longestText},
    SAttribute<SValues>{"cursorPlacement", &SValues::cursorPlacement,
                        "Start for a touch that puts the cursor where it is; any other word for one that puts it "
                        "before the text"},
};

} // namespace

CElement* CEditBoxElement::Process(CElement* a_parent, const XMLNode& a_node)
{
    if (!PreProcess(a_node))
    {
        return nullptr;
    }
    const SValues values = ReadAttributes(s_rows, a_node);
    const auto box = Hidden(new CEditBox(Id(), X(), Y(), Width(), Height(), values.isPassword, values.text));
    box->MaximumLength(values.length);
    // Layouts rely on what the words have always meant.
    box->CursorPlacement(values.cursorPlacement == "Start" ? CEditBox::ecpAtPoint : CEditBox::ecpStart);
    Attach(a_parent, box);
    for (const XMLNode& child : a_node.Children())
    {
        if (child.Name() == "Events")
        {
            ProcessEvents(child);
        }
        else if (child.Name() == "Font")
        {
            ProcessFontOf(*box, child);
        }
    }
    return this;
}

std::vector<SAttributeInfo> CEditBoxElement::Attributes() const
{
    std::vector<SAttributeInfo> list = CElement::Attributes();
    DescribeAttributes(s_rows, list);
    return list;
}

std::vector<SEventInfo> CEditBoxElement::Events() const
{
    std::vector<SEventInfo> list = CElement::Events();
    list.push_back({"TextChanged", "the text has changed"});
    return list;
}

void CEditBoxElement::ProcessEvents(const XMLNode& a_node)
{
    ProcessEventsAnd("TextChanged", m_textChangedActions, a_node, &CEditBox::SetTextChangedEventHandler,
                     &CEditBoxElement::TextChangedHandler);
}

void CEditBoxElement::TextChangedHandler(Widgets::CWidget*)
{
    ExecuteActions(m_textChangedActions);
}

} // namespace Gfx::Layout
