#include "Managers/Input/InputManager.h"

#include "Managers/Input/NewInputManager.h"
#include "Managers/Widgets/RecordingWidget.h"

#include <clutter/clutter.h>

#include <cmath>
#include <string>
#include <utility>
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
        Widgets().SetKeyboardEventCallback(Core::Functor<bool, unsigned int>::Make(
            [this](unsigned int a_key)
            {
                m_keys.push_back(a_key);
                return false;
            }));
        TakeLog();
    }

    void TearDown() override
    {
        CRecordingTest::TearDown();
        input.UseCalibration(CInputManager::k_identity);
    }

    using Keys = std::vector<unsigned int>;
    Keys TakeKeys() { return std::exchange(m_keys, {}); }

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
    Keys m_keys;
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
    EXPECT_FALSE(Key(true, CLUTTER_KEY_F5));
    EXPECT_TRUE(Key(false, CLUTTER_KEY_F3));
    EXPECT_TRUE(Key(false, CLUTTER_KEY_a));
    EXPECT_EQ(TakeKeys(), (Keys{0xFFC0, 0x61}));
}

TEST_F(InputManagerTest, TheSupervisorsEventsBecomeKeys)
{
    CTamarindAVREventClient& client = *input.AvrClient();
    const struct
    {
        double holdSeconds;
        Keys keys;
    } cases[] = {
        {std::nan(""), {0xFFC7}}, {0.99, {0xFFC7}},        {1.0, {0xFFC7, 0xFFBE}},
        {4.99, {0xFFC7, 0xFFBE}}, {5.0, {0xFFC7, 0xFFC1}},
    };
    for (const auto& [holdSeconds, keys] : cases)
    {
        client.PostPowerKeyEvent(false, holdSeconds);
        input.Idle();
        EXPECT_EQ(TakeKeys(), keys) << holdSeconds;
    }
    client.PostGuidanceLineChangedEvent(true);
    client.PostIgnitionEvent(true);
    client.PostGuidanceLineChangedEvent(false);
    client.PostIgnitionEvent(false);
    client.PostPowerKeyEvent(true, 7.0);
    EXPECT_EQ(TakeKeys(), Keys{}) << "not before the client is polled";
    input.Idle();
    EXPECT_EQ(TakeKeys(), (Keys{0xFFC0, 0xFFC2, 0xFFC0, 0xFFBF, 0xFFC6}));
}

TEST_F(InputManagerTest, ASupervisorsCallbackMayPostPollAndReplaceItself)
{
    using Switch = Core::Functor<void, CTamarindAVREventClient::ETamarindAVREvent, bool>;
    CTamarindAVREventClient client;
    std::string log;
    const auto second = [&](auto, bool a_on) { log += a_on ? "on;" : "off;"; };
    client.SetIgnitionEventCallback(Switch::Make(
        [&, name = std::string("first;")](auto, bool)
        {
            client.PostIgnitionEvent(true);
            client.SetIgnitionEventCallback(Switch::Make(second));
            client.Poll();
            log += name;
        }));
    client.PostIgnitionEvent(true);
    client.PostIgnitionEvent(false);
    client.PostGuidanceLineChangedEvent(true);
    client.Poll();
    EXPECT_EQ(log, "off;on;first;");
}

TEST_F(InputManagerTest, ThePointerGoesThroughTheCalibration)
{
    input.UseCalibration({-1.0F, 0.0F, 799.0F, 0.0F, 0.5F, 1.0F});
    Button(true, 10, 20);
    EXPECT_EQ(TakeLog(), "w:Move(0;789,11) w:FirstDown(1;789,11) ");
    Button(false, 900, 2000);
    EXPECT_EQ(TakeLog(), "w:Move(1;0,479) w:FirstUp(1;0,479) w:FirstClick(1;0,479) ");
    EXPECT_EQ(input.RawCoordinates(), CPoint(900, 2000));
    input.UseCalibration(CInputManager::k_identity);
    Button(true, 1e30F, std::nanf(""));
    EXPECT_EQ(TakeLog(), "w:Move(0;799,0) w:FirstDown(1;799,0) ");
    Button(false, -1e30F, 2e9F);
    EXPECT_EQ(TakeLog(), "w:Move(1;0,479) w:FirstUp(1;0,479) w:FirstClick(1;0,479) ");
}

} // namespace
