#include "Platform/Clutter/Actor.h"

#include <initializer_list>

namespace Platform
{

GObject* ConstructWithoutLayout(GType a_type, guint a_count, GObjectConstructParam* a_parameters)
{
    auto* const initiallyUnowned = G_OBJECT_CLASS(g_type_class_peek(G_TYPE_INITIALLY_UNOWNED));
    return initiallyUnowned->constructor(a_type, a_count, a_parameters);
}

void MoveActor(ClutterActor* a_actor, float a_x, float a_y)
{
    constexpr const char* property = "position";
    if (clutter_actor_get_easing_duration(a_actor) != 0 || clutter_actor_get_easing_delay(a_actor) != 0 ||
        clutter_actor_get_transition(a_actor, property) != nullptr)
    {
        clutter_actor_set_position(a_actor, a_x, a_y);
        return;
    }
    const ClutterPoint position{a_x, a_y};
    GValue value = G_VALUE_INIT;
    g_value_init(&value, CLUTTER_TYPE_POINT);
    g_value_set_static_boxed(&value, &position);
    clutter_animatable_set_final_state(CLUTTER_ANIMATABLE(a_actor), property, &value);
    g_value_unset(&value);
}

void ReturnLength(float a_length, float* a_minimum, float* a_natural)
{
    for (float* result : {a_minimum, a_natural})
    {
        if (result != nullptr)
        {
            *result = a_length;
        }
    }
}

} // namespace Platform
