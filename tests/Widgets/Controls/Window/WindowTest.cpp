#include "Widgets/Controls/Window/Window.h"

#include "Gfx/Common/Alignment.h"
#include "support/StageTest.h"

#include <clutter/clutter.h>

#include <array>
#include <functional>
#include <limits>
#include <memory>
#include <utility>

namespace
{

using Gfx::CColour;
using Gfx::Common::CPoint;
using Gfx::Events::EMouseEvent;
using Gfx::Widgets::CWidget;
using Gfx::Widgets::CWindow;
using GfxTest::CBlock;
using GfxTest::WidgetPtr;
using MouseFunctor = Core::Functor<void, CWidget*, EMouseEvent, int, const CPoint&, bool>;

constexpr int k_draggable = CWindow::ewfTitleBar | CWindow::ewfDraggable;

class WindowTest : public GfxTest::CStageTest
{
protected:
    static void SetUpTestSuite()
    {
        SetUpConfiguredStage("<General><ClipText>Yes</ClipText></General>"
                             "<Controls><Window><DefaultTitle>Untitled</DefaultTitle></Window></Controls>");
    }

    static Core::SharedPtr<CWindow> Add(int a_flags, int a_x = 100, int a_y = 50)
    {
        return AddTopLevel(new CWindow("window", a_x, a_y, 300, 200, true, "", a_flags));
    }

