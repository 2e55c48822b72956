// Panels as the kernel shows them: nodes below /dev/input that are made up by umockdev, whose library stands between
// this program and the system's. A node is a pipe, so what is written to it can be read at once.

#include "Managers/Input/NewInputManager.h"
#include "Managers/Widgets/RecordingWidget.h"

#include <fcntl.h>
#include <glib.h>
#include <gmock/gmock.h>
#include <linux/input.h>
#include <sys/stat.h>
#include <umockdev.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <initializer_list>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace
{

using Gfx::Common::CPoint;
using Gfx::Managers::CInputManager;
using testing::HasSubstr;

constexpr const char* k_eGalax = "eGalax Inc. USB TouchController";
constexpr const char* k_stmpe610 = "STMPE610 Touchscreen";

struct SEvent
{
    int type;
    int code;
    int value;
};

constexpr SEvent k_syn{EV_SYN, SYN_REPORT, 0};

constexpr SEvent Touch(int a_value)
{
    return {EV_KEY, BTN_TOUCH, a_value};
}

std::vector<input_event> Records(const std::vector<SEvent>& a_events)
{
    std::vector<input_event> records;
    for (const auto& [type, code, value] : a_events)
    {
        input_event record{};
        record.type = static_cast<decltype(record.type)>(type);
        record.code = static_cast<decltype(record.code)>(code);
        record.value = value;
        records.push_back(record);
    }
    return records;
}

class TouchPanelTest : public GfxTest::CRecordingTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(umockdev_in_mock_environment()) << "to be run under umockdev-wrapper";
        CRecordingTest::SetUp();
        m_widget = Top("w", 0, 0, k_width, k_height);
        m_bed = umockdev_testbed_new();
        std::filesystem::create_directories(Root() + "/dev/input");
        GfxTest::CRecordingWidget::TakeLog();
        testing::internal::CaptureStderr();
    }

    void TearDown() override
    {
        Unplug();
        EXPECT_EQ(g_main_context_find_source_by_user_data(nullptr, m_input), nullptr) << "nothing watches a lost panel";
        testing::internal::GetCapturedStderr();
        g_clear_object(&m_bed);
        CRecordingTest::TearDown();
    }

    std::string Root() const { return umockdev_testbed_get_root_dir(m_bed); }

    /// A device that calls itself a_name; one with an empty name doesn't tell.
    void AddDevice(const std::string& a_node, const std::string& a_name)
    {
        ASSERT_EQ(mkfifo((Root() + a_node).c_str(), 0600), 0);
        UMockdevIoctlBase* const handler = umockdev_ioctl_base_new();
        g_signal_connect_data(
            handler, "handle-ioctl", G_CALLBACK(OnIoctl), new std::string(a_name),
            [](gpointer a_text, GClosure*) { delete static_cast<std::string*>(a_text); }, GConnectFlags{});
        ASSERT_TRUE(umockdev_testbed_attach_ioctl(m_bed, a_node.c_str(), handler, nullptr));
        g_object_unref(handler);
    }

    /// Starts with what there is; returns what is written to standard error meanwhile.
    std::string Start()
    {
        TakeStderr();
        m_input = &GfxTest::NewInputManager();
        return TakeStderr();
    }

    /// Starts with one panel, and takes note of nothing but presses.
    void StartWith(const std::string& a_name)
    {
        AddDevice("/dev/input/event3", a_name);
        Start();
        ASSERT_TRUE(m_input->HasPanel());
        m_panel = open((Root() + "/dev/input/event3").c_str(), O_WRONLY | O_CLOEXEC);
        ASSERT_NE(m_panel, -1);
    }

    /// Writes records that are there all at once; returns what the widget has heard of them.
    std::string Play(const std::vector<SEvent>& a_events)
    {
        const std::vector<input_event> records = Records(a_events);
        const auto size = static_cast<ssize_t>(records.size() * sizeof(input_event));
        EXPECT_EQ(write(m_panel, records.data(), static_cast<std::size_t>(size)), size);
        Settle();
        return GfxTest::CRecordingWidget::TakeLog();
    }

    void Unplug()
    {
        if (m_panel != -1)
        {
            close(std::exchange(m_panel, -1));
        }
        Settle();
    }

    static std::string TakeStderr()
    {
        const std::string text = testing::internal::GetCapturedStderr();
        testing::internal::CaptureStderr();
        return text;
    }

    static gboolean OnIoctl(UMockdevIoctlBase*, UMockdevIoctlClient* a_client, gpointer a_name)
    {
        const auto& name = *static_cast<const std::string*>(a_name);
        constexpr gulong k_request = EVIOCGNAME(256);
        if (umockdev_ioctl_client_get_request(a_client) != k_request || name.empty())
        {
            umockdev_ioctl_client_complete(a_client, -1, ENODEV);
            return TRUE;
        }
        UMockdevIoctlData* const buffer =
            umockdev_ioctl_data_resolve(umockdev_ioctl_client_get_arg(a_client), 0, 256, nullptr);
        std::array<char, 256> text{};
        const std::size_t length = name.copy(text.data(), text.size());
        umockdev_ioctl_data_update(buffer, 0, reinterpret_cast<guint8*>(text.data()), static_cast<gint>(text.size()));
        umockdev_ioctl_data_unref(buffer);
        umockdev_ioctl_client_complete(a_client, static_cast<glong>(length), 0);
        return TRUE;
    }

    GfxTest::RecorderPtr m_widget;
    UMockdevTestbed* m_bed = nullptr;
    CInputManager* m_input = nullptr;
    int m_panel = -1;
};

