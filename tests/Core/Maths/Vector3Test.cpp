#include "Core/Maths/Vector3.h"

#include "Core/Maths/Math.h"
#include "Core/Maths/Vector2.h"

#include <gtest/gtest.h>

namespace
{

using Vector = Core::Maths::Vector3<float>;

TEST(Vector3Test, ProductsFollowTheRightHand)
{
    EXPECT_EQ(Vector(1, 0, 0).Cross(Vector(0, 1, 0)), Vector(0, 0, 1));
    EXPECT_EQ(Vector(1, 2, 3).Cross(Vector(4, 5, 6)), Vector(-3, 6, -3));
    EXPECT_EQ(Vector(1, 2, 3).Dot(Vector(4, -5, 6)), 12);
    EXPECT_EQ((Vector(1, 2, 3) + Vector(1, 1, 1) * 2 - Vector(0, 0, 1)), Vector(3, 4, 4));
}

TEST(Vector3Test, NormalisingGivesLengthOneExceptForZero)
{
    const Vector unit = Vector(2, -3, 6).Normalise();
    EXPECT_FLOAT_EQ(unit.x, 2.0F / 7);
    EXPECT_FLOAT_EQ(unit.y, -3.0F / 7);
    EXPECT_FLOAT_EQ(unit.z, 6.0F / 7);
    EXPECT_EQ(Vector().Normalise(), Vector(0, 0, 0));
    EXPECT_FLOAT_EQ(Vector(1e30F, 0, 0).Normalise().x, 1);
}

TEST(Vector3Test, PlaneVectorsAndConstants)
{
    using Plane = Core::Maths::Vector2<float>;
    EXPECT_EQ(Plane(3, 4).Length(), 5);
    EXPECT_EQ((Plane(1, 2) + Plane(3, 4) * 2 - Plane(1, 0)), Plane(6, 10));
    EXPECT_EQ(Plane(1, 2).Dot(Plane(3, -4)), -5);
    EXPECT_FLOAT_EQ(90 * Core::Maths::Math<float>::DEG_TO_RAD, Core::Maths::Math<float>::HALF_PI);
}

} // namespace
