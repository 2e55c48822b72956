// Panels as the kernel shows them: nodes below /dev/input that are made up by umockdev, whose library stands between
// this program and the system's. A node is a pipe, so what is written to it can be read at once.

#include "Managers/Input/NewInputManager.h"
#include "Managers/Widgets/RecordingWidget.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <linux/input.h>
#include <sys/stat.h>
#include <umockdev.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace
{

using Gfx::Common::CPoint;
using Gfx::Managers::CInputManager;
using GfxTest::CRecordingWidget;

/// A panel, its words when it fails, and the codes of its axes.
struct SPanel
{
    const char* name;
    const char* failure;
    int x;
    int y;
};

constexpr SPanel k_eGalax{"eGalax Inc. USB TouchController", "CInputManager::Idle_eGalax: read: ", ABS_RX, ABS_Z};
constexpr SPanel k_stmpe610{"STMPE610 Touchscreen", "CInputManager::Idle_STMPE610: read: ", ABS_X, ABS_Y};

struct SEvent
{
    int type;
    int code;
    int value;
};

constexpr SEvent k_syn{EV_SYN, SYN_REPORT, 0};
constexpr SEvent k_down{EV_KEY, BTN_TOUCH, 1};
constexpr SEvent k_up{EV_KEY, BTN_TOUCH, 0};
constexpr SEvent k_repeat{EV_KEY, BTN_TOUCH, 2};

constexpr SEvent Axis(int a_code, int a_value)
{
    return {EV_ABS, a_code, a_value};
}

/// Tells a node's name, or fails if that is empty.
gboolean OnIoctl(UMockdevIoctlBase*, UMockdevIoctlClient* a_client, gpointer a_name)
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
    std::array<guint8, 256> text{};
    name.copy(reinterpret_cast<char*>(text.data()), text.size());
    umockdev_ioctl_data_update(buffer, 0, text.data(), static_cast<gint>(text.size()));
    umockdev_ioctl_data_unref(buffer);
    umockdev_ioctl_client_complete(a_client, static_cast<glong>(text.size()), 0);
    return TRUE;
}

class TouchPanelTest : public GfxTest::CRecordingTest
{
protected:
    void SetUp() override
    {
        CRecordingTest::SetUp();
        Top("w", 0, 0, k_width, k_height);
        m_bed = umockdev_testbed_new();
        ASSERT_TRUE(umockdev_in_mock_environment()) << "to be run by ctest, or by umockdev-wrapper";
        gchar* const root = umockdev_testbed_get_root_dir(m_bed);
        m_root = root;
        g_free(root);
        std::filesystem::create_directories(m_root + "/dev/input");
    }

    void TearDown() override
    {
        Unplug();
        g_clear_object(&m_bed);
        CRecordingTest::TearDown();
    }

    void AddDevice(const std::string& a_node, const std::string& a_name)
    {
        ASSERT_EQ(mkfifo((m_root + a_node).c_str(), 0600), 0);
        UMockdevIoctlBase* const handler = umockdev_ioctl_base_new();
        g_signal_connect_data(
            handler, "handle-ioctl", G_CALLBACK(OnIoctl), new std::string(a_name),
            [](gpointer a_text, GClosure*) { delete static_cast<std::string*>(a_text); }, GConnectFlags{});
        ASSERT_TRUE(umockdev_testbed_attach_ioctl(m_bed, a_node.c_str(), handler, nullptr));
        g_object_unref(handler);
    }

    /// Starts with the devices that there are; returns what is written to standard error meanwhile.
    std::string Start()
    {
        testing::internal::CaptureStderr();
        m_input = &GfxTest::NewInputManager();
        return testing::internal::GetCapturedStderr();
    }

    /// Starts with a panel in place of the last one; it reports once.
    void StartWith(const SPanel& a_panel)
    {
        Unplug();
        m_node = "/dev/input/event2" + std::to_string(++m_panels);
        AddDevice(m_node, a_panel.name);
        Start();
        ASSERT_TRUE(m_input->HasPanel());
        m_end = open((m_root + m_node).c_str(), O_WRONLY | O_CLOEXEC);
        CRecordingWidget::TakeLog();
        EXPECT_EQ(Play({k_syn}), "w:Move(1;0,0) w:FirstUp(1;0,0) ") << "though nothing was pressed";
    }

    void Unplug()
    {
        if (m_end != -1)
        {
            close(m_end);
            m_end = -1;
            std::filesystem::remove(m_root + m_node);
            Settle();
        }
    }

    /// Writes records that are there all at once; returns what the widget has heard of them.
    std::string Play(const std::vector<SEvent>& a_events)
    {
        std::vector<input_event> records;
        for (const auto& [type, code, value] : a_events)
        {
            records.push_back({{}, static_cast<__u16>(type), static_cast<__u16>(code), value});
        }
        const auto size = static_cast<ssize_t>(records.size() * sizeof(input_event));
        EXPECT_EQ(write(m_end, records.data(), static_cast<std::size_t>(size)), size);
        Settle();
        return CRecordingWidget::TakeLog();
    }

    bool IsWatched() const { return g_main_context_find_source_by_user_data(nullptr, m_input) != nullptr; }

    UMockdevTestbed* m_bed = nullptr;
    std::string m_root;
    CInputManager* m_input = nullptr;
    std::string m_node;
    int m_panels = 0;
    int m_end = -1;
};