TEST_F(TouchPanelTest, WithoutAKnownPanelTheStageRemains)
{
    EXPECT_EQ(Start(), "unable to find touchscreen device\n") << "an empty folder";
    AddDevice("/dev/input/mouse0", k_eGalax);
    AddDevice("/dev/input/event0", "STMPE610 Touchscreen 2");
    AddDevice("/dev/input/event1", "STMPE610");
    AddDevice("/dev/input/event2", std::string(300, 'x'));
    AddDevice("/dev/input/event3", "");
    std::filesystem::create_symlink("nowhere", Root() + "/dev/input/event4");
    EXPECT_THAT(Start(), testing::MatchesRegex("evdev ioctl: [^\n]*\nunable to find touchscreen device\n"));
    EXPECT_FALSE(m_input->HasPanel());
    EXPECT_EQ(g_main_context_find_source_by_user_data(nullptr, m_input), nullptr);
    m_input->MouseButton(true);
    m_input->MousePosition({1, 2});
    EXPECT_EQ(GfxTest::CRecordingWidget::TakeLog(), "w:Move(0;1,2) w:FirstDown(1;1,2) ");
}

TEST_F(TouchPanelTest, APanelIsFoundAmongOthers)
{
    AddDevice("/dev/input/event0", "Power Button");
    AddDevice("/dev/input/event1", "");
    AddDevice("/dev/input/event12", "Power Button");
    StartWith(k_eGalax);
    m_input->Probe();
    Play({{EV_ABS, ABS_RX, 5}, k_syn});
    EXPECT_EQ(m_input->RawCoordinates(), CPoint(5, 0)) << "another search changes nothing";
}

TEST_F(TouchPanelTest, APressADragAndAReleaseReachTheWidget)
{
    const struct
    {
        const char* name;
        int xCode;
        int yCode;
        std::array<int, 2> otherCodes;
    } cases[] = {
        {k_eGalax, ABS_RX, ABS_Z, {ABS_X, ABS_Y}},
        {k_stmpe610, ABS_X, ABS_Y, {ABS_Z, ABS_RX}},
    };
    for (const auto& [name, xCode, yCode, otherCodes] : cases)
    {
        SCOPED_TRACE(name);
        std::filesystem::remove(Root() + "/dev/input/event3");
        StartWith(name);
        EXPECT_EQ(Play({{EV_ABS, xCode, 10}, {EV_ABS, yCode, 20}}), "") << "positions are only kept";
        EXPECT_EQ(Play({k_syn}), "w:Move(1;10,20) w:FirstUp(1;10,20) ") << "though nothing was pressed";
        EXPECT_EQ(Play({{EV_ABS, xCode, 30}, {EV_ABS, yCode, 40}, Touch(1)}), "");
        EXPECT_EQ(Play({k_syn}), "w:Move(0;30,40) w:FirstDown(1;30,40) ");
        EXPECT_EQ(Play({{EV_ABS, xCode, 31}, k_syn, {EV_ABS, xCode, 32}, {EV_ABS, yCode, 41}, k_syn}),
                  "w:Move(1;31,40) w:Move(1;32,41) ");
        EXPECT_EQ(Play({{EV_ABS, otherCodes[0], 1}, {EV_ABS, otherCodes[1], 2}, {EV_ABS, ABS_PRESSURE, 3}}), "");
        EXPECT_EQ(Play({Touch(2), {EV_KEY, BTN_LEFT, 0}, {EV_MSC, MSC_SCAN, 0}, {EV_REL, REL_X, 9}, k_syn}),
                  "w:Move(1;32,41) ");
        EXPECT_EQ(Play({{EV_ABS, yCode, 42}, Touch(0), k_syn}),
                  "w:Move(1;32,42) w:FirstUp(1;32,42) w:FirstClick(1;32,42) ");
        EXPECT_EQ(Play({k_syn}), "");
        EXPECT_EQ(Play({Touch(1), Touch(0), k_syn}), "w:Move(1;32,42) w:FirstUp(1;32,42) ") << "of what came last";
        EXPECT_EQ(m_input->RawCoordinates(), CPoint(32, 42));
        Unplug();
    }
}

