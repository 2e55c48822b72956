#include "Widgets/EnhancedGroup.h"

#include "Platform/Clutter/Clutter.h"
#include "Platform/Clutter/PaintedGroup.h"
#include "Platform/Clutter/Scissor.h"

// NOLINTBEGIN(readability-identifier-naming): GObject's own naming.

// On PaintedGroup, so that the widget's own drawing comes before the children's, unclipped.
struct EnhancedGroup
{
    PaintedGroup parent;
    gint x;
    gint y;
    gint width;
    gint height;
};

struct EnhancedGroupClass
{
    PaintedGroupClass parent;
};

namespace
{

void PaintChild(ClutterActor* a_child, gpointer)
{
    if (clutter_actor_is_mapped(a_child) && clutter_actor_is_realized(a_child))
    {
        clutter_actor_paint(a_child);
    }
}

void Paint(ClutterActor* a_actor)
{
    const EnhancedGroup* group = CLUTTER_ENHANCEDGROUP(a_actor);
    painted_group_run_painter(PAINTED_GROUP(a_actor));
    const Platform::CScissor scissor(group->x, group->y, group->width, group->height);
    // The children must not inherit the colour that the painter has left.
    const ClutterColor white{255, 255, 255, 255};
    cogl_color(&white);
    clutter_container_foreach(CLUTTER_CONTAINER(a_actor), PaintChild, nullptr);
}

void InitialiseClass(gpointer a_class, gpointer)
{
    CLUTTER_ACTOR_CLASS(a_class)->paint = Paint;
}

} // namespace

GType enhanced_group_get_type(void)
{
    static const GType s_type =
        g_type_register_static_simple(painted_group_get_type(), "EnhancedGroup", sizeof(EnhancedGroupClass),
                                      InitialiseClass, sizeof(EnhancedGroup), nullptr, GTypeFlags{});
    return s_type;
}

ClutterActor* enhanced_group_new(void)
{
    return CLUTTER_ACTOR(g_object_new(CLUTTER_TYPE_ENHANCEDGROUP, nullptr));
}

void enhanced_group_set_scissor(EnhancedGroup* enhancedGroup, gint x, gint y, gint width, gint height)
{
    g_return_if_fail(CLUTTER_IS_ENHANCEDGROUP(enhancedGroup));
    enhancedGroup->x = x;
    enhancedGroup->y = y;
    enhancedGroup->width = width;
    enhancedGroup->height = height;
}

// NOLINTEND(readability-identifier-naming)
