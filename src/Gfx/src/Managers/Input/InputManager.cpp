#include "Managers/Input/InputManager.h"

#include "Managers/Widgets/WidgetManager.h"
#include "Platform/Clutter/Clutter.h"

template class Core::Patterns::StaticSingleton<Gfx::Managers::CInputManager>;

namespace Gfx::Managers
{

using Core::Patterns::StaticSingleton;

namespace
{

Common::CPoint EventPoint(const ClutterEvent* a_event)
{
    float x = 0;
    float y = 0;
    clutter_event_get_coords(a_event, &x, &y);
    return {static_cast<int>(x), static_cast<int>(y)};
}

gboolean OnStageEvent(ClutterActor*, ClutterEvent* a_event, gpointer)
{
    CInputManager& input = StaticSingleton<CInputManager>::ref();
    switch (clutter_event_type(a_event))
    {
    case CLUTTER_MOTION:
        if ((clutter_event_get_state(a_event) & CLUTTER_BUTTON1_MASK) != 0)
        {
            input.MousePosition(EventPoint(a_event));
        }
        return TRUE;
    case CLUTTER_BUTTON_PRESS:
    case CLUTTER_BUTTON_RELEASE:
        if (clutter_event_get_button(a_event) == 1)
        {
            input.MouseButton(clutter_event_type(a_event) == CLUTTER_BUTTON_PRESS);
            input.MousePosition(EventPoint(a_event));
        }
        return TRUE;
    case CLUTTER_KEY_RELEASE:
        StaticSingleton<CWidgetManager>::ref().KeyboardEvent(clutter_key_event_symbol(&a_event->key));
        return TRUE;
    default: return FALSE;
    }
}

} // namespace

void CInputManager::ConnectClutter()
{
    if (m_connected)
    {
        return;
    }
    m_connected = true;
    ClutterActor* const stage = clutter_stage_get_default();
    for (const char* signal : {"button-press-event", "button-release-event", "key-release-event", "motion-event"})
    {
        g_signal_connect_data(stage, signal, G_CALLBACK(OnStageEvent), nullptr, nullptr, GConnectFlags{});
    }
}

void CInputManager::Idle() {}

void CInputManager::MouseButton(bool a_down)
{
    m_eventReported = false;
    m_touchState = a_down ? 1 : 0;
}

void CInputManager::MousePosition(const Common::CPoint& a_point)
{
    m_rawX = a_point.X();
    m_rawY = a_point.Y();
    ReportEvents();
}

void CInputManager::ReportEvents()
{
    const Common::CPoint point = TransformCoordinates(m_rawX, m_rawY);
    CWidgetManager& widgets = StaticSingleton<CWidgetManager>::ref();
    if (m_eventReported)
    {
        if (m_touchState == 1)
        {
            widgets.MouseEvent(Events::Move, Events::embFirst, point, false);
        }
        return;
    }
    // Set first: a handler may end up here again.
    m_eventReported = true;
    if (m_touchState == 1)
    {
        widgets.MouseEvent(Events::Move, 0, point, false);
        widgets.MouseEvent(Events::FirstDown, Events::embFirst, point, false);
    }
    else
    {
        widgets.MouseEvent(Events::Move, Events::embFirst, point, false);
        widgets.MouseEvent(Events::FirstUp, Events::embFirst, point, false);
    }
}

} // namespace Gfx::Managers
