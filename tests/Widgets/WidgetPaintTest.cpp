#include "Gfx/Common/Drawing.h"
#include "support/StageTest.h"

#include <random>
#include <vector>

namespace
{

using Gfx::CColour;
using Gfx::Colours::Black;
using Gfx::Colours::Blue;
using Gfx::Colours::Lime;
using Gfx::Colours::Red;
using Gfx::Colours::White;
using GfxTest::CBlock;
using GfxTest::CPicture;
using GfxTest::WidgetPtr;

/// A block that can be dragged, and stays where it is.
class CDraggableBlock : public CBlock
{
public:
    using CBlock::CBlock;
    bool Draggable() const override { return true; }
    bool StartDragging(const Gfx::Common::CPoint&) override { return m_dragging = true; }
    void EndDragging() override { m_dragging = false; }
    bool IsDragging() const override { return m_dragging || CBlock::IsDragging(); }
    bool TransparentOnDrag() const override { return transparentOnDrag; }

    bool transparentOnDrag = true;

private:
    bool m_dragging = false;
};

class WidgetPaintTest : public GfxTest::CStageTest
{
protected:
    /// The scene graph repaints whole stages for a while after the stage was last resized; only then does it keep to
    /// what has changed.
    static void SetUpTestSuite()
    {
        CStageTest::SetUpTestSuite();
        WaitForClippedRedraws();
    }

