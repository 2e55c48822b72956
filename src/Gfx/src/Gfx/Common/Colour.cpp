#include "Gfx/Common/Colour.h"

#include "Platform/Clutter/Clutter.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Gfx
{

namespace
{

constexpr auto k_namedColours = std::to_array<SNamedColour>({
    {"AliceBlue", Colours::AliceBlue},
    {"AntiqueWhite", Colours::AntiqueWhite},
    {"Aqua", Colours::Aqua},
    {"Aquamarine", Colours::Aquamarine},
    {"Azure", Colours::Azure},
    {"Beige", Colours::Beige},
    {"Bisque", Colours::Bisque},
    {"Black", Colours::Black},
    {"BlanchedAlmond", Colours::BlanchedAlmond},
    {"Blue", Colours::Blue},
    {"BlueViolet", Colours::BlueViolet},
    {"Brown", Colours::Brown},
    {"BurlyWood", Colours::BurlyWood},
    {"CadetBlue", Colours::CadetBlue},
    {"Chartreuse", Colours::Chartreuse},
    {"Chocolate", Colours::Chocolate},
    {"Coral", Colours::Coral},
    {"CornflowerBlue", Colours::CornflowerBlue},
    {"Cornsilk", Colours::Cornsilk},
    {"Crimson", Colours::Crimson},
    {"Cyan", Colours::Cyan},
    {"DarkBlue", Colours::DarkBlue},
    {"DarkCyan", Colours::DarkCyan},
    {"DarkGoldenRod", Colours::DarkGoldenRod},
    {"DarkGray", Colours::DarkGray},
    {"DarkGreen", Colours::DarkGreen},
    {"DarkKhaki", Colours::DarkKhaki},
    {"DarkMagenta", Colours::DarkMagenta},
    {"DarkOliveGreen", Colours::DarkOliveGreen},
    {"Darkorange", Colours::Darkorange},
    {"DarkOrchid", Colours::DarkOrchid},
    {"DarkRed", Colours::DarkRed},
    {"DarkSalmon", Colours::DarkSalmon},
    {"DarkSeaGreen", Colours::DarkSeaGreen},
    {"DarkSlateBlue", Colours::DarkSlateBlue},
    {"DarkSlateGray", Colours::DarkSlateGray},
    {"DarkTurquoise", Colours::DarkTurquoise},
    {"DarkViolet", Colours::DarkViolet},
    {"DeepPink", Colours::DeepPink},
    {"DeepSkyBlue", Colours::DeepSkyBlue},
    {"DimGray", Colours::DimGray},
    {"DodgerBlue", Colours::DodgerBlue},
    {"FireBrick", Colours::FireBrick},
    {"FloralWhite", Colours::FloralWhite},
    {"ForestGreen", Colours::ForestGreen},
    {"Fuchsia", Colours::Fuchsia},
    {"Gainsboro", Colours::Gainsboro},
    {"GhostWhite", Colours::GhostWhite},
    {"Gold", Colours::Gold},
    {"GoldenRod", Colours::GoldenRod},
    {"Gray", Colours::Gray},
    {"Green", Colours::Green},
    {"GreenYellow", Colours::GreenYellow},
    {"HoneyDew", Colours::HoneyDew},
    {"HotPink", Colours::HotPink},
    {"IndianRed", Colours::IndianRed},
    {"Indigo", Colours::Indigo},
    {"Ivory", Colours::Ivory},
    {"Khaki", Colours::Khaki},
    {"Lavender", Colours::Lavender},
    {"LavenderBlush", Colours::LavenderBlush},
    {"LawnGreen", Colours::LawnGreen},
    {"LemonChiffon", Colours::LemonChiffon},
    {"LightBlue", Colours::LightBlue},
    {"LightCoral", Colours::LightCoral},
    {"LightCyan", Colours::LightCyan},
    {"LightGoldenRodYellow", Colours::LightGoldenRodYellow},
    {"LightGrey", Colours::LightGrey},
    {"LightGreen", Colours::LightGreen},
    {"LightPink", Colours::LightPink},
    {"LightSalmon", Colours::LightSalmon},
    {"LightSeaGreen", Colours::LightSeaGreen},
    {"LightSkyBlue", Colours::LightSkyBlue},
    {"LightSlateGray", Colours::LightSlateGray},
    {"LightSteelBlue", Colours::LightSteelBlue},
    {"LightYellow", Colours::LightYellow},
    {"Lime", Colours::Lime},
    {"LimeGreen", Colours::LimeGreen},
    {"Linen", Colours::Linen},
    {"Magenta", Colours::Magenta},
    {"Maroon", Colours::Maroon},
    {"MediumAquaMarine", Colours::MediumAquaMarine},
    {"MediumBlue", Colours::MediumBlue},
    {"MediumOrchid", Colours::MediumOrchid},
    {"MediumPurple", Colours::MediumPurple},
    {"MediumSeaGreen", Colours::MediumSeaGreen},
    {"MediumSlateBlue", Colours::MediumSlateBlue},
    {"MediumSpringGreen", Colours::MediumSpringGreen},
    {"MediumTurquoise", Colours::MediumTurquoise},
    {"MediumVioletRed", Colours::MediumVioletRed},
    {"MidnightBlue", Colours::MidnightBlue},
    {"MintCream", Colours::MintCream},
    {"MistyRose", Colours::MistyRose},
    {"Moccasin", Colours::Moccasin},
    {"NavajoWhite", Colours::NavajoWhite},
    {"Navy", Colours::Navy},
    {"OldLace", Colours::OldLace},
    {"Olive", Colours::Olive},
    {"OliveDrab", Colours::OliveDrab},
    {"Orange", Colours::Orange},
    {"OrangeRed", Colours::OrangeRed},
    {"Orchid", Colours::Orchid},
    {"PaleGoldenRod", Colours::PaleGoldenRod},
    {"PaleGreen", Colours::PaleGreen},
    {"PaleTurquoise", Colours::PaleTurquoise},
    {"PaleVioletRed", Colours::PaleVioletRed},
    {"PapayaWhip", Colours::PapayaWhip},
    {"PeachPuff", Colours::PeachPuff},
    {"Peru", Colours::Peru},
    {"Pink", Colours::Pink},
    {"Plum", Colours::Plum},
    {"PowderBlue", Colours::PowderBlue},
    {"Purple", Colours::Purple},
    {"Red", Colours::Red},
    {"RosyBrown", Colours::RosyBrown},
    {"RoyalBlue", Colours::RoyalBlue},
    {"SaddleBrown", Colours::SaddleBrown},
    {"Salmon", Colours::Salmon},
    {"SandyBrown", Colours::SandyBrown},
    {"SeaGreen", Colours::SeaGreen},
    {"SeaShell", Colours::SeaShell},
    {"Sienna", Colours::Sienna},
    {"Silver", Colours::Silver},
    {"SkyBlue", Colours::SkyBlue},
    {"SlateBlue", Colours::SlateBlue},
    {"SlateGray", Colours::SlateGray},
    {"Snow", Colours::Snow},
    {"SpringGreen", Colours::SpringGreen},
    {"SteelBlue", Colours::SteelBlue},
    {"Tan", Colours::Tan},
    {"Teal", Colours::Teal},
    {"Thistle", Colours::Thistle},
    {"Tomato", Colours::Tomato},
    {"Turquoise", Colours::Turquoise},
    {"Violet", Colours::Violet},
    {"Wheat", Colours::Wheat},
    {"White", Colours::White},
    {"WhiteSmoke", Colours::WhiteSmoke},
    {"Yellow", Colours::Yellow},
    {"YellowGreen", Colours::YellowGreen},
});

/// a_component, 1 being the full byte, truncated towards zero and taken modulo 256.
std::uint8_t ByteFromComponent(float a_component)
{
    const float scaled = a_component * 255.0F;
    // From 2^31 upwards a float is a multiple of 256, so only its low bits, which are zero, are lost here.
    constexpr float limit = 2147483648.0F;
    if (!(std::fabs(scaled) < limit))
    {
        return 0;
    }
    return static_cast<std::uint8_t>(static_cast<std::int32_t>(scaled));
}

} // namespace

CColour CColour::FromHSL(float a_hue, float a_saturation, float a_lightness)
{
    const auto opaque = [](float a_red, float a_green, float a_blue)
    { return CColour(ByteFromComponent(a_red), ByteFromComponent(a_green), ByteFromComponent(a_blue), 255); };
    const CColour grey = opaque(a_lightness, a_lightness, a_lightness);

    const float value = a_lightness <= 0.5F ? a_lightness * (1.0F + a_saturation)
                                            : a_lightness + a_saturation - a_lightness * a_saturation;
    const float scaled = a_hue * 6.0F;
    if (value <= 0.0F || !(scaled >= 0.0F && scaled < 6.0F))
    {
        return grey;
    }
    const float minimum = 2.0F * a_lightness - value;
    const int sextant = static_cast<int>(scaled);
    const float fraction = scaled - static_cast<float>(sextant);
    const float step = value * ((value - minimum) / value) * fraction;
    const float rising = minimum + step;
    const float falling = value - step;
    switch (sextant)
    {
    case 0: return opaque(value, rising, minimum);
    case 1: return opaque(falling, value, minimum);
    case 2: return opaque(minimum, value, rising);
    case 3: return opaque(minimum, falling, value);
    case 4: return opaque(rising, minimum, value);
    default: return opaque(value, minimum, falling);
    }
}

void CColour::ToHSL(float& a_hue, float& a_saturation, float& a_lightness) const
{
    const float red = static_cast<float>(m_red) / 255.0F;
    const float green = static_cast<float>(m_green) / 255.0F;
    const float blue = static_cast<float>(m_blue) / 255.0F;
    const float minimum = std::min({red, green, blue});
    const float maximum = std::max({red, green, blue});
    const float delta = maximum - minimum;

    a_hue = 0.0F;
    a_saturation = 0.0F;
    a_lightness = (minimum + maximum) * 0.5F;
    if (a_lightness <= 0.0F || delta <= 0.0F)
    {
        return;
    }
    a_saturation = delta / (a_lightness <= 0.5F ? maximum + minimum : 2.0F - maximum - minimum);

    const float redDistance = (maximum - red) / delta;
    const float greenDistance = (maximum - green) / delta;
    const float blueDistance = (maximum - blue) / delta;
    float sextants = 0.0F;
    if (red == maximum)
    {
        sextants = green == minimum ? blueDistance + 5.0F : 1.0F - greenDistance;
    }
    else if (green == maximum)
    {
        sextants = blue == minimum ? redDistance + 1.0F : 3.0F - blueDistance;
    }
    else
    {
        sextants = red == minimum ? greenDistance + 3.0F : 5.0F - redDistance;
    }
    // The hue circle closes at a pure red, whose six sextants FromHSL would take for a grey.
    a_hue = sextants < 6.0F ? sextants / 6.0F : 0.0F;
}

CColour CColour::Darken(float a_factor) const
{
    float hue = 0.0F;
    float saturation = 0.0F;
    float lightness = 0.0F;
    ToHSL(hue, saturation, lightness);
    CColour darkened = FromHSL(hue, saturation, lightness * a_factor);
    darkened.m_alpha = m_alpha;
    return darkened;
}

CColour CColour::Opacity(float a_opacity) const
{
    const float alpha = a_opacity * 255.0F;
    // Written so that a NaN ends at 0.
    const float clamped = alpha > 0.0F ? std::min(alpha, 255.0F) : 0.0F;
    return {m_red, m_green, m_blue, static_cast<std::uint8_t>(clamped)};
}

std::int32_t CColour::AsInt32() const
{
    return static_cast<std::int32_t>(std::uint32_t{m_alpha} << 24 | std::uint32_t{m_red} << 16 |
                                     std::uint32_t{m_green} << 8 | m_blue);
}

ClutterColor CColour::AsClutterColour() const
{
    return {m_red, m_green, m_blue, m_alpha};
}

std::span<const SNamedColour> NamedColours()
{
    return k_namedColours;
}

std::string StringFromColour(const CColour& a_colour)
{
    const CColour opaque(a_colour.Red(), a_colour.Green(), a_colour.Blue(), 255);
    const auto row = std::find_if(k_namedColours.begin(), k_namedColours.end(),
                                  [&opaque](const SNamedColour& a_row) { return a_row.colour == opaque; });
    return row != k_namedColours.end() ? std::string(row->name) : std::string();
}

CColour ColourFromString(const std::string& a_name)
{
    const auto row = std::find_if(k_namedColours.begin(), k_namedColours.end(),
                                  [&a_name](const SNamedColour& a_row) { return a_row.name == a_name; });
    return row != k_namedColours.end() ? row->colour : Colours::White;
}

} // namespace Gfx
