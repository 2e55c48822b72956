#pragma once

#include "Core/Api.h"
#include "Core/Functor.h"
#include "Core/SharedPtr.h"
#include "Gfx/Common/AABB.h"
#include "Gfx/Common/Colour.h"
#include "Gfx/Common/Margins.h"
#include "Gfx/Common/MouseEvent.h"
#include "Gfx/Common/Point.h"
#include "Widgets/Property.h"
#include "Widgets/WidgetList.h"
#include "Widgets/WidgetStatus.h"

#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

typedef struct _ClutterActor ClutterActor;

namespace Gfx::Managers
{
class CWidgetManager;
}

namespace Gfx::Widgets
{

namespace detail
{
class CHitTest;
}

/// The base of every control: a rectangle of the screen with a name, children, handlers and a group in the scene graph.
///
/// A control calls InitialiseClutterGroup() in its constructor, once its fields are set, draws in DrawSelf() and falls
/// back to this class for events and properties it doesn't know. Widgets are held by Core::SharedPtr, a top-level one
/// by Managers::CWidgetManager and a child by its parent; take one off the screen with
/// Managers::CWidgetManager::DestroyWidget or DestroyChild.
///
/// Handlers stay their installer's property and must outlive the widget or be replaced by null. Those with a bool
/// result can refuse the change they are told of by returning false.
///
/// Properties: "Visible" ("True"; anything else hides), "Opacity" (percent), "Position" ("x,y", write-only),
/// "RemoteLockout" (read-only); any other name is kept and shown in the custom info.
///
/// \code
/// class CLamp : public Gfx::Widgets::CWidget
/// {
/// public:
///     CLamp(int a_x, int a_y) : CWidget("Lamp", "Lamp", a_x, a_y, 60, 60, false) { InitialiseClutterGroup(); }
///     void DrawSelf() const override { Gfx::Utilities::FillRectangle({0, 0, Width(), Height()}, Gfx::Colours::Gold); }
/// };
/// \endcode
class GFX_API CWidget
{
public:
    using WidgetPtr = Core::SharedPtr<CWidget>;
    using VetoableToggleHandler = Core::Functor<bool, CWidget*, bool>::Signature;
    using ToggleHandler = Core::Functor<void, CWidget*, bool>::Signature;
    using MoveHandler = Core::Functor<bool, CWidget*, const Common::CPoint&>::Signature;
    using ResizeHandler = Core::Functor<bool, CWidget*, int, int>::Signature;
    using NotifyHandler = Core::Functor<void, CWidget*>::Signature;
    using ClickHandler = Core::Functor<void, CWidget*, int, const Common::CPoint&, bool>::Signature;
    using MouseHandler =
        Core::Functor<void, CWidget*, Events::EMouseEvent, int, const Common::CPoint&, bool>::Signature;

    /// The longest side of a widget, in pixels: what the scene graph's numbers tell exactly. Sums of a few sides and
    /// margins are safe in int.
    static constexpr int k_longestSide = 1 << 24;

    /// a_x and a_y are pixels from the top left of the parent, or of the stage; a_type is the control's word in status
    /// dumps; with a_scissor the children are clipped to the widget's rectangle as it is on the screen when
    /// InitialiseClutterGroup() runs.
    CWidget(const std::string& a_name, const std::string& a_type, int a_x, int a_y, int a_width, int a_height,
            bool a_scissor);
    CWidget();
    CWidget(const CWidget&) = delete;
    CWidget& operator=(const CWidget&) = delete;

    /// Makes the widget's group and tells an installed visibility handler that the widget is visible.
    virtual void InitialiseClutterGroup();

    /// Stops the group drawing. Its removal from the scene is Managers::CWidgetManager::DestroyWidget's work.
    virtual ~CWidget();

    /// The widget's group, which the widget keeps alive; null before InitialiseClutterGroup().
    virtual ClutterActor* GetActor();

    /// The widget's rectangle on the stage.
    [[nodiscard]] virtual Common::CAABB AABB() const;

    /// The actor is hidden or shown before the visibility handler is asked, and stays so if the handler refuses.
    virtual void Hide();
    virtual void Show();

    /// Called on the parent when a child has been shown or hidden. Does nothing here.
    virtual void ChildVisibilityChanged();

    /// A visible, enabled, modal top-level widget keeps pointer events from all others.
    virtual void Modal(bool a_modal);
    [[nodiscard]] virtual bool Modal() const;

