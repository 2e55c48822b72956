#include "support/LogGuard.h"

#include "Core/Logging/Logger.h"

#include <glib.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace GfxTest
{

namespace
{

struct SLine
{
    std::string text;
    bool mustBeExpected;
};

std::vector<SLine> s_lines;
std::vector<std::string> s_expected;

bool Contains(const SLine& a_line, const std::string& a_text)
{
    return a_line.text.find(a_text) != std::string::npos;
}

void Observe(Core::Logging::ELogEventLevel a_level, const std::string& a_source, const std::string& a_message)
{
    s_lines.push_back({std::to_string(static_cast<int>(a_level)) + " (" + a_source + ") : " + a_message,
                       a_level >= Core::Logging::elSkipped});
}

std::string Field(std::string_view a_key, const GLogField* a_fields, gsize a_count)
{
    const GLogField* field =
        std::find_if(a_fields, a_fields + a_count, [&](const GLogField& a_field) { return a_field.key == a_key; });
    if (field == a_fields + a_count)
    {
        return {};
    }
    const char* text = static_cast<const char*>(field->value);
    return field->length < 0 ? std::string(text) : std::string(text, static_cast<std::size_t>(field->length));
}

GLogWriterOutput Write(GLogLevelFlags a_level, const GLogField* a_fields, gsize a_count, gpointer a_data)
{
    const char* name = a_level & G_LOG_LEVEL_ERROR      ? "error"
                       : a_level & G_LOG_LEVEL_CRITICAL ? "critical"
                       : a_level & G_LOG_LEVEL_WARNING  ? "warning"
                                                        : "message";
    const bool isFault = (a_level & (G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING)) != 0;
    s_lines.push_back({std::string(name) + " (" + Field("GLIB_DOMAIN", a_fields, a_count) +
                           ") : " + Field("MESSAGE", a_fields, a_count),
                       isFault});
    return g_log_writer_default(a_level, a_fields, a_count, a_data);
}

class CLogGuard : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo&) override
    {
        s_lines.clear();
        s_expected.clear();
        Core::Patterns::StaticSingleton<Core::Logging::CLogger>::ref().SetObserver(Observe);
    }

    void OnTestEnd(const testing::TestInfo& a_test) override
    {
        for (const SLine& line : s_lines)
        {
            const bool isExpected = std::any_of(s_expected.begin(), s_expected.end(),
                                                [&](const std::string& a_text) { return Contains(line, a_text); });
            if (line.mustBeExpected && !isExpected)
            {
                ADD_FAILURE_AT(a_test.file(), a_test.line()) << "unexpected log line: " << line.text;
            }
        }
        for (const std::string& text : s_expected)
        {
            if (CountLogs(text) == 0 && !a_test.result()->Skipped())
            {
                ADD_FAILURE_AT(a_test.file(), a_test.line()) << "no log line has: " << text;
            }
        }
    }
};

} // namespace

void InstallLogGuard()
{
    g_log_set_writer_func(Write, nullptr, nullptr);
    testing::UnitTest::GetInstance()->listeners().Append(new CLogGuard);
}

void ExpectLog(const std::string& a_text)
{
    s_expected.push_back(a_text);
}

int CountLogs(const std::string& a_text)
{
    return static_cast<int>(
        std::count_if(s_lines.begin(), s_lines.end(), [&](const SLine& a_line) { return Contains(a_line, a_text); }));
}

} // namespace GfxTest
