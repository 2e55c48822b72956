#pragma once

#include "Core/Api.h"
#include "Core/Functor.h"
#include "Core/SharedPtr.h"
#include "Core/Time.h"
#include "Widgets/Controls/ScrollBar/ScrollBar.h"
#include "Widgets/TextureLayer.h"
#include "Widgets/Widget.h"

#include <cstdint>
#include <list>
#include <string>

namespace Gfx::Widgets
{

/// The container: children on a stretched background.
///
/// A panel that allows scrolling clips its children to the inside of the background's borders, and has a scroll bar,
/// "PanelScrollBar", which is one of its children and shows while the visible children reach beyond the top or the
/// bottom. Children are then moved: a child's top left is where it is now, and a change of the children or of the
/// panel's size takes all of them back to where they were.
///
/// With autoSize the panel follows the size of the box around its visible children. The children keep their places in
/// the panel, wherever that box lies.
///
/// Configuration, below `/Gfx/Controls/Panel/`: `Textures/Background/Raised` ("Panel_Up") and `Lowered`
/// ("Panel_Down"), `ScrollBarSize` (80, the bar's width), `ScrollingMargin` (10, what is kept free beyond the content
/// where that is scrolled), `ScrollBarRange` (100, the bar's maximum).
class GFX_API CPanel : public CWidget
{
public:
    /// Which edges of the panel stay where they are when its size follows the children; without a horizontal or
    /// vertical one, the middle does.
    enum EAnchorPoint : int
    {
        eapLeft = 0x01,
        eapRight = 0x02,
        eapTop = 0x10,
        eapBottom = 0x20
    };

    /// a_raised chooses between the two backgrounds of the configuration.
    CPanel(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_allowScrolling,
           bool a_raised);
    ~CPanel() override;

    /// Makes the quads anew, for the elements, the theme and the size that hold now. Happens by itself.
    void LoadTextures();

    [[nodiscard]] bool Background() const { return m_hasBackground; }
    void Background(bool a_background);

    /// The borders of the background count for the clipping even if it is off.
    [[nodiscard]] std::string BackgroundTexture() const { return m_background.Element(); }
    void BackgroundTexture(const std::string& a_element);

    /// Hides the panel so many seconds after the last Show() or mouse event in a child; 0 or less never. The time runs
    /// from the next of these: a visible panel that has had none closes at once.
    void AutocloseInterval(int a_seconds) { m_autocloseInterval = a_seconds; }

    [[nodiscard]] bool AutoSize() const { return m_autoSize; }
    void AutoSize(bool a_autoSize);

    /// A combination of EAnchorPoint.
    [[nodiscard]] int AnchorPoint() const { return m_anchorPoint; }
    void AnchorPoint(int a_anchorPoint) { m_anchorPoint = a_anchorPoint; }

    void Show() override;
    void ChildVisibilityChanged() override;
    void Invalidate(bool a_recursive) override;
    void DrawSelf() const override;
    void Idle() override;
    void NotifyPositionChanged() override;
    void Resize(int a_width, int a_height) override;
    void AddChild(WidgetPtr a_child) override;
    void AddChildren(std::list<WidgetPtr> a_children) override;
    void RemoveChild(WidgetPtr a_child) override;
    /// With autoSize the panel keeps its size, unlike when a child is removed.
    void DestroyChild(WidgetPtr a_child) override;
    void DestroyChild(CWidget* a_child) override;
    /// The scroll bar goes with the others.
    void RemoveAllChildren() override;
    void MouseEvent(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point, bool a_remote) override;
    void ChildReceivedMouseEvent() override;
    void UpdateStyle() override;

protected:
    /// Takes the children back to where they were before they were scrolled, and shows the bar if they don't fit. For
    /// a control whose children change by themselves.
    void UpdateForScrollBars();

    [[nodiscard]] Common::SMargins BackgroundMargins() const { return m_background.Margins(); }
    [[nodiscard]] int ScrollBarSize() const { return m_scrollBarSize; }

private:
    using ScrollHandler = Core::Functor<void, CWidget*, int>::Method<CPanel>;

    void UpdatePosition();
    void ScrollEvent(CWidget* a_source, int a_current);
    /// False if a move handler has destroyed the panel.
    [[nodiscard]] bool OffsetChildren(std::int64_t a_distance);
    /// Finds the extent of the visible children; true if they fit.
    [[nodiscard]] bool MeasureContent();
    void PerformAutoResize();
    void ChildrenChanged();
    void StartAutocloseTimer();

    CTextureLayer m_background;
    bool m_hasBackground = true;
    bool m_autoSize = false;
    /// The children are being scrolled, and their places can't be measured.
    bool m_scrolling = false;
    bool m_updateAfterScrolling = false;
    /// A mouse event of its own is under way.
    bool m_hasMouseEvent = false;
    /// How many layouts are under way, each from a handler that the one before has called.
    int m_layouts = 0;
    int m_scrollBarSize = 0;
    int m_scrollingMargin = 0;
    int m_scrollBarRange = 0;
    /// The top of the content, with the margin, where it lies above the panel; else 0.
    int m_contentTop = 0;
    /// How far the content can be scrolled.
    int m_scrollExtent = 0;
    /// How far the children are moved now, and how far they are to be when the present scrolling has ended.
    int m_scrollOffset = 0;
    int m_targetOffset = 0;
    /// Outlives the bar's use of it: the destructor takes it from the bar.
    ScrollHandler m_scrollHandler{this, &CPanel::ScrollEvent};
    Core::SharedPtr<CScrollBar> m_scrollBar;
    int m_autocloseInterval = -1;
    Core::Time m_autocloseDeadline;
    int m_anchorPoint = 0;
};

} // namespace Gfx::Widgets