    /// Marks the widget and all its ancestors. Who has the keyboard is Managers::CWidgetManager::Select's decision.
    virtual void Select();
    virtual void Deselect();

    /// Queues a redraw of what the widget and its children cover; recursive, the children's Invalidate runs, too.
    virtual void Invalidate(bool a_recursive);

    /// Draws the widget below its children, in its own coordinates and within its size: what lies outside is not
    /// redrawn when it changes. The current colour carries its transparency, so
    /// draw through Gfx::Utilities, or modulate by it.
    virtual void DrawSelf() const;

    /// Called from the main loop, at most once in 20 ms: on top-level widgets that are visible and enabled, and by them
    /// on children that are visible.
    virtual void Idle();

    /// The widget's place on the stage may have changed.
    virtual void NotifyPositionChanged();

    /// Neither operation adjusts a scissor rectangle or notifies the children. A side is kept within k_longestSide.
    virtual void Move(const Common::CPoint& a_topLeft);
    virtual void Resize(int a_width, int a_height);

    /// False for what stands on the stage alone, as windows do.
    [[nodiscard]] virtual bool CanBeChild();

    /// Puts a_child on top of the other children; it leaves the parent it had. Null, the widget itself and its
    /// ancestors are refused with a log line. A child whose CanBeChild() is false ends the process.
    virtual void AddChild(WidgetPtr a_child);
    virtual void AddChildren(std::list<WidgetPtr> a_children);

    /// Forgets a_child. Its actor stays in this widget's group, on the screen, and dies with it, unless the child is
    /// added elsewhere before.
    virtual void RemoveChild(WidgetPtr a_child);

    /// Forgets a_child and takes it off the screen; does nothing if it isn't a child.
    virtual void DestroyChild(WidgetPtr a_child);
    virtual void DestroyChild(CWidget* a_child);

    /// The same for all children.
    virtual void RemoveAllChildren();

    /// The top left on the stage.
    [[nodiscard]] virtual Common::CPoint AbsoluteTopLeft() const;

    [[nodiscard]] virtual bool Draggable() const;

    /// A press at a_point, in the widget's coordinates. True starts the drag.
    virtual bool StartDragging(const Common::CPoint& a_point);

    /// a_displacement is the whole way since the press, in pixels of the screen.
    virtual void UpdateDragging(const Common::CPoint& a_displacement);

    /// The button came up, wherever.
    virtual void EndDragging();

    /// Here, whether an ancestor is dragged.
    [[nodiscard]] virtual bool IsDragging() const;

    /// True for a widget that is half transparent, and doesn't hide what it covers, while it is dragged.
    [[nodiscard]] virtual bool TransparentOnDrag() const;

    /// a_point is in the widget's coordinates, except for NonClientHit and for the mouse pointer widget, which get
    /// stage coordinates. a_remote marks events that don't come from the console itself. Overrides call this one: it
    /// runs the handlers.
    virtual void MouseEvent(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point, bool a_remote);

    /// Some descendant, or the widget itself, has had a mouse event.
    virtual void ChildReceivedMouseEvent();

    /// a_key is an X key symbol.
    virtual void KeyboardEvent(unsigned int a_key);

    /// Any name is taken: what the control doesn't know is kept as it is. a_default is for a name that nobody has set.
    virtual void SetProperty(const std::string& a_name, const std::string& a_value);
    [[nodiscard]] virtual std::string GetProperty(const std::string& a_name, const std::string& a_default);

    /// a_opacity in percent, kept within 0 to 100; 100 switches transparency off.
    virtual void SetTransparency(int a_opacity, bool a_recursive);
    [[nodiscard]] virtual int GetTransparency() const;
    virtual void EnableTransparency();
    virtual void DisableTransparency();

    /// Shows the texts in the present language, or takes over what configuration and theme say; here, the children's.
    virtual void UpdateLocalisedText();
    virtual void UpdateStyle();

    /// Puts the control's own values into the custom info, by SetCustomInfo.
    virtual void UpdateCustomInfo();

    /// All properties that the widget knows by itself, the base classes' first. A name may come again, where a control
    /// has a meaning of its own for it.
    [[nodiscard]] virtual std::vector<SPropertyInfo> Properties() const;

    void SetShowHide(bool a_show);

    /// The handler is asked first, and a change queues a redraw. A disabled widget gets no pointer events.
    void Enable();
    void Disable();

