#include "Platform/Clutter/Label.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>

struct ClutterLabel
{
    ClutterText parent;
    /// As it was set: ClutterText forgets what its markup was made of.
    std::string* text;
    bool useMarkup;
};

namespace
{

struct ClutterLabelClass
{
    ClutterTextClass parent;
};

GObjectClass* s_parentClass = nullptr;

/// The text, cut and mended, as something that Pango can take.
std::string Displayable(const std::string& a_text)
{
    const std::size_t length = std::min(a_text.size(), k_longestLabelText);
    const std::unique_ptr<char, void (*)(void*)> valid(g_utf8_make_valid(a_text.c_str(), static_cast<gssize>(length)),
                                                       g_free);
    return valid.get();
}

void Apply(ClutterLabel* a_label)
{
    ClutterText* text = CLUTTER_TEXT(a_label);
    const std::string displayed = Displayable(*a_label->text);
    if (a_label->useMarkup && pango_parse_markup(displayed.c_str(), -1, 0, nullptr, nullptr, nullptr, nullptr) != FALSE)
    {
        clutter_text_set_markup(text, displayed.c_str());
    }
    else
    {
        clutter_text_set_use_markup(text, FALSE);
        clutter_text_set_text(text, displayed.c_str());
    }
}

void GetPreferredWidth(ClutterActor* a_actor, gfloat a_forHeight, gfloat* a_minimum, gfloat* a_natural)
{
    gfloat natural = 0;
    CLUTTER_ACTOR_CLASS(s_parentClass)->get_preferred_width(a_actor, a_forHeight, nullptr, &natural);
    for (gfloat* result : {a_minimum, a_natural})
    {
        if (result != nullptr)
        {
            *result = natural;
        }
    }
}

void GetPreferredHeight(ClutterActor* a_actor, gfloat a_forWidth, gfloat* a_minimum, gfloat* a_natural)
{
    gfloat natural = 0;
    CLUTTER_ACTOR_CLASS(s_parentClass)->get_preferred_height(a_actor, a_forWidth, nullptr, &natural);
    for (gfloat* result : {a_minimum, a_natural})
    {
        if (result != nullptr)
        {
            *result = natural;
        }
    }
}

void Finalise(GObject* a_object)
{
    delete CLUTTER_LABEL(a_object)->text;
    s_parentClass->finalize(a_object);
}

void InitialiseClass(gpointer a_class, gpointer)
{
    s_parentClass = G_OBJECT_CLASS(g_type_class_peek_parent(a_class));
    G_OBJECT_CLASS(a_class)->finalize = Finalise;
    CLUTTER_ACTOR_CLASS(a_class)->get_preferred_width = GetPreferredWidth;
    CLUTTER_ACTOR_CLASS(a_class)->get_preferred_height = GetPreferredHeight;
}

void InitialiseInstance(GTypeInstance* a_instance, gpointer)
{
    reinterpret_cast<ClutterLabel*>(a_instance)->text = new std::string;
}

} // namespace

GType clutter_label_get_type()
{
    static const GType s_type =
        g_type_register_static_simple(clutter_text_get_type(), "GfxLabel", sizeof(ClutterLabelClass), InitialiseClass,
                                      sizeof(ClutterLabel), InitialiseInstance, GTypeFlags{});
    return s_type;
}

ClutterActor* clutter_label_new_full(const char* a_font, const char* a_text, const ClutterColor* a_colour)
{
    auto* label = CLUTTER_LABEL(g_object_new(CLUTTER_TYPE_LABEL, nullptr));
    clutter_label_set_font_name(label, a_font);
    clutter_label_set_color(label, a_colour);
    clutter_label_set_text(label, a_text);
    return CLUTTER_ACTOR(label);
}

void clutter_label_set_text(ClutterLabel* a_label, const char* a_text)
{
    if (*a_label->text != a_text)
    {
        *a_label->text = a_text;
        Apply(a_label);
    }
}

void clutter_label_set_font_name(ClutterLabel* a_label, const char* a_font)
{
    clutter_text_set_font_name(CLUTTER_TEXT(a_label), a_font);
}

void clutter_label_set_color(ClutterLabel* a_label, const ClutterColor* a_colour)
{
    ClutterColor current;
    clutter_text_get_color(CLUTTER_TEXT(a_label), &current);
    if (clutter_color_equal(&current, a_colour) == FALSE)
    {
        clutter_text_set_color(CLUTTER_TEXT(a_label), a_colour);
    }
}

void clutter_label_set_use_markup(ClutterLabel* a_label, gboolean a_useMarkup)
{
    if (a_label->useMarkup != (a_useMarkup != FALSE))
    {
        a_label->useMarkup = a_useMarkup != FALSE;
        Apply(a_label);
    }
}

void clutter_label_set_ellipsize(ClutterLabel* a_label, PangoEllipsizeMode a_mode)
{
    clutter_text_set_ellipsize(CLUTTER_TEXT(a_label), a_mode);
}

PangoEllipsizeMode clutter_label_get_ellipsize(ClutterLabel* a_label)
{
    return clutter_text_get_ellipsize(CLUTTER_TEXT(a_label));
}

void clutter_label_get_natural_size(ClutterLabel* a_label, float* a_width, float* a_height)
{
    GetPreferredWidth(CLUTTER_ACTOR(a_label), -1, nullptr, a_width);
    GetPreferredHeight(CLUTTER_ACTOR(a_label), -1, nullptr, a_height);
}

void clutter_label_set_line_wrap(ClutterLabel* a_label, gboolean a_wrap)
{
    clutter_text_set_line_wrap(CLUTTER_TEXT(a_label), a_wrap);
}

void clutter_label_set_alignment(ClutterLabel* a_label, PangoAlignment a_alignment)
{
    clutter_text_set_line_alignment(CLUTTER_TEXT(a_label), a_alignment);
}

void clutter_label_set_justify(ClutterLabel* a_label, gboolean a_justify)
{
    clutter_text_set_justify(CLUTTER_TEXT(a_label), a_justify);
}
