#include "Widgets/TextActor.h"

#include "Gfx/Common/Alignment.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace
{

using Gfx::Common::CPoint;
using Gfx::Widgets::ECentring;
using Gfx::Widgets::PlaceText;

TEST(TextActorTest, ATextLiesByItsAlignmentWithinTheMargins)
{
    struct SCase
    {
        int alignment;
        CPoint place;
    };
    // A box of 100 by 60 with a text of 31 by 21; at the bottom the right margin counts.
    const std::array cases{
        SCase{Gfx::eaLeft | Gfx::eaTop, {4, 6}},
        SCase{Gfx::eaRight | Gfx::eaTop, {67, 6}},
        SCase{Gfx::eaCentre | Gfx::eaTop, {35, 6}},
        SCase{Gfx::eaJustified | Gfx::eaTop, {35, 6}},
        SCase{Gfx::eaLeft | Gfx::eaBottom, {4, 37}},
        SCase{Gfx::eaLeft | Gfx::eaMiddle, {4, 17}},
        SCase{Gfx::eaRight, {67, 17}},
        SCase{0, {35, 17}},
    };
    for (const SCase& row : cases)
    {
        for (const ECentring centring : {ECentring::Truncating, ECentring::Unsigned})
        {
            const CPoint place = PlaceText({100, 60}, {31, 21}, {4, 6, 2, 10}, row.alignment, centring);
            EXPECT_TRUE(place == row.place) << row.alignment << ": " << place.X() << ',' << place.Y();
        }
    }
}

TEST(TextActorTest, ATextThatIsTooLargeSticksOutAtBothSidesOrVanishes)
{
    const CPoint truncated = PlaceText({10, 10}, {31, 14}, {0, 0, 0, 0}, 0, ECentring::Truncating);
    EXPECT_TRUE(truncated == CPoint(-10, -2)) << "halves are cut towards zero";
    const CPoint vanished = PlaceText({10, 10}, {31, 14}, {3, 3, 3, 3}, 0, ECentring::Unsigned);
    EXPECT_GT(vanished.X(), 100'000);
    EXPECT_GT(vanished.Y(), 100'000);
    constexpr int most = std::numeric_limits<int>::max();
    const CPoint right = PlaceText({-most, -most}, {most, most}, {most, most, most, most}, Gfx::eaRight | Gfx::eaBottom,
                                   ECentring::Truncating);
    EXPECT_TRUE(right == CPoint(std::numeric_limits<int>::min(), std::numeric_limits<int>::min()));
}

} // namespace
