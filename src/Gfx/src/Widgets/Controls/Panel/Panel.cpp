#include "Widgets/Controls/Panel/Panel.h"

#include "Managers/Config/StyleKeys.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <utility>

namespace Gfx::Widgets
{

using Common::detail::Saturated;
using Common::detail::Share;

namespace
{

/// A handler that changes what it is told of has the panel laid out again, or scrolled again, and so on; there is an
/// end to it.
constexpr int k_mostLayouts = 8;

constexpr int k_horizontalAnchors = 0x0F;
constexpr int k_verticalAnchors = 0xF0;

struct SStyle
{
    std::string raised = "Panel_Up";
    std::string lowered = "Panel_Down";
    int scrollBarSize = 80;
    int scrollingMargin = 10;
    int scrollBarRange = 100;
};

constexpr std::array s_styleKeys{
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Panel/Textures/Background/Raised", &SStyle::raised},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Panel/Textures/Background/Lowered", &SStyle::lowered},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Panel/ScrollBarSize", &SStyle::scrollBarSize},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Panel/ScrollingMargin", &SStyle::scrollingMargin},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Panel/ScrollBarRange", &SStyle::scrollBarRange},
};

/// The box around the visible children, along one axis.
struct SExtent
{
    std::int64_t start = std::numeric_limits<int>::max();
    std::int64_t end = std::numeric_limits<int>::min();

    void Add(int a_start, int a_length)
    {
        start = std::min(start, std::int64_t{a_start});
        end = std::max(end, std::int64_t{a_start} + a_length);
    }

    /// As the side of a widget.
    [[nodiscard]] int Length() const
    {
        return static_cast<int>(
            std::clamp(end - start, -std::int64_t{CWidget::k_longestSide}, std::int64_t{CWidget::k_longestSide}));
    }
};

/// How far the panel's corner moves back when a side grows by a_growth.
int Shift(int a_growth, bool a_isFarEdgeAnchored, bool a_isAnchored)
{
    if (a_isFarEdgeAnchored)
    {
        return a_growth;
    }
    return a_isAnchored ? 0 : a_growth / 2;
}

} // namespace

CPanel::CPanel(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_allowScrolling,
               bool a_raised)
    : CWidget(a_name, "Panel", a_x, a_y, a_width, a_height, a_allowScrolling)
{
    InitialiseClutterGroup();
    const auto& style = Managers::ReadStyle(s_styleKeys);
    m_background.Element(a_raised ? style.raised : style.lowered);
    m_scrollBarSize = style.scrollBarSize;
    m_scrollingMargin = style.scrollingMargin;
    m_scrollBarRange = style.scrollBarRange;
    LoadTextures();
    if (a_allowScrolling)
    {
        const Common::SMargins margins = m_background.Margins();
        m_scrollBar = Core::SharedPtr<CScrollBar>(
            new CScrollBar("PanelScrollBar", Width() - m_scrollBarSize - margins.right, margins.top, m_scrollBarSize,
                           Height() - margins.Vertical(), false, 0, m_scrollBarRange, 0, 1));
        m_scrollBar->Hide();
        CPanel::AddChild(m_scrollBar);
        m_scrollBar->SetScrollEventHandler(&m_scrollHandler);
    }
}

CPanel::~CPanel()
{
    if (m_scrollBar)
    {
        m_scrollBar->SetScrollEventHandler(nullptr);
    }
}

void CPanel::LoadTextures()
{
    if (m_hasBackground)
    {
        m_background.Retrieve({0, 0, Width(), Height()});
        UpdatePosition();
        QueueRedraw();
    }
}

void CPanel::UpdatePosition()
{
    if (HasScissor())
    {
        UpdateScissor(m_background.Margins());
    }
}

void CPanel::Background(bool a_background)
{
    if (a_background != m_hasBackground)
    {
        m_hasBackground = a_background;
        LoadTextures();
        Invalidate(false);
    }
}

void CPanel::BackgroundTexture(const std::string& a_element)
{
    m_background.Element(a_element);
    LoadTextures();
}

void CPanel::AutoSize(bool a_autoSize)
{
    if (!std::exchange(m_autoSize, a_autoSize) && a_autoSize)
    {
        PerformAutoResize();
    }
}

