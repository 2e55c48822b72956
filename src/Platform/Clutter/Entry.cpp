#include "Platform/Clutter/Entry.h"

#include "Platform/Clutter/Actor.h"
#include "Platform/Clutter/TextLayout.h"

#include <cogl-pango/cogl-pango.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>

namespace
{

constexpr gunichar k_replacementCharacter = 0xFFFD;
constexpr std::size_t k_longestCharacter = 6;
constexpr float k_cursorWidth = 2;

struct SEntry
{
    SEntry() = default;
    ~SEntry() { g_clear_object(&layout); }
    SEntry(const SEntry&) = delete;
    SEntry& operator=(const SEntry&) = delete;

    std::string text;
    /// In characters, as is the position.
    int length = 0;
    int position = 0;
    int maxLength = 0;
    std::string font;
    ClutterColor colour{0, 0, 0, 255};
    gunichar invisibleCharacter = '*';
    bool isVisible = true;
    bool hasVisibleCursor = true;
    /// Made when the text is first measured.
    PangoLayout* layout = nullptr;
    /// Whether the layout has the text as it is now: several keys may come between two frames.
    bool isLaidOut = false;
    /// Where the text begins: 0, or left of the actor.
    int textX = 0;
};

} // namespace

struct ClutterEntry
{
    ClutterActor parent;
    SEntry* entry;
};

