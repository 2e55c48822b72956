#include "Core/Logging/Logger.h"

#include "Core/Time.h"
#include "support/LogGuard.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

using namespace Core::Logging;

struct SLogged
{
    int lines = 0;
    ELogEventLevel level = elAll;
    std::string source;
    std::string message;
};

SLogged s_logged;

class LoggerTest : public testing::Test
{
protected:
    LoggerTest()
    {
        s_logged = {};
        m_logger.SetObserver(
            [](ELogEventLevel a_level, const std::string& a_source, const std::string& a_message) {
                s_logged = {s_logged.lines + 1, a_level, a_source, a_message};
            });
        Core::Time::SetSource([] { return std::int64_t{1'500'000'000'250'000'000}; });
        testing::internal::CaptureStderr();
    }

    ~LoggerTest() override
    {
        if (!m_taken)
        {
            Printed();
        }
        m_logger.Configure(elAll, elSkipped, false, "");
        m_logger.SetObserver(m_guard);
        Core::Time::SetSource(nullptr);
    }

    std::string Printed()
    {
        m_taken = true;
        return testing::internal::GetCapturedStderr();
    }

    CLogger& m_logger = Core::Patterns::StaticSingleton<CLogger>::ref();
    CLogger::Observer m_guard = m_logger.GetObserver();
    bool m_taken = false;
};

TEST_F(LoggerTest, ALineHasTimeLevelSourceAndMessage)
{
    const std::string name = "Button";
    m_logger.Log(elSkipped, "CWidget", "%s %d of %.1f%c %s", name, 7, 2.5, '!', "end");
    m_logger.Log(ELogEventLevel{3}, "Gfx", "100%% done");
    m_logger.Log(elMessage, "Gfx", "level %d", elSkipped);
    m_logger.Log(elMessage, "Gfx", "progress", std::string());
    EXPECT_EQ(Printed(), "1500000000.250000. 2 (CWidget) : Button 7 of 2.5! end\n"
                         "1500000000.250000. 3 (Gfx) : 100% done\n"
                         "1500000000.250000. 3 (Gfx) : level 2\n"
                         "1500000000.250000. 3 (Gfx) : progress\n");
    EXPECT_EQ(s_logged.lines, 4);
    EXPECT_EQ(s_logged.level, elMessage);
    EXPECT_EQ(s_logged.source, "Gfx");
    EXPECT_EQ(s_logged.message, "progress");
}

TEST_F(LoggerTest, UnderTheConsoleLevelTheMessageIsFormattedAndNotPrinted)
{
    m_logger.Configure(elMessage, elAll, true, "name");
    int formatted = 0;
    m_logger.Log(elSkipped, "CWidget", "12345%n", &formatted);
    EXPECT_EQ(formatted, 5);
    EXPECT_EQ(Printed(), "");
    EXPECT_EQ(s_logged.lines, 0);
}

TEST_F(LoggerTest, ALongMessageIsCutBetweenCharacters)
{
    struct SCase
    {
        std::string text;
        std::string expected;
    };
    const std::string fit(2039, 'x');
    const std::string lessOne(2038, 'x');
    const std::string lessThree(2036, 'x');
    const SCase cases[] = {
        {fit, fit},
        {fit + "y", fit},
        {lessOne + "\u00E4", lessOne},
        {lessOne + "\u20AC", lessOne},
        {lessThree + "\u20AC", lessThree + "\u20AC"},
        {lessThree + "\u20ACy", lessThree + "\u20AC"},
        {lessThree + "\U0001F600", lessThree},
        {std::string(2000, 'x') + std::string(100, '\x80'), std::string(2000, 'x') + std::string(39, '\x80')},
    };
    for (const SCase& example : cases)
    {
        m_logger.Log(elMessage, "Gfx", "%s", example.text);
        EXPECT_EQ(s_logged.message, example.expected);
    }
}

} // namespace
