#pragma once

#include "Core/Api.h"
#include "Core/Functor.h"
#include "Core/StaticSingleton.h"

#include <map>

namespace Gfx::Managers
{

/// Runs the application's callbacks periodically, on the main loop. All operations belong on its thread.
///
/// A callback, and the destructor of one, may add and remove timers, its own included. It must not run the main loop:
/// it holds Clutter's lock, which the main loop would wait for.
///
/// \code
/// m_timer = Gfx::Managers::CTimerManager::ref().AddTimeoutMs(1000, Core::Functor<bool>::Make([this] { return Poll();
/// })); \endcode
class GFX_API CTimerManager : public Core::Patterns::StaticSingleton<CTimerManager>
{
public:
    using Callback = Core::Functor<bool, void, void, void, void, void, void>::Signature;

    CTimerManager() = default;

    /// The callbacks that are left don't run any more, and are not deleted here: what they would call may be gone by
    /// then.
    virtual ~CTimerManager();
    CTimerManager(const CTimerManager&) = delete;
    CTimerManager& operator=(const CTimerManager&) = delete;

    /// Runs a_callback, made with new, each time a_milliseconds, at least 1, have passed, for the first time after as
    /// long, until it returns false. It belongs to the timer. Returns a handle that no other timer has.
    unsigned int AddTimeoutMs(int a_milliseconds, Callback* a_callback);

    /// Stops a timer and deletes its callback: at once, or when it returns if it is running. False if there is no such
    /// timer.
    bool RemoveTimeout(unsigned int a_handle);

    /// The same, but leaves the main loop to find out when the timer would next have run.
    bool RemoveHandle(unsigned int a_handle);

    /// Does nothing.
    void Destroy();

    /// Runs the callback of a timer, which the main loop names by its object; whether the timer goes on.
    [[nodiscard]] bool TimerExpired(void* a_object);

private:
    struct CTimerObject;

    static int OnTimer(void* a_object);
    static void OnSourceEnd(void* a_object);

    /// Those that run. Their objects belong to the main loop's sources, which know them by address.
    std::map<unsigned int, CTimerObject*> m_timers;
};

} // namespace Gfx::Managers

extern template class Core::Patterns::StaticSingleton<Gfx::Managers::CTimerManager>;
