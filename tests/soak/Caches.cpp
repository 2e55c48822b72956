#include "Caches.h"

#include "Hands.h"

#include "Core/StaticSingleton.h"
#include "Managers/Gfx/GfxManager.h"
#include "Platform/Clutter/Actor.h"

#include <cogl-pango/cogl-pango.h>
#include <glib-object.h>

#include <memory>
#include <set>
#include <string>

namespace Soak
{

namespace
{

/// More than are ever on the stage, even if themes change again and again while a keyboard is shown.
constexpr int k_crowd = 20000;

ClutterActor* Stage()
{
    return Core::Patterns::StaticSingleton<Gfx::Managers::CGfxManager>::ref().GetStage();
}

std::string Letters()
{
    std::string letters;
    const auto add = [&letters](gunichar a_letter)
    {
        char text[6];
        letters.append(text, static_cast<std::size_t>(g_unichar_to_utf8(a_letter, text)));
    };
    for (gunichar letter = ' '; letter < 0x100; ++letter)
    {
        add(letter);
    }
    for (const unsigned long key : k_specialKeys)
    {
        add(static_cast<gunichar>(key));
    }
    return letters;
}

void FillGlyphsOf(ClutterActor* a_actor)
{
    static std::set<std::string> s_fonts;
    static const std::string s_letters = Letters();
    auto* const actorClass = G_OBJECT_GET_CLASS(a_actor);
    if (g_object_class_find_property(actorClass, "text") != nullptr)
    {
        PangoLayout* const shown = reinterpret_cast<Platform::STextActorClass*>(actorClass)->getLayout(a_actor);
        const PangoFontDescription* const font = pango_layout_get_font_description(shown);
        const std::unique_ptr<char, decltype(&g_free)> name(
            font != nullptr ? pango_font_description_to_string(font) : nullptr, g_free);
        if (name && s_fonts.insert(name.get()).second)
        {
            PangoLayout* const layout = pango_layout_new(pango_layout_get_context(shown));
            pango_layout_set_font_description(layout, font);
            pango_layout_set_text(layout, s_letters.c_str(), -1);
            cogl_pango_ensure_glyph_cache_for_layout(layout);
            g_object_unref(layout);
        }
    }
    for (ClutterActor* child = clutter_actor_get_first_child(a_actor); child != nullptr;
         child = clutter_actor_get_next_sibling(child))
    {
        FillGlyphsOf(child);
    }
}

} // namespace

void FillActorNumbers()
{
    ClutterActor* const crowd = clutter_actor_new();
    for (int i = 0; i < k_crowd; ++i)
    {
        clutter_actor_add_child(crowd, clutter_actor_new());
    }
    clutter_actor_add_child(Stage(), crowd);
    clutter_actor_destroy(crowd);
}

void FillGlyphs()
{
    FillGlyphsOf(Stage());
}

} // namespace Soak