    static WidgetPtr PanelOf(CWindow& a_window) { return Widgets().FindWidget(&a_window, {"WindowPanel"}); }
};

TEST_F(WindowTest, ItsFlagsDecideOnTitleBarDragAndModality)
{
    for (int flags = 0; flags < 8; ++flags)
    {
        const int titleBar = flags & 1;
        const auto window = Add(flags);
        EXPECT_EQ(clutter_actor_get_n_children(window->GetActor()), 1 + titleBar) << flags;
        EXPECT_EQ(window->Title(), titleBar != 0 ? "Untitled" : "") << flags;
        EXPECT_EQ(window->GetCustomInfo().at("Draggable"), (flags & 2) != 0 ? "True" : "False") << flags;
        EXPECT_EQ(window->Modal(), (flags & 4) != 0) << flags;
        window->SetProperty("Title", "Localised:key");
        EXPECT_EQ(window->GetProperty("Title", ""), "key") << flags;
        for (const int height : {std::numeric_limits<int>::min(), 10, 60})
        {
            EXPECT_EQ(PanelOf(*window)->TopLeft(), CPoint(0, titleBar * 20)) << flags;
            EXPECT_EQ(window->ClientHeight(), window->Height() - (window->Height() > 0 ? titleBar * 20 : 0)) << flags;
            window->Resize(100, height);
            Settle();
        }
        EXPECT_EQ(ShownPicture().Extent({160, 0, 160, 255}), titleBar != 0 ? "holes in 100,50 100 x 20" : "none");
        window->Destroy();
    }
}

TEST_F(WindowTest, TheTitleStandsLeftInTheMiddleOfTheBarWhateverItsFontSays)
{
    const auto window = Add(CWindow::ewfTitleBar);
    ClutterActor* const label = clutter_actor_get_child_at_index(window->GetActor(), 0);
    // Heights of 8, 10 and 15 in the 12 pixels between the borders; what sticks out is halved towards zero.
    for (const auto& [size, y] : {std::pair(6, 6.0F), {8, 5.0F}, {12, 3.0F}})
    {
        window->Font({"Sans", Gfx::Colours::Lime, size, Gfx::eaRight | Gfx::eaBottom});
        EXPECT_EQ(std::pair(clutter_actor_get_x(label), clutter_actor_get_y(label)), std::pair(4.0F, y)) << size;
    }
    window->Title("Localised:key");
    EXPECT_EQ(GfxTest::ShownText(label), "key");
    EXPECT_TRUE(clutter_actor_has_clip(label));
}

TEST_F(WindowTest, APressRaisesAndActivatesIt)
{
    Add(CWindow::ewfTitleBar);
    Add(CWindow::ewfTitleBar, 150, 100);
    // The red of the lower title bar, of the upper one, and of what lies on top of both windows.
    using Reds = std::array<int, 3>;
    for (const auto& [press, reds] : {std::pair(CPoint(440, 250), Reds{80, 160, 160}),
                                      {{110, 200}, {160, 80, 90}},
                                      {{600, 400}, {80, 80, 90}},
                                      {{440, 110}, {80, 160, 160}}})
    {
        Press(press.X(), press.Y());
        Settle();
        const GfxTest::CPicture shown = ShownPicture();
        EXPECT_EQ((Reds{shown.At(390, 60).Red(), shown.At(440, 110).Red(), shown.At(390, 110).Red()}), reds);
    }
}

TEST_F(WindowTest, ItIsDraggedByTheTopStripHalfTransparentWithItsContent)
{
    for (const auto& [y, starts] : {std::pair(-1, false), {0, true}, {20, true}, {21, false}})
    {
        const auto window = Add(CWindow::ewfDraggable);
        EXPECT_EQ(window->StartDragging({150, y}), starts) << y;
        window->Destroy();
    }
    const auto window = Add(k_draggable);
    AddChild(*window, new CBlock("content", -50, -50, 500, 500, Gfx::Colours::Lime));
    const std::unique_ptr<CWidget::MoveHandler> refuse(
        Core::Functor<bool, CWidget*, const CPoint&>::Make([](CWidget*, const CPoint&) { return false; }));
    window->SetMoveEventHandler(refuse.get());
    Press(150, 55);
    MoveTo(170, 85);
    MoveTo(180, 95);
    EXPECT_EQ(window->TopLeft(), CPoint(130, 90)) << "the whole way counts, not the last step";
    EXPECT_NEAR(FreshPicture().At(400, 95).Red(), 80, 1);
    EXPECT_NEAR(FreshPicture().At(200, 200).Green(), 128 + 90 / 4, 1) << "over the panel";
    Release(180, 95);
    MoveTo(300, 300);
    Settle();
    EXPECT_EQ(ShownPicture().At(400, 95), CColour(160, 0, 160, 255));
    EXPECT_EQ(ShownPicture().At(134, 114), Gfx::Colours::Lime) << "it clips to where it is now";
    EXPECT_EQ(ShownPicture().At(133, 114), CColour(90, 90, 90, 255));
}

TEST_F(WindowTest, WhatIsAddedBelongsToThePanelWhichTellsTheWindowOfItsEvents)
{
    std::vector<CPoint> points;
    const std::unique_ptr<CWidget::MouseHandler> handler(MouseFunctor::Make(
        [&points](CWidget*, EMouseEvent, int, const CPoint& a_point, bool) { points.push_back(a_point); }));
    const auto window = Add(k_draggable);
    const WidgetPtr panel = PanelOf(*window);
    window->SetMouseEventHandler(handler.get());
    const auto child = AddChild(*window, new CBlock("child", 10, 30, 20, 20, Gfx::Colours::Lime));
    Press(115, 105);
    EXPECT_TRUE(points.empty()) << "the child's, which lies 20 below the window's own y";
    MoveTo(110, 80);
    MoveTo(115, 55);
    EXPECT_EQ(points, (std::vector<CPoint>{{10, 30}, {15, 25}, {15, 5}})) << "one is the panel's Leave";
    EXPECT_TRUE(panel->HasChild(child.Get()));
    window->DestroyChild(child.Get());
    EXPECT_FALSE(panel->HasChild(child.Get()));
    window->AddChildren({child});
    window->RemoveAllChildren();
    EXPECT_FALSE(panel->HasChild(child.Get()));
    EXPECT_EQ(PanelOf(*window), panel) << "the panel isn't one of them";
}

TEST_F(WindowTest, AHandlerMayDestroyItWhateverItIsTold)
{
    CWindow* window = nullptr;
    const auto destroy = [&window] { window != nullptr ? std::exchange(window, nullptr)->Destroy() : void(); };
    EMouseEvent fatal = Gfx::Events::NoEvent;
    const std::unique_ptr<CWidget::MouseHandler> onMouse(MouseFunctor::Make(
        [&](CWidget*, EMouseEvent a_event, int, const CPoint&, bool) { a_event == fatal ? destroy() : void(); }));
    const std::unique_ptr<CWidget::ToggleHandler> onSelect(
        Core::Functor<void, CWidget*, bool>::Make([&](CWidget*, bool) { destroy(); }));
    for (int event = Gfx::Events::NoEvent; event <= Gfx::Events::FirstClick; ++event)
    {
        for (const int y : {55, 100})
        {
            window = new CWindow("window", 100, 50, 300, 200, true, "Title", k_draggable);
            Widgets().AddWidget(WidgetPtr(window));
            Press(600, 400);
            window->SetMouseEventHandler(onMouse.get());
            fatal = static_cast<EMouseEvent>(event);
            if (event == Gfx::Events::NoEvent)
            {
                window->SetSelectedChangedEventHandler(onSelect.get());
                y == 55 ? window->Select() : window->Deselect();
            }
            Press(150, y);
            MoveTo(160, y + 1);
            MoveTo(600, 400);
            MoveTo(160, y + 2);
            Release(160, y + 2);
            // The press that was stored after the destruction ends with another release.
            Release(1, 1);
            Widgets().GarbageCollect();
            Settle();
            EXPECT_EQ(window, nullptr) << event;
        }
    }
}

} // namespace
