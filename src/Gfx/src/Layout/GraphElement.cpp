#include "Layout/GraphElement.h"

#include "Widgets/Controls/Graph/Graph.h"

#include <array>
#include <string>

namespace Gfx::Layout
{

using Core::IO::XMLNode;

namespace
{

struct SValues
{
    std::string autoScaleX = "Scale";
    std::string autoScaleY = "Off";
    bool showXAxis = true;
    bool showYAxis = true;
};

constexpr std::array s_rows{
    SAttribute<SValues>{"autoScaleX", &SValues::autoScaleX,
                        "how the horizontal range follows the data: Scale or Slide; anything else leaves it"},
    SAttribute<SValues>{"autoScaleY", &SValues::autoScaleY, "the same for the vertical range"},
    SAttribute<SValues>{"showXAxis", &SValues::showXAxis, "whether the horizontal axis is drawn"},
    SAttribute<SValues>{"showYAxis", &SValues::showYAxis, "whether the vertical axis is drawn"},
};

} // namespace

CElement* CGraphElement::Process(CElement* a_parent, const XMLNode& a_node)
{
    if (!PreProcess(a_node))
    {
        return nullptr;
    }
    const SValues values = ReadAttributes(s_rows, a_node);
    Attach(a_parent,
           Hidden(new Widgets::CGraph(Id(), X(), Y(), Width(), Height(), AutoScaleModeFromString(values.autoScaleX),
                                      AutoScaleModeFromString(values.autoScaleY), values.showXAxis, values.showYAxis)));
    ProcessEventsOf(a_node);
    return this;
}

std::vector<SAttributeInfo> CGraphElement::Attributes() const
{
    std::vector<SAttributeInfo> list = CElement::Attributes();
    DescribeAttributes(s_rows, list);
    return list;
}

} // namespace Gfx::Layout
