#include "Managers/Widgets/WidgetManager.h"
#include "Platform/Clutter/Clutter.h"
#include "Widgets/HitTest.h"
#include "Widgets/Widget.h"

#include <utility>

namespace Gfx::Managers
{

using Widgets::CWidget;
using Widgets::detail::CWidgetList;

namespace
{

/// A drag changes how the widget and all that lies in it are drawn.
void RedrawForDrag(CWidget& a_widget)
{
    if (ClutterActor* actor = a_widget.GetActor())
    {
        clutter_actor_queue_redraw(actor);
    }
}

} // namespace

void CWidgetManager::MouseEvent(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point,
                                bool a_remote)
{
    const SPointerEvent event{a_event, a_buttons, a_point, a_remote};
    // Held to the end of the event, as the target is: handlers may destroy either.
    const WidgetPtr modal = GetModalWidget();
    const WidgetPtr target = FindTarget(event.point, modal);
    CarryOnDrag(event);
    if (target)
    {
        Dispatch(event, target);
    }
    else
    {
        DispatchToNothing(event);
    }
    if (const WidgetPtr pointer = m_mousePointer)
    {
        pointer->MouseEvent(event.event, event.buttons, event.point, false);
    }
}

CWidgetManager::WidgetPtr CWidgetManager::FindTarget(const Common::CPoint& a_point, const WidgetPtr& a_modal) const
{
    const int half = m_touchArea / 2;
    const Common::CPoint corner = a_point - Common::CPoint(half, half) - Common::CPoint(0, m_touchOffset);
    const Common::CAABB box(corner.X(), corner.Y(), m_touchArea, m_touchArea);
    if (a_modal)
    {
        if (!a_modal->AABB().Intersects(box))
        {
            return {};
        }
        const WidgetPtr child = a_modal->FindIntersectingChild(box);
        return child ? child : a_modal;
    }
    return Widgets::detail::CHitTest::FindBest(m_widgets, nullptr, box);
}

void CWidgetManager::CarryOnDrag(const SPointerEvent& a_event)
{
    const WidgetPtr dragged = m_draggedWidget;
    if (!dragged || !dragged->IsDragging())
    {
        return;
    }
    if (a_event.event == Events::Move)
    {
        dragged->UpdateDragging(a_event.point - m_dragOrigin);
    }
    else if (a_event.event == Events::FirstUp)
    {
        dragged->EndDragging();
        m_draggedWidget.Reset();
        RedrawForDrag(*dragged);
    }
}

void CWidgetManager::Dispatch(const SPointerEvent& a_event, const WidgetPtr& a_target)
{
    const auto& [event, buttons, point, remote] = a_event;
    const Common::CPoint local = a_target->FromAbsoluteToChildCoordinates(point);
    if (event == Events::FirstDown)
    {
        StartDrag(a_event, a_target, local);
        if (m_selectedWidget != a_target && a_target->Enabled())
        {
            ChangeSelection(a_target);
        }
    }

    if (m_hoverWidget != a_target && (a_target == m_firstButton.widget || a_target == m_thirdButton.widget))
    {
        a_target->MouseEvent(Events::Enter, buttons, local, remote);
    }
    if (const WidgetPtr left = m_hoverWidget; left && left != a_target)
    {
        left->MouseEvent(Events::Leave, buttons, local, remote);
    }
    m_hoverWidget = a_target;

    a_target->MouseEvent(event, buttons, local, remote);

    if (!m_firstButton.widget && event == Events::FirstDown)
    {
        m_firstButton.widget = a_target;
        m_firstButton.time.Now();
    }
    if (m_firstButton.widget && event == Events::FirstUp)
    {
        if (m_firstButton.widget == a_target)
        {
            TriggerNonClientEvents(point);
            a_target->MouseEvent(Events::FirstClick, buttons, local, remote);
        }
        m_firstButton.widget.Reset();
    }
    if (!m_thirdButton.widget && event == Events::ThirdDown)
    {
        m_thirdButton.widget = a_target;
        m_thirdButton.time.Now();
    }
    if (m_thirdButton.widget && event == Events::ThirdUp)
    {
        if (m_thirdButton.widget == a_target)
        {
            // The other way round than for the first button, whose click finds the popups closed.
            a_target->MouseEvent(Events::ThirdClick, buttons, local, remote);
            TriggerNonClientEvents(point);
        }
        m_thirdButton.widget.Reset();
    }
}

void CWidgetManager::StartDrag(const SPointerEvent& a_event, const WidgetPtr& a_target, const Common::CPoint& a_local)
{
    if (a_target->Draggable() && !m_draggedWidget && a_target->StartDragging(a_local))
    {
        m_dragOrigin = a_event.point;
        m_draggedWidget = a_target;
        RedrawForDrag(*a_target);
    }
}

void CWidgetManager::DispatchToNothing(const SPointerEvent& a_event)
{
    const Events::EMouseEvent event = a_event.event;
    const auto leave = [&a_event](const WidgetPtr& a_widget)
    {
        a_widget->MouseEvent(Events::Leave, a_event.buttons, a_widget->FromAbsoluteToChildCoordinates(a_event.point),
                             a_event.remote);
    };

    if (event == Events::FirstUp)
    {
        TriggerNonClientEvents(a_event.point);
    }
    if (event == Events::FirstDown)
    {
        if (const WidgetPtr selected = std::exchange(m_selectedWidget, {}))
        {
            selected->Deselect();
            m_selectedWidget.Reset();
        }
    }
    if (const WidgetPtr left = m_hoverWidget)
    {
        leave(left);
        m_hoverWidget.Reset();
    }
    if (event == Events::FirstUp)
    {
        m_firstButton.widget.Reset();
    }
    if (event == Events::ThirdUp)
    {
        m_thirdButton.widget.Reset();
    }
    if (const WidgetPtr pressed = m_firstButton.widget)
    {
        leave(pressed);
    }
    if (const WidgetPtr pressed = m_thirdButton.widget)
    {
        leave(pressed);
    }
}

void CWidgetManager::TriggerNonClientEvents(const Common::CPoint& a_point)
{
    const Common::CPoint point = a_point;
    CWidgetList::CUpwards widgets(m_nonClientWidgets);
    while (const WidgetPtr widget = widgets.Next())
    {
        if (!widget->AbsolutePointInWidget(point))
        {
            widget->MouseEvent(Events::NonClientHit, 0, point, false);
        }
    }
}

} // namespace Gfx::Managers
