#include "Platform/Clutter/Label.h"

#include "Platform/Clutter/Actor.h"
#include "Platform/Clutter/TextLayout.h"

#include <cogl-pango/cogl-pango.h>

#include <algorithm>
#include <string>

namespace
{

using SSize = Platform::STextExtents;

struct SLabel
{
    SLabel() = default;
    ~SLabel() { g_clear_object(&layout); }
    SLabel(const SLabel&) = delete;
    SLabel& operator=(const SLabel&) = delete;

    std::string text;
    std::string font;
    ClutterColor colour{0, 0, 0, 255};
    bool useMarkup = false;
    /// Made when the text is first measured.
    PangoLayout* layout = nullptr;
    PangoEllipsizeMode ellipsize = PANGO_ELLIPSIZE_NONE;
    PangoAlignment alignment = PANGO_ALIGN_LEFT;
    bool wrap = false;
    bool justify = false;
    /// Of the whole text, unbroken and unshortened; of no worth unless isMeasured is set.
    SSize natural;
    bool isMeasured = false;
};

} // namespace

struct ClutterLabel
{
    ClutterActor parent;
    SLabel* label;
};

namespace
{

ClutterActorClass* s_parentClass = nullptr;

void PutText(const SLabel& a_label)
{
    const std::string text = Platform::DisplayableText(a_label.text);
    char* plain = nullptr;
    PangoAttrList* attributes = nullptr;
    if (a_label.useMarkup && pango_parse_markup(text.c_str(), static_cast<int>(text.size()), 0, &attributes, &plain,
                                                nullptr, nullptr) != FALSE)
    {
        pango_layout_set_text(a_label.layout, plain, -1);
        pango_layout_set_attributes(a_label.layout, attributes);
        pango_attr_list_unref(attributes);
        g_free(plain);
    }
    else
    {
        pango_layout_set_text(a_label.layout, text.c_str(), static_cast<int>(text.size()));
        pango_layout_set_attributes(a_label.layout, nullptr);
    }
}

/// The label's layout, broken or shortened at a width and height where the label breaks or shortens; a negative one
/// sets no limit.
PangoLayout* Layout(ClutterLabel* a_actor, float a_width, float a_height)
{
    SLabel& label = *a_actor->label;
    if (label.layout == nullptr)
    {
        label.layout = Platform::NewLayout(CLUTTER_ACTOR(a_actor));
        pango_layout_set_wrap(label.layout, PANGO_WRAP_WORD);
        Platform::SetLayoutFont(label.layout, label.font);
        pango_layout_set_ellipsize(label.layout, label.ellipsize);
        pango_layout_set_alignment(label.layout, label.alignment);
        pango_layout_set_justify(label.layout, label.justify ? TRUE : FALSE);
        PutText(label);
    }
    const auto units = [](float a_length)
    {
        constexpr float most = 1 << 30;
        return a_length < 0 ? -1 : static_cast<int>(std::min(a_length * PANGO_SCALE, most));
    };
    const bool shortens = label.ellipsize != PANGO_ELLIPSIZE_NONE;
    pango_layout_set_width(label.layout, label.wrap || shortens ? units(a_width) : -1);
    pango_layout_set_height(label.layout, label.wrap && shortens ? units(a_height) : -1);
    return label.layout;
}

const SSize& NaturalSize(ClutterLabel* a_actor)
{
    SLabel& label = *a_actor->label;
    if (!label.isMeasured)
    {
        label.natural = Platform::Extents(Layout(a_actor, -1, -1));
        label.isMeasured = true;
    }
    return label.natural;
}

void GetPreferredWidth(ClutterActor* a_actor, gfloat, gfloat* a_minimum, gfloat* a_natural)
{
    Platform::ReturnLength(NaturalSize(CLUTTER_LABEL(a_actor)).width, a_minimum, a_natural);
}

void GetPreferredHeight(ClutterActor* a_actor, gfloat a_forWidth, gfloat* a_minimum, gfloat* a_natural)
{
    auto* const actor = CLUTTER_LABEL(a_actor);
    const SLabel& label = *actor->label;
    const bool dependsOnWidth = a_forWidth >= 0 && (label.wrap || label.ellipsize != PANGO_ELLIPSIZE_NONE);
    Platform::ReturnLength(dependsOnWidth ? Platform::Extents(Layout(actor, a_forWidth, -1)).height
                                          : NaturalSize(actor).height,
                           a_minimum, a_natural);
}

/// The layout as it is to be painted.
PangoLayout* AllocatedLayout(ClutterActor* a_actor, SSize& a_size)
{
    clutter_actor_get_size(a_actor, &a_size.width, &a_size.height);
    return Layout(CLUTTER_LABEL(a_actor), a_size.width, a_size.height);
}

void Allocate(ClutterActor* a_actor, const ClutterActorBox* a_box, ClutterAllocationFlags a_flags)
{
    s_parentClass->allocate(a_actor, a_box, a_flags);
    SSize size;
    // New glyphs can move the ones that are there about, which must not happen in the middle of a frame.
    cogl_pango_ensure_glyph_cache_for_layout(AllocatedLayout(a_actor, size));
}

void Paint(ClutterActor* a_actor)
{
    const SLabel& label = *CLUTTER_LABEL(a_actor)->label;
    if (label.text.empty())
    {
        return;
    }
    SSize size;
    PangoLayout* const layout = AllocatedLayout(a_actor, size);
    const SSize needed = Platform::Extents(layout);
    const bool isLimited = label.wrap && label.ellipsize != PANGO_ELLIPSIZE_NONE;
    const bool isCut = !isLimited && (needed.width > size.width || needed.height > size.height);
    CoglFramebuffer* const framebuffer = cogl_get_draw_framebuffer();
    if (isCut)
    {
        cogl_framebuffer_push_rectangle_clip(framebuffer, 0, 0, size.width, size.height);
    }
    Platform::DrawLayout(a_actor, layout, 0, label.colour);
    if (isCut)
    {
        cogl_framebuffer_pop_clip(framebuffer);
    }
}

/// The actor's own box, and the ink that stands out of it.
gboolean GetPaintVolume(ClutterActor* a_actor, ClutterPaintVolume* a_volume)
{
    if (clutter_actor_has_allocation(a_actor) == FALSE)
    {
        return FALSE;
    }
    SSize size;
    PangoRectangle ink;
    pango_layout_get_pixel_extents(AllocatedLayout(a_actor, size), &ink, nullptr);
    const auto left = std::min(0.0F, static_cast<float>(ink.x));
    const auto top = std::min(0.0F, static_cast<float>(ink.y));
    const ClutterVertex origin{left, top, 0};
    clutter_paint_volume_set_origin(a_volume, &origin);
    clutter_paint_volume_set_width(a_volume, std::max(size.width, static_cast<float>(ink.x + ink.width)) - left);
    clutter_paint_volume_set_height(a_volume, std::max(size.height, static_cast<float>(ink.y + ink.height)) - top);
    return TRUE;
}

void Finalise(GObject* a_object)
{
    delete CLUTTER_LABEL(a_object)->label;
    G_OBJECT_CLASS(s_parentClass)->finalize(a_object);
}

void InitialiseClass(gpointer a_class, gpointer)
{
    s_parentClass = CLUTTER_ACTOR_CLASS(g_type_class_peek_parent(a_class));
    Platform::InitialiseTextActorClass(
        a_class, [](ClutterActor* a_actor) { return Layout(CLUTTER_LABEL(a_actor), -1, -1); },
        [](ClutterActor* a_actor) { return CLUTTER_LABEL(a_actor)->label->colour; });
    G_OBJECT_CLASS(a_class)->finalize = Finalise;
    ClutterActorClass* const actorClass = CLUTTER_ACTOR_CLASS(a_class);
    actorClass->get_preferred_width = GetPreferredWidth;
    actorClass->get_preferred_height = GetPreferredHeight;
    actorClass->allocate = Allocate;
    actorClass->paint = Paint;
    actorClass->get_paint_volume = GetPaintVolume;
}

void InitialiseInstance(GTypeInstance* a_instance, gpointer)
{
    reinterpret_cast<ClutterLabel*>(a_instance)->label = new SLabel;
}

/// After a change of where lines lie within what the text takes. a_put passes it on to the layout, if there is one yet.
template <typename PutT>
void Realign(ClutterLabel* a_actor, PutT a_put)
{
    if (a_actor->label->layout != nullptr)
    {
        a_put(*a_actor->label);
    }
    clutter_actor_queue_relayout(CLUTTER_ACTOR(a_actor));
}

/// After a change of what a text takes.
template <typename PutT>
void Remeasure(ClutterLabel* a_actor, PutT a_put)
{
    a_actor->label->isMeasured = false;
    Realign(a_actor, a_put);
}

} // namespace

