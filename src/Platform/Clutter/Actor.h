#pragma once

#include "Platform/Clutter/Clutter.h"

/// What the toolkit's own classes of actors share.
namespace Platform
{

/// A `constructor` for their classes, past ClutterActor's own: that gives each actor an object that lays its children
/// out. Such an actor has no children, or an `allocate` that sees to them.
GObject* ConstructWithoutLayout(GType a_type, guint a_count, GObjectConstructParam* a_parameters);

/// Answers a question for the preferred width or height, each part of which may not be asked, by one length.
void ReturnLength(float a_length, float* a_minimum, float* a_natural);

} // namespace Platform
