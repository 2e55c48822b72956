#include "Platform/Clutter/PaintedGroup.h"

#include "Platform/Clutter/Actor.h"

#include <algorithm>

namespace
{

/// That of ClutterActor, whose children are the group's.
ClutterActorClass* s_actorClass = nullptr;

void Paint(ClutterActor* a_actor)
{
    painted_group_run_painter(PAINTED_GROUP(a_actor));
    s_actorClass->paint(a_actor);
}

void Pick(ClutterActor* a_actor, const ClutterColor* a_colour)
{
    if (clutter_actor_should_pick_paint(a_actor) == FALSE)
    {
        return;
    }
    // A subclass's children are its own to draw.
    s_actorClass->pick(a_actor, a_colour);
    ClutterActorIter iter;
    clutter_actor_iter_init(&iter, a_actor);
    ClutterActor* child = nullptr;
    while (clutter_actor_iter_next(&iter, &child) != FALSE)
    {
        clutter_actor_paint(child);
    }
}

gboolean GetPaintVolume(ClutterActor* a_actor, ClutterPaintVolume* a_volume)
{
    if (clutter_paint_volume_set_from_allocation(a_volume, a_actor) == FALSE)
    {
        return FALSE;
    }
    ClutterActorIter iter;
    clutter_actor_iter_init(&iter, a_actor);
    ClutterActor* child = nullptr;
    while (clutter_actor_iter_next(&iter, &child) != FALSE)
    {
        if (!clutter_actor_is_mapped(child))
        {
            continue;
        }
        const ClutterPaintVolume* volume = clutter_actor_get_transformed_paint_volume(child, a_actor);
        if (volume == nullptr)
        {
            return FALSE;
        }
        clutter_paint_volume_union(a_volume, volume);
    }
    return TRUE;
}

void GetPreferredWidth(ClutterActor* a_actor, gfloat, gfloat* a_minimum, gfloat* a_natural)
{
    Platform::ReturnLength(PAINTED_GROUP(a_actor)->width, a_minimum, a_natural);
}

void GetPreferredHeight(ClutterActor* a_actor, gfloat, gfloat* a_minimum, gfloat* a_natural)
{
    Platform::ReturnLength(PAINTED_GROUP(a_actor)->height, a_minimum, a_natural);
}

void Allocate(ClutterActor* a_actor, const ClutterActorBox* a_box, ClutterAllocationFlags a_flags)
{
    s_actorClass->allocate(a_actor, a_box, a_flags);
    ClutterActorIter iter;
    clutter_actor_iter_init(&iter, a_actor);
    ClutterActor* child = nullptr;
    while (clutter_actor_iter_next(&iter, &child) != FALSE)
    {
        clutter_actor_allocate_preferred_size(child, a_flags);
    }
}

void InitialiseClass(gpointer a_class, gpointer)
{
    s_actorClass = CLUTTER_ACTOR_CLASS(g_type_class_peek(CLUTTER_TYPE_ACTOR));
    G_OBJECT_CLASS(a_class)->constructor = Platform::ConstructWithoutLayout;
    ClutterActorClass* actorClass = CLUTTER_ACTOR_CLASS(a_class);
    actorClass->get_preferred_width = GetPreferredWidth;
    actorClass->get_preferred_height = GetPreferredHeight;
    actorClass->allocate = Allocate;
    actorClass->paint = Paint;
    actorClass->pick = Pick;
    actorClass->get_paint_volume = GetPaintVolume;
}

void InitialiseInstance(GTypeInstance* a_instance, gpointer)
{
    // A ClutterGroup has given itself one.
    clutter_actor_set_layout_manager(CLUTTER_ACTOR(a_instance), nullptr);
}

void Add(ClutterContainer* a_container, ClutterActor* a_actor)
{
    clutter_container_add_on_top(CLUTTER_ACTOR(a_container), a_actor);
}

void Remove(ClutterContainer* a_container, ClutterActor* a_actor)
{
    clutter_actor_remove_child(CLUTTER_ACTOR(a_container), a_actor);
}

void ForEach(ClutterContainer* a_container, ClutterCallback a_callback, gpointer a_data)
{
    ClutterActor* child = clutter_actor_get_first_child(CLUTTER_ACTOR(a_container));
    while (child != nullptr)
    {
        // The callback may remove the child.
        ClutterActor* const next = clutter_actor_get_next_sibling(child);
        a_callback(child, a_data);
        child = next;
    }
}

void Raise(ClutterContainer* a_container, ClutterActor* a_actor, ClutterActor* a_sibling)
{
    clutter_actor_set_child_above_sibling(CLUTTER_ACTOR(a_container), a_actor, a_sibling);
}

void Lower(ClutterContainer* a_container, ClutterActor* a_actor, ClutterActor* a_sibling)
{
    clutter_actor_set_child_below_sibling(CLUTTER_ACTOR(a_container), a_actor, a_sibling);
}

void InitialiseContainer(gpointer a_interface, gpointer)
{
    auto* const container = static_cast<ClutterContainerIface*>(a_interface);
    container->add = Add;
    container->remove = Remove;
    container->foreach = ForEach;
    container->raise = Raise;
    container->lower = Lower;
    container->sort_depth_order = [](ClutterContainer*) {};
    // With these a ClutterGroup keeps a list of its own beside the children, and searches all of it for each of them.
    container->actor_added = nullptr;
    container->actor_removed = nullptr;
}

GType Register()
{
    const GType type =
        g_type_register_static_simple(clutter_group_get_type(), "GfxPaintedGroup", sizeof(PaintedGroupClass),
                                      InitialiseClass, sizeof(PaintedGroup), InitialiseInstance, GTypeFlags{});
    const GInterfaceInfo container{InitialiseContainer, nullptr, nullptr};
    g_type_add_interface_static(type, CLUTTER_TYPE_CONTAINER, &container);
    return type;
}

} // namespace

GType painted_group_get_type()
{
    static const GType s_type = Register();
    return s_type;
}

ClutterActor* painted_group_new()
{
    return CLUTTER_ACTOR(g_object_new(TYPE_PAINTED_GROUP, nullptr));
}

void painted_group_set_painter(PaintedGroup* a_group, PaintedGroupPainter a_painter, void* a_data)
{
    a_group->painter = a_painter;
    a_group->data = a_data;
}

void painted_group_set_size(PaintedGroup* a_group, float a_width, float a_height)
{
    const float width = std::max(a_width, 0.0F);
    const float height = std::max(a_height, 0.0F);
    if (width != a_group->width || height != a_group->height)
    {
        a_group->width = width;
        a_group->height = height;
        clutter_actor_queue_relayout(CLUTTER_ACTOR(a_group));
    }
}

bool painted_group_has_painter(ClutterActor* a_actor)
{
    return IS_PAINTED_GROUP(a_actor) && PAINTED_GROUP(a_actor)->painter != nullptr;
}

void painted_group_release_painted(ClutterActor* a_group)
{
    GList* const children = clutter_container_get_children(CLUTTER_CONTAINER(a_group));
    for (GList* link = children; link != nullptr; link = link->next)
    {
        ClutterActor* child = CLUTTER_ACTOR(link->data);
        if (painted_group_has_painter(child))
        {
            clutter_container_remove_actor(CLUTTER_CONTAINER(a_group), child);
        }
        else if (CLUTTER_IS_CONTAINER(child))
        {
            painted_group_release_painted(child);
        }
    }
    g_list_free(children);
}

void painted_group_run_painter(PaintedGroup* a_group)
{
    if (a_group->painter != nullptr)
    {
        a_group->painter(a_group->data);
    }
}
