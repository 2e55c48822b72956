#include "Layout/NumericEditBoxElement.h"

#include "Core/Functor.h"
#include "Widgets/Controls/NumericEditBox/NumericEditBox.h"

#include <array>
#include <string>

namespace Gfx::Layout
{

using Core::IO::XMLNode;
using Widgets::CNumericEditBox;

namespace
{

struct SField
{
    std::string label;
    int length = 0;
};

constexpr std::array s_fieldRows{
    SAttribute<SField>{"label", &SField::label, "what stands behind the field, and is part of the text"},
    SAttribute<SField>{"length", &SField::length, "the most characters it takes; -1 for no limit of its own"},
};

} // namespace

CElement* CNumericEditBoxElement::Process(CElement* a_parent, const XMLNode& a_node)
{
    if (!PreProcess(a_node))
    {
        return nullptr;
    }
    const auto box = Hidden(new CNumericEditBox(Id(), X(), Y(), Width(), Height(), {}));
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
        else if (child.Name() == "Fields")
        {
            ProcessFields(*box, child);
        }
    }
    return this;
}

std::vector<SEventInfo> CNumericEditBoxElement::Events() const
{
    std::vector<SEventInfo> list = CElement::Events();
    list.push_back({"TextChanged", "the text of a field has changed"});
    return list;
}

std::vector<SNodeInfo> CNumericEditBoxElement::Nodes() const
{
    SNodeInfo field{"Field", "a field; its node may have any name"};
    DescribeAttributes(s_fieldRows, field.attributes);
    SNodeInfo fields{"Fields", "the parts of the text, from left to right"};
    fields.nodes = {field};
    return {FontNode(), fields};
}

void CNumericEditBoxElement::ProcessEvents(const XMLNode& a_node)
{
    ProcessEventsAnd("TextChanged", m_textChangedActions, a_node, &CNumericEditBox::SetTextChangedEventHandler,
                     &CNumericEditBoxElement::TextChangedHandler);
}

void CNumericEditBoxElement::ProcessFields(CNumericEditBox& a_box, const XMLNode& a_fields)
{
    std::vector<CNumericEditBox::SField> fields;
    for (const XMLNode& node : a_fields.Children())
    {
        const SField field = ReadAttributes(s_fieldRows, node);
        fields.push_back({field.label, field.length});
    }
    a_box.Fields(fields);
}

void CNumericEditBoxElement::TextChangedHandler(Widgets::CWidget*)
{
    ExecuteActions(m_textChangedActions);
}

} // namespace Gfx::Layout
