#include "Platform/System/TamarindAVREventClient.h"

#include <cstddef>

void CTamarindAVREventClient::PostPowerKeyEvent(bool a_pressed, double a_holdSeconds)
{
    m_posted.push_back({etaePowerKey, a_pressed, a_holdSeconds});
}

void CTamarindAVREventClient::PostIgnitionEvent(bool a_on)
{
    m_posted.push_back({etaeIgnition, a_on, 0.0});
}

void CTamarindAVREventClient::PostGuidanceLineChangedEvent(bool a_on)
{
    m_posted.push_back({etaeGuidanceLine, a_on, 0.0});
}

void CTamarindAVREventClient::Poll()
{
    // A callback that polls takes from the same queue, so that the order is kept.
    for (std::size_t left = m_posted.size(); left > 0 && !m_posted.empty(); --left)
    {
        const SEvent event = m_posted.front();
        m_posted.pop_front();
        Deliver(event);
    }
}

void CTamarindAVREventClient::Deliver(const SEvent& a_event)
{
    if (a_event.event == etaePowerKey)
    {
        // Held, as it may be replaced by what it calls.
        if (const Core::SharedPtr<PowerKeyCallback> callback = m_powerKeyCallback)
        {
            callback->Execute(a_event.event, a_event.isOn, a_event.holdSeconds);
        }
        return;
    }
    const Core::SharedPtr<SwitchCallback> callback =
        a_event.event == etaeIgnition ? m_ignitionCallback : m_guidanceCallback;
    if (callback)
    {
        callback->Execute(a_event.event, a_event.isOn);
    }
}
