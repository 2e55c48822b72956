#include "support/LogGuard.h"

#include "Core/Logging/Logger.h"

#include <algorithm>
#include <glib.h>
#include <gtest/gtest.h>
#include <vector>

namespace GfxTest
{

namespace
{

struct SExpectation
{
    std::string part;
    bool met = false;
};

struct SLine
{
    std::string text;
    /// A progress message of the library, or below the level that counts.
    bool harmless = false;
};

std::vector<SExpectation> s_expectations;
std::vector<SLine> s_lines;

bool Contains(const std::string& a_text, const std::string& a_part)
{
    return a_text.find(a_part) != std::string::npos;
}

void OnLog(Core::Logging::ELogEventLevel a_level, const std::string& a_source, const std::string& a_message)
{
    const bool progress = a_source == "Gfx" && a_message.rfind("Initialising", 0) == 0;
    s_lines.push_back({a_source + ": " + a_message, progress || a_level < Core::Logging::elSkipped});
}

void OnGlibLog(const gchar* a_domain, GLogLevelFlags a_level, const gchar* a_message, gpointer)
{
    const int severe = G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING;
    s_lines.push_back({std::string(a_domain != nullptr ? a_domain : "") + ": " + (a_message != nullptr ? a_message : ""),
                       (a_level & severe) == 0});
}

class CLogGuard : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo&) override
    {
        s_expectations.clear();
        s_lines.clear();
    }

    void OnTestEnd(const testing::TestInfo&) override
    {
        for (const SLine& line : s_lines)
        {
            bool expected = line.harmless;
            for (SExpectation& expectation : s_expectations)
            {
                if (Contains(line.text, expectation.part))
                {
                    expectation.met = true;
                    expected = true;
                }
            }
            if (!expected)
            {
                ADD_FAILURE() << "unexpected log line: " << line.text;
            }
        }
        for (const SExpectation& expectation : s_expectations)
        {
            EXPECT_TRUE(expectation.met) << "no log line has: " << expectation.part;
        }
    }
};

} // namespace

void ExpectLog(const std::string& a_part)
{
    s_expectations.push_back({a_part});
}

int CountLogs(const std::string& a_part)
{
    return static_cast<int>(std::count_if(s_lines.begin(), s_lines.end(),
                                          [&a_part](const SLine& a_line) { return Contains(a_line.text, a_part); }));
}

void InstallLogGuard()
{
    Core::Patterns::StaticSingleton<Core::Logging::CLogger>::ref().SetObserver(OnLog);
    g_log_set_default_handler(OnGlibLog, nullptr);
    testing::UnitTest::GetInstance()->listeners().Append(new CLogGuard);
}

} // namespace GfxTest
