#include "Platform/Clutter/Actor.h"

#include <initializer_list>

namespace Platform
{

namespace
{

enum EProperty : guint
{
    epText = 1,
    epColour
};

void GetTextProperty(GObject* a_object, guint a_property, GValue* a_value, GParamSpec* a_spec)
{
    const auto& ownClass = *reinterpret_cast<STextActorClass*>(G_OBJECT_GET_CLASS(a_object));
    ClutterActor* const actor = CLUTTER_ACTOR(a_object);
    const ClutterColor colour = ownClass.getColour(actor);
    switch (a_property)
    {
    case epText: g_value_set_string(a_value, pango_layout_get_text(ownClass.getLayout(actor))); break;
    case epColour: clutter_value_set_color(a_value, &colour); break;
    default: G_OBJECT_WARN_INVALID_PROPERTY_ID(a_object, a_property, a_spec);
    }
}

} // namespace

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

void InitialiseTextActorClass(gpointer a_class, PangoLayout* (*a_getLayout)(ClutterActor*),
                              ClutterColor (*a_getColour)(ClutterActor*))
{
    auto* const ownClass = static_cast<STextActorClass*>(a_class);
    ownClass->getLayout = a_getLayout;
    ownClass->getColour = a_getColour;
    ownClass->parent.has_overlaps = [](ClutterActor*) -> gboolean { return FALSE; };
    GObjectClass* const objectClass = G_OBJECT_CLASS(a_class);
    objectClass->constructor = ConstructWithoutLayout;
    objectClass->get_property = GetTextProperty;
    g_object_class_install_property(objectClass, epText,
                                    g_param_spec_string("text", nullptr, "What is shown", "", G_PARAM_READABLE));
    g_object_class_install_property(
        objectClass, epColour,
        clutter_param_spec_color("color", nullptr, "The text's colour", CLUTTER_COLOR_Black, G_PARAM_READABLE));
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
