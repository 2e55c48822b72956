#include "Managers/Textures/TexturedElement.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace
{

using Gfx::STexturedQuad;
using Gfx::Managers::CSimpleElement;

constexpr double k_fixedOne = 65536.0;

int Fixed(double a_value)
{
    return static_cast<int>(a_value * k_fixedOne + 0.5);
}

/// The element of 30 by 40 at 10,20 on a page of 100 by 200.
CSimpleElement MakeElement(int a_border)
{
    return {10, 20, 30, 40, 100, 200, a_border};
}

TEST(TexturedElementTest, AnElementWithoutBordersIsOneQuad)
{
    std::vector<STexturedQuad> quads(3);
    MakeElement(0).Generate(0, 0, 60, 80, quads);
    ASSERT_EQ(quads.size(), 1U);
    EXPECT_TRUE((quads[0] == STexturedQuad{0, 0, 60 << 16, 80 << 16, Fixed(0.1), Fixed(0.1), Fixed(0.4), Fixed(0.3)}));
}

TEST(TexturedElementTest, ABorderedElementIsNineQuadsRowByRow)
{
    std::vector<STexturedQuad> quads;
    const CSimpleElement element = MakeElement(5);
    element.Generate(0, 0, 60, 80, quads);
    element.Generate(0, 0, 60, 80, quads);
    ASSERT_EQ(quads.size(), 9U);
    EXPECT_TRUE((quads[0] == STexturedQuad{0, 0, 5 << 16, 5 << 16, Fixed(0.1), Fixed(0.1), Fixed(0.15), Fixed(0.125)}));
    EXPECT_TRUE(
        (quads[1] == STexturedQuad{5 << 16, 0, 55 << 16, 5 << 16, Fixed(0.15), Fixed(0.1), Fixed(0.35), Fixed(0.125)}));
    EXPECT_TRUE((quads[3] ==
                 STexturedQuad{0, 5 << 16, 5 << 16, 75 << 16, Fixed(0.1), Fixed(0.125), Fixed(0.15), Fixed(0.275)}));
    EXPECT_TRUE((quads[8] == STexturedQuad{55 << 16, 75 << 16, 60 << 16, 80 << 16, Fixed(0.35), Fixed(0.275),
                                           Fixed(0.4), Fixed(0.3)}));
}

TEST(TexturedElementTest, BordersAreIndependentAndATooSmallTargetTurnsTheCentreOver)
{
    CSimpleElement element = MakeElement(0);
    element.SetBorders(1, 2, 5, 5);
    EXPECT_EQ(element.GetElementMargin(Gfx::Margins::Left), 5);
    EXPECT_EQ(element.GetElementMargin(Gfx::Margins::Bottom), 2);
    EXPECT_EQ(element.GetElementMargin(static_cast<Gfx::Margins::EMargin>(17)), 1);
    std::vector<STexturedQuad> quads;
    element.Generate(0, 0, 6, -3, quads);
    ASSERT_EQ(quads.size(), 9U);
    EXPECT_EQ(quads[4].x1, 5 * 65536);
    EXPECT_EQ(quads[4].x2, 1 * 65536);
    EXPECT_EQ(quads[4].y1, 1 * 65536);
    EXPECT_EQ(quads[4].y2, -5 * 65536);
    element.SetBorders(0, 0, 0, 1);
    element.Generate(0, 0, 6, 6, quads);
    EXPECT_EQ(quads.size(), 9U) << "one border is enough";
}

TEST(TexturedElementTest, NumbersBeyondWhatFixedPointCanTellAreCut)
{
    constexpr int largest = std::numeric_limits<int>::max();
    CSimpleElement element(0, 0, largest, largest, 1, 1, largest);
    std::vector<STexturedQuad> quads;
    element.Generate(largest, -largest, largest, -largest, quads);
    ASSERT_EQ(quads.size(), 9U);
    EXPECT_EQ(quads[8].x2, 32767 * 65536);
    EXPECT_EQ(quads[8].y2, std::numeric_limits<int>::min());
}

} // namespace
