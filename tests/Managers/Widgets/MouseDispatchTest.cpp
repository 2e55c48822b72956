#include "Managers/Widgets/RecordingWidget.h"

namespace
{

using namespace Gfx::Events;
using GfxTest::CRecordingWidget;

/// Examples, and what MouseDispatchModelTest doesn't tell: it knows of all events, on any tree of widgets.
///
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

TEST_F(MouseDispatchTest, AWidgetIsRegisteredOnceForHitsElsewhere)
{
    const auto popup = Top("u", 200, 200, 50, 40);
    for (const auto& widget : {popup, m_button, popup})
    {
        Widgets().RegisterForNonClientHitEvents(widget);
    }
    Play({{FirstDown, 15, 25}});
    EXPECT_EQ(Play({{FirstUp, 15, 25}}), "p:FirstUp(1;5,5) u:NonClientHit(0;15,25) b:NonClientHit(0;15,25) "
                                         "p:FirstClick(1;5,5) ");
    Widgets().DeregisterForNonClientHitEvents(m_button);
    Widgets().DeregisterForNonClientHitEvents(popup);
    Widgets().TriggerNonClientEvents({0, 0});
    EXPECT_EQ(CRecordingWidget::TakeLog(), "");
}

} // namespace
