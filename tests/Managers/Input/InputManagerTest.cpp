#include "Managers/Input/InputManager.h"

#include "Managers/Widgets/RecordingWidget.h"

#include <clutter/clutter.h>

#include <limits>
#include <regex>
#include <vector>

namespace
{

using Core::Patterns::StaticSingleton;
using Gfx::Common::CPoint;
using Gfx::Managers::CInputManager;

/// A widget "w" over the whole stage notes what it is told.
class InputManagerTest : public GfxTest::CRecordingTest
{
protected:
    void SetUp() override
    {
        CRecordingTest::SetUp();
        Top("w", 0, 0, k_width, k_height);
        TakeLog();
    }

    void TearDown() override
    {
        CRecordingTest::TearDown();
        input.UseCalibration(CInputManager::k_identity);
    }

    static std::string TakeLog() { return GfxTest::CRecordingWidget::TakeLog(); }

    /// Emits a signal of the stage; returns whether a handler has stopped it.
    static bool Emit(const char* a_signal, ClutterEvent* a_event)
    {
        gboolean stopped = FALSE;
        g_signal_emit_by_name(clutter_stage_get_default(), a_signal, a_event, &stopped);
        clutter_event_free(a_event);
        return stopped != FALSE;
    }

    static ClutterEvent* EventAt(ClutterEventType a_type, float a_x, float a_y)
    {
        ClutterEvent* event = clutter_event_new(a_type);
        clutter_event_set_coords(event, a_x, a_y);
        return event;
    }

    static bool Button(bool a_down, float a_x, float a_y, guint a_button = 1)
    {
        ClutterEvent* event = EventAt(a_down ? CLUTTER_BUTTON_PRESS : CLUTTER_BUTTON_RELEASE, a_x, a_y);
        clutter_event_set_button(event, a_button);
        return Emit(a_down ? "button-press-event" : "button-release-event", event);
    }

    static bool Motion(float a_x, float a_y, ClutterModifierType a_state = CLUTTER_BUTTON1_MASK)
    {
        ClutterEvent* event = EventAt(CLUTTER_MOTION, a_x, a_y);
        clutter_event_set_state(event, a_state);
        return Emit("motion-event", event);
    }

    static bool Key(bool a_down, guint a_symbol)
    {
        ClutterEvent* event = clutter_event_new(a_down ? CLUTTER_KEY_PRESS : CLUTTER_KEY_RELEASE);
        clutter_event_set_key_symbol(event, a_symbol);
        return Emit(a_down ? "key-press-event" : "key-release-event", event);
    }