GType clutter_label_get_type()
{
    static const GType s_type =
        g_type_register_static_simple(clutter_actor_get_type(), "GfxLabel", sizeof(Platform::STextActorClass),
                                      InitialiseClass, sizeof(ClutterLabel), InitialiseInstance, GTypeFlags{});
    return s_type;
}

ClutterActor* clutter_label_new_full(const char* a_font, const char* a_text, const ClutterColor* a_colour)
{
    auto* actor = CLUTTER_LABEL(g_object_new(CLUTTER_TYPE_LABEL, nullptr));
    actor->label->font = a_font;
    actor->label->text = a_text;
    actor->label->colour = *a_colour;
    return CLUTTER_ACTOR(actor);
}

void clutter_label_set_text(ClutterLabel* a_label, const char* a_text)
{
    if (a_label->label->text != a_text)
    {
        a_label->label->text = a_text;
        Remeasure(a_label, PutText);
    }
}

void clutter_label_set_font_name(ClutterLabel* a_label, const char* a_font)
{
    if (a_label->label->font != a_font)
    {
        a_label->label->font = a_font;
        Remeasure(a_label, [](const SLabel& a_state) { Platform::SetLayoutFont(a_state.layout, a_state.font); });
    }
}

void clutter_label_set_color(ClutterLabel* a_label, const ClutterColor* a_colour)
{
    if (clutter_color_equal(&a_label->label->colour, a_colour) == FALSE)
    {
        a_label->label->colour = *a_colour;
        clutter_actor_queue_redraw(CLUTTER_ACTOR(a_label));
    }
}

