#include "Managers/Widgets/RecordingWidget.h"

namespace
{

using namespace Gfx::Events;
using GfxTest::CRecordingWidget;

/// A panel "p" at 10, 20, which is selected, and in it a button "b" at 40, 50.
class MouseDispatchTest : public GfxTest::CRecordingTest
{
protected:
    const GfxTest::RecorderPtr m_panel = Top("p", 10, 20, 100, 100);
    const GfxTest::RecorderPtr m_button = Child(m_panel, "b", 30, 30, 20, 20, 10000);
};

TEST_F(MouseDispatchTest, APressSelectsFirstAndAReleaseOnTheSameWidgetIsAClick)
{
    int clicks = 0;
    const Core::SharedPtr<Gfx::Widgets::CWidget::ClickHandler> handler(
        Core::Functor<void, Gfx::Widgets::CWidget*, int, const Gfx::Common::CPoint&, bool>::Make([&clicks](auto&&...)
                                                                                                 { ++clicks; }));
    m_button->SetClickEventHandler(handler.Get());
    EXPECT_EQ(Play({{FirstDown, 45, 56}, {FirstUp, 47, 57, 0}}), "p:Deselect b:Select p:Select b:FirstDown(1;5,6) "
                                                                 "b:FirstUp(0;7,7) b:FirstClick(0;7,7) ");
    EXPECT_EQ(Play({{FirstDown, 45, 56}}), "b:FirstDown(1;5,6) ") << "it is selected already";
    EXPECT_EQ(Play({{ThirdDown, 45, 56, 7}, {ThirdUp, 45, 56, 3}, {FirstUp, 45, 56, 2}}),
              "b:ThirdDown(7;5,6) b:ThirdUp(3;5,6) b:ThirdClick(3;5,6) b:FirstUp(2;5,6) b:FirstClick(2;5,6) ");
    EXPECT_EQ(clicks, 2) << "clicks of the third button aren't for the click handler";
    EXPECT_EQ(Play({{NoEvent, 40, 50, 0}, {SecondDown, 42, 50, 2}, {SecondUp, 42, 50}, {FirstUp, 43, 50}}),
              "b:NoEvent(0;0,0) b:SecondDown(2;2,0) b:SecondUp(1;2,0) b:FirstUp(1;3,0) ")
        << "nothing follows from these";
}

TEST_F(MouseDispatchTest, AHeldWidgetIsToldWhenThePointerLeavesAndComesBack)
{
    Play({{FirstDown, 40, 50}});
    EXPECT_EQ(Play({{Move, 15, 25}, {Move, 16, 25}}), "b:Leave(1;5,5) p:Move(1;5,5) p:Move(1;6,5) ")
        << "Leave has the place in the widget that is entered";
    EXPECT_EQ(Play({{Move, 42, 53}}), "b:Enter(1;2,3) p:Leave(1;2,3) b:Move(1;2,3) ") << "Enter is first";
    EXPECT_EQ(Play({{FirstUp, 42, 53}}), "b:FirstUp(1;2,3) b:FirstClick(1;2,3) ");
    EXPECT_EQ(Play({{Move, 15, 25}, {Move, 42, 53}}), "b:Leave(1;5,5) p:Move(1;5,5) p:Leave(1;2,3) b:Move(1;2,3) ")
        << "without a press there is no Enter";
    EXPECT_EQ(Play({{ThirdDown, 42, 53}, {Move, 15, 25}, {ThirdUp, 42, 53}}),
              "b:ThirdDown(1;2,3) b:Leave(1;5,5) p:Move(1;5,5) "
              "b:Enter(1;2,3) p:Leave(1;2,3) b:ThirdUp(1;2,3) b:ThirdClick(1;2,3) ");
}

TEST_F(MouseDispatchTest, AReleaseElsewhereIsNoClickAndForgetsThePress)
{
    Play({{FirstDown, 40, 50}, {ThirdDown, 40, 50}});
    EXPECT_EQ(Play({{FirstUp, 15, 25}, {ThirdUp, 15, 25}}), "b:Leave(1;5,5) p:FirstUp(1;5,5) p:ThirdUp(1;5,5) ");
    EXPECT_EQ(Play({{FirstUp, 40, 50}, {ThirdUp, 40, 50}}), "p:Leave(1;0,0) b:FirstUp(1;0,0) b:ThirdUp(1;0,0) ");
    Play({{FirstDown, 40, 50}, {ThirdDown, 40, 50}, {FirstUp, 500, 400}, {ThirdUp, 500, 400}});
    EXPECT_EQ(Play({{FirstUp, 40, 50}, {ThirdUp, 40, 50}}), "b:FirstUp(1;0,0) b:ThirdUp(1;0,0) ");
    EXPECT_EQ(Play({{FirstDown, 40, 50}, {FirstDown, 10, 20}, {FirstUp, 40, 50}}),
              "b:FirstDown(1;0,0) b:Deselect p:Deselect p:Select b:Leave(1;0,0) p:FirstDown(1;0,0) "
              "b:Enter(1;0,0) p:Leave(1;0,0) b:FirstUp(1;0,0) b:FirstClick(1;0,0) ")
        << "a second press doesn't move the first";
}

TEST_F(MouseDispatchTest, AHeldWidgetIsToldAtEachEventThatThePointerIsOverNothing)
{
    Play({{FirstDown, 45, 55}});
    EXPECT_EQ(Play({{Move, 5, 6}}), "b:Leave(1;-35,-44) b:Leave(1;-35,-44) ") << "hovered and held";
    EXPECT_EQ(Play({{Move, 4, 6, 3}, {SecondDown, 4, 6}}), "b:Leave(3;-36,-44) b:Leave(1;-36,-44) ");
    EXPECT_EQ(Play({{Move, 40, 50}, {ThirdDown, 15, 25}}),
              "b:Enter(1;0,0) b:Move(1;0,0) b:Leave(1;5,5) p:ThirdDown(1;5,5) ");
    EXPECT_EQ(Play({{Move, 5, 6}}), "p:Leave(1;-5,-14) b:Leave(1;-35,-44) p:Leave(1;-5,-14) ");
    EXPECT_EQ(Play({{FirstUp, 5, 6}}), "p:Leave(1;-5,-14) ");
    EXPECT_EQ(Play({{ThirdUp, 5, 6}, {Move, 5, 6}}), "");
}

TEST_F(MouseDispatchTest, APressOnEmptyGroundTakesTheKeyboardAway)
{
    EXPECT_EQ(Play({{FirstDown, 500, 400}, {FirstUp, 500, 400}, {FirstDown, 500, 400}}), "p:Deselect ");
    Widgets().KeyboardEvent(1);
    EXPECT_EQ(CRecordingWidget::TakeLog(), "");
    EXPECT_EQ(Play({{FirstUp, 40, 50}, {FirstDown, 40, 50}}), "b:FirstUp(1;0,0) b:Select p:Select b:FirstDown(1;0,0) ");
}

TEST_F(MouseDispatchTest, AWidgetThatIsDisabledOnTheWayGetsThePressUnselected)
{
    m_button->draggable = true;
    m_button->acceptsDrag = false;
    CRecordingWidget::s_hook = [this](CRecordingWidget&, const std::string&) { m_button->Disable(); };
    EXPECT_EQ(Play({{FirstDown, 40, 50}}), "b:StartDragging(0,0) b:FirstDown(1;0,0) ") << "too early for a Deselect";
    m_button->Enable();
    m_button->draggable = false;
    EXPECT_EQ(Play({{FirstDown, 40, 50}}), "p:Deselect b:FirstDown(1;0,0) ");
    Widgets().KeyboardEvent(1);
    EXPECT_EQ(CRecordingWidget::TakeLog(), "p:Key(1) ");
}

TEST_F(MouseDispatchTest, AClickTellsTheRegisteredWidgetsThatItIsNotIn)
{
    const auto popup = Top("u", 200, 200, 50, 40);
    for (const auto& widget : {popup, m_button, popup})
    {
        Widgets().RegisterForNonClientHitEvents(widget);
    }
    Play({{FirstDown, 40, 50}, {ThirdDown, 40, 50}});
    EXPECT_EQ(Play({{FirstUp, 41, 50, 6, true}}),
              "b:FirstUp(6;1,0;remote) u:NonClientHit(0;41,50) b:FirstClick(6;1,0;remote) ");
    EXPECT_EQ(Play({{ThirdUp, 41, 50}}), "b:ThirdUp(1;1,0) b:ThirdClick(1;1,0) u:NonClientHit(0;41,50) ")
        << "the other way round";
    Play({{FirstDown, 15, 25}});
    EXPECT_EQ(Play({{FirstUp, 15, 25}}), "p:FirstUp(1;5,5) u:NonClientHit(0;15,25) b:NonClientHit(0;15,25) "
                                         "p:FirstClick(1;5,5) ");
    EXPECT_EQ(Play({{FirstUp, 40, 50}, {ThirdUp, 500, 400}}), "p:Leave(1;0,0) b:FirstUp(1;0,0) b:Leave(1;460,350) ")
        << "no click, no hit";
    Play({{FirstDown, 40, 50}});
    EXPECT_EQ(Play({{FirstUp, 500, 400}}), "u:NonClientHit(0;500,400) b:NonClientHit(0;500,400) b:Leave(1;460,350) ")
        << "over nothing a release is enough";
    Widgets().DeregisterForNonClientHitEvents(m_button);
    Widgets().TriggerNonClientEvents({220, 240});
    EXPECT_EQ(CRecordingWidget::TakeLog(), "") << "the bottom edge is inside";
    Widgets().TriggerNonClientEvents({250, 220});
    EXPECT_EQ(CRecordingWidget::TakeLog(), "u:NonClientHit(0;250,220) ") << "the right one isn't";
    Widgets().DeregisterForNonClientHitEvents(popup);
    Widgets().TriggerNonClientEvents({0, 0});
    EXPECT_EQ(CRecordingWidget::TakeLog(), "");
}

TEST_F(MouseDispatchTest, ModalWidgetsShieldAllOthers)
{
    const auto modal = Top("m", 60, 60, 100, 100, 0);
    Child(modal, "c", 10, 10, 20, 20, 0);
    Child(modal, "d", 40, 40, 20, 20);
    const auto above = Top("t", 60, 60, 50, 50, 10000);
    Play({{Move, 40, 50}});
    modal->Modal(true);
    EXPECT_EQ(Play({{FirstDown, 40, 50}, {Move, 41, 50}, {FirstUp, 41, 50}}), "t:Deselect b:Leave(1;0,0) ");
    EXPECT_EQ(Play({{FirstDown, 61, 62}, {FirstUp, 40, 50}}), "m:Select m:FirstDown(1;1,2) m:Leave(1;-20,-10) ")
        << "in spite of what lies above, and of its own priority 0";
    EXPECT_EQ(TargetAt(75, 75), "m") << "a child with priority 0 is never hit";
    EXPECT_EQ(TargetAt(105, 105), "d");
    EXPECT_EQ(TargetAt(160, 100), "m") << "touching is enough";
    EXPECT_EQ(TargetAt(161, 100), "");
    above->Modal(true);
    EXPECT_EQ(TargetAt(105, 105), "t") << "the topmost modal widget counts";
    above->Hide();
    EXPECT_EQ(TargetAt(105, 105), "d");
    modal->Disable();
    EXPECT_EQ(TargetAt(40, 50), "b") << "hidden and disabled modal widgets are as good as none";
}

TEST_F(MouseDispatchTest, TheGreatestPriorityOnEachLevelIsHit)
{
    const auto upper = Top("u", 200, 200, 100, 100);
    const auto button = Child(upper, "v", 0, 0, 50, 50);
    const auto inner = Child(button, "w", 0, 0, 25, 80, 1);
    EXPECT_EQ(TargetAt(230, 230), "v") << "a child beats its parent";
    EXPECT_EQ(TargetAt(210, 210), "w") << "whatever their priorities";
    EXPECT_EQ(TargetAt(210, 260), "u") << "what sticks out of its parent isn't hit";
    EXPECT_EQ(TargetAt(210, 250), "w") << "unless the parent is touched";
    EXPECT_EQ(TargetAt(300, 260), "") << "the right edge";
    EXPECT_EQ(TargetAt(299, 299), "u");

    const auto cover = Top("x", 200, 200, 100, 100);
    EXPECT_EQ(TargetAt(260, 260), "x") << "of equals the topmost";
    EXPECT_EQ(TargetAt(210, 210), "x") << "a child counts with its own priority";
    button->MousePriority(101);
    EXPECT_EQ(TargetAt(230, 230), "v") << "a button below a panel";
    cover->MousePriority(0);
    EXPECT_EQ(TargetAt(260, 260), "u") << "priority 0 is never hit";
    upper->MousePriority(-1);
    EXPECT_EQ(TargetAt(260, 260), "") << "nor is less";

    Child(upper, "y", 0, 0, 50, 50, 101);
    EXPECT_EQ(TargetAt(230, 230), "y") << "the later of equal children";
    button->MousePriority(102);
    EXPECT_EQ(TargetAt(230, 230), "v");
    EXPECT_EQ(TargetAt(210, 210), "y") << "siblings are compared by what would be hit in them";
    inner->Disable();
    EXPECT_EQ(TargetAt(210, 210), "v") << "disabled and hidden children are passed over";
    inner->Enable();
    button->Hide();
    inner->MousePriority(1000);
    EXPECT_EQ(TargetAt(210, 210), "y") << "with theirs";
    upper->Disable();
    EXPECT_EQ(TargetAt(210, 210), "");
}

TEST_F(MouseDispatchTest, ADragTellsTheWayFromThePressUntilTheReleaseWhereverItIs)
{
    const auto window = Top("w", 200, 200, 50, 50);
    window->draggable = true;
    m_button->draggable = true;
    EXPECT_EQ(Play({{FirstDown, 210, 215}}), "w:StartDragging(10,15) w:FirstDown(1;10,15) ");
    EXPECT_TRUE(Widgets().DraggingInProgress());
    EXPECT_EQ(Play({{Move, 213, 214}, {SecondDown, 213, 214}}),
              "w:UpdateDragging(3,-1) w:Move(1;13,14) w:SecondDown(1;13,14) ");
    EXPECT_EQ(Play({{Move, 40, 50}}), "w:UpdateDragging(-170,-165) w:Leave(1;0,0) b:Move(1;0,0) ");
    EXPECT_EQ(Play({{Move, 500, 400}}), "w:UpdateDragging(290,185) b:Leave(1;460,350) w:Leave(1;300,200) ");
    EXPECT_EQ(Play({{FirstDown, 40, 50}}), "w:Deselect b:Select p:Select b:FirstDown(1;0,0) ") << "one drag at a time";
    EXPECT_EQ(Play({{FirstUp, 40, 50}}), "w:EndDragging b:FirstUp(1;0,0) ");
    EXPECT_FALSE(Widgets().DraggingInProgress());
    EXPECT_EQ(Play({{Move, 41, 50}, {FirstDown, 40, 50}, {FirstUp, 500, 400}}),
              "b:Move(1;1,0) b:StartDragging(0,0) b:FirstDown(1;0,0) b:EndDragging b:Leave(1;460,350) ");
}

TEST_F(MouseDispatchTest, AWidgetMayRefuseADragAndOneThatDeniesItsDragIsLeftAlone)
{
    const std::string click = "b:FirstDown(1;0,0) b:Move(1;1,0) b:FirstUp(1;1,0) b:FirstClick(1;1,0) ";
    m_button->draggable = true;
    m_button->acceptsDrag = false;
    EXPECT_EQ(Play({{FirstDown, 40, 50}, {Move, 41, 50}, {FirstUp, 41, 50}}),
              "b:StartDragging(0,0) p:Deselect b:Select p:Select " + click);
    EXPECT_FALSE(Widgets().DraggingInProgress());
    m_button->acceptsDrag = true;
    m_button->admitsDrag = false;
    EXPECT_EQ(Play({{FirstDown, 40, 50}, {Move, 41, 50}, {FirstUp, 41, 50}}), "b:StartDragging(0,0) " + click);
    EXPECT_TRUE(Widgets().DraggingInProgress());
    EXPECT_EQ(Play({{FirstDown, 40, 50}, {Move, 41, 50}, {FirstUp, 41, 50}}), click);
}

TEST_F(MouseDispatchTest, TheMousePointerGetsEveryEventLastInStageCoordinates)
{
    const auto pointer = Top("m", 0, 0, 10, 10, 0);
    Widgets().SetMousePointer(pointer);
    EXPECT_EQ(Play({{FirstDown, 42, 53}, {FirstUp, 42, 53, 0, true}}),
              "m:Deselect b:Select p:Select b:FirstDown(1;2,3) m:FirstDown(1;42,53) "
              "b:FirstUp(0;2,3;remote) b:FirstClick(0;2,3;remote) m:FirstUp(0;42,53) ");
    EXPECT_EQ(Play({{Move, 500, 400, 1, true}, {NonClientHit, 500, 400}}),
              "b:Leave(1;460,350;remote) m:Move(1;500,400) m:NonClientHit(1;500,400) ");
    pointer->MousePriority(1);
    EXPECT_EQ(Play({{Move, 5, 5}}), "m:Move(1;5,5) m:Move(1;5,5) ") << "it may be the target as well";
    Widgets().SetMousePointer({});
    EXPECT_EQ(Play({{Move, 6, 5}}), "m:Move(1;6,5) ");
}

TEST_F(MouseDispatchTest, RemoteEventsPassALockedOutWidgetUnseen)
{
    m_button->RemoteLockout(true);
    EXPECT_EQ(Play({{FirstDown, 42, 53, 1, true}}), "p:Deselect b:Select p:Select ");
    EXPECT_EQ(Play({{Move, 15, 25, 1, true}, {Move, 42, 53}}),
              "p:Move(1;5,5;remote) b:Enter(1;2,3) p:Leave(1;2,3) b:Move(1;2,3) ");
    EXPECT_EQ(Play({{FirstUp, 42, 53}}), "b:FirstUp(1;2,3) b:FirstClick(1;2,3) ") << "it was pressed all the same";
}

} // namespace
