#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <functional>

namespace GfxTest
{

/// Runs a_situation and ends the process, with 0 if nothing in it failed: for what happens once in a process, such as
/// start-up. To be used in a death test of the "threadsafe" style,
///
///     EXPECT_EXIT(RunToEnd(StartOrdinarily), testing::ExitedWithCode(0), "");
///
/// whose process prints no failures itself: they go to standard error, which the test shows if it fails.
[[noreturn]] inline void RunToEnd(const std::function<void()>& a_situation)
{
    alarm(60);
    a_situation();
    const testing::TestResult& result = *testing::UnitTest::GetInstance()->current_test_info()->result();
    for (int i = 0; i < result.total_part_count(); ++i)
    {
        const testing::TestPartResult& part = result.GetTestPartResult(i);
        if (part.failed())
        {
            std::fprintf(stderr, "line %d: %s\n", part.line_number(), part.message());
        }
    }
    std::exit(result.Failed() ? 1 : 0);
}

/// Each of its tests starts the library in processes of its own.
class COwnProcessTest : public testing::Test
{
protected:
    COwnProcessTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

} // namespace GfxTest
