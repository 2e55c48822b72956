#include "Managers/Widgets/RecordingWidget.h"

#include <utility>

namespace
{

/// A touch box of 5 by 5 pixels, ten pixels above the contact: it spans x - 2 to x + 3 and y - 12 to y - 7.
class MouseDispatchTouchAreaTest : public GfxTest::CRecordingTest
{
protected:
    static void SetUpTestSuite() { SetUpTouch(5, 10); }
};

TEST_F(MouseDispatchTouchAreaTest, TheTouchLiesAboveTheContactWhoseOwnPlaceIsDelivered)
{
    EXPECT_EQ(Widgets().TouchArea(), 5);
    EXPECT_EQ(Widgets().TouchOffset(), 10);
    const auto widget = Top("a", 100, 90, 50, 1);
    EXPECT_EQ(Play({{Gfx::Events::Move, 120, 100}}), "a:Move(1;20,10) ");
    for (const auto& [x, y] : {std::pair(98, 100), {151, 100}, {120, 98}, {120, 102}})
    {
        EXPECT_EQ(TargetAt(x, y), "a") << x << ',' << y;
    }
    for (const auto& [x, y] : {std::pair(97, 100), {152, 100}, {120, 97}, {120, 103}})
    {
        EXPECT_EQ(TargetAt(x, y), "") << x << ',' << y;
    }
    widget->Modal(true);
    EXPECT_EQ(TargetAt(97, 103), "a") << "a modal widget need only be touched";
    EXPECT_EQ(TargetAt(96, 103), "");
}

TEST_F(MouseDispatchTouchAreaTest, WidgetsCompeteByAreaTimesPriority)
{
    const auto lower = Top("a", 100, 100, 50, 50);
    const auto upper = Top("b", 150, 100, 50, 50);
    EXPECT_EQ(TargetAt(149, 130), "a") << "three columns against two";
    EXPECT_EQ(TargetAt(150, 130), "b");
    upper->Move({151, 100});
    EXPECT_EQ(TargetAt(150, 130), "b") << "two columns each: the upper one";
    lower->BringToFront();
    EXPECT_EQ(TargetAt(150, 130), "a");

    const auto button = Top("c", 110, 110, 21, 20, 166);
    EXPECT_EQ(TargetAt(130, 137), "a") << "15 pixels at 166 against 25 at 100";
    button->MousePriority(167);
    EXPECT_EQ(TargetAt(130, 137), "c");

    Child(lower, "d", 0, 0, 50, 30, 1);
    EXPECT_EQ(TargetAt(140, 141), "d") << "a single row of a child beats its parent";
    EXPECT_EQ(TargetAt(140, 142), "a");
}

} // namespace
