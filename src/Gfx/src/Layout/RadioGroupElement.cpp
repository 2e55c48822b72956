#include "Layout/RadioGroupElement.h"

#include "Widgets/Controls/RadioButton/RadioButton.h"
#include "Widgets/Controls/RadioButton/RadioGroup.h"

#include <array>
#include <string>

namespace Gfx::Layout
{

using Core::IO::XMLNode;

namespace
{

struct SValues
{
    std::string text;
    bool checked = false;
    bool readOnly = false;
};

constexpr std::array s_rows{
    SAttribute<SValues>{"text", &SValues::text, "the text beside the indicator"},
    SAttribute<SValues>{"checked", &SValues::checked, "whether it is on at first"},
    SAttribute<SValues>{"readOnly", &SValues::readOnly, "whether it is dead to the pointer"},
};

} // namespace

CElement* CRadioButtonElement::Process(CElement*, const XMLNode& a_node)
{
    if (!PreProcess(a_node))
    {
        return nullptr;
    }
    const SValues values = ReadAttributes(s_rows, a_node);
    const auto button = Hidden(new Widgets::CRadioButton(Id(), X(), Y(), Width(), Height(), values.text));
    button->Checked(values.checked);
    button->ReadOnly(values.readOnly);
    // The group puts it into its parent.
    Attach(nullptr, button);
    ProcessEventsAndFont(*button, a_node);
    return this;
}

std::vector<SAttributeInfo> CRadioButtonElement::Attributes() const
{
    std::vector<SAttributeInfo> list = CElement::Attributes();
    DescribeAttributes(s_rows, list);
    return list;
}

CRadioGroupElement::CRadioGroupElement() = default;

CRadioGroupElement::~CRadioGroupElement()
{
    // Buttons and group hold each other.
    for (const ElementPtr& element : m_buttons)
    {
        if (const WidgetPtr widget = element->Widget())
        {
            widget.StaticCast<Widgets::CRadioButton>()->SetGroup({});
        }
    }
}

CElement* CRadioGroupElement::Process(CElement* a_parent, const XMLNode& a_node)
{
    m_group = Core::SharedPtr<Widgets::CRadioGroup>(new Widgets::CRadioGroup);
    const WidgetPtr container = a_parent != nullptr ? a_parent->Widget() : WidgetPtr();
    for (const XMLNode& child : a_node.Children())
    {
        if (child.Name() != "RadioButton")
        {
            continue;
        }
        // Kept here, since its widget calls back into it.
        const ElementPtr element(new CRadioButtonElement);
        m_buttons.push_back(element);
        if (element->Process(this, child) == nullptr || !container)
        {
            continue;
        }
        const WidgetPtr widget = element->Widget();
        container->AddChild(widget);
        m_group->Add(widget.StaticCast<Widgets::CRadioButton>(), m_group);
    }
    return this;
}

std::vector<SNodeInfo> CRadioGroupElement::Nodes() const
{
    return {
        CRadioButtonElement().Describe("RadioButton", "one of the group's buttons, placed in the group's container")};
}

} // namespace Gfx::Layout
