#include "Widgets/HitTest.h"

#include "Widgets/Widget.h"

#include <cstdint>

namespace Gfx::Widgets
{

namespace detail
{

CWidgetList::WidgetPtr CHitTest::FindBest(const CWidgetList& a_widgets, const Common::CAABB& a_box)
{
    const CWidgetList::WidgetPtr* best = FindEntry(a_widgets, a_box);
    return best != nullptr ? *best : CWidgetList::WidgetPtr();
}

const CWidgetList::WidgetPtr* CHitTest::FindEntry(const CWidgetList& a_widgets, const Common::CAABB& a_box)
{
    const CWidgetList::WidgetPtr* best = nullptr;
    std::int64_t bestScore = 0;
    const auto& widgets = a_widgets.Widgets();
    for (auto entry = widgets.rbegin(); entry != widgets.rend(); ++entry)
    {
        const CWidget& widget = **entry;
        if (!widget.m_visible || !widget.m_enabled || !widget.AABB().Intersects(a_box))
        {
            continue;
        }
        const CWidgetList::WidgetPtr* child = FindEntry(widget.m_children, a_box);
        const CWidgetList::WidgetPtr* candidate = child != nullptr ? child : &*entry;
        const std::int64_t score =
            std::int64_t{(*candidate)->IntersectionArea(a_box)} * (*candidate)->MousePriority();
        if (score > bestScore)
        {
            best = candidate;
            bestScore = score;
        }
    }
    return best;
}

} // namespace detail

CWidget::WidgetPtr CWidget::FindIntersectingChild(const Common::CAABB& a_box) const
{
    return detail::CHitTest::FindBest(m_children, a_box);
}

} // namespace Gfx::Widgets
