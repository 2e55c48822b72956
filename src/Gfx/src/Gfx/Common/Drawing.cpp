#include "Gfx/Common/Drawing.h"

#include "Platform/Clutter/Clutter.h"

#include <cstdint>
#include <type_traits>

namespace Gfx::Utilities
{

static_assert(std::is_same_v<CoglFixed, std::int32_t>, "A quad is handed over as eight of Cogl's fixed-point values.");

void DrawTexturedQuads(const std::vector<STexturedQuad>& a_quads, void* a_texture)
{
    cogl_texture_multiple_rectangles(a_texture, reinterpret_cast<const CoglFixed*>(a_quads.data()),
                                     static_cast<guint>(a_quads.size()));
}

void SetColour(const CColour& a_colour)
{
    const ClutterColor colour = a_colour.AsClutterColour();
    cogl_color(&colour);
}

STexturedQuad WholeTexture(const Common::CAABB& a_rectangle)
{
    constexpr CoglFixed whole = 0x10000;
    return {clutter_double_to_fixed(a_rectangle.Left()),
            clutter_double_to_fixed(a_rectangle.Top()),
            clutter_double_to_fixed(a_rectangle.Right()),
            clutter_double_to_fixed(a_rectangle.Bottom()),
            0,
            0,
            whole,
            whole};
}

CColour Modulated(const CColour& a_colour)
{
    const ClutterColor current = cogl_current_color();
    const auto product = [](unsigned a_left, unsigned a_right)
    { return static_cast<std::uint8_t>((a_left * a_right + 127) / 255); };
    return {product(a_colour.Red(), current.red), product(a_colour.Green(), current.green),
            product(a_colour.Blue(), current.blue), product(a_colour.Alpha(), current.alpha)};
}

void FillRectangle(const Common::CAABB& a_rectangle, const CColour& a_colour)
{
    const ClutterColor current = cogl_current_color();
    const CColour colour = Modulated(a_colour);
    cogl_set_source_color4ub(colour.Red(), colour.Green(), colour.Blue(), colour.Alpha());
    cogl_rectangle(static_cast<float>(a_rectangle.Left()), static_cast<float>(a_rectangle.Top()),
                   static_cast<float>(a_rectangle.Right()), static_cast<float>(a_rectangle.Bottom()));
    cogl_color(&current);
}

} // namespace Gfx::Utilities
