#include "Managers/Widgets/WidgetManager.h"

#include "Core/Localisation/Manager.h"
#include "Core/Logging/Logger.h"
#include "Core/Utilities.h"
#include "Managers/Config/ConfigManager.h"
#include "Managers/Gfx/GfxManager.h"
#include "Platform/Clutter/Clutter.h"
#include "Platform/Clutter/PaintedGroup.h"
#include "Widgets/Widget.h"

#include <algorithm>
#include <utility>

template class Core::Patterns::StaticSingleton<Gfx::Managers::CWidgetManager>;

namespace Gfx::Managers
{

using Core::Patterns::StaticSingleton;
using Widgets::CWidget;
using Widgets::detail::CWidgetList;

CWidgetManager::CWidgetManager()
{
    if (Core::Localisation::CManager* localisation = Core::Localisation::CManager::Instance())
    {
        localisation->AddUpdateCompletedCallback(
            new Core::Functor<void>::Method<CWidgetManager>(this, &CWidgetManager::UpdateLocalisation));
    }
    const CConfigManager& config = StaticSingleton<CConfigManager>::ref();
    m_touchArea = config.Get<int>("/Gfx/General/TouchArea", 1);
    m_touchOffset = config.Get<int>("/Gfx/General/TouchOffset", 0);
}

CWidgetManager::~CWidgetManager()
{
    // The widgets die first, since their destructors may call this manager.
    for (WidgetPtr* widget : {&m_firstButton.widget, &m_thirdButton.widget, &m_hoverWidget, &m_draggedWidget,
                              &m_selectedWidget, &m_mousePointer})
    {
        widget->Reset();
    }
    m_nonClientWidgets.Clear();
    m_widgets.Clear();
    for (ClutterActor* actor : m_deadActors)
    {
        g_object_unref(actor);
    }
}

void CWidgetManager::AddWidget(WidgetPtr a_widget)
{
    ClutterActor* const stage = StaticSingleton<CGfxManager>::ref().GetStage();
    if (!a_widget || stage == nullptr)
    {
        StaticSingleton<Core::Logging::CLogger>::ref().Log(Core::Logging::elMessage, "CWidgetManager", "Can't add %s",
                                                           a_widget ? "a widget without a stage" : "a null widget");
        return;
    }
    if (m_widgets.Find(a_widget.Get()))
    {
        return;
    }
    if (a_widget->GetActor() == nullptr)
    {
        a_widget->InitialiseClutterGroup();
    }
    Detach(a_widget);
    if (clutter_actor_get_parent(a_widget->GetActor()) != nullptr || a_widget->Parent() != nullptr)
    {
        // The parent that it leaves has run handlers, which have put it somewhere else.
        return;
    }
    clutter_container_add_on_top(stage, a_widget->GetActor());
    a_widget->ShowAsItWas();
    if (const WidgetPtr selected = std::exchange(m_selectedWidget, {}))
    {
        selected->Deselect();
    }
    a_widget->UpdateStyle();
    a_widget->Select();
    a_widget->Invalidate(true);
    // The handlers that have just run may have destroyed it, or put it somewhere else.
    if (a_widget->m_destroyed || clutter_actor_get_parent(a_widget->GetActor()) != stage)
    {
        return;
    }
    m_selectedWidget = a_widget;
    if (!m_widgets.Find(a_widget.Get()))
    {
        // They may also have added others: the actors are to lie as the widgets do.
        clutter_container_raise_child(CLUTTER_CONTAINER(stage), a_widget->GetActor(), nullptr);
        m_widgets.AddToFront(a_widget);
    }
}

void CWidgetManager::Detach(const WidgetPtr& a_widget)
{
    ClutterActor* const actor = a_widget->GetActor();
    if (ClutterActor* const container = clutter_actor_get_parent(actor))
    {
        clutter_container_remove_actor(CLUTTER_CONTAINER(container), actor);
    }
    if (CWidget* const parent = a_widget->Parent())
    {
        parent->RemoveChild(a_widget);
    }
    else
    {
        m_widgets.Remove(a_widget.Get());
    }
    // Last, as the parent that it has left may have destroyed it; if that has put it somewhere else before, it is dead.
    if (a_widget->m_destroyed && clutter_actor_get_parent(actor) == nullptr)
    {
        m_deadActors.remove_if(
            [actor](ClutterActor* a_dead)
            {
                if (a_dead != actor)
                {
                    return false;
                }
                g_object_unref(a_dead);
                return true;
            });
    }
}

void CWidgetManager::DestroyWidget(CWidget* a_widget)
{
    if (a_widget == nullptr)
    {
        return;
    }
    if (ClutterActor* const actor = a_widget->GetActor())
    {
        m_deadActors.push_back(CLUTTER_ACTOR(g_object_ref(actor)));
        // Gone from the screen at once, not only when the actor is collected.
        clutter_actor_hide(actor);
        a_widget->m_destroyed = true;
    }
    m_firstButton.widget.Reset();
    m_thirdButton.widget.Reset();
    m_hoverWidget.Reset();
    m_draggedWidget.Reset();
    m_selectedWidget.Reset();
    // A child may have died of the above, so from here on a_widget is but an address, unless it is in the list.
    if (!m_widgets.Find(a_widget))
    {
        return;
    }
    const bool wasSelected = a_widget->Selected();
    m_widgets.Remove(a_widget);
    if (wasSelected && !m_widgets.IsEmpty())
    {
        const WidgetPtr topmost = m_widgets.Widgets().back();
        m_selectedWidget = topmost;
        topmost->Select();
    }
}

CWidgetManager::WidgetPtr CWidgetManager::FindWidget(const std::string& a_path, CWidget* a_parent)
{
    std::vector<std::string> parts;
    if (Core::Utilities::SplitString(a_path, ":", parts, 0) == 0)
    {
        parts.assign(1, a_path);
    }
    if (a_parent != nullptr)
    {
        if (const WidgetPtr found = FindWidget(a_parent, parts))
        {
            return found;
        }
    }
    const WidgetPtr topLevel = FindTopLevel(parts.front());
    if (!topLevel || parts.size() == 1)
    {
        return topLevel;
    }
    parts.erase(parts.begin());
    return FindWidget(topLevel.Get(), parts);
}

CWidgetManager::WidgetPtr CWidgetManager::FindTopLevel(const std::string& a_name) const
{
    const auto& widgets = m_widgets.Widgets();
    const auto found = std::find_if(widgets.begin(), widgets.end(),
                                    [&a_name](const WidgetPtr& a_widget) { return a_widget->Name() == a_name; });
    return found != widgets.end() ? *found : WidgetPtr();
}

CWidgetManager::WidgetPtr CWidgetManager::FindWidget(CWidget* a_parent, const std::vector<std::string>& a_parts)
{
    const CWidget* parent = a_parent;
    WidgetPtr found;
    for (const std::string& name : a_parts)
    {
        if (parent == nullptr)
        {
            return {};
        }
        const auto& children = parent->Children().Widgets();
        const auto child = std::find_if(children.begin(), children.end(),
                                        [&name](const WidgetPtr& a_widget) { return a_widget->Name() == name; });
        if (child == children.end())
        {
            return {};
        }
        found = *child;
        parent = found.Get();
    }
    return found;
}

void CWidgetManager::BringToFront(CWidget* a_widget)
{
    if (a_widget == nullptr)
    {
        return;
    }
    if (a_widget->Parent() != nullptr)
    {
        a_widget->BringToFront();
    }
    else if (m_widgets.Find(a_widget))
    {
        clutter_container_raise_child(CLUTTER_CONTAINER(StaticSingleton<CGfxManager>::ref().GetStage()),
                                      a_widget->GetActor(), nullptr);
        m_widgets.MoveToFront(a_widget);
    }
}

void CWidgetManager::SendToBack(CWidget* a_widget)
{
    if (a_widget == nullptr)
    {
        return;
    }
    if (a_widget->Parent() != nullptr)
    {
        a_widget->SendToBack();
    }
    else if (m_widgets.Find(a_widget))
    {
        clutter_container_lower_child(CLUTTER_CONTAINER(StaticSingleton<CGfxManager>::ref().GetStage()),
                                      a_widget->GetActor(), nullptr);
        m_widgets.MoveToBack(a_widget);
    }
}

CWidgetManager::WidgetPtr CWidgetManager::GetModalWidget() const
{
    const auto& widgets = m_widgets.Widgets();
    const auto found = std::find_if(widgets.rbegin(), widgets.rend(),
                                    [](const WidgetPtr& a_widget)
                                    { return a_widget->Modal() && a_widget->Visible() && a_widget->Enabled(); });
    return found != widgets.rend() ? *found : WidgetPtr();
}

void CWidgetManager::Select(WidgetPtr a_widget)
{
    if (a_widget && a_widget != m_selectedWidget && a_widget->Enabled())
    {
        ChangeSelection(a_widget);
    }
}

void CWidgetManager::ChangeSelection(const WidgetPtr& a_widget)
{
    // Not stored meanwhile: a handler that selects from within Deselect must not deselect the same widget again.
    const WidgetPtr selected = std::exchange(m_selectedWidget, {});
    if (selected)
    {
        selected->Deselect();
    }
    // The handlers that have just run may have disabled it, or destroyed the other.
    if (!a_widget->Enabled())
    {
        if (!m_selectedWidget && selected && !selected->m_destroyed)
        {
            m_selectedWidget = selected;
        }
        return;
    }
    a_widget->Select();
    if (!a_widget->m_destroyed)
    {
        m_selectedWidget = a_widget;
    }
}

void CWidgetManager::SetMousePointer(WidgetPtr a_widget)
{
    if (a_widget)
    {
        AddWidget(a_widget);
    }
    m_mousePointer = std::move(a_widget);
}

void CWidgetManager::GarbageCollect()
{
    for (ClutterActor* actor : std::exchange(m_deadActors, {}))
    {
        if (!painted_group_has_painter(actor))
        {
            painted_group_release_painted(actor);
            clutter_actor_destroy(actor);
        }
        else if (ClutterActor* const container = clutter_actor_get_parent(actor))
        {
            // Somebody keeps the widget and may bring it back; its children's actors must stay in its group.
            clutter_container_remove_actor(CLUTTER_CONTAINER(container), actor);
        }
        g_object_unref(actor);
    }
}

void CWidgetManager::Idle()
{
    CWidgetList::CUpwards widgets(m_widgets);
    while (const WidgetPtr widget = widgets.Next())
    {
        if (widget->Visible() && widget->Enabled())
        {
            widget->Idle();
        }
    }
}

void CWidgetManager::UpdateStyle()
{
    CWidgetList::CUpwards widgets(m_widgets);
    while (const WidgetPtr widget = widgets.Next())
    {
        widget->UpdateStyle();
    }
}

void CWidgetManager::UpdateLocalisation()
{
    CWidgetList::CUpwards widgets(m_widgets);
    while (const WidgetPtr widget = widgets.Next())
    {
        widget->UpdateLocalisedText();
    }
}

bool CWidgetManager::IsVisible(const CWidget* a_widget) const
{
    if (a_widget == nullptr)
    {
        return false;
    }
    const CWidget* topLevel = a_widget;
    for (const CWidget* widget = a_widget; widget != nullptr; widget = widget->Parent())
    {
        if (!widget->Visible())
        {
            return false;
        }
        topLevel = widget;
    }
    const auto& widgets = m_widgets.Widgets();
    if (widgets.empty() || widgets.back().Get() == topLevel)
    {
        return true;
    }
    auto above = std::find_if(widgets.begin(), widgets.end(),
                              [topLevel](const WidgetPtr& a_entry) { return a_entry.Get() == topLevel; });
    if (above == widgets.end())
    {
        return true;
    }
    const Common::CAABB box = topLevel->AABB();
    return std::none_of(++above, widgets.end(),
                        [&box](const WidgetPtr& a_entry)
                        {
                            return a_entry->Visible() && !(a_entry->IsDragging() && a_entry->TransparentOnDrag()) &&
                                   a_entry->AABB().Contains(box);
                        });
}

std::vector<std::string> CWidgetManager::VisibleWidgetNames() const
{
    std::vector<std::string> names;
    for (const WidgetPtr& widget : m_widgets.Widgets())
    {
        if (widget->Visible() && IsVisible(widget.Get()))
        {
            names.push_back(widget->GetName());
        }
    }
    return names;
}

std::vector<CWidgetManager::WidgetPtr> CWidgetManager::TopLevelWidgets() const
{
    return {m_widgets.Widgets().begin(), m_widgets.Widgets().end()};
}

void CWidgetManager::SetKeyboardEventCallback(KeyboardEventCallback* a_callback)
{
    if (a_callback != m_keyboardEventCallback.Get())
    {
        m_keyboardEventCallback = Core::SharedPtr<KeyboardEventCallback>(a_callback);
    }
}

void CWidgetManager::KeyboardEvent(unsigned int a_key)
{
    if (const Core::SharedPtr<KeyboardEventCallback> callback = m_keyboardEventCallback)
    {
        if (!callback->Execute(a_key))
        {
            return;
        }
    }
    if (const WidgetPtr selected = m_selectedWidget)
    {
        selected->KeyboardEvent(a_key);
    }
}

void CWidgetManager::RegisterForNonClientHitEvents(WidgetPtr a_widget)
{
    if (a_widget && !m_nonClientWidgets.Find(a_widget.Get()))
    {
        m_nonClientWidgets.AddToFront(std::move(a_widget));
    }
}

void CWidgetManager::DeregisterForNonClientHitEvents(WidgetPtr a_widget)
{
    m_nonClientWidgets.Remove(a_widget.Get());
}

} // namespace Gfx::Managers