TEST_F(TouchPanelTest, TwoReportsAtOnceAreATouchOfTheStmpe610)
{
    constexpr const char* k_press = "w:Move(0;7,0) w:FirstDown(1;7,0) ";
    constexpr SEvent k_position{EV_ABS, ABS_X, 7};
    StartWith(k_stmpe610);
    EXPECT_EQ(Play({k_position, k_syn}), "w:Move(1;7,0) w:FirstUp(1;7,0) ");
    EXPECT_EQ(Play({k_position, k_syn}), "") << "the count starts anew with each time";
    EXPECT_EQ(Play({k_syn, Touch(2), k_syn}), "") << "and with each word of the button";
    EXPECT_EQ(Play({k_position, k_syn, k_position, k_syn}), k_press);
    EXPECT_EQ(Play({k_syn, k_syn}), "w:Move(1;7,0) w:Move(1;7,0) ");
    EXPECT_EQ(Play({Touch(0), k_syn, k_syn}),
              std::string("w:Move(1;7,0) w:FirstUp(1;7,0) w:FirstClick(1;7,0) ") + k_press);
    EXPECT_EQ(Play({k_syn, Touch(0), k_syn}), "w:Move(1;7,0) w:Move(1;7,0) w:FirstUp(1;7,0) w:FirstClick(1;7,0) ");
    Unplug();

    std::filesystem::remove(Root() + "/dev/input/event3");
    StartWith(k_eGalax);
    Play({k_syn});
    EXPECT_EQ(Play({k_syn, k_syn, k_syn}), "") << "the other panel says so itself";
}

TEST_F(TouchPanelTest, APanelThatVanishesInADragIsClosedForGood)
{
    for (const bool isCutShort : {false, true})
    {
        for (const auto& [name, text] : {std::pair(k_eGalax, "CInputManager::Idle_eGalax: read: "),
                                         std::pair(k_stmpe610, "CInputManager::Idle_STMPE610: read: ")})
        {
            SCOPED_TRACE(name);
            std::filesystem::remove(Root() + "/dev/input/event3");
            StartWith(name);
            Play({Touch(1), k_syn, k_syn});
            TakeStderr();
            if (isCutShort)
            {
                EXPECT_EQ(write(m_panel, "half a", 6), 6);
                Settle();
                EXPECT_THAT(TakeStderr(), testing::StartsWith(text));
            }
            else
            {
                Unplug();
                EXPECT_THAT(TakeStderr(),
                            testing::StartsWith("_STMPE610_Input: bad condition: 16\n" + std::string(text)));
            }
            EXPECT_FALSE(m_input->HasPanel());
            EXPECT_EQ(g_main_context_find_source_by_user_data(nullptr, m_input), nullptr);
            GfxTest::CRecordingWidget::TakeLog();
            // The stage's pointer takes over.
            m_input->MousePosition({3, 4});
            m_input->MouseButton(false);
            m_input->MousePosition({5, 6});
            EXPECT_EQ(GfxTest::CRecordingWidget::TakeLog(),
                      "w:Move(1;3,4) w:Move(1;5,6) w:FirstUp(1;5,6) w:FirstClick(1;5,6) ");
            Unplug();
        }
    }
}

TEST_F(TouchPanelTest, WhateverComesAReleaseEndsIt)
{
    for (const char* const name : {k_eGalax, k_stmpe610})
    {
        std::filesystem::remove(Root() + "/dev/input/event3");
        StartWith(name);
        for (unsigned int seed = 1; seed <= 40; ++seed)
        {
            SCOPED_TRACE(seed);
            std::mt19937 random(seed);
            const auto below = [&random](int a_end)
            { return static_cast<int>(random() % static_cast<unsigned>(a_end)); };
            std::vector<SEvent> events;
            for (int i = 0; i < 500; ++i)
            {
                // Half of them make some sense.
                events.push_back(
                    below(2) == 0
                        ? SEvent{below(5), below(7), static_cast<int>(random())}
                        : std::array{k_syn, Touch(below(3)), SEvent{EV_ABS, below(4), below(5000) - 500},
                                     SEvent{below(65536), below(65536), static_cast<int>(random())}}[below(4)]);
            }
            const std::string heard = Play(events);
            EXPECT_THAT(heard, HasSubstr("FirstDown"));
            const std::string end = Play({Touch(1), k_syn, Touch(0), k_syn});
            EXPECT_THAT(end, HasSubstr("FirstDown"));
            EXPECT_THAT(end, testing::EndsWith("FirstClick" + end.substr(end.rfind('('))));
            EXPECT_EQ(Play({k_syn}), "") << "nothing is pressed, nothing is owed";
        }
        EXPECT_TRUE(m_input->HasPanel());
        Unplug();
    }
}

} // namespace
