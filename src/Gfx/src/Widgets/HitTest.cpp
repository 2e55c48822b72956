#include "Widgets/HitTest.h"

#include "Widgets/Widget.h"

#include <cstddef>
#include <cstdint>

namespace Gfx::Widgets
{

namespace detail
{

namespace
{

/// How many widgets ahead of the one in hand.
constexpr std::size_t k_prefetch = 8;

#if defined(__GNUC__) && !defined(__clang__)
// GCC's extension for bound member functions: the function that a virtual call would end in.
#    pragma GCC diagnostic push
#    pragma GCC diagnostic ignored "-Wpedantic"
#    pragma GCC diagnostic ignored "-Wpmf-conversions"

/// Whether a widget's class leaves AABB() and AbsoluteTopLeft() as CWidget has them. Then its place follows from its
/// parent's, and nothing needs to be called for it: a touch asks this of every widget on the screen.
bool HasPlainPlace(const CWidget& a_widget)
{
    using Box = Common::CAABB (*)(const CWidget*);
    using Corner = Common::CPoint (*)(const CWidget*);
    return reinterpret_cast<Box>(a_widget.*(&CWidget::AABB)) == reinterpret_cast<Box>(&CWidget::AABB) &&
           reinterpret_cast<Corner>(a_widget.*(&CWidget::AbsoluteTopLeft)) ==
               reinterpret_cast<Corner>(&CWidget::AbsoluteTopLeft);
}

#    pragma GCC diagnostic pop
#else
bool HasPlainPlace(const CWidget&)
{
    return false;
}
#endif

} // namespace

CWidgetList::WidgetPtr CHitTest::FindBest(const CWidgetList& a_widgets, const CWidget* a_parent,
                                          const Common::CAABB& a_box)
{
    const Common::CPoint origin = a_parent != nullptr ? a_parent->AbsoluteTopLeft() : Common::CPoint();
    const SHit hit = Find(a_widgets, a_parent != nullptr ? &origin : nullptr, a_box);
    return hit.entry != nullptr ? *hit.entry : CWidgetList::WidgetPtr();
}

CHitTest::SHit CHitTest::Find(const CWidgetList& a_widgets, const Common::CPoint* a_origin, const Common::CAABB& a_box)
{
    SHit best;
    std::int64_t bestScore = 0;
    // The touch as the parent sees it, so that most widgets are told to be missed by nothing but their own fields.
    Common::CAABB boxInParent = a_box;
    if (a_origin != nullptr)
    {
        const Common::CPoint corner = Common::CPoint(a_box.Left(), a_box.Top()) - *a_origin;
        boxInParent.Left(corner.X());
        boxInParent.Top(corner.Y());
    }
    const auto& widgets = a_widgets.Widgets();
    for (std::size_t i = widgets.size(); i-- > 0;)
    {
        // The widgets lie all over the heap; asking for them ahead hides most of the way there.
        __builtin_prefetch(widgets[i >= k_prefetch ? i - k_prefetch : 0].Get());
        const CWidget& widget = *widgets[i];
        if (!widget.m_visible || !widget.m_enabled)
        {
            continue;
        }
        Common::CPoint topLeft;
        Common::CAABB box;
        if (a_origin != nullptr && HasPlainPlace(widget))
        {
            if (!Common::CAABB(widget.m_topLeft.X(), widget.m_topLeft.Y(), widget.m_width, widget.m_height)
                     .Intersects(boxInParent))
            {
                continue;
            }
            topLeft = widget.m_topLeft + *a_origin;
            box = Common::CAABB(topLeft.X(), topLeft.Y(), widget.m_width, widget.m_height);
        }
        else
        {
            topLeft = widget.AbsoluteTopLeft();
            box = widget.AABB();
        }
        if (!box.Intersects(a_box))
        {
            continue;
        }
        SHit hit = Find(widget.m_children, &topLeft, a_box);
        if (hit.entry == nullptr)
        {
            hit = {&widgets[i], box.IntersectionArea(a_box)};
        }
        const std::int64_t score = std::int64_t{hit.area} * (*hit.entry)->MousePriority();
        if (score > bestScore)
        {
            best = hit;
            bestScore = score;
        }
    }
    return best;
}

} // namespace detail

CWidget::WidgetPtr CWidget::FindIntersectingChild(const Common::CAABB& a_box) const
{
    return detail::CHitTest::FindBest(m_children, this, a_box);
}

} // namespace Gfx::Widgets
