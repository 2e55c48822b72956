#include "Layout/ProgressBarElement.h"

#include "Widgets/Controls/ProgressBar/ProgressBar.h"

#include <array>
#include <string>

namespace Gfx::Layout
{

using Core::IO::XMLNode;

namespace
{

struct SValues
{
    int min = 0;
    int max = 100;
    int current = 0;
    bool leftToRight = true;
};

constexpr std::array s_rows{
    SAttribute<SValues>{"min", &SValues::min, "the lower bound"},
    SAttribute<SValues>{"max", &SValues::max, "the upper bound"},
    SAttribute<SValues>{"current", &SValues::current, "the value at first"},
    SAttribute<SValues>{"leftToRight", &SValues::leftToRight, "whether the bar grows from the left edge"},
};

} // namespace

CElement* CProgressBarElement::Process(CElement* a_parent, const XMLNode& a_node)
{
    if (!PreProcess(a_node))
    {
        return nullptr;
    }
    const SValues values = ReadAttributes(s_rows, a_node);
    Attach(a_parent, Hidden(new Widgets::CProgressBar(Id(), X(), Y(), Width(), Height(), values.min, values.max,
                                                      values.current, values.leftToRight)));
    return this;
}

std::vector<SAttributeInfo> CProgressBarElement::Attributes() const
{
    std::vector<SAttributeInfo> list = CElement::Attributes();
    DescribeAttributes(s_rows, list);
    return list;
}

} // namespace Gfx::Layout
