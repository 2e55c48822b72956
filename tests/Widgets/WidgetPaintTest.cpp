#include "support/StageTest.h"

namespace
{

using Gfx::Colours::Blue;
using Gfx::Colours::Lime;
using Gfx::Colours::Red;
using GfxTest::CBlock;
using WidgetPaintTest = GfxTest::CStageTest;

TEST_F(WidgetPaintTest, AnUnchangedStageIsNotPainted)
{
    AddTopLevel(new CBlock("a", 10, 10, 100, 50, Red));
    EXPECT_GT(Settle(), 0);
    EXPECT_EQ(Settle(), 0);
}

TEST_F(WidgetPaintTest, ChildrenAreDrawnOverTheirParentAndMayStickOut)
{
    const auto parent = AddTopLevel(new CBlock("a", 100, 100, 50, 50, Red));
    AddChild(*parent, new CBlock("b", 40, 40, 50, 50, Lime));
    const GfxTest::CPicture picture = FreshPicture();
    EXPECT_EQ(picture.At(100, 100), Red);
    EXPECT_EQ(picture.At(139, 139), Red);
    EXPECT_EQ(picture.At(140, 140), Lime);
    EXPECT_EQ(picture.At(189, 189), Lime);
    EXPECT_EQ(picture.At(190, 190), Gfx::Colours::Black);
}

} // namespace
