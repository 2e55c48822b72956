#include "Gfx/Common/Colour.h"

#include <clutter/clutter.h>
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdint>
#include <limits>
#include <set>
#include <string>
#include <string_view>

namespace
{

using Gfx::CColour;
using Gfx::ColourFromString;
using Gfx::StringFromColour;
namespace Colours = Gfx::Colours;

constexpr float k_infinity = std::numeric_limits<float>::infinity();
constexpr float k_nan = std::numeric_limits<float>::quiet_NaN();

// Usable before any constructor has run.
static_assert(Colours::SteelBlue.Green() == 130 && Gfx::k_localisedPrefix.back() == ':');

void ExpectNear(const CColour& a_actual, const CColour& a_expected)
{
    EXPECT_NEAR(a_actual.Red(), a_expected.Red(), 1);
    EXPECT_NEAR(a_actual.Green(), a_expected.Green(), 1);
    EXPECT_NEAR(a_actual.Blue(), a_expected.Blue(), 1);
    EXPECT_EQ(a_actual.Alpha(), a_expected.Alpha());
}

TEST(ColourTest, EachNameStandsOnceAndFindsItsOwnOpaqueColour)
{
    std::set<std::string_view> names;
    for (const auto& [name, colour] : Gfx::NamedColours())
    {
        EXPECT_TRUE(names.insert(name).second) << name;
        EXPECT_EQ(ColourFromString(std::string(name)), colour) << name;
        EXPECT_EQ(ColourFromString(StringFromColour(colour)), colour) << name;
        EXPECT_EQ(colour.Alpha(), 255) << name;
    }
    EXPECT_EQ(names.size(), 140U);
}

TEST(ColourTest, NoLetterAndNoValueOfTheTableHasChanged)
{
    // 64-bit FNV-1a over the rows, written as "Name red,green,blue;". Layouts and themes in the field hold the names.
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const auto& [name, colour] : Gfx::NamedColours())
    {
        const std::string row = std::string(name) + " " + std::to_string(colour.Red()) + "," +
                                std::to_string(colour.Green()) + "," + std::to_string(colour.Blue()) + ";";
        for (const char letter : row)
        {
            hash = (hash ^ static_cast<unsigned char>(letter)) * 0x100000001b3U;
        }
    }
    EXPECT_EQ(hash, 0xb0f8c4a3605d895aU);
}

TEST(ColourTest, AnUnknownNameIsWhite)
{
    for (const char* name :
         {"", "aliceblue", "BLACK", "LightGray", "DarkOrange", "Blac", "Blacks", " Black", "#000000"})
    {
        EXPECT_EQ(ColourFromString(name), Colours::White) << name;
    }
    EXPECT_EQ(ColourFromString(std::string("Black\0", 6)), Colours::White);
}

TEST(ColourTest, TheFirstNameOfAColourIsGivenWhateverItsAlpha)
{
    EXPECT_EQ(StringFromColour(CColour(0, 255, 255, 10)), "Aqua");
    EXPECT_EQ(StringFromColour(ColourFromString("Cyan")), "Aqua");
    EXPECT_EQ(StringFromColour(Colours::Magenta), "Fuchsia");
    EXPECT_EQ(StringFromColour(CColour(1, 2, 3, 255)), "");
}

TEST(ColourTest, TheBytesHaveTheirPlaces)
{
    const CColour colour(0x12, 0x34, 0x56, 0x98);
    const std::array<std::uint8_t, 4> bytes{0x12, 0x34, 0x56, 0x98};
    EXPECT_EQ((std::bit_cast<std::array<std::uint8_t, 4>>(colour)), bytes);
    EXPECT_EQ(static_cast<std::uint32_t>(colour.AsInt32()), 0x98123456U);

    const ClutterColor clutterColour = colour.AsClutterColour();
    EXPECT_EQ(clutterColour.red, 0x12);
    EXPECT_EQ(clutterColour.green, 0x34);
    EXPECT_EQ(clutterColour.blue, 0x56);
    EXPECT_EQ(clutterColour.alpha, 0x98);
}

TEST(ColourTest, OpacityIsTruncatedAndClamped)
{
    struct SCase
    {
        float opacity;
        int alpha;
    };
    const SCase cases[] = {{0.0F, 0},    {0.5F, 127},  {0.999F, 254}, {1.0F, 255}, {2.0F, 255},       {-1.0F, 0},
                           {-0.001F, 0}, {1e30F, 255}, {-1e30F, 0},   {k_nan, 0},  {k_infinity, 255}, {-k_infinity, 0}};
    for (const SCase& current : cases)
    {
        EXPECT_EQ(CColour(1, 2, 3, 4).Opacity(current.opacity),
                  CColour(1, 2, 3, static_cast<std::uint8_t>(current.alpha)))
            << current.opacity;
    }
}