    CInputManager& input = StaticSingleton<CInputManager>::ref();
};

TEST_F(InputManagerTest, TheStageIsListenedToOnce)
{
    // The fixture has connected it already.
    input.ConnectClutter();
    ClutterActor* stage = clutter_stage_get_default();
    const guint signal = g_signal_lookup("motion-event", CLUTTER_TYPE_STAGE);
    const auto find = [&]
    {
        constexpr auto k_mask = GSignalMatchType(G_SIGNAL_MATCH_ID | G_SIGNAL_MATCH_UNBLOCKED);
        return g_signal_handler_find(stage, k_mask, signal, 0, nullptr, nullptr, nullptr);
    };
    const gulong handler = find();
    ASSERT_NE(handler, 0U);
    g_signal_handler_block(stage, handler);
    EXPECT_EQ(find(), 0U);
    g_signal_handler_unblock(stage, handler);
}

TEST_F(InputManagerTest, APressADragAndAReleaseReachTheWidget)
{
    EXPECT_TRUE(Button(true, 10, 20));
    EXPECT_EQ(TakeLog(), "w:Move(0;10,20) w:FirstDown(1;10,20) ");
    EXPECT_TRUE(Motion(11, 22));
    EXPECT_EQ(TakeLog(), "w:Move(1;11,22) ");
    EXPECT_TRUE(Button(false, 12, 23));
    // The click is the widget manager's.
    EXPECT_EQ(TakeLog(), "w:Move(1;12,23) w:FirstUp(1;12,23) w:FirstClick(1;12,23) ");
    EXPECT_TRUE(Motion(13, 24));
    EXPECT_EQ(TakeLog(), "");
    EXPECT_EQ(input.RawCoordinates(), CPoint(13, 24));
}

TEST_F(InputManagerTest, OtherButtonsAndPlainMovesAreSwallowed)
{
    EXPECT_TRUE(Motion(5, 6));
    TakeLog();
    EXPECT_TRUE(Motion(50, 60, ClutterModifierType{}));
    EXPECT_TRUE(Motion(50, 60, CLUTTER_BUTTON3_MASK));
    for (const guint button : {0U, 2U, 3U, 4U})
    {
        EXPECT_TRUE(Button(true, 50, 60, button)) << button;
        EXPECT_TRUE(Button(false, 50, 60, button)) << button;
    }
    EXPECT_EQ(input.RawCoordinates(), CPoint(5, 6));
    EXPECT_TRUE(Motion(7, 8));
    EXPECT_EQ(TakeLog(), "") << "none of it is pending";
}

TEST_F(InputManagerTest, KeysActWhenTheyAreReleased)
{
    std::vector<unsigned int> keys;
    Widgets().SetKeyboardEventCallback(Core::Functor<bool, unsigned int>::Make(
        [&keys](unsigned int a_key)
        {
            keys.push_back(a_key);
            return false;
        }));
    EXPECT_FALSE(Key(true, CLUTTER_KEY_F5));
    EXPECT_TRUE(Key(false, CLUTTER_KEY_F3));
    EXPECT_TRUE(Key(false, CLUTTER_KEY_a));
    EXPECT_EQ(keys, (std::vector{0xFFC0U, 0x61U}));
}

TEST_F(InputManagerTest, EachReportTellsOfWhatHasChanged)
{
    CInputManager device;
    device.UseCalibration(CInputManager::k_identity);
    const auto report = [&device](int a_x)
    {
        device.MousePosition({a_x, 0});
        return TakeLog();
    };
    EXPECT_EQ(report(1), "w:Move(1;1,0) w:FirstUp(1;1,0) ") << "though nothing was pressed";
    EXPECT_EQ(report(2), "");
    device.MouseButton(true);
    EXPECT_EQ(report(3), "w:Move(0;3,0) w:FirstDown(1;3,0) ");
    EXPECT_EQ(report(4), "w:Move(1;4,0) ");
    device.MouseButton(false);
    device.MouseButton(true);
    EXPECT_EQ(report(5), "w:Move(0;5,0) w:FirstDown(1;5,0) ") << "of what came last";
    device.MouseButton(true);
    device.MouseButton(false);
    EXPECT_EQ(report(6), "w:Move(1;6,0) w:FirstUp(1;6,0) w:FirstClick(1;6,0) ");
    EXPECT_EQ(report(7), "");
}

TEST_F(InputManagerTest, ThePointerGoesThroughTheCalibration)
{
    input.UseCalibration({-1.0F, 0.0F, 799.0F, 0.0F, 0.5F, 1.0F});
    Button(true, 10, 20);
    EXPECT_EQ(TakeLog(), "w:Move(0;789,11) w:FirstDown(1;789,11) ");
    Button(false, 900, 2000);
    EXPECT_EQ(TakeLog(), "w:Move(1;0,479) w:FirstUp(1;0,479) w:FirstClick(1;0,479) ");
    EXPECT_EQ(input.RawCoordinates(), CPoint(900, 2000));
}

TEST_F(InputManagerTest, InjectedEventsLookLikeThePointers)
{
    Button(true, 100, 100);
    Motion(120, 130);
    Motion(0, 479);
    Button(false, 0, 479);
    const std::string pointer = TakeLog();
    MoveTo(100, 100);
    Press(100, 100);
    MoveTo(120, 130);
    MoveTo(0, 479);
    MoveTo(0, 479);
    Release(0, 479);
    // But for the button, which an injected move doesn't tell.
    EXPECT_EQ(TakeLog(), std::regex_replace(pointer, std::regex(R"(Move\(1)"), "Move(0"));
    EXPECT_NE(pointer, "");
}

TEST(TouchCalibrationTest, CoordinatesAreMappedRoundedAndKeptOnTheScreen)
{
    constexpr float k_nan = std::numeric_limits<float>::quiet_NaN();
    constexpr float k_infinity = std::numeric_limits<float>::infinity();
    constexpr int k_lowest = std::numeric_limits<int>::min();
    constexpr int k_highest = std::numeric_limits<int>::max();
    constexpr CInputManager::SCalibration k_identity = CInputManager::k_identity;
    constexpr CInputManager::SCalibration k_panel = CInputManager::k_uncalibrated;
    const struct
    {
        CInputManager::SCalibration calibration;
        CPoint raw;
        CPoint pixel;
    } cases[] = {
        {k_identity, {0, 0}, {0, 0}},
        {k_identity, {799, 479}, {799, 479}},
        {k_identity, {800, 480}, {799, 479}},
        {k_identity, {-1, -1}, {0, 0}},
        {k_identity, {k_lowest, k_highest}, {0, 479}},
        {k_identity, {k_highest, k_lowest}, {799, 0}},
        // -401.692 + 5.52 + 808.746 and -5.324 + 252.646 - 14.404
        {k_panel, {2000, 2000}, {413, 233}},
        {k_panel, {0, 0}, {799, 0}},
        {k_panel, {4095, 4095}, {0, 479}},
        // y is 447.49997, but each step's result is rounded to single precision.
        {k_panel, {307, 3663}, {757, 448}},
        // Halves go away from zero.
        {{1, 0, 0.5F, 0, 1, 0.49F}, {10, 10}, {11, 10}},
        {{1, 0, -0.5F, 0, 1, -0.5F}, {0, 479}, {0, 479}},
        {{0, 1, 0, 1, 0, 0}, {30, 40}, {40, 30}},
        {{k_nan, 0, 0, 0, 1, k_nan}, {30, 40}, {0, 0}},
        {{k_infinity, 0, 0, 0, -k_infinity, 0}, {30, 40}, {799, 0}},
        {{k_infinity, 0, 0, 0, 1, k_infinity}, {0, 40}, {0, 479}},
    };
    for (const auto& [calibration, raw, pixel] : cases)
    {
        CInputManager device;
        device.UseCalibration(calibration);
        const CPoint result = device.TransformCoordinates(raw.X(), raw.Y());
        EXPECT_EQ(result, pixel) << raw.X() << ',' << raw.Y() << " gives " << result.X() << ',' << result.Y();
    }
    EXPECT_EQ(CInputManager().TransformCoordinates(2000, 2000), CPoint(413, 233)) << "the panel is the default";
}

} // namespace
