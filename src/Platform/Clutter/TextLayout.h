#pragma once

#include "Platform/Clutter/Clutter.h"

#include <cstddef>
#include <string>
#include <string_view>

/// What the actors that show text share: plain Pango layouts, in one context, and texts made fit for them.
namespace Platform
{

/// Beyond so many bytes Pango's units overflow, in a single line.
constexpr std::size_t k_longestText = std::size_t{64} << 10U;

/// What a layout takes, in whole pixels.
struct STextExtents
{
    float width = 0;
    float height = 0;
};

/// An empty layout, which the caller owns. a_actor may be any that shows text: the fonts and the resolution are the
/// console's.
PangoLayout* NewLayout(ClutterActor* a_actor);

/// Gives a layout a font, by a Pango font description.
void SetLayoutFont(PangoLayout* a_layout, const std::string& a_font);

/// A text as Pango can take it: no more than k_longestText bytes of it and none behind a null, cut between characters,
/// with replacement characters for what isn't UTF-8.
std::string DisplayableText(std::string_view a_text);

STextExtents Extents(PangoLayout* a_layout);

/// Draws a layout for an actor that paints, in a colour and the actor's opacity.
void DrawLayout(ClutterActor* a_actor, PangoLayout* a_layout, int a_x, const ClutterColor& a_colour);

} // namespace Platform
