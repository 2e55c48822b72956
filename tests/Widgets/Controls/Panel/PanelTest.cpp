#include "Widgets/Controls/Panel/Panel.h"

#include "Core/Functor.h"
#include "support/StageTest.h"

#include <array>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace
{

using Gfx::Colours::Red;
using Gfx::Common::CPoint;
using Gfx::Widgets::CPanel;
using Gfx::Widgets::CScrollBar;
using Gfx::Widgets::CWidget;
using GfxTest::CBlock;
using GfxTest::WidgetPtr;

class PanelTest : public GfxTest::CControlTest
{
protected:
    using MoveFunctor = Core::Functor<bool, CWidget*, const CPoint&>;

    static Core::SharedPtr<CPanel> Add(int a_height, bool a_allowScrolling = true)
    {
        return AddTopLevel(new CPanel("panel", 100, 50, 300, a_height, a_allowScrolling, true));
    }

    static WidgetPtr Block(CWidget& a_panel, int a_top, int a_height)
    {
        return AddChild(a_panel, new CBlock("block", 20, a_top, 100, a_height, Red));
    }

    static Core::SharedPtr<CScrollBar> BarOf(CPanel& a_panel)
    {
        return Widgets().FindWidget("PanelScrollBar", &a_panel).StaticCast<CScrollBar>();
    }

    /// Holds a stepper of a panel's bar for a number of steps.
    static void Step(CPanel& a_panel, bool a_down, int a_count)
    {
        const CPoint corner = BarOf(a_panel)->AbsoluteTopLeft();
        const int y = corner.Y() + (a_down ? BarOf(a_panel)->Height() - 1 : 1);
        Press(corner.X() + 5, y);
        for (int i = 1; i < a_count; ++i)
        {
            Widgets().Idle();
        }
        Release(corner.X() + 5, y);
    }
};

TEST_F(PanelTest, ContentIsScrolledOverItsHeightWithTheMarginBeyondItsEnds)
{
    // In a panel of 100, with a range of 100 and a margin of 10.
    for (const auto& [top, height, rest, steps, scrolled] : {std::array{0, 300, 0, 1, -2},
                                                             {0, 300, 0, 100, -210},
                                                             {-50, 90, 100, -1, 1},
                                                             {-50, 90, 100, -100, 60},
                                                             {-50, 230, 40, 1, -1},
                                                             {-50, 230, 40, 60, -90}})
    {
        const auto panel = Add(100);
        const WidgetPtr block = Block(*panel, top, height);
        const WidgetPtr fixed = AddChild(*panel, new CBlock("fixed", 150, 10, 10, 10, Gfx::Colours::Lime));
        fixed->AllowedToScroll(false);
        EXPECT_TRUE(BarOf(*panel)->Visible());
        EXPECT_EQ(BarOf(*panel)->Current(), rest) << top;
        EXPECT_EQ(block->TopLeft(), CPoint(20, top));
        Step(*panel, steps > 0, std::abs(steps));
        EXPECT_EQ(block->TopLeft(), CPoint(20, top + scrolled)) << top << ' ' << steps;
        EXPECT_EQ(fixed->TopLeft(), CPoint(150, 10));
        EXPECT_EQ(BarOf(*panel)->TopLeft(), CPoint(216, 4));
        Widgets().DestroyWidget(panel.Get());
    }
}

TEST_F(PanelTest, TheBarComesAndGoesWithTheContent)
{
    const auto panel = Add(200);
    const auto bar = BarOf(*panel);
    const WidgetPtr small = Block(*panel, 0, 200);
    EXPECT_FALSE(bar->Visible());
    const WidgetPtr large = Block(*panel, 150, 51);
    EXPECT_TRUE(bar->Visible());
    Step(*panel, true, 50);
    EXPECT_EQ(small->TopLeft().Y(), -5);
    panel->RemoveChild(large);
    EXPECT_FALSE(bar->Visible());
    EXPECT_EQ(small->TopLeft().Y(), 0);
    panel->Resize(300, 199);
    EXPECT_TRUE(bar->Visible());
    small->Hide();
    EXPECT_TRUE(bar->Visible()) << "a child's visibility alone doesn't touch the bar";
    panel->RemoveAllChildren();
    EXPECT_FALSE(bar->Visible());
    Block(*panel, 0, 500);
    EXPECT_TRUE(bar->Visible()) << "the panel still has it";
}

TEST_F(PanelTest, ChildrenAreClippedInsideTheBordersWhereverThePanelGoes)
{
    const auto parent = AddTopLevel(new CBlock("parent", 0, 0, 800, 480, Gfx::Colours::Black));
    const auto panel = AddChild(*parent, new CPanel("panel", 100, 50, 300, 300, true, true));
    Block(*panel, 0, 600);
    EXPECT_EQ(ShownExtent(Red), "120,54 100 x 292");
    Press(356, 104);
    MoveTo(356, 400);
    Release(356, 400);
    EXPECT_EQ(ShownExtent(Red), "120,54 100 x 286") << "the margin follows the content";
    panel->Move({110, 60});
    parent->Move({5, 0});
    parent->NotifyPositionChanged();
    EXPECT_EQ(ShownExtent(Red), "135,64 100 x 286");
    panel->BackgroundTexture("Uneven");
    panel->Background(false);
    EXPECT_EQ(ShownExtent(Red), "135,66 100 x 284") << "borders count without a background, too";
    panel->Resize(300, 350);
    EXPECT_EQ(ShownExtent(Red), "135,66 100 x 334");

    const auto plain = Add(100, false);
    Block(*plain, 50, 200);
    panel->Hide();
    EXPECT_EQ(ShownExtent(Red), "120,100 100 x 200");
}

TEST_F(PanelTest, TheBackgroundFollowsTheThemeAndItsSwitch)
{
    const auto panel = Add(100, false);
    SetTheme("Swapped");
    EXPECT_EQ(ShownExtent({255, 128, 64, 255}), "100,50 300 x 100");
    panel->BackgroundTexture("Icon");
    EXPECT_EQ(ShownExtent({255, 255, 0, 255}), "100,50 300 x 100");
    panel->Background(false);
    EXPECT_EQ(ShownExtent({255, 255, 0, 255}), "none");
}

TEST_F(PanelTest, AnAutoSizedPanelGrowsAwayFromItsAnchor)
{
    struct SCase
    {
        int anchor;
        CPoint grown;
        CPoint shrunk;
    };
    // By 51 and 31, and then to 100 by 69 again.
    for (const SCase& row :
         {SCase{0, {75, 35}, {100, 66}}, SCase{CPanel::eapRight | CPanel::eapBottom, {49, 19}, {100, 81}},
          SCase{CPanel::eapLeft | CPanel::eapTop, {100, 50}, {100, 50}}, SCase{CPanel::eapRight, {49, 35}, {100, 66}},
          SCase{CPanel::eapLeft | CPanel::eapRight, {49, 35}, {100, 66}}})
    {
        const auto panel = AddTopLevel(new CPanel("panel", 100, 50, 100, 100, false, true));
        panel->AnchorPoint(row.anchor);
        const WidgetPtr first = AddChild(*panel, new CBlock("first", 10, 10, 100, 69, Red));
        const WidgetPtr second = AddChild(*panel, new CBlock("second", -41, 10, 20, 131, Red));
        panel->AutoSize(true);
        EXPECT_EQ(panel->TopLeft(), row.grown) << row.anchor;
        EXPECT_EQ(panel->Height(), 131);
        second->Hide();
        EXPECT_EQ(panel->TopLeft(), row.shrunk) << row.anchor;
        EXPECT_EQ(first->TopLeft(), CPoint(10, 10));
        second->Show();
        panel->DestroyChild(second);
        EXPECT_EQ(panel->Width(), 151);
        panel->RemoveChild(WidgetPtr());
        EXPECT_EQ(panel->Width(), 100) << "any other change makes up for it";
    }
}

TEST_F(PanelTest, ItClosesSomeSecondsAfterTheLastEventInAChild)
{
    const auto panel = Add(100, false);
    Block(*panel, 10, 50);
    const auto isOpenAfter = [&](int a_milliseconds)
    {
        Advance(a_milliseconds);
        Widgets().Idle();
        return panel->Visible();
    };
    panel->AutocloseInterval(5);
    panel->Show();
    EXPECT_TRUE(isOpenAfter(4999));
    MoveTo(130, 70);
    EXPECT_TRUE(isOpenAfter(4999));
    MoveTo(390, 60);
    EXPECT_TRUE(isOpenAfter(4999)) << "the child has been left";
    MoveTo(391, 60);
    EXPECT_FALSE(isOpenAfter(1)) << "an event of the panel itself doesn't count";
    for (const int interval : {0, -1})
    {
        panel->AutocloseInterval(interval);
        panel->Show();
        EXPECT_TRUE(isOpenAfter(1'000'000));
    }
}

TEST_F(PanelTest, HandlersThatScrollAndResizeItAgainComeToAnEndWithTheChildrenInStep)
{
    const auto panel = Add(100);
    const WidgetPtr first = Block(*panel, 0, 300);
    const WidgetPtr second = Block(*panel, 20, 20);
    const auto bar = BarOf(*panel);
    bool isAdding = false;
    int moves = 0;
    const std::unique_ptr<MoveFunctor::Signature> handler(MoveFunctor::Make(
        [&](CWidget*, const CPoint&)
        {
            ++moves;
            if (isAdding)
            {
                Block(*panel, 0, 10);
            }
            bar->MouseEvent(Gfx::Events::FirstDown, 1, {5, moves % 2 != 0 ? 1 : bar->Height() - 1}, false);
            return true;
        }));
    first->SetMoveEventHandler(handler.get());
    Step(*panel, true, 50);
    EXPECT_GT(moves, 50);
    EXPECT_LT(moves, 500);
    EXPECT_EQ(second->TopLeft().Y() - first->TopLeft().Y(), 20);
    isAdding = true;
    Step(*panel, true, 1);
    EXPECT_EQ(first->TopLeft().Y(), 0) << "a change of the children takes them back";
    EXPECT_EQ(second->TopLeft().Y(), 20);
    first->SetMoveEventHandler(nullptr);

    // The bar makes the box around the children so high that it isn't needed, and without it, it is.
    const auto torn = Add(100);
    torn->BackgroundTexture("unknown");
    BarOf(*torn)->Move({20, 0});
    torn->AutoSize(true);
    Block(*torn, 50, 100);
    EXPECT_EQ(torn->Width(), 100);
}

TEST_F(PanelTest, AHandlerOfThePanelThatAChildLeavesMayPutItElsewhereOrEndItsNewParent)
{
    const auto panel = Add(100);
    const WidgetPtr large = Block(*panel, 0, 300);
    const auto other = Add(100, false);
    const WidgetPtr child(new CBlock("child", 0, 0, 10, 10, Red));
    Core::SharedPtr<CPanel> target;
    std::function<void()> onMove;
    const std::unique_ptr<MoveFunctor::Signature> handler(
        MoveFunctor::Make([&onMove](CWidget*, const CPoint&) { return onMove(), true; }));
    // The panel takes its children back to where they were, when one leaves.
    const auto leave = [&](const std::function<void(CPanel&)>& a_leave, std::function<void()> a_onMove)
    {
        target = Core::SharedPtr<CPanel>(new CPanel("target", 0, 0, 100, 100, false, true));
        CPanel& newParent = *target;
        Widgets().AddWidget(target);
        child->Move({0, 0});
        panel->AddChild(child);
        Step(*panel, true, 1);
        large->SetMoveEventHandler(handler.get());
        onMove = std::move(a_onMove);
        a_leave(newParent);
        large->SetMoveEventHandler(nullptr);
        EXPECT_FALSE(panel->HasChild(child.Get()));
        Widgets().DestroyWidget(target.Get());
        Widgets().GarbageCollect();
    };
    const auto toTarget = [&child](CPanel& a_target) { a_target.AddChild(child); };
    const auto toOther = [&] { other->AddChild(child); };
    leave(toTarget, toOther);
    EXPECT_EQ(child->Parent(), other.Get());
    leave([&child](CPanel&) { Widgets().AddWidget(child); }, toOther);
    EXPECT_EQ(child->Parent(), other.Get());
    leave(toTarget, [&target] { target->RemoveAllChildren(); });
    EXPECT_EQ(child->Parent(), nullptr);
    leave(toTarget,
          [&target]
          {
              Widgets().DestroyWidget(target.Get());
              target.Reset();
          });
    EXPECT_EQ(child->Parent(), nullptr);
}

TEST_F(PanelTest, HandlersMayDestroyThePanelAtAnyStep)
{
    CPanel* panel = nullptr;
    const auto destroy = [&panel](auto&&...)
    {
        Widgets().DestroyWidget(std::exchange(panel, nullptr));
        return true;
    };
    const std::unique_ptr<MoveFunctor::Signature> onMove(MoveFunctor::Make(destroy));
    const std::unique_ptr<CWidget::ResizeHandler> onResize(Core::Functor<bool, CWidget*, int, int>::Make(destroy));
    const std::unique_ptr<CWidget::VetoableToggleHandler> onToggle(Core::Functor<bool, CWidget*, bool>::Make(destroy));
    const auto anew = [&panel](const char* a_done)
    {
        EXPECT_EQ(panel, nullptr) << a_done;
        // A press that was stored after the destruction ends here.
        Release(1, 1);
        Widgets().GarbageCollect();
        const Core::SharedPtr<CPanel> held(new CPanel("panel", 100, 50, 300, 200, true, true));
        panel = held.Get();
        Widgets().AddWidget(held);
    };
    anew("nothing");
    Block(*panel, 0, 300)->SetMoveEventHandler(onMove.get());
    Press(320, 240);
    anew("a child is scrolled");
    const WidgetPtr block = Block(*panel, 0, 300);
    Step(*panel, true, 1);
    block->SetMoveEventHandler(onMove.get());
    panel->AddChildren({WidgetPtr(new CBlock("a", 0, 0, 9, 9, Red)), WidgetPtr(new CBlock("b", 0, 0, 9, 9, Red))});
    block->SetMoveEventHandler(nullptr);
    anew("a scrolled child is taken back");
    BarOf(*panel)->SetVisibilityChangedEventHandler(onToggle.get());
    Block(*panel, 0, 300);
    anew("the bar is shown");
    panel->AutoSize(true);
    panel->SetMoveEventHandler(onMove.get());
    Block(*panel, 0, 50);
    anew("it is moved");
    Block(*panel, 0, 50);
    panel->SetResizeEventHandler(onResize.get());
    panel->AutoSize(true);
    anew("it is resized");
    panel->SetVisibilityChangedEventHandler(onToggle.get());
    panel->AutocloseInterval(1);
    Widgets().Idle();
    anew("it closes");
    destroy();
}

} // namespace
