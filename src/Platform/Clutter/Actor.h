#pragma once

#include "Platform/Clutter/Clutter.h"

/// What the toolkit does with actors, and what its own classes of them share.
namespace Platform
{

/// A `constructor` for their classes, past ClutterActor's own: that gives each actor an object that lays its children
/// out. Such an actor has no children, or an `allocate` that sees to them.
GObject* ConstructWithoutLayout(GType a_type, guint a_count, GObjectConstructParam* a_parameters);

/// What clutter_actor_set_position does, without first making the tables that an actor has for its animations: one on a
/// screen that isn't shown then has none of them.
void MoveActor(ClutterActor* a_actor, float a_x, float a_y);

/// The class of an actor that shows a text.
struct STextActorClass
{
    ClutterActorClass parent;
    PangoLayout* (*getLayout)(ClutterActor*);
    ClutterColor (*getColour)(ClutterActor*);
};

/// Begins the initialisation of such a class: no layout manager, one thing to paint, and the read-only properties
/// "text", what the layout shows, and "color".
void InitialiseTextActorClass(gpointer a_class, PangoLayout* (*a_getLayout)(ClutterActor*),
                              ClutterColor (*a_getColour)(ClutterActor*));

/// Answers a question for the preferred width or height, each part of which may not be asked, by one length.
void ReturnLength(float a_length, float* a_minimum, float* a_natural);

} // namespace Platform
