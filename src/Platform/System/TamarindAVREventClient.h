#pragma once

#include "Core/Api.h"
#include "Core/Functor.h"
#include "Core/SharedPtr.h"

#include <deque>

/// Tells of the power key, the ignition line and the guidance-line switch, which the console's supervisor processor
/// watches. This one has no connection to such a processor: it delivers what it is told by its Post operations, and
/// nothing else. An application that hears from a supervisor posts to the client of CInputManager, on the thread of the
/// main loop:
///
///     StaticSingleton<CInputManager>::ref().AvrClient()->PostIgnitionEvent(true);
class GFX_API CTamarindAVREventClient
{
public:
    /// What an event is about.
    enum ETamarindAVREvent
    {
        etaePowerKey,
        etaeIgnition,
        etaeGuidanceLine
    };

    using SwitchCallback = Core::Functor<void, ETamarindAVREvent, bool>::Signature;
    using PowerKeyCallback = Core::Functor<void, ETamarindAVREvent, bool, double>::Signature;

    CTamarindAVREventClient() = default;
    virtual ~CTamarindAVREventClient() = default;
    CTamarindAVREventClient(const CTamarindAVREventClient&) = delete;
    CTamarindAVREventClient& operator=(const CTamarindAVREventClient&) = delete;

    // Each takes its callback over and deletes the one before it; null for none.

    void SetPowerKeyEventCallback(PowerKeyCallback* a_callback) { Replace(m_powerKeyCallback, a_callback); }
    void SetIgnitionEventCallback(SwitchCallback* a_callback) { Replace(m_ignitionCallback, a_callback); }
    void SetGuidanceLineChangedEventCallback(SwitchCallback* a_callback) { Replace(m_guidanceCallback, a_callback); }

    // What is posted is delivered by the next Poll, in this order.

    /// The key went down, with a_holdSeconds 0, or came up after it was held for so long.
    void PostPowerKeyEvent(bool a_pressed, double a_holdSeconds);
    void PostIgnitionEvent(bool a_on);
    void PostGuidanceLineChangedEvent(bool a_on);

    /// Calls the callbacks for what has been posted before; what they post themselves waits for the next call.
    virtual void Poll();

private:
    struct SEvent
    {
        ETamarindAVREvent event;
        bool isOn;
        double holdSeconds;
    };

    template <typename Callback>
    static void Replace(Core::SharedPtr<Callback>& a_stored, Callback* a_callback)
    {
        if (a_callback != a_stored.Get())
        {
            a_stored = Core::SharedPtr<Callback>(a_callback);
        }
    }

    void Deliver(const SEvent& a_event);

    Core::SharedPtr<PowerKeyCallback> m_powerKeyCallback;
    Core::SharedPtr<SwitchCallback> m_ignitionCallback;
    Core::SharedPtr<SwitchCallback> m_guidanceCallback;
    std::deque<SEvent> m_posted;
};
