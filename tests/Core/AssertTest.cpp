#include "Core/Assert.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace
{

TEST(AssertDeathTest, AFalseExpressionIsPrintedAsWrittenAndEndsTheProcess)
{
    const bool canBeChild = false;
    EXPECT_DEATH(GFX_ASSERT(canBeChild && 1 < 2), "AssertTest\\.cpp:[0-9]+: assertion failed: canBeChild && 1 < 2\n");
    EXPECT_DEATH(GFX_ASSERT(std::is_same_v<int, bool>), "assertion failed: std::is_same_v<int, bool>\n");
    EXPECT_DEATH(GFX_ASSERT_TEXT(canBeChild, "childPtr->CanBeChild()"),
                 "assertion failed: childPtr->CanBeChild\\(\\)\n");
}

TEST(AssertTest, ATrueExpressionIsEvaluatedOnce)
{
    int evaluations = 0;
    GFX_ASSERT(++evaluations);
    GFX_ASSERT_TEXT(++evaluations, "text");
    EXPECT_EQ(evaluations, 2);
}

} // namespace
