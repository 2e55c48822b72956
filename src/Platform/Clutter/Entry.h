#pragma once

#include "Platform/Clutter/Clutter.h"

/// ClutterEntry as the 0.8 series had it: one line of text with a cursor, which its owner edits key by key. It takes no
/// events itself. An actor of our own over a Pango layout, since ClutterText counts its cursor and tells of changes in
/// other ways.
///
/// The text is valid UTF-8 at all times: what isn't becomes replacement characters, and of a text longer than
/// Platform::k_longestText bytes the beginning is kept. Lengths and positions count characters. A text that is wider
/// than the actor is cut, and moved so that the cursor is within it. The signal "text-changed" comes after a change of
/// the text; setting what is there already isn't one. Read-only properties: "text", what is shown, and "color".

struct ClutterEntry;

GType clutter_entry_get_type();

#define CLUTTER_TYPE_ENTRY (clutter_entry_get_type())
#define CLUTTER_ENTRY(object) (G_TYPE_CHECK_INSTANCE_CAST((object), CLUTTER_TYPE_ENTRY, ClutterEntry))

/// a_font is a Pango font description. The reference is floating.
ClutterActor* clutter_entry_new_full(const char* a_font, const char* a_text, const ClutterColor* a_colour);

/// The entry's own; good until the next change.
const char* clutter_entry_get_text(ClutterEntry* a_entry);

/// Puts the cursor at the end, whether or not the text changes.
void clutter_entry_set_text(ClutterEntry* a_entry, const char* a_text);

/// The number of characters, the same as g_utf8_strlen() of the text. Not of the 0.8 series.
gint clutter_entry_get_length(ClutterEntry* a_entry);

/// A limit of 0 or less is none. What a text has beyond it goes at once.
gint clutter_entry_get_max_length(ClutterEntry* a_entry);
void clutter_entry_set_max_length(ClutterEntry* a_entry, gint a_length);

/// Whether the characters can be read; if not, each is shown as the invisible character.
gboolean clutter_entry_get_visibility(ClutterEntry* a_entry);
void clutter_entry_set_visibility(ClutterEntry* a_entry, gboolean a_visible);

/// "*" at first; 0 shows nothing at all, and what is no character a replacement character.
gunichar clutter_entry_get_invisible_char(ClutterEntry* a_entry);
void clutter_entry_set_invisible_char(ClutterEntry* a_entry, gunichar a_character);

void clutter_entry_set_font_name(ClutterEntry* a_entry, const char* a_font);
void clutter_entry_set_color(ClutterEntry* a_entry, const ClutterColor* a_colour);

/// Whether the cursor is drawn, as it is at first.
void clutter_entry_set_visible_cursor(ClutterEntry* a_entry, gboolean a_visible);

/// The number of characters before the cursor. A negative position, and one beyond the text, is its end.
gint clutter_entry_get_cursor_position(ClutterEntry* a_entry);
void clutter_entry_set_cursor_position(ClutterEntry* a_entry, gint a_position);

/// Deletes up to a_count characters before the cursor.
void clutter_entry_delete_chars(ClutterEntry* a_entry, guint a_count);

/// Inserts at the cursor. Does nothing when the text is full, or for what is no Unicode character, 0 included.
void clutter_entry_insert_unichar(ClutterEntry* a_entry, gunichar a_character);

/// What is shown, as one line, from its own start; the entry's.
PangoLayout* clutter_entry_get_layout(ClutterEntry* a_entry);
