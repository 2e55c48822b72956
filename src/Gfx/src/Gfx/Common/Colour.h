#pragma once

#include "Core/Api.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

typedef struct _ClutterColor ClutterColor;

namespace Gfx
{

/// Marks the text of a control as the key of a localised text.
inline constexpr std::string_view k_localisedPrefix = "Localised:";

/// A colour of four bytes, red, green, blue and alpha in this order, as in a ClutterColor. Not premultiplied; alpha
/// 255 is opaque. The named colours are constants in Gfx::Colours.
class GFX_API CColour
{
public:
    constexpr CColour(std::uint8_t a_red, std::uint8_t a_green, std::uint8_t a_blue, std::uint8_t a_alpha)
        : m_red(a_red), m_green(a_green), m_blue(a_blue), m_alpha(a_alpha)
    {
    }

    /// The opaque colour of a hue (0 red, 1/3 green, 2/3 blue), a saturation and a lightness, each from 0 to 1.
    /// The hue doesn't wrap: from 1 upwards and below 0 the result is the grey of that lightness. Nothing is clamped:
    /// a component past the range of a byte keeps the low eight bits of its whole part, as 300 becomes 44; one that
    /// isn't finite becomes 0.
    [[nodiscard]] static CColour FromHSL(float a_hue, float a_saturation, float a_lightness);

    constexpr bool operator==(const CColour& a_other) const = default;

    /// Hue, saturation and lightness from 0 to 1, the hue below 1. A grey has neither hue nor saturation (both 0).
    void ToHSL(float& a_hue, float& a_saturation, float& a_lightness) const;

    /// The colour with its lightness multiplied by a_factor: darker below 1, lighter above, the same alpha. Lightness
    /// isn't clamped, so a factor that lifts it beyond 1 makes the components wrap; see FromHSL.
    [[nodiscard]] CColour Darken(float a_factor) const;

    /// The same colour with another alpha: 0 for a_opacity 0, 255 for 1, clamped beyond these; 0 for a NaN.
    [[nodiscard]] CColour Opacity(float a_opacity) const;

    /// Alpha in the highest byte, then red, green and blue.
    [[nodiscard]] std::int32_t AsInt32() const;

    [[nodiscard]] ClutterColor AsClutterColour() const;

    [[nodiscard]] constexpr std::uint8_t Red() const { return m_red; }
    [[nodiscard]] constexpr std::uint8_t Green() const { return m_green; }
    [[nodiscard]] constexpr std::uint8_t Blue() const { return m_blue; }
    [[nodiscard]] constexpr std::uint8_t Alpha() const { return m_alpha; }

private:
    std::uint8_t m_red;
    std::uint8_t m_green;
    std::uint8_t m_blue;
    std::uint8_t m_alpha;
};

static_assert(sizeof(CColour) == 4 && std::is_trivially_copyable_v<CColour>);

/// A row of the colour table.
struct SNamedColour
{
    std::string_view name;
    CColour colour;
};

/// The named colours, in the order in which they are searched. The table lives as long as the library.
[[nodiscard]] GFX_API std::span<const SNamedColour> NamedColours();

/// The first name of a colour, whatever its alpha: "Aqua" for Cyan too, "Fuchsia" for Magenta too. Empty for a colour
/// without a name.
[[nodiscard]] GFX_API std::string StringFromColour(const CColour& a_colour);

/// The named colour; White, without a report, for any other text. Names are case-sensitive and written as in
/// Gfx::Colours; there is no numeric form.
[[nodiscard]] GFX_API CColour ColourFromString(const std::string& a_name);

} // namespace Gfx

#include "Gfx/Common/NamedColours.h"
