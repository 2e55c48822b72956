#include "Managers/Gfx/GfxManager.h"

#include <algorithm>

template class Core::Patterns::StaticSingleton<Gfx::Managers::CGfxManager>;

namespace Gfx::Managers
{

namespace
{

bool Has(const std::list<CGfxManager::IdleHandler*>& a_handlers, const CGfxManager::IdleHandler* a_handler)
{
    return std::find(a_handlers.begin(), a_handlers.end(), a_handler) != a_handlers.end();
}

} // namespace

void CGfxManager::Destroy() {}

void CGfxManager::Idle()
{
    ++m_idleDepth;
    // The list only grows while handlers run: what they remove is noted and goes afterwards.
    for (IdleHandler* handler : m_idleHandlers)
    {
        if (handler != nullptr)
        {
            handler->Execute();
        }
    }
    // A handler that calls this again may have removed itself, and is still running.
    if (--m_idleDepth > 0)
    {
        return;
    }
    // This list too may grow meanwhile, by a handler's destructor, which may even name that handler again.
    for (IdleHandler* removed : m_handlersToRemove)
    {
        m_idleHandlers.remove(removed);
        delete removed;
    }
    m_handlersToRemove.clear();
}

void CGfxManager::AddIdleHandler(IdleHandler* a_handler)
{
    if (!Has(m_idleHandlers, a_handler))
    {
        m_idleHandlers.push_back(a_handler);
    }
}

void CGfxManager::RemoveIdleHandler(IdleHandler* a_handler)
{
    if (!Has(m_handlersToRemove, a_handler))
    {
        m_handlersToRemove.push_back(a_handler);
    }
}

} // namespace Gfx::Managers
