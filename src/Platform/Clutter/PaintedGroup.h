#pragma once

#include "Platform/Clutter/Clutter.h"

/// A group that something else draws for: its painter runs once per paint, before the children are painted.
///
/// It tells the scene graph a true paint volume (its own size and whatever its children cover), which a handler on the
/// "paint" signal would make impossible: so a redraw stays within the widget's rectangle, and what lies outside the
/// redrawn region isn't painted at all. A group that isn't reactive isn't searched for actors that are: the scene graph
/// would draw all of the scene for each press, while the widgets find their own targets. It does without the sorted
/// list of children that a ClutterGroup keeps: to add the ten-thousandth would take it milliseconds. It keeps the size
/// that it is given itself, and lays its children out itself, each at its own place and size, since Clutter's ways to
/// do so are a third of the time and memory of a widget.

using PaintedGroupPainter = void (*)(void* a_data);

struct PaintedGroup
{
    ClutterGroup parent;
    PaintedGroupPainter painter;
    void* data;
    float width;
    float height;
};

struct PaintedGroupClass
{
    ClutterGroupClass parent;
};

GType painted_group_get_type();

#define TYPE_PAINTED_GROUP (painted_group_get_type())
#define IS_PAINTED_GROUP(object) (G_TYPE_CHECK_INSTANCE_TYPE((object), TYPE_PAINTED_GROUP))
#define PAINTED_GROUP(object) (G_TYPE_CHECK_INSTANCE_CAST((object), TYPE_PAINTED_GROUP, PaintedGroup))

ClutterActor* painted_group_new();

/// a_painter runs with a_data in the group's own coordinates; null for none. The group doesn't own a_data: who sets
/// it takes it back, by another call, before it dies.
void painted_group_set_painter(PaintedGroup* a_group, PaintedGroupPainter a_painter, void* a_data);

/// Gives the group its size, in pixels; a negative length is 0.
void painted_group_set_size(PaintedGroup* a_group, float a_width, float a_height);

/// Whether a_actor is a painted group that has a painter.
bool painted_group_has_painter(ClutterActor* a_actor);

/// Takes the groups that have a painter out of a group that is about to be destroyed, wherever in it they lie.
void painted_group_release_painted(ClutterActor* a_group);

/// Runs the painter, if there is one; for a subclass whose paint replaces the group's.
void painted_group_run_painter(PaintedGroup* a_group);