void clutter_label_set_use_markup(ClutterLabel* a_label, gboolean a_useMarkup)
{
    if (a_label->label->useMarkup != (a_useMarkup != FALSE))
    {
        a_label->label->useMarkup = a_useMarkup != FALSE;
        Remeasure(a_label, PutText);
    }
}

void clutter_label_set_ellipsize(ClutterLabel* a_label, PangoEllipsizeMode a_mode)
{
    if (a_label->label->ellipsize != a_mode)
    {
        a_label->label->ellipsize = a_mode;
        Remeasure(a_label,
                  [](const SLabel& a_state) { pango_layout_set_ellipsize(a_state.layout, a_state.ellipsize); });
    }
}

PangoEllipsizeMode clutter_label_get_ellipsize(ClutterLabel* a_label)
{
    return a_label->label->ellipsize;
}

void clutter_label_get_natural_size(ClutterLabel* a_label, float* a_width, float* a_height)
{
    const SSize& natural = NaturalSize(a_label);
    *a_width = natural.width;
    *a_height = natural.height;
}

void clutter_label_set_line_wrap(ClutterLabel* a_label, gboolean a_wrap)
{
    if (a_label->label->wrap != (a_wrap != FALSE))
    {
        a_label->label->wrap = a_wrap != FALSE;
        Remeasure(a_label, [](const SLabel&) {});
    }
}

void clutter_label_set_alignment(ClutterLabel* a_label, PangoAlignment a_alignment)
{
    if (a_label->label->alignment != a_alignment)
    {
        a_label->label->alignment = a_alignment;
        Realign(a_label, [](const SLabel& a_state) { pango_layout_set_alignment(a_state.layout, a_state.alignment); });
    }
}

void clutter_label_set_justify(ClutterLabel* a_label, gboolean a_justify)
{
    if (a_label->label->justify != (a_justify != FALSE))
    {
        a_label->label->justify = a_justify != FALSE;
        Realign(a_label, [](const SLabel& a_state)
                { pango_layout_set_justify(a_state.layout, a_state.justify ? TRUE : FALSE); });
    }
}
