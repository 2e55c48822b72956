#include "Roots.h"

#include "Report.h"
#include "Stage.h"

#include "Core/StaticSingleton.h"
#include "Managers/Layout/LayoutManager.h"

#include <clutter/clutter.h>

#include <set>
#include <vector>

namespace Soak
{

using GfxTest::WidgetPtr;

namespace
{

Gfx::Managers::CLayoutManager& Layouts()
{
    return Core::Patterns::StaticSingleton<Gfx::Managers::CLayoutManager>::ref();
}

/// The actors of all roots that there have been and are, with their names.
std::map<const void*, std::string> s_alive;

} // namespace

void CRoots::Collect()
{
    m_roots.clear();
    for (const std::string& layout : Layouts().LayoutIds())
    {
        for (const WidgetPtr& root : Layouts().RetrieveLayout(layout))
        {
            m_roots.emplace(root->Name(), root);
            if (ClutterActor* const actor = root->GetActor();
                actor != nullptr && s_alive.emplace(actor, root->Name()).second)
            {
                g_object_weak_ref(
                    G_OBJECT(actor), [](gpointer, GObject* a_actor) { s_alive.erase(a_actor); }, nullptr);
            }
        }
    }
}

WidgetPtr CRoots::Find(const std::string& a_path) const
{
    const std::size_t colon = a_path.find(':');
    const auto root = m_roots.find(a_path.substr(0, colon));
    if (root == m_roots.end() || colon == std::string::npos)
    {
        return root != m_roots.end() ? root->second : WidgetPtr();
    }
    return CStage::Widgets().FindWidget(a_path.substr(colon + 1), root->second.Get());
}

bool CRoots::ArePresent() const
{
    bool areAll = true;
    for (const std::string& layout : Layouts().LayoutIds())
    {
        for (const WidgetPtr& root : Layouts().RetrieveLayout(layout))
        {
            areAll = areAll && Find(root->Name()) == root;
        }
    }
    return areAll;
}

void CRoots::ForgetFormer() const
{
    // They stay until layouts are read again, and those that another one of them holds for once more.
    for (int i = 0; i < 2; ++i)
    {
        ReadLayouts(false);
    }
    std::set<const void*> present;
    for (const auto& [name, root] : m_roots)
    {
        present.insert(root->GetActor());
    }
    for (const auto& [actor, name] : s_alive)
    {
        if (present.count(actor) == 0)
        {
            Fail("a former " + name + " is still there");
        }
    }
}

void ReadLayouts(bool a_remake)
{
    std::vector<std::string> errors;
    if (!Layouts().Reload(errors, a_remake))
    {
        Fail("can't read layouts again: " + errors.front());
    }
    CStage::Widgets().GarbageCollect();
}

} // namespace Soak
