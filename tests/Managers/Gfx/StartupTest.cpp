#include "Core/Logging/Logger.h"
#include "Core/Time.h"
#include "Managers/Gfx/GfxManager.h"
#include "Managers/Widgets/WidgetManager.h"
#include "support/OwnProcess.h"
#include "support/StageTest.h"
#include "support/TemporaryDirectory.h"

#include <clutter/clutter.h>
#include <dlfcn.h>
#include <gmock/gmock.h>

#include <cstdlib>

namespace
{

std::vector<guint> s_intervals;

} // namespace

/// Stands in front of Clutter's own, so that the library's timers are seen.
extern "C" guint clutter_threads_add_timeout(guint a_interval, GSourceFunc a_callback, gpointer a_data)
{
    s_intervals.push_back(a_interval);
    const auto original =
        reinterpret_cast<decltype(&clutter_threads_add_timeout)>(dlsym(RTLD_NEXT, "clutter_threads_add_timeout"));
    return original(a_interval, a_callback, a_data);
}

namespace
{

using Core::Patterns::StaticSingleton;
using Gfx::Managers::CGfxManager;
using Gfx::Managers::CWidgetManager;
using GfxTest::CBlock;
using GfxTest::CTemporaryDirectory;
using GfxTest::RunToEnd;
using testing::AllOf;
using testing::ContainsRegex;
using testing::ElementsAre;
using testing::ExitedWithCode;
using testing::HasSubstr;
using testing::Not;
using StartupTest = GfxTest::COwnProcessTest;

CGfxManager& Manager()
{
    return StaticSingleton<CGfxManager>::ref();
}

bool SetUpIn(const std::string& a_basePath)
{
    return Manager().Setup(a_basePath, "title", {3, 4}, 320, 200, 0, nullptr, Gfx::Colours::Navy);
}

bool SetUpWith(const CTemporaryDirectory& a_directory, const std::string& a_general)
{
    a_directory.WriteRequiredFiles();
    a_directory.Write("Configuration/GfxConfig.xml", "<Gfx><General>" + a_general + "</General></Gfx>");
    return SetUpIn(a_directory.Path());
}

std::vector<std::string> s_lines;

void StartOrdinarily()
{
    StaticSingleton<Core::Logging::CLogger>::ref().SetObserver(
        [](Core::Logging::ELogEventLevel a_level, const std::string& a_source, const std::string& a_message)
        { s_lines.push_back(std::to_string(a_level) + ' ' + a_source + ": " + a_message); });
    EXPECT_TRUE(SetUpIn(GFX_TEST_DATA));
    EXPECT_THAT(s_lines, ElementsAre("3 Gfx: Initialising clutter", "3 Gfx: Initialising configuration",
                                     "3 Gfx: Initialising theme manager", "3 Gfx: Initialising texture manager",
                                     "3 Gfx: Initialising layout manager", "3 Gfx: Initialising complete"));
    ClutterActor* stage = Manager().GetStage();
    EXPECT_STREQ(clutter_stage_get_title(CLUTTER_STAGE(stage)), "title");
    ClutterColor colour;
    clutter_stage_get_color(CLUTTER_STAGE(stage), &colour);
    EXPECT_EQ(clutter_color_to_pixel(&colour), 0x000080FFU);
    EXPECT_EQ(clutter_actor_get_width(stage), 320.0F);
    EXPECT_EQ(clutter_actor_get_height(stage), 200.0F);
    EXPECT_FALSE(clutter_actor_is_visible(stage));
}

TEST_F(StartupTest, AnOrdinaryStartIsLoggedStepByStep)
{
    EXPECT_EXIT(RunToEnd(StartOrdinarily), ExitedWithCode(0), "");
}

TEST_F(StartupTest, WithoutAUsableDisplaySetupReportsAndFails)
{
    const struct
    {
        const char* variable;
        const char* value;
    } cases[] = {
        {"DISPLAY", nullptr}, {"DISPLAY", ":29871"}, {"DISPLAY", "nonsense"}, {"LIBGL_DRIVERS_PATH", "/nonexistent"}};
    for (const auto& [variable, value] : cases)
    {
        const auto start = [variable = variable, value = value]
        {
            setenv(variable, value != nullptr ? value : "", 1);
            if (value == nullptr)
            {
                // On a bare console a graphics card would do.
                setenv("CLUTTER_BACKEND", "x11", 1);
                unsetenv(variable);
            }
            EXPECT_FALSE(SetUpIn(GFX_TEST_DATA));
            EXPECT_EQ(Manager().GetStage(), nullptr);
            EXPECT_EQ(Manager().DisplayWidth(), 320);
            EXPECT_EQ(Manager().ScreenShot(), "");
        };
        EXPECT_EXIT(RunToEnd(start), ExitedWithCode(0),
                    AllOf(HasSubstr("3 (Gfx) : Initialising clutter"),
                          ContainsRegex("\\*\\* \\(.*WARNING \\*\\*.*Unable to initialise Clutter:\n."),
                          Not(HasSubstr("Initialising configuration"))))
            << variable << ' ' << (value != nullptr ? value : "unset");
    }
}

/// Runs the main loop, which is left at once, and returns the intervals of its timers.
std::vector<guint> Intervals()
{
    const auto quit = [](gpointer) -> gboolean
    {
        clutter_main_quit();
        return FALSE;
    };
    clutter_threads_add_idle_full(G_PRIORITY_HIGH, quit, nullptr, nullptr);
    s_intervals.clear();
    Manager().StartMainLoop();
    return s_intervals;
}

void StartWithAConfiguration()
{
    const CTemporaryDirectory directory;
    EXPECT_TRUE(SetUpWith(directory, "<CleanupInterval>70</CleanupInterval><InputIdleInterval>80</InputIdleInterval>"
                                     "<WidgetIdleInterval>90</WidgetIdleInterval>"
                                     "<DebugLocaleLabels>Yes</DebugLocaleLabels>"));
    EXPECT_THAT(Intervals(), ElementsAre(70, 80, 90));
    EXPECT_TRUE(Manager().DebugLocaleLabels());
}

void StartWithoutConfiguration()
{
    const CTemporaryDirectory directory;
    directory.WriteRequiredFiles();
    EXPECT_TRUE(SetUpIn(directory.Path()));
    EXPECT_THAT(Intervals(), ElementsAre(5000, 50, 100));
    EXPECT_FALSE(Manager().DebugLocaleLabels());
}

TEST_F(StartupTest, TheTimersHaveTheConfiguredIntervalsOrTheDefaults)
{
    EXPECT_EXIT(RunToEnd(StartWithAConfiguration), ExitedWithCode(0), "");
    EXPECT_EXIT(RunToEnd(StartWithoutConfiguration), ExitedWithCode(0),
                HasSubstr("3 (CConfigManager) : Unable to load GfxConfig.xml"));
}

TEST_F(StartupTest, WithoutAThemeTheProcessEnds)
{
    EXPECT_DEATH(static_cast<void>(SetUpIn("nonexistent/")), "assertion failed: currentNode");
}

int s_frames = 0;

void StartWithIntervalsThatAreNone()
{
    const CTemporaryDirectory directory;
    EXPECT_TRUE(SetUpWith(directory, "<CleanupInterval>0</CleanupInterval><InputIdleInterval>-5</InputIdleInterval>"
                                     "<WidgetIdleInterval>0</WidgetIdleInterval>"));
    const auto onFrame = [](ClutterStage*, gpointer)
    {
        if (++s_frames == 5)
        {
            clutter_main_quit();
        }
    };
    g_signal_connect(Manager().GetStage(), "after-paint", G_CALLBACK(+onFrame), nullptr);
    auto* handler = Core::Functor<void>::Make([] { clutter_actor_queue_redraw(Manager().GetStage()); });
    Manager().AddIdleHandler(handler);
    Manager().StartMainLoop();
    EXPECT_GE(s_frames, 5);
    Manager().RemoveIdleHandler(handler);
    Manager().Idle();
}

TEST_F(StartupTest, IntervalsOfNothingLeaveTimeForPainting)
{
    EXPECT_EXIT(RunToEnd(StartWithIntervalsThatAreNone), ExitedWithCode(0), "");
}

constexpr std::int64_t k_millisecond = 1'000'000;
std::int64_t s_now = 1000 * k_millisecond;

/// A clock that moves on by a millisecond whenever it is read, whatever the real time: each tick of the widget timer
/// reads it.
std::int64_t ReadingClock()
{
    s_now += k_millisecond;
    return s_now;
}

class CIdleBlock : public CBlock
{
public:
    CIdleBlock() : CBlock("idle", 0, 0, 10, 10, Gfx::Colours::Red) {}
    void Idle() override { ++idles; }

