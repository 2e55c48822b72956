#include "Gfx/Common/AABB.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace
{

using Gfx::Common::CAABB;
using Gfx::Common::CPoint;

constexpr int k_lowest = std::numeric_limits<int>::min();
constexpr int k_highest = std::numeric_limits<int>::max();

/// Whether the pixel lies between the edges, and with the edges themselves.
bool CoversPixel(const CAABB& a_box, int a_x, int a_y)
{
    return a_x >= a_box.Left() && a_x < a_box.Left() + a_box.Width() && a_y >= a_box.Top() &&
           a_y < a_box.Top() + a_box.Height();
}
bool TouchesPoint(const CAABB& a_box, int a_x, int a_y)
{
    return a_x >= a_box.Left() && a_x <= a_box.Left() + a_box.Width() && a_y >= a_box.Top() &&
           a_y <= a_box.Top() + a_box.Height();
}

TEST(AABBTest, AgreesWithCountingPixels)
{
    std::mt19937 random(20);
    std::uniform_int_distribution<int> position(-4, 4);
    std::uniform_int_distribution<int> size(0, 6);
    const auto randomBox = [&]
    {
        const int left = position(random);
        const int top = position(random);
        const int width = size(random);
        return CAABB(left, top, width, size(random));
    };
    for (int i = 0; i < 2000; ++i)
    {
        const CAABB first = randomBox();
        const CAABB second = randomBox();
        int commonPixels = 0;
        int commonPoints = 0;
        int pointsOfSecond = 0;
        for (int y = -5; y <= 11; ++y)
        {
            for (int x = -5; x <= 11; ++x)
            {
                commonPixels += CoversPixel(first, x, y) && CoversPixel(second, x, y);
                commonPoints += TouchesPoint(first, x, y) && TouchesPoint(second, x, y);
                pointsOfSecond += TouchesPoint(second, x, y);
                ASSERT_EQ(first.Contains(CPoint(x, y)), TouchesPoint(first, x, y));
            }
        }
        SCOPED_TRACE(testing::Message() << first.Left() << "," << first.Top() << " " << first.Width() << "x"
                                        << first.Height() << " and " << second.Left() << "," << second.Top() << " "
                                        << second.Width() << "x" << second.Height());
        ASSERT_EQ(first.Intersects(second), commonPoints > 0);
        ASSERT_EQ(first.IntersectionArea(second), commonPixels);
        ASSERT_EQ(first.Contains(second), commonPoints == pointsOfSecond);
    }
}

TEST(AABBTest, LeftAndTopMoveWhileRightAndBottomResize)
{
    CAABB box(10, 20, 30, 40);
    box.Left(15);
    box.Top(26);
    EXPECT_EQ(box, CAABB(15, 26, 30, 40));
    EXPECT_EQ(box.Right(), 45);
    EXPECT_EQ(box.Bottom(), 66);

    box.Right(50);
    box.Bottom(60);
    EXPECT_EQ(box, CAABB(15, 26, 35, 34));

    box.Right(5);
    box.Bottom(6);
    EXPECT_EQ(box, CAABB(15, 26, -10, -20));

    box.Width(1);
    box.Height(2);
    EXPECT_EQ(box, CAABB(15, 26, 1, 2));
}

TEST(AABBTest, ANegativeSizeReachesAsFarTheOtherWay)
{
    const CAABB turned(10, 10, -4, -3);
    const CAABB around(0, 0, 20, 20);
    EXPECT_FALSE(turned.Contains(CPoint(8, 8)));
    EXPECT_TRUE(around.Contains(turned));
    EXPECT_TRUE(turned.Intersects(around));
    EXPECT_EQ(turned.IntersectionArea(around), 12);
    EXPECT_EQ(around.IntersectionArea(turned), 12);
    EXPECT_FALSE(turned.Intersects(CAABB(7, 7, 2, 2)));
    EXPECT_EQ(turned.IntersectionArea(CAABB(7, 7, 2, 2)), 0);
}

TEST(AABBTest, AssignmentReturnsACopy)
{
    CAABB target;
    (target = CAABB(1, 2, 3, 4)).Width(9);
    EXPECT_EQ(target, CAABB(1, 2, 3, 4));
}

TEST(AABBTest, EdgesBeyondTheLimitsAreComparedWhereTheyLie)
{
    const CAABB high(k_highest - 1, k_highest - 1, k_highest, k_highest);
    EXPECT_EQ(high.Right(), k_highest);
    EXPECT_EQ(high.Bottom(), k_highest);
    EXPECT_TRUE(high.Contains(CPoint(k_highest, k_highest)));
    EXPECT_TRUE(high.Intersects(CAABB(k_highest, k_highest, 1, 1)));
    EXPECT_FALSE(high.Intersects(CAABB(0, 0, 10, 10)));
    EXPECT_FALSE(CAABB(k_highest - 1, k_highest - 1, 5, 5).Contains(high));

    const CAABB low(k_lowest, k_lowest, -1, -1);
    EXPECT_EQ(low.Right(), k_lowest);
    EXPECT_EQ(low.Bottom(), k_lowest);
    EXPECT_FALSE(low.Contains(CPoint(k_lowest, k_lowest)));

    CAABB wide(k_lowest, k_lowest, 0, 0);
    wide.Right(k_highest);
    wide.Bottom(k_highest);
    EXPECT_EQ(wide, CAABB(k_lowest, k_lowest, k_highest, k_highest));
    EXPECT_EQ(wide.IntersectionArea(wide), k_highest);
    EXPECT_EQ(wide.IntersectionArea(CAABB(-10, -10, 10, 1)), 9);
}

} // namespace