namespace
{

ClutterActorClass* s_parentClass = nullptr;
guint s_textChangedSignal = 0;

std::size_t BytesBefore(const std::string& a_text, int a_position)
{
    return static_cast<std::size_t>(g_utf8_offset_to_pointer(a_text.c_str(), a_position) - a_text.c_str());
}

/// What stands for a character of a text that can't be read.
std::string Mask(const SEntry& a_entry)
{
    if (a_entry.invisibleCharacter == 0)
    {
        return "";
    }
    std::array<char, k_longestCharacter> bytes{};
    const bool isCharacter = g_unichar_validate(a_entry.invisibleCharacter) != FALSE;
    const int count =
        g_unichar_to_utf8(isCharacter ? a_entry.invisibleCharacter : k_replacementCharacter, bytes.data());
    return {bytes.data(), static_cast<std::size_t>(count)};
}

std::string Repeated(const std::string& a_text, int a_count)
{
    std::string result;
    result.reserve(a_text.size() * static_cast<std::size_t>(a_count));
    for (int i = 0; i < a_count; ++i)
    {
        result += a_text;
    }
    return result;
}

PangoLayout* Layout(ClutterEntry* a_actor)
{
    SEntry& entry = *a_actor->entry;
    if (entry.layout == nullptr)
    {
        entry.layout = Platform::NewLayout(CLUTTER_ACTOR(a_actor));
        pango_layout_set_single_paragraph_mode(entry.layout, TRUE);
        Platform::SetLayoutFont(entry.layout, entry.font);
    }
    if (!entry.isLaidOut)
    {
        const std::string& shown = entry.isVisible ? entry.text : Repeated(Mask(entry), entry.length);
        pango_layout_set_text(entry.layout, shown.data(), static_cast<int>(shown.size()));
        entry.isLaidOut = true;
    }
    return entry.layout;
}

/// How far from the text's start the cursor stands, in pixels.
int CursorX(ClutterEntry* a_actor)
{
    const SEntry& entry = *a_actor->entry;
    const std::size_t index = entry.isVisible ? BytesBefore(entry.text, entry.position)
                                              : Mask(entry).size() * static_cast<std::size_t>(entry.position);
    PangoRectangle strong;
    pango_layout_get_cursor_pos(Layout(a_actor), static_cast<int>(index), &strong, nullptr);
    return PANGO_PIXELS(strong.x);
}

/// Moves a text that is too wide just as far as it takes to have the cursor in the actor.
void Scroll(ClutterEntry* a_actor, float a_width)
{
    SEntry& entry = *a_actor->entry;
    const float room = entry.hasVisibleCursor ? a_width - k_cursorWidth : a_width;
    const float spare = std::floor(room - Platform::Extents(Layout(a_actor)).width);
    if (spare >= 0)
    {
        entry.textX = 0;
        return;
    }
    const int cursor = CursorX(a_actor);
    entry.textX = std::clamp(entry.textX, -cursor, std::max(static_cast<int>(room) - cursor, -cursor));
    // No gap behind a text that has become shorter.
    entry.textX = std::clamp(entry.textX, static_cast<int>(spare), 0);
}

void GetPreferredWidth(ClutterActor* a_actor, gfloat, gfloat* a_minimum, gfloat* a_natural)
{
    Platform::ReturnLength(Platform::Extents(Layout(CLUTTER_ENTRY(a_actor))).width, a_minimum, a_natural);
}

void GetPreferredHeight(ClutterActor* a_actor, gfloat, gfloat* a_minimum, gfloat* a_natural)
{
    Platform::ReturnLength(Platform::Extents(Layout(CLUTTER_ENTRY(a_actor))).height, a_minimum, a_natural);
}

void Allocate(ClutterActor* a_actor, const ClutterActorBox* a_box, ClutterAllocationFlags a_flags)
{
    s_parentClass->allocate(a_actor, a_box, a_flags);
    // New glyphs can move the ones that are there about, which must not happen in the middle of a frame.
    cogl_pango_ensure_glyph_cache_for_layout(Layout(CLUTTER_ENTRY(a_actor)));
    Scroll(CLUTTER_ENTRY(a_actor), clutter_actor_box_get_width(a_box));
}

void Paint(ClutterActor* a_actor)
{
    auto* const actor = CLUTTER_ENTRY(a_actor);
    const SEntry& entry = *actor->entry;
    if (entry.text.empty() && !entry.hasVisibleCursor)
    {
        return;
    }
    float width = 0;
    float height = 0;
    clutter_actor_get_size(a_actor, &width, &height);
    CoglFramebuffer* const framebuffer = cogl_get_draw_framebuffer();
    cogl_framebuffer_push_rectangle_clip(framebuffer, 0, 0, width, height);
    PangoLayout* const layout = Layout(actor);
    Platform::DrawLayout(a_actor, layout, entry.textX, entry.colour);
    if (entry.hasVisibleCursor)
    {
        const auto left = static_cast<float>(CursorX(actor) + entry.textX);
        cogl_set_source_color4ub(
            entry.colour.red, entry.colour.green, entry.colour.blue,
            static_cast<guint8>(clutter_actor_get_paint_opacity(a_actor) * entry.colour.alpha / 255));
        cogl_rectangle(left, 0, left + k_cursorWidth, Platform::Extents(layout).height);
    }
    cogl_framebuffer_pop_clip(framebuffer);
}

gboolean GetPaintVolume(ClutterActor* a_actor, ClutterPaintVolume* a_volume)
{
    return clutter_paint_volume_set_from_allocation(a_volume, a_actor);
}

void Finalise(GObject* a_object)
{
    delete CLUTTER_ENTRY(a_object)->entry;
    G_OBJECT_CLASS(s_parentClass)->finalize(a_object);
}

void InitialiseClass(gpointer a_class, gpointer)
{
    s_parentClass = CLUTTER_ACTOR_CLASS(g_type_class_peek_parent(a_class));
    Platform::InitialiseTextActorClass(
        a_class, [](ClutterActor* a_actor) { return Layout(CLUTTER_ENTRY(a_actor)); },
        [](ClutterActor* a_actor) { return CLUTTER_ENTRY(a_actor)->entry->colour; });
    G_OBJECT_CLASS(a_class)->finalize = Finalise;
    s_textChangedSignal = g_signal_new("text-changed", G_TYPE_FROM_CLASS(a_class), G_SIGNAL_RUN_LAST, 0, nullptr,
                                       nullptr, g_cclosure_marshal_VOID__VOID, G_TYPE_NONE, 0);
    ClutterActorClass* const actorClass = CLUTTER_ACTOR_CLASS(a_class);
    actorClass->get_preferred_width = GetPreferredWidth;
    actorClass->get_preferred_height = GetPreferredHeight;
    actorClass->allocate = Allocate;
    actorClass->paint = Paint;
    actorClass->get_paint_volume = GetPaintVolume;
}

void InitialiseInstance(GTypeInstance* a_instance, gpointer)
{
    reinterpret_cast<ClutterEntry*>(a_instance)->entry = new SEntry;
}

/// Only what is asked for or painted is laid out, though the scene graph is told at once.
void QueueLayout(ClutterEntry* a_actor)
{
    a_actor->entry->isLaidOut = false;
    clutter_actor_queue_relayout(CLUTTER_ACTOR(a_actor));
}

/// The cursor has moved, and the text with it where it is too wide.
void QueueScroll(ClutterEntry* a_actor)
{
    clutter_actor_queue_relayout(CLUTTER_ACTOR(a_actor));
}

/// Handlers of the signal may do anything, and may be the end of the entry.
void TellOfChange(ClutterEntry* a_actor)
{
    QueueLayout(a_actor);
    g_signal_emit(a_actor, s_textChangedSignal, 0);
}

bool IsFull(const SEntry& a_entry)
{
    return (a_entry.maxLength > 0 && a_entry.length >= a_entry.maxLength) ||
           a_entry.text.size() + k_longestCharacter > Platform::k_longestText;
}

/// Stores a text and puts the cursor at its end; true if that is a change.
bool PutText(SEntry& a_entry, const char* a_text)
{
    std::string text = Platform::DisplayableText(a_text);
    int length = static_cast<int>(g_utf8_strlen(text.data(), static_cast<gssize>(text.size())));
    if (a_entry.maxLength > 0 && length > a_entry.maxLength)
    {
        length = a_entry.maxLength;
        text.resize(BytesBefore(text, length));
    }
    a_entry.length = length;
    a_entry.position = length;
    const bool isChange = text != a_entry.text;
    a_entry.text = std::move(text);
    return isChange;
}

} // namespace

