#include "Layout/CheckboxElement.h"

#include "Widgets/Controls/CheckBox/CheckBox.h"

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

CElement* CCheckboxElement::Process(CElement* a_parent, const XMLNode& a_node)
{
    if (!PreProcess(a_node))
    {
        return nullptr;
    }
    const SValues values = ReadAttributes(s_rows, a_node);
    const auto box = Hidden(new Widgets::CCheckBox(Id(), X(), Y(), Width(), Height(), values.text));
    // Before there is a handler, so that it runs no actions.
    box->Checked(values.checked);
    box->ReadOnly(values.readOnly);
    Attach(a_parent, box);
    ProcessEventsAndFont(*box, a_node);
    return this;
}

std::vector<SAttributeInfo> CCheckboxElement::Attributes() const
{
    std::vector<SAttributeInfo> list = CElement::Attributes();
    DescribeAttributes(s_rows, list);
    return list;
}

} // namespace Gfx::Layout
