#include "Platform/Clutter/TextLayout.h"

#include <cogl-pango/cogl-pango.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <unordered_map>

namespace Platform
{

namespace
{

/// Descriptions by name: to parse one takes longer than to lay a short text out. Bounded, since names come from files.
const PangoFontDescription* FontDescription(const std::string& a_name)
{
    using DescriptionPtr = std::unique_ptr<PangoFontDescription, void (*)(PangoFontDescription*)>;
    constexpr std::size_t most = 64;
    static std::unordered_map<std::string, DescriptionPtr> s_known;
    const auto known = s_known.find(a_name);
    if (known != s_known.end())
    {
        return known->second.get();
    }
    if (s_known.size() == most)
    {
        s_known.clear();
    }
    return s_known
        .emplace(a_name,
                 DescriptionPtr(pango_font_description_from_string(a_name.c_str()), pango_font_description_free))
        .first->second.get();
}

/// As much of a text as may be shown, without a part of a character at its end.
std::string_view Beginning(std::string_view a_text)
{
    if (a_text.size() <= k_longestText)
    {
        return a_text;
    }
    constexpr std::size_t longestTail = 3;
    std::size_t length = k_longestText;
    const auto isTail = [a_text](std::size_t a_index)
    { return (static_cast<unsigned char>(a_text[a_index]) & 0xC0U) == 0x80U; };
    while (length > k_longestText - longestTail && isTail(length))
    {
        --length;
    }
    return a_text.substr(0, length);
}

} // namespace

PangoLayout* NewLayout(ClutterActor* a_actor)
{
    static PangoContext* const s_context = clutter_actor_create_pango_context(a_actor);
    return pango_layout_new(s_context);
}

void SetLayoutFont(PangoLayout* a_layout, const std::string& a_font)
{
    pango_layout_set_font_description(a_layout, FontDescription(a_font));
}

std::string DisplayableText(std::string_view a_text)
{
    const std::string_view text = Beginning(a_text.substr(0, a_text.find('\0')));
    if (g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr) != FALSE)
    {
        return std::string(text);
    }
    // It may have grown.
    const std::unique_ptr<char, void (*)(void*)> valid(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())),
                                                       g_free);
    return std::string(Beginning(valid.get()));
}

STextExtents Extents(PangoLayout* a_layout)
{
    PangoRectangle logical;
    pango_layout_get_extents(a_layout, nullptr, &logical);
    const auto pixels = [](int a_start, int a_length)
    { return std::ceil((static_cast<float>(a_start) + static_cast<float>(a_length)) / PANGO_SCALE); };
    // An actor without any width would never be painted, and so never be seen to change.
    return {std::max(1.0F, pixels(logical.x, logical.width)), pixels(logical.y, logical.height)};
}

void DrawLayout(ClutterActor* a_actor, PangoLayout* a_layout, int a_x, const ClutterColor& a_colour)
{
    CoglColor colour;
    const int opacity = clutter_actor_get_paint_opacity(a_actor) * a_colour.alpha / 255;
    cogl_color_init_from_4ub(&colour, a_colour.red, a_colour.green, a_colour.blue, static_cast<guint8>(opacity));
    cogl_pango_show_layout(cogl_get_draw_framebuffer(), a_layout, static_cast<float>(a_x), 0, &colour);
}

} // namespace Platform
