#pragma once

#include "Platform/Clutter/Clutter.h"

/// ClutterLabel as the 0.8 series had it: a text that is shown and never edited. An actor of our own over a Pango
/// layout, since ClutterText, an editor, takes several times its time and memory, and a screen has many labels.
///
/// Its minimum size is its natural one, in whole pixels. Given less, it is cut. Text that isn't valid UTF-8 is shown
/// with replacement characters, markup that can't be parsed as the text that it is, and of a text longer than
/// Platform::k_longestText bytes its beginning. A value that is set again costs nothing, and no frame. Read-only
/// properties: "text", what is shown, and "color".

struct ClutterLabel;

GType clutter_label_get_type();

#define CLUTTER_TYPE_LABEL (clutter_label_get_type())
#define CLUTTER_LABEL(object) (G_TYPE_CHECK_INSTANCE_CAST((object), CLUTTER_TYPE_LABEL, ClutterLabel))

/// a_font is a Pango font description. The reference is floating.
ClutterActor* clutter_label_new_full(const char* a_font, const char* a_text, const ClutterColor* a_colour);

void clutter_label_set_text(ClutterLabel* a_label, const char* a_text);
void clutter_label_set_font_name(ClutterLabel* a_label, const char* a_font);
void clutter_label_set_color(ClutterLabel* a_label, const ClutterColor* a_colour);

/// Whether the text is Pango markup; it applies to the text that is there, too.
void clutter_label_set_use_markup(ClutterLabel* a_label, gboolean a_useMarkup);

void clutter_label_set_ellipsize(ClutterLabel* a_label, PangoEllipsizeMode a_mode);
PangoEllipsizeMode clutter_label_get_ellipsize(ClutterLabel* a_label);

/// Whether lines are broken, between words, at the actor's width.
void clutter_label_set_line_wrap(ClutterLabel* a_label, gboolean a_wrap);

/// What the text takes unbroken and unshortened, whatever size the actor was given. Not of the 0.8 series.
void clutter_label_get_natural_size(ClutterLabel* a_label, float* a_width, float* a_height);

/// How the lines lie beside one another.
void clutter_label_set_alignment(ClutterLabel* a_label, PangoAlignment a_alignment);
void clutter_label_set_justify(ClutterLabel* a_label, gboolean a_justify);
