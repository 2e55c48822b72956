#include "Managers/Input/InputManager.h"

#include "Managers/Widgets/WidgetManager.h"
#include "Platform/Clutter/Clutter.h"

#include <algorithm>
#include <cmath>
#include <type_traits>

template class Core::Patterns::StaticSingleton<Gfx::Managers::CInputManager>;

namespace Gfx::Managers
{

using Core::Patterns::StaticSingleton;

namespace
{

/// How long the power key is held to mean something, and something else.
constexpr float k_holdSeconds = 1.0F;
constexpr float k_longHoldSeconds = 5.0F;

void SendKey(unsigned int a_symbol)
{
    StaticSingleton<CWidgetManager>::ref().KeyboardEvent(a_symbol);
}

/// Cut to a whole number. Events that a program makes can have any coordinates.
int Pixel(float a_coordinate)
{
    constexpr float furthest = 1 << 30;
    return std::isnan(a_coordinate) ? 0 : static_cast<int>(std::clamp(a_coordinate, -furthest, furthest));
}

Common::CPoint EventPoint(const ClutterEvent* a_event)
{
    float x = 0;
    float y = 0;
    clutter_event_get_coords(a_event, &x, &y);
    return {Pixel(x), Pixel(y)};
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
    case CLUTTER_KEY_RELEASE: SendKey(clutter_key_event_symbol(&a_event->key)); return TRUE;
    default: return FALSE;
    }
}

// Destroyed at exit, it would leave the main loop's sources and the supervisor's callbacks behind.
static_assert(std::is_trivially_destructible_v<CInputManager>);

} // namespace

CInputManager::CInputManager()
{
    using AvrClient = CTamarindAVREventClient;
    using Switch = Core::Functor<void, AvrClient::ETamarindAVREvent, bool>::Method<CInputManager>;
    using PowerKey = Core::Functor<void, AvrClient::ETamarindAVREvent, bool, double>::Method<CInputManager>;
    LoadCalibration();
    Probe();
    m_avrClient = new AvrClient;
    m_avrClient->SetPowerKeyEventCallback(new PowerKey(this, &CInputManager::PowerKeyEvent));
    m_avrClient->SetIgnitionEventCallback(new Switch(this, &CInputManager::IgnitionEvent));
    m_avrClient->SetGuidanceLineChangedEventCallback(new Switch(this, &CInputManager::GuidanceLineChangedEvent));
}

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

void CInputManager::Idle()
{
    if (m_avrClient != nullptr)
    {
        m_avrClient->Poll();
    }
}

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

void CInputManager::GuidanceLineChangedEvent(CTamarindAVREventClient::ETamarindAVREvent, bool)
{
    SendKey(CLUTTER_KEY_F3);
}

void CInputManager::IgnitionEvent(CTamarindAVREventClient::ETamarindAVREvent, bool a_on)
{
    SendKey(a_on ? CLUTTER_KEY_F5 : CLUTTER_KEY_F2);
}

void CInputManager::PowerKeyEvent(CTamarindAVREventClient::ETamarindAVREvent, bool a_pressed, double a_holdSeconds)
{
    if (a_pressed)
    {
        SendKey(CLUTTER_KEY_F9);
        return;
    }
    SendKey(CLUTTER_KEY_F10);
    if (a_holdSeconds >= k_longHoldSeconds)
    {
        SendKey(CLUTTER_KEY_F4);
    }
    else if (a_holdSeconds >= k_holdSeconds)
    {
        SendKey(CLUTTER_KEY_F1);
    }
}

} // namespace Gfx::Managers
