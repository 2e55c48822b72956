#include "Managers/Timers/TimerManager.h"

#include "Core/SharedPtr.h"
#include "Platform/Clutter/Clutter.h"

#include <algorithm>
#include <utility>

template class Core::Patterns::StaticSingleton<Gfx::Managers::CTimerManager>;

namespace Gfx::Managers
{

struct CTimerManager::CTimerObject
{
    /// Null once it has removed the timer, or is gone itself.
    CTimerManager* manager = nullptr;
    /// Shared with a run that is going on; empty once the timer is removed.
    Core::SharedPtr<Callback> callback;
    unsigned int handle = 0;
};

CTimerManager::~CTimerManager()
{
    for (const auto& [handle, timer] : m_timers)
    {
        timer->manager = nullptr;
    }
}

unsigned int CTimerManager::AddTimeoutMs(int a_milliseconds, Callback* a_callback)
{
    auto* const object = new CTimerObject{this, Core::SharedPtr<Callback>(a_callback)};
    // Without a pause the timer would keep the stage from ever being painted.
    object->handle = clutter_threads_add_timeout_full(
        G_PRIORITY_DEFAULT, static_cast<guint>(std::max(a_milliseconds, 1)), OnTimer, object, OnSourceEnd);
    m_timers[object->handle] = object;
    return object->handle;
}

bool CTimerManager::RemoveTimeout(unsigned int a_handle)
{
    if (!RemoveHandle(a_handle))
    {
        return false;
    }
    if (GSource* const source = g_main_context_find_source_by_id(nullptr, a_handle))
    {
        g_source_destroy(source);
    }
    return true;
}

bool CTimerManager::RemoveHandle(unsigned int a_handle)
{
    const auto timer = m_timers.find(a_handle);
    if (timer == m_timers.end())
    {
        return false;
    }
    // The callback's destructor, at the end of this block, may end the source, and with it the object.
    const Core::SharedPtr<Callback> callback = std::exchange(timer->second->callback, nullptr);
    timer->second->manager = nullptr;
    m_timers.erase(timer);
    return true;
}

void CTimerManager::Destroy() {}

bool CTimerManager::TimerExpired(void* a_object)
{
    const auto& object = *static_cast<CTimerObject*>(a_object);
    const unsigned int handle = object.handle;
    const Core::SharedPtr<Callback> callback = object.callback;
    if (callback && callback->Execute())
    {
        // It may have removed its own timer.
        return m_timers.find(handle) != m_timers.end();
    }
    static_cast<void>(RemoveHandle(handle));
    return false;
}

int CTimerManager::OnTimer(void* a_object)
{
    CTimerManager* const manager = static_cast<CTimerObject*>(a_object)->manager;
    return manager != nullptr && manager->TimerExpired(a_object) ? TRUE : FALSE;
}

void CTimerManager::OnSourceEnd(void* a_object)
{
    auto* const object = static_cast<CTimerObject*>(a_object);
    if (object->manager != nullptr)
    {
        // Something beside this class has ended the source.
        static_cast<void>(object->manager->RemoveHandle(object->handle));
    }
    delete object;
}

} // namespace Gfx::Managers