    /// Whether the frame that is shown, made of partial repaints, is the one that a repaint of everything would give.
    static void ExpectShownIsTrue(const char* a_step)
    {
        Settle();
        const CPicture shown = ShownPicture();
        EXPECT_EQ(shown.CountDifferences(FreshPicture()), 0) << a_step;
    }
};

TEST_F(WidgetPaintTest, AnUnchangedStageIsNotPainted)
{
    AddTopLevel(new CBlock("a", 10, 10, 100, 50, Red));
    EXPECT_GT(Settle(), 0);
    Widgets().Idle();
    Widgets().GarbageCollect();
    EXPECT_EQ(Settle(), 0);
}

TEST_F(WidgetPaintTest, ChildrenAreDrawnOverTheirParentAndMayStickOut)
{
    const auto parent = AddTopLevel(new CBlock("a", 100, 100, 50, 50, Red));
    AddChild(*parent, new CBlock("b", 40, 40, 50, 50, Lime));
    const CPicture picture = FreshPicture();
    EXPECT_EQ(picture.At(100, 100), Red);
    EXPECT_EQ(picture.At(139, 139), Red);
    EXPECT_EQ(picture.At(140, 140), Lime);
    EXPECT_EQ(picture.At(189, 189), Lime);
    EXPECT_EQ(picture.At(190, 190), Black);
}

TEST_F(WidgetPaintTest, AChangeRepaintsOnlyWhatItTouches)
{
    const auto panel = AddTopLevel(new CBlock("panel", 0, 0, 800, 480, White));
    const auto changed = AddChild(*panel, new CBlock("changed", 100, 100, 50, 50, Red));
    const auto inside = AddChild(*changed, new CBlock("inside", 30, 30, 60, 60, Lime));
    const auto beside = AddChild(*panel, new CBlock("beside", 300, 100, 50, 50, Blue));
    Settle();
    const auto draws = [&] { return std::vector{changed->draws, inside->draws, beside->draws}; };

    const std::vector<int> before = draws();
    changed->Invalidate(false);
    EXPECT_EQ(Settle(), 1);
    EXPECT_EQ(draws(), (std::vector{before[0] + 1, before[1] + 1, before[2]}));

    const std::vector<int> beforeMove = draws();
    inside->Move({32, 32});
    EXPECT_EQ(Settle(), 1);
    EXPECT_EQ(inside->draws, beforeMove[1] + 1);
    EXPECT_EQ(beside->draws, beforeMove[2]);
    ExpectShownIsTrue("after the move");
}

TEST_F(WidgetPaintTest, WhateverChangesThePartialRepaintsAddUpToTheTruePicture)
{
    std::mt19937 random(7);
    const auto number = [&random](int a_limit) { return static_cast<int>(random() % static_cast<unsigned>(a_limit)); };
    const std::vector<CColour> colours{Red, Lime, Blue, White};
    std::vector<Core::SharedPtr<CBlock>> blocks;
    for (int i = 0; i < 12; ++i)
    {
        auto* block = new CBlock("block", number(700), number(400), 20 + number(200), 20 + number(100),
                                 colours[static_cast<std::size_t>(number(4))], number(4) == 0);
        if (i < 4)
        {
            blocks.push_back(AddTopLevel(block));
        }
        else
        {
            block->Move({number(150), number(100)});
            blocks.push_back(AddChild(*blocks[static_cast<std::size_t>(number(i))], block));
        }
    }
    for (int step = 0; step < 60; ++step)
    {
        for (int change = 0; change <= number(3); ++change)
        {
            CBlock& block = *blocks[static_cast<std::size_t>(number(12))];
            switch (number(7))
            {
            case 0: block.Move({number(400), number(200)}); break;
            case 1: block.Resize(number(300), number(200)); break;
            case 2: block.SetShowHide(!block.Visible()); break;
            case 3: block.BringToFront(); break;
            case 4: block.SendToBack(); break;
            case 5: block.SetTransparency(number(110), number(2) == 0); break;
            default: block.Invalidate(true); break;
            }
        }
        ExpectShownIsTrue(("step " + std::to_string(step)).c_str());
    }
    // From the innermost outwards, so that what is left has lost a child.
    for (; !blocks.empty(); blocks.pop_back())
    {
        CBlock* const last = blocks.back().Get();
        last->Parent() != nullptr ? last->Parent()->DestroyChild(last)
                                  : static_cast<void>(Widgets().DestroyWidget(last));
        ExpectShownIsTrue("a block was destroyed");
        Widgets().GarbageCollect();
        ExpectShownIsTrue("its actor was collected");
    }
    EXPECT_EQ(ShownPicture().Extent(Black), "0,0 800 x 480");
}

TEST_F(WidgetPaintTest, OpacityShowsWhatLiesBelow)
{
    AddTopLevel(new CBlock("back", 0, 0, 200, 200, Blue));
    const auto front = AddTopLevel(new CBlock("front", 50, 50, 100, 100, Red));
    front->SetTransparency(50, false);
    EXPECT_NEAR(FreshPicture().At(60, 60).Red(), 127, 1);
    EXPECT_NEAR(FreshPicture().At(60, 60).Blue(), 128, 1);
    front->SetTransparency(0, false);
    EXPECT_EQ(FreshPicture().At(60, 60), Blue);
    front->SetTransparency(100, false);
    EXPECT_EQ(FreshPicture().At(60, 60), Red);
    front->SetTransparency(50, false);
    front->DisableTransparency();
    EXPECT_EQ(FreshPicture().At(60, 60), Red);
}

TEST_F(WidgetPaintTest, ADraggedWidgetIsHalfTransparentIfItSaysSoAndSoAreItsChildren)
{
    AddTopLevel(new CBlock("back", 0, 0, 400, 200, Blue));
    const auto dragged = AddTopLevel(new CDraggableBlock("dragged", 50, 50, 100, 100, Red));
    AddChild(*dragged, new CBlock("child", 50, 50, 100, 20, Lime));
    Settle();
    Press(60, 60);
    Settle();
    CPicture picture = ShownPicture();
    EXPECT_NEAR(picture.At(60, 60).Red(), 128, 1);
    EXPECT_NEAR(picture.At(60, 60).Blue(), 127, 1);
    EXPECT_NEAR(picture.At(180, 110).Green(), 128, 1);
    Release(60, 60);
    Settle();
    picture = ShownPicture();
    EXPECT_EQ(picture.At(60, 60), Red);
    EXPECT_EQ(picture.At(180, 110), Lime);

    // One that doesn't say so stays as it is; its children show that it is dragged all the same.
    dragged->transparentOnDrag = false;
    Press(60, 60);
    Settle();
    picture = ShownPicture();
    EXPECT_EQ(picture.At(60, 60), Red);
    EXPECT_NEAR(picture.At(180, 110).Green(), 128, 1);
    Release(60, 60);
}

TEST_F(WidgetPaintTest, AWidgetUnderACoveringOneIsNotDrawnUntilTheCoverIsDraggedOrGoes)
{
    const auto below = AddTopLevel(new CBlock("below", 100, 100, 50, 50, Red));
    const auto child = AddChild(*below, new CBlock("child", 40, 0, 50, 50, Lime));
    const auto cover = AddTopLevel(new CDraggableBlock("cover", 100, 100, 50, 50, Blue));
    FreshPicture();
    const int draws = below->draws;
    const int childDraws = child->draws;
    // What sticks out of the covered widget goes with it: only the top-level widget's own box counts.
    const CPicture covered = FreshPicture();
    EXPECT_EQ(covered.At(110, 110), Blue);
    EXPECT_EQ(covered.At(170, 110), Black);
    EXPECT_EQ(below->draws, draws);
    EXPECT_EQ(child->draws, childDraws);

    Press(110, 110);
    Settle();
    EXPECT_GT(below->draws, draws);
    EXPECT_NEAR(ShownPicture().At(110, 110).Red(), 127, 1);
    Release(110, 110);

    cover->Move({101, 100});
    Settle();
    EXPECT_EQ(ShownPicture().At(100, 110), Red);
    Widgets().DestroyWidget(cover.Get());
    Settle();
    EXPECT_EQ(ShownPicture().At(140, 110), Lime);
}

} // namespace
