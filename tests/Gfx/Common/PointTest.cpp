#include "Gfx/Common/Point.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

using Gfx::Common::CPoint;

constexpr int k_lowest = std::numeric_limits<int>::min();
constexpr int k_highest = std::numeric_limits<int>::max();

TEST(PointTest, SumAndDifferenceGoByComponent)
{
    EXPECT_EQ(CPoint(3, -4) + CPoint(10, 20), CPoint(13, 16));
    EXPECT_EQ(CPoint(3, -4) - CPoint(10, 20), CPoint(-7, -24));
    EXPECT_EQ(CPoint(3, -4) + CPoint(), CPoint(3, -4));
}

TEST(PointTest, SumAndDifferenceStopAtTheLimits)
{
    EXPECT_EQ(CPoint(k_highest, k_lowest) + CPoint(1, -1), CPoint(k_highest, k_lowest));
    EXPECT_EQ(CPoint(k_lowest, k_highest) - CPoint(1, -1), CPoint(k_lowest, k_highest));
    EXPECT_EQ(CPoint(0, -1) - CPoint(k_lowest, k_lowest), CPoint(k_highest, k_highest));
}

TEST(PointTest, AssignmentReturnsACopy)
{
    CPoint target;
    (target = CPoint(1, 2)).X(7);
    EXPECT_EQ(target, CPoint(1, 2));
}

TEST(PointTest, TheBottomEdgeIsInsideAndTheRightEdgeIsNot)
{
    struct SCase
    {
        CPoint point;
        bool isInside;
    };
    const SCase cases[] = {{{10, 20}, true}, {{9, 20}, false},  {{10, 19}, false}, {{29, 20}, true},  {{30, 20}, false},
                           {{10, 40}, true}, {{10, 41}, false}, {{29, 40}, true},  {{30, 40}, false}, {{20, 30}, true}};
    for (const SCase& current : cases)
    {
        EXPECT_EQ(current.point.InBoundingBox(CPoint(10, 20), 30, 40), current.isInside)
            << current.point.X() << "," << current.point.Y();
    }
}

} // namespace