TEST(ColourTest, HueSaturationAndLightnessOfKnownColours)
{
    struct SCase
    {
        CColour colour;
        float hue;
        float saturation;
        float lightness;
    };
    const SCase cases[] = {
        {Colours::Red, 0.0F, 1.0F, 0.5F},
        {Colours::Yellow, 1.0F / 6, 1.0F, 0.5F},
        {Colours::Lime, 2.0F / 6, 1.0F, 0.5F},
        {Colours::Aqua, 3.0F / 6, 1.0F, 0.5F},
        {Colours::Blue, 4.0F / 6, 1.0F, 0.5F},
        {Colours::Fuchsia, 5.0F / 6, 1.0F, 0.5F},
        {Colours::Orange, 165.0F / 255 / 6, 1.0F, 0.5F},
        {Colours::Pink, (5 + 52.0F / 63) / 6, 1.0F, 447.0F / 510},
        {Colours::YellowGreen, (1 + 51.0F / 155) / 6, 155.0F / 255, 0.5F},
        {Colours::SeaGreen, (3 - 52.0F / 93) / 6, 93.0F / 185, 185.0F / 510},
        {Colours::SteelBlue, (3 + 50.0F / 110) / 6, 110.0F / 250, 250.0F / 510},
        {Colours::BlueViolet, (5 - 88.0F / 183) / 6, 183.0F / 241, 269.0F / 510},
        {Colours::Plum, 5.0F / 6, 61.0F / 129, 381.0F / 510},
        {Colours::Gray, 0.0F, 0.0F, 128.0F / 255},
        {Colours::White, 0.0F, 0.0F, 1.0F},
        {Colours::Black, 0.0F, 0.0F, 0.0F},
        {CColour(255, 0, 0, 7), 0.0F, 1.0F, 0.5F},
    };
    for (const SCase& current : cases)
    {
        SCOPED_TRACE(StringFromColour(current.colour));
        float hue = -1.0F;
        float saturation = -1.0F;
        float lightness = -1.0F;
        current.colour.ToHSL(hue, saturation, lightness);
        EXPECT_NEAR(hue, current.hue, 1e-6);
        EXPECT_NEAR(saturation, current.saturation, 1e-6);
        EXPECT_NEAR(lightness, current.lightness, 1e-6);
    }
}

TEST(ColourTest, EveryNamedColourSurvivesTheWayThroughHSL)
{
    for (const auto& [name, colour] : Gfx::NamedColours())
    {
        SCOPED_TRACE(name);
        float hue = -1.0F;
        float saturation = -1.0F;
        float lightness = -1.0F;
        colour.ToHSL(hue, saturation, lightness);
        EXPECT_GE(hue, 0.0F);
        EXPECT_LT(hue, 1.0F);
        ExpectNear(CColour::FromHSL(hue, saturation, lightness), colour);
    }
}

TEST(ColourTest, AHueOffTheCircleIsGrey)
{
    for (const float hue : {1.0F, 1.2F, -0.01F, -0.5F, 1e30F, k_infinity, -k_infinity, k_nan})
    {
        EXPECT_EQ(CColour::FromHSL(hue, 1.0F, 0.5F), CColour(127, 127, 127, 255)) << hue;
    }
}

TEST(ColourTest, ComponentsBeyondAByteWrap)
{
    struct SCase
    {
        float lightness;
        int component;
    };
    const SCase cases[] = {{300.5F / 255, 44}, {512.5F / 255, 0}, {-25.5F / 255, 256 - 25}, {1e7F, 0},
                           {1e30F, 0},         {-1e30F, 0},       {k_infinity, 0},          {k_nan, 0}};
    for (const SCase& current : cases)
    {
        const auto component = static_cast<std::uint8_t>(current.component);
        EXPECT_EQ(CColour::FromHSL(0.0F, 0.0F, current.lightness), CColour(component, component, component, 255))
            << current.lightness;
    }
}

TEST(ColourTest, DarkenScalesTheLightnessAlone)
{
    ExpectNear(CColour(255, 0, 0, 9).Darken(0.5F), CColour(127, 0, 0, 9));
    ExpectNear(CColour(70, 130, 180, 255).Darken(0.5F), CColour(35, 65, 90, 255));
    ExpectNear(CColour(0, 100, 0, 1).Darken(2.0F), CColour(0, 200, 0, 1));
    EXPECT_EQ(CColour(70, 130, 180, 77).Darken(0.0F), CColour(0, 0, 0, 77));

    // Twice the lightness of this grey is 400 / 255, which isn't clamped.
    ExpectNear(CColour(200, 200, 200, 3).Darken(2.0F), CColour(144, 144, 144, 3));
    ExpectNear(CColour(10, 20, 30, 4).Darken(k_nan), CColour(0, 0, 0, 4));
}

} // namespace