    [[nodiscard]] bool Visible() const { return m_visible; }
    [[nodiscard]] bool Enabled() const { return m_enabled; }
    [[nodiscard]] bool Selected() const { return m_selected; }

    /// Null for a widget at the top level or off the screen.
    [[nodiscard]] CWidget* Parent() { return m_parent; }
    [[nodiscard]] const CWidget* Parent() const { return m_parent; }

    /// Relative to the parent, or to the stage for a top-level widget.
    [[nodiscard]] const Common::CPoint& TopLeft() const { return m_topLeft; }

    [[nodiscard]] int Width() const { return m_width; }
    [[nodiscard]] int Height() const { return m_height; }

    /// Unique at best among the siblings.
    [[nodiscard]] const std::string& Name() const { return m_name; }
    void SetName(const std::string& a_name) { m_name = a_name; }

    /// The names from the top-level ancestor down, with ":" between them, as Managers::CWidgetManager::FindWidget takes
    /// them. The argument is without effect.
    [[nodiscard]] std::string GetName(bool a_unused = false) const;

    [[nodiscard]] const std::string& Type() const { return m_type; }

    /// The weight in the hit test; 0 is never hit.
    [[nodiscard]] int MousePriority() const { return m_mousePriority; }
    void MousePriority(int a_priority) { m_mousePriority = a_priority; }

    [[nodiscard]] bool AllowedToScroll() const { return m_allowedToScroll; }
    void AllowedToScroll(bool a_allowed) { m_allowedToScroll = a_allowed; }

    /// A locked-out widget is blind to remote mouse events.
    [[nodiscard]] bool RemoteLockout() const { return m_remoteLockout; }
    void RemoteLockout(bool a_lockout) { m_remoteLockout = a_lockout; }

    /// Points and boxes are those of the stage; areas are square pixels, and edges count as inside.
    [[nodiscard]] Common::CPoint FromAbsoluteToChildCoordinates(const Common::CPoint& a_point) const;
    [[nodiscard]] bool AbsolutePointInWidget(const Common::CPoint& a_point) const;
    [[nodiscard]] bool Intersects(const WidgetPtr& a_other) const;
    [[nodiscard]] int IntersectionArea(const Common::CAABB& a_box) const;

    /// The descendant that an event in a_box, a box of the stage, is for; empty if it is for the widget itself.
    [[nodiscard]] WidgetPtr FindIntersectingChild(const Common::CAABB& a_box) const;

    /// True for a child or a descendant of any depth.
    [[nodiscard]] bool HasChild(const CWidget* a_widget) const;

    /// In the order of the siblings, or of the top-level widgets. A child of another widget is left alone.
    void BringToFront();
    void SendToBack();
    void BringChildToFront(CWidget* a_child);
    void SendChildToBack(CWidget* a_child);

    /// Draws the widget, unless it is hidden or covered. Called by its group when that is painted.
    void Draw() const;

    /// What the status dump shows beside the common values: all plain properties, and the control's own values.
    const std::map<std::string, std::string>& GetCustomInfo();

    /// Brings the status dump of the widget, and with it those of its visible descendants, up to date; returns its
    /// text.
    std::string GetWidgetInfo();

    /// The status dump as GetWidgetInfo() has left it, to be written to a file.
    [[nodiscard]] CWidgetStatus& Status() { return Record().status; }

    void SetVisibilityChangedEventHandler(VetoableToggleHandler* a_handler) { m_visibilityChangedHandler = a_handler; }
    void SetEnabledChangedEventHandler(VetoableToggleHandler* a_handler) { m_enabledChangedHandler = a_handler; }
    void SetSelectedChangedEventHandler(ToggleHandler* a_handler) { m_selectedChangedHandler = a_handler; }
    void SetMoveEventHandler(MoveHandler* a_handler) { m_moveHandler = a_handler; }
    void SetResizeEventHandler(ResizeHandler* a_handler) { m_resizeHandler = a_handler; }
    void SetNonClientHitEventHandler(NotifyHandler* a_handler) { m_nonClientHitHandler = a_handler; }
    void SetClickEventHandler(ClickHandler* a_handler) { m_clickHandler = a_handler; }
    void SetMouseEventHandler(MouseHandler* a_handler) { m_mouseHandler = a_handler; }

protected:
    /// Tells, during an operation that runs handlers, whether one of them has ended the widget: give it Children().
    using CLife = detail::CWidgetList::CLife;