    std::size_t idles = 0;
};

bool ListensToKeys()
{
    const guint signal = g_signal_lookup("key-release-event", CLUTTER_TYPE_STAGE);
    return g_signal_has_handler_pending(Manager().GetStage(), signal, 0, FALSE) != FALSE;
}

void RunTheMainLoop()
{
    const CTemporaryDirectory directory;
    Core::Time::SetSource(ReadingClock);
    EXPECT_TRUE(
        SetUpWith(directory, "<CleanupInterval>10</CleanupInterval><WidgetIdleInterval>5</WidgetIdleInterval>"));
    EXPECT_FALSE(ListensToKeys());
    CWidgetManager& widgets = StaticSingleton<CWidgetManager>::ref();
    const Core::SharedPtr<CIdleBlock> block(new CIdleBlock);
    widgets.AddWidget(block);
    GfxTest::WidgetPtr destroyed(new CBlock("destroyed", 0, 0, 10, 10, Gfx::Colours::Red));
    gpointer garbage = destroyed->GetActor();
    g_object_add_weak_pointer(G_OBJECT(garbage), &garbage);
    widgets.AddWidget(destroyed);
    widgets.DestroyWidget(destroyed.Get());
    destroyed.Reset();
    EXPECT_NE(garbage, nullptr);

    std::vector<std::int64_t> begins;
    std::vector<std::int64_t> ends;
    const auto onIdle = [&]
    {
        EXPECT_EQ(block->idles, begins.size()) << "the widgets' turn comes after the handlers'";
        begins.push_back(s_now);
        s_now += begins.size() == 2 ? 100 * k_millisecond : 0;
        ends.push_back(s_now);
        if (begins.size() >= 4 && garbage == nullptr)
        {
            EXPECT_TRUE(clutter_actor_is_visible(Manager().GetStage()));
            EXPECT_TRUE(ListensToKeys());
            clutter_main_quit();
        }
    };
    auto* handler = Core::Functor<void>::Make(onIdle);
    Manager().AddIdleHandler(handler);
    ends.push_back(s_now - 20 * k_millisecond);
    Manager().StartMainLoop();
    for (std::size_t i = 0; i < begins.size(); ++i)
    {
        // The first tick finds the time come; each deadline takes a reading of its own, 20 ms after which it lies.
        EXPECT_EQ(begins[i] - ends[i], 21 * k_millisecond) << i;
    }
    EXPECT_EQ(block->idles, begins.size());
    widgets.DestroyWidget(block.Get());
    Manager().RemoveIdleHandler(handler);
    Manager().Idle();
}

TEST_F(StartupTest, TheMainLoopGivesIdleTimeEvery20MillisecondsAndCollectsGarbage)
{
    EXPECT_EXIT(RunToEnd(RunTheMainLoop), ExitedWithCode(0), "");
}

} // namespace