void CPanel::UpdateForScrollBars()
{
    if (m_scrolling)
    {
        // The places of children on their way say nothing. Whoever moves them comes back here.
        m_updateAfterScrolling = true;
        return;
    }
    if (!m_scrollBar || m_layouts == k_mostLayouts)
    {
        return;
    }
    const CLife life(Children());
    const Core::SharedPtr<CScrollBar> bar = m_scrollBar;
    ++m_layouts;
    m_targetOffset = 0;
    if (m_scrollOffset != 0 && !OffsetChildren(-std::int64_t{std::exchange(m_scrollOffset, 0)}))
    {
        return;
    }
    m_updateAfterScrolling = false;
    bar->Current(0);
    BringChildToFront(bar.Get());
    const bool fits = MeasureContent();
    if (m_contentTop < 0)
    {
        // Where the children are at rest.
        bar->Current(Saturated(Share(-std::int64_t{m_contentTop}, m_scrollBarRange, m_scrollExtent)));
    }
    bar->SetShowHide(!fits);
    if (!life.IsOver())
    {
        --m_layouts;
    }
}

bool CPanel::MeasureContent()
{
    std::int64_t top = 0;
    std::int64_t bottom = Height();
    for (const WidgetPtr& child : Children().Widgets())
    {
        if (child->Visible())
        {
            const std::int64_t childTop = child->TopLeft().Y();
            top = std::min(top, childTop);
            bottom = std::max(bottom, childTop + child->Height());
        }
    }
    const bool fits = Height() >= bottom - top;
    if (top < 0)
    {
        top -= m_scrollingMargin;
    }
    if (Height() < bottom)
    {
        bottom += m_scrollingMargin;
    }
    m_contentTop = Saturated(top);
    m_scrollExtent = Saturated(bottom - top - Height());
    return fits;
}

void CPanel::ScrollEvent(CWidget* a_source, int a_current)
{
    if (a_source == m_scrollBar.Get())
    {
        m_targetOffset = Saturated(-(Share(a_current, m_scrollExtent, m_scrollBarRange) + m_contentTop));
    }
    if (m_scrolling)
    {
        // From a handler of a child that is being moved: a round of its own, when all children have arrived.
        return;
    }
    for (int round = 0; round < k_mostLayouts; ++round)
    {
        const std::int64_t distance = std::int64_t{m_targetOffset} - m_scrollOffset;
        m_scrollOffset = m_targetOffset;
        if (!OffsetChildren(distance))
        {
            return;
        }
        if (m_updateAfterScrolling)
        {
            UpdateForScrollBars();
            return;
        }
        if (m_targetOffset == m_scrollOffset)
        {
            return;
        }
    }
}

bool CPanel::OffsetChildren(std::int64_t a_distance)
{
    const CLife life(Children());
    const Common::CPoint distance(0, Saturated(a_distance));
    m_scrolling = true;
    detail::CWidgetList::CUpwards children(Children());
    while (const WidgetPtr child = children.Next())
    {
        if (child != m_scrollBar && child->AllowedToScroll())
        {
            child->Move(child->TopLeft() + distance);
            // What clips deeper down must come along.
            child->NotifyPositionChanged();
        }
    }
    if (life.IsOver())
    {
        return false;
    }
    m_scrolling = false;
    return true;
}

void CPanel::PerformAutoResize()
{
    SExtent across;
    SExtent down;
    bool isEmpty = true;
    for (const WidgetPtr& child : Children().Widgets())
    {
        if (child->Visible())
        {
            across.Add(child->TopLeft().X(), child->Width());
            down.Add(child->TopLeft().Y(), child->Height());
            isEmpty = false;
        }
    }
    const int width = across.Length();
    const int height = down.Length();
    if (isEmpty || (width == Width() && height == Height()) || m_layouts == k_mostLayouts)
    {
        return;
    }
    const CLife life(Children());
    ++m_layouts;
    // The children stay where they are in the panel: the box counts only for its size.
    Move(TopLeft() -
         Common::CPoint(
             Shift(width - Width(), (m_anchorPoint & eapRight) != 0, (m_anchorPoint & k_horizontalAnchors) != 0),
             Shift(height - Height(), (m_anchorPoint & eapBottom) != 0, (m_anchorPoint & k_verticalAnchors) != 0)));
    if (life.IsOver())
    {
        return;
    }
    Resize(width, height);
    if (!life.IsOver())
    {
        --m_layouts;
    }
}