GType clutter_entry_get_type()
{
    static const GType s_type =
        g_type_register_static_simple(clutter_actor_get_type(), "GfxEntry", sizeof(Platform::STextActorClass),
                                      InitialiseClass, sizeof(ClutterEntry), InitialiseInstance, GTypeFlags{});
    return s_type;
}

ClutterActor* clutter_entry_new_full(const char* a_font, const char* a_text, const ClutterColor* a_colour)
{
    auto* actor = CLUTTER_ENTRY(g_object_new(CLUTTER_TYPE_ENTRY, nullptr));
    actor->entry->font = a_font;
    actor->entry->colour = *a_colour;
    PutText(*actor->entry, a_text);
    return CLUTTER_ACTOR(actor);
}

const char* clutter_entry_get_text(ClutterEntry* a_entry)
{
    return a_entry->entry->text.c_str();
}

void clutter_entry_set_text(ClutterEntry* a_entry, const char* a_text)
{
    const int position = a_entry->entry->position;
    if (PutText(*a_entry->entry, a_text))
    {
        TellOfChange(a_entry);
    }
    else if (position != a_entry->entry->position)
    {
        QueueScroll(a_entry);
    }
}

gint clutter_entry_get_length(ClutterEntry* a_entry)
{
    return a_entry->entry->length;
}

gint clutter_entry_get_max_length(ClutterEntry* a_entry)
{
    return a_entry->entry->maxLength;
}

