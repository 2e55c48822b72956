#include "Layout/LabelElement.h"

#include "Widgets/Controls/Label/Label.h"

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
    bool wrap = true;
    bool autoSize = false;
    bool parseMarkup = false;
    std::string style = "Up";
    bool background = false;
    std::string backgroundTexture;
};

constexpr std::array s_rows{
    SAttribute<SValues>{"text", &SValues::text, "the text, or the key of a localised one behind Localised:"},
    SAttribute<SValues>{"wrap", &SValues::wrap, "whether lines are broken at the width"},
    SAttribute<SValues>{"autoSize", &SValues::autoSize, "whether the label takes the size of its text"},
    SAttribute<SValues>{"parseMarkup", &SValues::parseMarkup, "whether the text is markup"},
    SAttribute<SValues>{"style", &SValues::style, "Up for the raised background, anything else for the lowered one"},
    SAttribute<SValues>{"background", &SValues::background, "whether there is a background"},
    SAttribute<SValues>{"backgroundTexture", &SValues::backgroundTexture, "another background"},
};

} // namespace

CElement* CLabelElement::Process(CElement* a_parent, const XMLNode& a_node)
{
    if (!PreProcess(a_node))
    {
        return nullptr;
    }
    const SValues values = ReadAttributes(s_rows, a_node);
    const auto label = Hidden(new Widgets::CLabel(Id(), X(), Y(), Width(), Height(), values.wrap, values.autoSize,
                                                  values.parseMarkup, values.text, values.style == k_raisedStyle));
    label->Background(values.background);
    if (!values.backgroundTexture.empty())
    {
        label->BackgroundTexture(values.backgroundTexture);
    }
    AttachEnabled(a_parent, label);
    ProcessEventsAndFont(*label, a_node);
    return this;
}

std::vector<SAttributeInfo> CLabelElement::Attributes() const
{
    std::vector<SAttributeInfo> list = CElement::Attributes();
    DescribeAttributes(s_rows, list);
    return list;
}

} // namespace Gfx::Layout
