#pragma once

#include "Core/Api.h"
#include "Core/Functor.h"
#include "Core/SharedPtr.h"
#include "Core/StaticSingleton.h"
#include "Core/Time.h"
#include "Gfx/Common/MouseEvent.h"
#include "Gfx/Common/Point.h"
#include "Widgets/WidgetList.h"

#include <list>
#include <string>
#include <vector>

typedef struct _ClutterActor ClutterActor;

namespace Gfx::Widgets
{
class CMessageBox;
class CWidget;
} // namespace Gfx::Widgets

namespace Gfx::Managers
{

/// The top-level widgets, and which widget is pressed, hovered, dragged, selected: the way in for pointer and key
/// events, and the way out for widgets that are to leave the screen.
///
/// Comes to life at its first use. That has to come after CGfxManager::Setup: before, there is no configuration to take
/// the touch area from, and no localisation to hear from. Handlers that run inside its operations may call any of them
/// again. A search without result is an empty pointer, and an operation on a widget that isn't known does nothing.
class GFX_API CWidgetManager
{
public:
    using WidgetPtr = Core::SharedPtr<Widgets::CWidget>;
    using OptionHandler = Core::Functor<void, int>::Signature;
    using KeyboardEventCallback = Core::Functor<bool, unsigned int>::Signature;

    CWidgetManager();
    ~CWidgetManager();
    CWidgetManager(const CWidgetManager&) = delete;
    CWidgetManager& operator=(const CWidgetManager&) = delete;

    /// Puts a_widget on top of the stage and gives it the keyboard, whether or not it is enabled. Does nothing if it is
    /// there already. Null, and a widget without a stage, cost a log line.
    void AddWidget(WidgetPtr a_widget);

    /// Takes a widget off the screen, be it at the top level or the child of another, and ends whatever press, hover,
    /// drag and selection is going on anywhere, silently. If it was a selected top-level widget, the topmost one that
    /// remains is selected. The object dies with its last pointer: a child is still held by its parent, so use
    /// CWidget::DestroyChild there.
    void DestroyWidget(Widgets::CWidget* a_widget);

    /// Finds by a path of names with ":" between them: below a_parent first, if it is given, then from the top level.
    /// The second form looks below a_parent alone. On each level the first widget of a name is the one.
    [[nodiscard]] WidgetPtr FindWidget(const std::string& a_path, Widgets::CWidget* a_parent);
    [[nodiscard]] WidgetPtr FindWidget(Widgets::CWidget* a_parent, const std::vector<std::string>& a_parts);

    /// Puts a widget over or under its siblings, or a top-level one over or under all others. The selection stays.
    void BringToFront(Widgets::CWidget* a_widget);
    void SendToBack(Widgets::CWidget* a_widget);

    /// The topmost top-level widget that is modal, visible and enabled; empty if there is none.
    [[nodiscard]] WidgetPtr GetModalWidget() const;

    /// Gives a_widget the keyboard, unless it is disabled.
    void Select(WidgetPtr a_widget);

    /// Adds a_widget and gives it every event, in stage coordinates, so that it can move itself to the pointer; empty
    /// for none. It is hit like any other widget unless its priority is 0, and it is held, and told, until another
    /// takes its place, even if it is destroyed.
    void SetMousePointer(WidgetPtr a_widget);

    /// Frees the actors of destroyed widgets.
    void GarbageCollect();

    /// Gives every visible, enabled top-level widget its idle time.
    void Idle();

    /// Has every top-level widget, and so all widgets on the screen, read its style, or its texts, anew.
    void UpdateStyle();
    void UpdateLocalisation();

    /// Whether a_widget is to be painted: it and its ancestors are visible, and no top-level widget above covers its
    /// top-level ancestor completely.
    [[nodiscard]] bool IsVisible(const Widgets::CWidget* a_widget) const;

    [[nodiscard]] std::vector<std::string> VisibleWidgetNames() const;

    /// Those on the stage itself, the topmost last.
    [[nodiscard]] std::vector<WidgetPtr> TopLevelWidgets() const;

