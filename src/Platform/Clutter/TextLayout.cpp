#include "Platform/Clutter/TextLayout.h"

#include <cogl-pango/cogl-pango.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <unordered_map>
#include <utility>

namespace Platform
{

namespace
{

using DescriptionPtr = std::unique_ptr<PangoFontDescription, void (*)(PangoFontDescription*)>;

/// Keys come from files.
constexpr std::size_t k_mostKnown = 64;

bool IsSameFamily(const std::string& a_one, const std::string& a_other)
{
    const auto bare = [](std::string a_name)
    {
        std::erase(a_name, ' ');
        return a_name;
    };
    return g_ascii_strcasecmp(bare(a_one).c_str(), bare(a_other).c_str()) == 0;
}

/// A family as its font file spells it, where fontconfig, to which blanks mean nothing, finds it by another spelling.
/// Pango takes a font's metrics from a second look for it, by the file's spelling, which finds the first one if that
/// has been for the same; at each size, a look takes half a millisecond.
const std::string& FileSpelling(const std::string& a_family, PangoContext* a_context,
                                const PangoFontDescription* a_description)
{
    static std::unordered_map<std::string, std::string> s_known;
    const auto known = s_known.find(a_family);
    if (known != s_known.end())
    {
        return known->second;
    }
    if (s_known.size() == k_mostKnown)
    {
        s_known.clear();
    }
    std::string& spelling = s_known.emplace(a_family, a_family).first->second;
    if (PangoFont* const font = pango_context_load_font(a_context, a_description))
    {
        const DescriptionPtr found(pango_font_describe(font), pango_font_description_free);
        const char* const family = pango_font_description_get_family(found.get());
        if (family != nullptr && IsSameFamily(family, a_family))
        {
            spelling = family;
        }
        g_object_unref(font);
    }
    return spelling;
}

/// Descriptions by name: to parse one takes longer than to lay a short text out.
const PangoFontDescription* FontDescription(const std::string& a_name, PangoContext* a_context)
{
    static std::unordered_map<std::string, DescriptionPtr> s_known;
    const auto known = s_known.find(a_name);
    if (known != s_known.end())
    {
        return known->second.get();
    }
    if (s_known.size() == k_mostKnown)
    {
        s_known.clear();
    }
    DescriptionPtr description(pango_font_description_from_string(a_name.c_str()), pango_font_description_free);
    const char* const family = pango_font_description_get_family(description.get());
    if (family != nullptr && std::strchr(family, ',') == nullptr)
    {
        const std::string& spelling = FileSpelling(family, a_context, description.get());
        pango_font_description_set_family(description.get(), spelling.c_str());
    }
    return s_known.emplace(a_name, std::move(description)).first->second.get();
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
    pango_layout_set_font_description(a_layout, FontDescription(a_font, pango_layout_get_context(a_layout)));
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