void clutter_entry_set_max_length(ClutterEntry* a_entry, gint a_length)
{
    SEntry& entry = *a_entry->entry;
    entry.maxLength = a_length;
    if (a_length > 0 && entry.length > a_length)
    {
        entry.text.resize(BytesBefore(entry.text, a_length));
        entry.length = a_length;
        entry.position = std::min(entry.position, a_length);
        TellOfChange(a_entry);
    }
}

gboolean clutter_entry_get_visibility(ClutterEntry* a_entry)
{
    return a_entry->entry->isVisible ? TRUE : FALSE;
}

void clutter_entry_set_visibility(ClutterEntry* a_entry, gboolean a_visible)
{
    if (a_entry->entry->isVisible != (a_visible != FALSE))
    {
        a_entry->entry->isVisible = a_visible != FALSE;
        QueueLayout(a_entry);
    }
}

gunichar clutter_entry_get_invisible_char(ClutterEntry* a_entry)
{
    return a_entry->entry->invisibleCharacter;
}

void clutter_entry_set_invisible_char(ClutterEntry* a_entry, gunichar a_character)
{
    if (a_entry->entry->invisibleCharacter != a_character)
    {
        a_entry->entry->invisibleCharacter = a_character;
        QueueLayout(a_entry);
    }
}

void clutter_entry_set_font_name(ClutterEntry* a_entry, const char* a_font)
{
    SEntry& entry = *a_entry->entry;
    if (entry.font != a_font)
    {
        entry.font = a_font;
        if (entry.layout != nullptr)
        {
            Platform::SetLayoutFont(entry.layout, entry.font);
        }
        QueueLayout(a_entry);
    }
}

void clutter_entry_set_color(ClutterEntry* a_entry, const ClutterColor* a_colour)
{
    if (clutter_color_equal(&a_entry->entry->colour, a_colour) == FALSE)
    {
        a_entry->entry->colour = *a_colour;
        clutter_actor_queue_redraw(CLUTTER_ACTOR(a_entry));
    }
}

void clutter_entry_set_visible_cursor(ClutterEntry* a_entry, gboolean a_visible)
{
    if (a_entry->entry->hasVisibleCursor != (a_visible != FALSE))
    {
        a_entry->entry->hasVisibleCursor = a_visible != FALSE;
        QueueScroll(a_entry);
    }
}

gint clutter_entry_get_cursor_position(ClutterEntry* a_entry)
{
    return a_entry->entry->position;
}

void clutter_entry_set_cursor_position(ClutterEntry* a_entry, gint a_position)
{
    SEntry& entry = *a_entry->entry;
    const int position = a_position < 0 ? entry.length : std::min(a_position, entry.length);
    if (entry.position != position)
    {
        entry.position = position;
        QueueScroll(a_entry);
    }
}

void clutter_entry_delete_chars(ClutterEntry* a_entry, guint a_count)
{
    SEntry& entry = *a_entry->entry;
    const int count = static_cast<int>(std::min(a_count, static_cast<guint>(entry.position)));
    if (count > 0)
    {
        const std::size_t end = BytesBefore(entry.text, entry.position);
        entry.position -= count;
        entry.length -= count;
        const std::size_t start = BytesBefore(entry.text, entry.position);
        entry.text.erase(start, end - start);
        TellOfChange(a_entry);
    }
}

void clutter_entry_insert_unichar(ClutterEntry* a_entry, gunichar a_character)
{
    SEntry& entry = *a_entry->entry;
    if (a_character == 0 || g_unichar_validate(a_character) == FALSE || IsFull(entry))
    {
        return;
    }
    std::array<char, k_longestCharacter> bytes{};
    const int count = g_unichar_to_utf8(a_character, bytes.data());
    entry.text.insert(BytesBefore(entry.text, entry.position), bytes.data(), static_cast<std::size_t>(count));
    ++entry.position;
    ++entry.length;
    TellOfChange(a_entry);
}

PangoLayout* clutter_entry_get_layout(ClutterEntry* a_entry)
{
    return Layout(a_entry);
}
