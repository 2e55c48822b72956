#pragma once

#include "Core/Api.h"

#include <clutter/clutter.h>

/// EnhancedGroup: a group that clips the painting of its children to a fixed rectangle of the screen. It is the
/// group of every widget that was made with the scissor flag.
///
/// Rectangles don't nest. A group inside another one puts the outer rectangle aside, and where the inner group ends,
/// the rest of the outer group's children are painted without any.

// NOLINTBEGIN(readability-identifier-naming): GObject's own naming.
extern "C"
{
    struct EnhancedGroup;
    struct EnhancedGroupClass;

    /// The type, which is a ClutterGroup too.
    GFX_API GType enhanced_group_get_type(void);

    /// A new group without size, whose children are all clipped away until a rectangle is set. The reference is
    /// floating.
    GFX_API ClutterActor* enhanced_group_new(void);

    /// Clips the children to a rectangle in OpenGL's window coordinates: pixels, with the origin at the bottom left of
    /// the display. A negative size counts as 0. Neither redraws, nor follows a group that moves: its owner sets it
    /// anew.
    GFX_API void enhanced_group_set_scissor(EnhancedGroup* enhancedGroup, gint x, gint y, gint width, gint height);
}

#define CLUTTER_TYPE_ENHANCEDGROUP (enhanced_group_get_type())
#define CLUTTER_ENHANCEDGROUP(object) (G_TYPE_CHECK_INSTANCE_CAST((object), CLUTTER_TYPE_ENHANCEDGROUP, EnhancedGroup))
#define CLUTTER_IS_ENHANCEDGROUP(object) (G_TYPE_CHECK_INSTANCE_TYPE((object), CLUTTER_TYPE_ENHANCEDGROUP))
// NOLINTEND(readability-identifier-naming)
