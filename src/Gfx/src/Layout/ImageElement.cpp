#include "Layout/ImageElement.h"

#include "Widgets/Controls/Image/Image.h"

#include <array>
#include <string>

namespace Gfx::Layout
{

using Core::IO::XMLNode;

namespace
{

struct SValues
{
    std::string image;
};

constexpr std::array s_rows{
    SAttribute<SValues>{"image", &SValues::image, "an element of the texture pages, or a file"},
};

} // namespace

CElement* CImageElement::Process(CElement* a_parent, const XMLNode& a_node)
{
    if (!PreProcess(a_node))
    {
        return nullptr;
    }
    const SValues values = ReadAttributes(s_rows, a_node);
    const auto image = Hidden(new Widgets::CImage(Id(), X(), Y(), Width(), Height(), values.image));
    AttachEnabled(a_parent, image);
    ProcessEventsOf(a_node);
    return this;
}

std::vector<SAttributeInfo> CImageElement::Attributes() const
{
    std::vector<SAttributeInfo> list = CElement::Attributes();
    DescribeAttributes(s_rows, list);
    return list;
}

} // namespace Gfx::Layout