    /// Shows a modal box with a message and up to three buttons, those whose captions aren't empty, in the middle of
    /// the display. a_handler, which stays the caller's, gets the number of the button that closes the box, from 1;
    /// null for none. The box is the manager's, and gone with that click; null if it couldn't be shown. Boxes lie on
    /// one another, and all have the name "WidgetMgrMessage".
    Widgets::CMessageBox* ShowMessageBox(int a_width, int a_height, const std::string& a_title,
                                         const std::string& a_message, OptionHandler* a_handler,
                                         const std::string& a_btn1, const std::string& a_btn2,
                                         const std::string& a_btn3);

    /// a_callback sees each key before the selected widget does, and keeps it by returning false. It is owned from now
    /// on; null for none.
    void SetKeyboardEventCallback(KeyboardEventCallback* a_callback);

    /// a_key is an X key symbol.
    void KeyboardEvent(unsigned int a_key);

    /// A registered widget gets a NonClientHit for every click outside it, and is held until it is deregistered.
    void RegisterForNonClientHitEvents(WidgetPtr a_widget);
    void DeregisterForNonClientHitEvents(WidgetPtr a_widget);
    void TriggerNonClientEvents(const Common::CPoint& a_point);

    /// The entry of all pointer input. a_point is in stage coordinates, a_buttons the mask of buttons held; a_remote
    /// marks an event that doesn't come from the console itself.
    ///
    /// The target is the widget with the greatest product of overlap with the touch area and priority. It is selected
    /// by a press, and the press may start a drag; a button that comes up where it went down makes a click.
    void MouseEvent(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point, bool a_remote);

    [[nodiscard]] bool DraggingInProgress() const { return static_cast<bool>(m_draggedWidget); }

    /// The side of the square around a touch in which widgets compete for it, in pixels.
    [[nodiscard]] int TouchArea() const { return m_touchArea; }

    /// How far above the contact the square lies, in pixels.
    [[nodiscard]] int TouchOffset() const { return m_touchOffset; }

private:
    friend class Widgets::CWidget;

    struct SButtonPress
    {
        WidgetPtr widget;
        Core::Time time;
    };

    /// What an event brings to each step of its dispatch.
    struct SPointerEvent
    {
        Events::EMouseEvent event;
        int buttons;
        Common::CPoint point;
        bool remote;
    };

    [[nodiscard]] WidgetPtr FindTopLevel(const std::string& a_name) const;
    void ChangeSelection(const WidgetPtr& a_widget);

    [[nodiscard]] WidgetPtr FindTarget(const Common::CPoint& a_point, const WidgetPtr& a_modal) const;
    void CarryOnDrag(const SPointerEvent& a_event);
    void Dispatch(const SPointerEvent& a_event, const WidgetPtr& a_target);
    void DispatchToNothing(const SPointerEvent& a_event);
    void StartDrag(const SPointerEvent& a_event, const WidgetPtr& a_target, const Common::CPoint& a_local);

    /// Takes a widget from wherever it is, and its actor from its container and from the dead ones, so that it can be
    /// put elsewhere. Its actor must be held by another than the container.
    void Detach(const WidgetPtr& a_widget);

    /// Shared, so that a callback which replaces itself lives to its end.
    Core::SharedPtr<KeyboardEventCallback> m_keyboardEventCallback;
    Widgets::detail::CWidgetList m_widgets;
    SButtonPress m_firstButton;
    SButtonPress m_thirdButton;
    WidgetPtr m_hoverWidget;
    WidgetPtr m_draggedWidget;
    WidgetPtr m_selectedWidget;
    Widgets::detail::CWidgetList m_nonClientWidgets;
    WidgetPtr m_mousePointer;
    Common::CPoint m_dragOrigin;
    /// Each entry is a reference.
    std::list<ClutterActor*> m_deadActors;
    int m_touchArea = 1;
    int m_touchOffset = 0;
};

} // namespace Gfx::Managers

extern template class GFX_API Core::Patterns::StaticSingleton<Gfx::Managers::CWidgetManager>;
