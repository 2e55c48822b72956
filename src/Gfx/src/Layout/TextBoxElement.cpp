#include "Layout/TextBoxElement.h"

#include "Widgets/Controls/TextBox/TextBox.h"

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
    bool parseMarkup = true;
    bool scrollable = true;
};

constexpr std::array s_rows{
    SAttribute<SValues>{"text", &SValues::text, "the text, or the key of a localised one behind Localised:"},
    SAttribute<SValues>{"parseMarkup", &SValues::parseMarkup, "whether the text is markup"},
    SAttribute<SValues>{"scrollable", &SValues::scrollable, "whether a text that is too long is scrolled"},
};

} // namespace

CElement* CTextBoxElement::Process(CElement* a_parent, const XMLNode& a_node)
{
    if (!PreProcess(a_node))
    {
        return nullptr;
    }
    const SValues values = ReadAttributes(s_rows, a_node);
    const auto box = Hidden(new Widgets::CTextBox(Id(), X(), Y(), Width(), Height(), values.scrollable));
    box->ParseMarkup(values.parseMarkup);
    if (!values.text.empty())
    {
        box->Text(values.text);
    }
    Attach(a_parent, box);
    ProcessEventsAndFont(*box, a_node);
    return this;
}

std::vector<SAttributeInfo> CTextBoxElement::Attributes() const
{
    std::vector<SAttributeInfo> list = CElement::Attributes();
    DescribeAttributes(s_rows, list);
    return list;
}

} // namespace Gfx::Layout