    /// Resize() of this class, for overrides that go on with work of their own; false if the resize handler has
    /// ended the widget. A handler that refuses makes no difference here.
    [[nodiscard]] bool ResizeSelf(int a_width, int a_height);

    /// UpdateStyle() of this class, for overrides likewise.
    [[nodiscard]] bool UpdateStyleSelf();

    /// For a control that is another one with more to it: the word of its own in status dumps.
    void SetType(const std::string& a_type) { m_type = a_type; }

    /// Whether the children are clipped.
    [[nodiscard]] bool HasScissor() const { return m_scissor; }

    /// Clips the children to the widget's rectangle as it is on the screen now, less a_margins. Does nothing on a
    /// widget that doesn't clip.
    void UpdateScissor(const Common::SMargins& a_margins);

    /// A pointer to this widget from whoever holds it, its parent or the top level: keeps it alive while handlers run
    /// that may destroy it. Empty for a widget that is in neither's list.
    [[nodiscard]] WidgetPtr Self() const;

    /// Changes the position, and nothing else: no handler is asked, and the actor stays.
    void SetTopLeft(const Common::CPoint& a_topLeft) { m_topLeft = a_topLeft; }

    /// The values that the status dump shows of the control, by name.
    void SetCustomInfo(const std::string& a_name, const std::string& a_value);
    void ClearCustomInfo() { Record().customInfo.clear(); }

    /// Whether the widget has a custom info yet. Before somebody asks for it or sets one, which few widgets live to
    /// see, a control whose UpdateCustomInfo() always sets the same names can spare itself the work.
    [[nodiscard]] bool HasCustomInfo() const { return m_record != nullptr; }

    /// Queues a redraw as Invalidate(false) of this class does, for what changes no layout.
    void QueueRedraw();

    /// White, with the widget's opacity as alpha.
    [[nodiscard]] const CColour& TransparencyColour() const { return m_transparencyColour; }

    /// The children, from back to front.
    [[nodiscard]] const detail::CWidgetList& Children() const { return m_children; }

private:
    friend class Managers::CWidgetManager;
    friend class CWidgetStatus;
    friend class detail::CHitTest;

    /// What only dumps, and properties that the control doesn't know, have use for.
    struct SRecord
    {
        CWidgetStatus status;
        std::map<std::string, std::string> customInfo;
        std::map<std::string, std::string> properties;
    };

    SRecord& Record();
    const CWidgetStatus& UpdatedStatus();
    void DestroyFoundChild(const WidgetPtr& a_child);
    /// Moves the child's actor into this widget's group; false if handlers have prevented it.
    [[nodiscard]] bool Adopt(const WidgetPtr& a_child);
    void Orphan(CWidget& a_child);
    void SetVisible(bool a_visible);
    void SetEnabled(bool a_enabled);
    /// False if the handler has destroyed the widget.
    [[nodiscard]] bool SetSelected(bool a_selected);
    /// Makes the actor's visibility the widget's again, when it has come into another container.
    void ShowAsItWas();

    // What the hit test reads of each widget comes first and lies together.
    bool m_visible = true;
    bool m_enabled = true;
    bool m_selected = false;
    bool m_modal = false;
    bool m_scissor = false;
    bool m_allowedToScroll = true;
    bool m_transparencyEnabled = false;
    bool m_remoteLockout = false;
    Common::CPoint m_topLeft;
    int m_width = 0;
    int m_height = 0;
    int m_mousePriority = 100;
    int m_opacity = 100;
    CWidget* m_parent = nullptr;
    detail::CWidgetList m_children;

    ClutterActor* m_actor = nullptr;
    CColour m_transparencyColour{255, 255, 255, 255};
    /// DestroyWidget has hidden the actor.
    bool m_destroyed = false;

    VetoableToggleHandler* m_visibilityChangedHandler = nullptr;
    VetoableToggleHandler* m_enabledChangedHandler = nullptr;
    ToggleHandler* m_selectedChangedHandler = nullptr;
    MoveHandler* m_moveHandler = nullptr;
    ResizeHandler* m_resizeHandler = nullptr;
    NotifyHandler* m_nonClientHitHandler = nullptr;
    ClickHandler* m_clickHandler = nullptr;
    MouseHandler* m_mouseHandler = nullptr;

    std::string m_name;
    std::string m_type;
    /// Made when it is first needed.
    std::unique_ptr<SRecord> m_record;
};

} // namespace Gfx::Widgets