TEST_F(TouchPanelTest, NoneButAKnownPanelIsOpened)
{
    EXPECT_EQ(Start(), "unable to find touchscreen device\n") << "an empty folder";
    AddDevice("/dev/input/mouse0", k_eGalax.name);
    AddDevice("/dev/input/event0", "STMPE610 Touchscreen 2");
    AddDevice("/dev/input/event1", std::string(300, 'x'));
    AddDevice("/dev/input/event2", "");
    std::filesystem::create_symlink("nowhere", m_root + "/dev/input/event3");
    EXPECT_THAT(Start(), testing::MatchesRegex("evdev ioctl: [^\n]*\nunable to find touchscreen device\n"));
    EXPECT_FALSE(m_input->HasPanel() || IsWatched());
    StartWith(k_eGalax);
}

TEST_F(TouchPanelTest, APressADragAndAReleaseReachTheWidget)
{
    for (const SPanel& panel : {k_eGalax, k_stmpe610})
    {
        SCOPED_TRACE(panel.name);
        StartWith(panel);
        EXPECT_EQ(Play({Axis(panel.x, 30), Axis(panel.y, 40), k_down}), "") << "all waits for the report";
        EXPECT_EQ(Play({k_syn}), "w:Move(0;30,40) w:FirstDown(1;30,40) ");
        EXPECT_EQ(Play({Axis(panel.x, 31), k_syn, Axis(panel.x, 32), Axis(panel.y, 41), k_syn}),
                  "w:Move(1;31,40) w:Move(1;32,41) ");
        // The other panel's axes are not this one's.
        EXPECT_EQ(Play({Axis(panel.x ^ ABS_RX, 1), Axis(panel.y ^ ABS_RX, 2), k_repeat, {EV_KEY, BTN_LEFT, 0}}), "");
        EXPECT_EQ(Play({{EV_MSC, MSC_SCAN, 0}, {EV_REL, REL_X, 9}, k_syn}), "w:Move(1;32,41) ");
        EXPECT_EQ(Play({Axis(panel.y, 42), k_up, k_syn}), "w:Move(1;32,42) w:FirstUp(1;32,42) w:FirstClick(1;32,42) ");
        EXPECT_EQ(Play({k_syn}), "");
        EXPECT_EQ(Play({k_down, k_up, k_syn}), "w:Move(1;32,42) w:FirstUp(1;32,42) ") << "of what came last";
        EXPECT_EQ(m_input->RawCoordinates(), CPoint(32, 42));
    }
}

TEST_F(TouchPanelTest, TwoReportsAtOnceAreATouchOfTheStmpe610)
{
    const std::string press = "w:Move(0;7,0) w:FirstDown(1;7,0) ";
    StartWith(k_stmpe610);
    EXPECT_EQ(Play({Axis(ABS_X, 7), k_syn}), "") << "the count starts anew each time";
    EXPECT_EQ(Play({k_syn, k_repeat, k_syn}), "") << "and with each word of the button";
    EXPECT_EQ(Play({k_syn, Axis(ABS_X, 7), k_syn}), press);
    EXPECT_EQ(Play({k_syn, k_up, k_syn}), "w:Move(1;7,0) w:Move(1;7,0) w:FirstUp(1;7,0) w:FirstClick(1;7,0) ");
    EXPECT_EQ(Play({k_syn, k_syn, k_up, k_syn}), press + "w:Move(1;7,0) w:FirstUp(1;7,0) w:FirstClick(1;7,0) ");
    StartWith(k_eGalax);
    EXPECT_EQ(Play({k_syn, k_syn, k_syn}), "") << "the other panel says so itself";
}

TEST_F(TouchPanelTest, APanelThatVanishesInADragIsClosedForGood)
{
    for (const SPanel& panel : {k_eGalax, k_stmpe610})
    {
        for (const bool isCutShort : {false, true})
        {
            SCOPED_TRACE(panel.name);
            StartWith(panel);
            Play({k_down, k_syn});
            testing::internal::CaptureStderr();
            if (!isCutShort || write(m_end, "half a", 6) != 6)
            {
                Unplug();
            }
            Settle();
            EXPECT_THAT(testing::internal::GetCapturedStderr(),
                        testing::StartsWith((isCutShort ? "" : "_STMPE610_Input: bad condition: 16\n") +
                                            std::string(panel.failure)));
            EXPECT_FALSE(m_input->HasPanel() || IsWatched());
            // The stage's pointer takes over.
            CRecordingWidget::TakeLog();
            m_input->MouseButton(false);
            m_input->MousePosition({5, 6});
            EXPECT_EQ(CRecordingWidget::TakeLog(), "w:Move(1;5,6) w:FirstUp(1;5,6) w:FirstClick(1;5,6) ");
        }
    }
}

TEST_F(TouchPanelTest, WhateverComesAReleaseEndsIt)
{
    for (const SPanel& panel : {k_eGalax, k_stmpe610})
    {
        StartWith(panel);
        for (unsigned int seed = 1; seed <= 15; ++seed)
        {
            SCOPED_TRACE(seed);
            std::mt19937 random(seed);
            const auto below = [&](int a_end) { return static_cast<int>(random() % static_cast<unsigned>(a_end)); };
            std::vector<SEvent> events;
            for (int i = 0; i < 100; ++i)
            {
                events.insert(events.end(), {k_syn, {EV_KEY, BTN_TOUCH, below(3)}, Axis(below(5), below(5000) - 500)});
                events.push_back({below(5), below(7), static_cast<int>(random())});
                events.push_back({below(65536), below(65536), static_cast<int>(random())});
            }
            std::shuffle(events.begin(), events.end(), random);
            EXPECT_THAT(Play(events), testing::HasSubstr("FirstDown"));
            EXPECT_THAT(Play({k_down, k_syn, k_up, k_syn}),
                        testing::MatchesRegex(".*FirstDown.*FirstUp[^ ]* w:FirstClick[^ ]* "));
            EXPECT_EQ(Play({k_syn}), "") << "nothing is pressed, nothing is owed";
        }
    }
}

} // namespace