void CPanel::ChildrenChanged()
{
    const CLife life(Children());
    UpdateForScrollBars();
    if (!life.IsOver() && m_autoSize)
    {
        PerformAutoResize();
    }
}

void CPanel::StartAutocloseTimer()
{
    if (m_autocloseInterval > 0)
    {
        m_autocloseDeadline = Core::Time::Timer(m_autocloseInterval);
    }
}

void CPanel::Show()
{
    const CLife life(Children());
    StartAutocloseTimer();
    if (m_autoSize)
    {
        PerformAutoResize();
    }
    if (!life.IsOver())
    {
        CWidget::Show();
    }
}

void CPanel::ChildVisibilityChanged()
{
    const CLife life(Children());
    if (m_autoSize)
    {
        PerformAutoResize();
    }
    if (!life.IsOver())
    {
        CWidget::ChildVisibilityChanged();
    }
}

void CPanel::Invalidate(bool a_recursive)
{
    UpdatePosition();
    CWidget::Invalidate(a_recursive);
}

void CPanel::DrawSelf() const
{
    if (m_hasBackground)
    {
        m_background.Draw();
    }
}

void CPanel::Idle()
{
    const CLife life(Children());
    if (m_autocloseInterval > 0 && m_autocloseDeadline.Expired(Core::Time().Now()))
    {
        Hide();
    }
    if (!life.IsOver())
    {
        CWidget::Idle();
    }
}

void CPanel::NotifyPositionChanged()
{
    UpdatePosition();
    CWidget::NotifyPositionChanged();
}

void CPanel::Resize(int a_width, int a_height)
{
    const CLife life(Children());
    if (!ResizeSelf(a_width, a_height))
    {
        return;
    }
    LoadTextures();
    UpdateForScrollBars();
    if (!life.IsOver())
    {
        UpdatePosition();
    }
}

void CPanel::AddChild(WidgetPtr a_child)
{
    const CLife life(Children());
    CWidget::AddChild(std::move(a_child));
    if (!life.IsOver())
    {
        ChildrenChanged();
    }
}

void CPanel::AddChildren(std::list<WidgetPtr> a_children)
{
    const CLife life(Children());
    CWidget::AddChildren(std::move(a_children));
    if (!life.IsOver())
    {
        ChildrenChanged();
    }
}

void CPanel::RemoveChild(WidgetPtr a_child)
{
    CWidget::RemoveChild(std::move(a_child));
    ChildrenChanged();
}

void CPanel::DestroyChild(WidgetPtr a_child)
{
    const CLife life(Children());
    CWidget::DestroyChild(std::move(a_child));
    if (!life.IsOver())
    {
        UpdateForScrollBars();
    }
}

void CPanel::DestroyChild(CWidget* a_child)
{
    const CLife life(Children());
    CWidget::DestroyChild(a_child);
    if (!life.IsOver())
    {
        UpdateForScrollBars();
    }
}

void CPanel::RemoveAllChildren()
{
    CWidget::RemoveAllChildren();
    ChildrenChanged();
}

void CPanel::MouseEvent(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point, bool a_remote)
{
    const CLife life(Children());
    const bool hadMouseEvent = std::exchange(m_hasMouseEvent, true);
    CWidget::MouseEvent(a_event, a_buttons, a_point, a_remote);
    if (!life.IsOver())
    {
        m_hasMouseEvent = hadMouseEvent;
    }
}

void CPanel::ChildReceivedMouseEvent()
{
    const CLife life(Children());
    CWidget::ChildReceivedMouseEvent();
    // An event of the panel itself comes this way, too, and keeps nothing open.
    if (!life.IsOver() && !m_hasMouseEvent)
    {
        StartAutocloseTimer();
    }
}

void CPanel::UpdateStyle()
{
    if (UpdateStyleSelf())
    {
        LoadTextures();
        Invalidate(false);
    }
}

} // namespace Gfx::Widgets
