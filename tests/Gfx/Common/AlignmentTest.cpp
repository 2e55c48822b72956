#include "Gfx/Common/Alignment.h"

#include <gtest/gtest.h>

namespace
{

using Gfx::AlignmentFromString;

TEST(AlignmentTest, WordsAreFoundAnywhereInAFixedOrder)
{
    struct SCase
    {
        const char* text;
        int alignment;
    };
    const SCase cases[] = {
        {"", 0x00},
        {"Left", 0x01},
        {"Centre", 0x02},
        {"Right", 0x03},
        {"Justified", 0x04},
        {"Top", 0x10},
        {"Middle", 0x20},
        {"Bottom", 0x30},
        {"Top,Left", Gfx::eaDefault},
        {"Justified,Bottom", 0x34},
        {"MiddleRight", 0x23},
        {"xxRightyyTopzz", 0x13},
        {"Bottom,Top", 0x10},
        {"Bottom Middle", 0x20},
        {"Justified Right Centre Left", 0x01},
        {"Justified,Right", 0x03},
        {"left,TOP", 0x00},
        {"Center", 0x00},
    };
    for (const SCase& current : cases)
    {
        EXPECT_EQ(AlignmentFromString(current.text), current.alignment) << current.text;
    }
}

TEST(AlignmentTest, TheMasksPartBothHalves)
{
    const int alignment = AlignmentFromString("Bottom,Justified");
    EXPECT_EQ(alignment & Gfx::eaHorizontalMask, Gfx::eaJustified);
    EXPECT_EQ(alignment & Gfx::eaVerticalMask, Gfx::eaBottom);
}

} // namespace
