#include "Core/Time.h"

#include <gtest/gtest.h>

#include <ctime>
#include <limits>

namespace
{

using Core::Time;

constexpr std::int64_t k_second = 1'000'000'000;
constexpr int k_most = std::numeric_limits<int>::max();

std::int64_t s_now = 0;

class TimeTest : public testing::Test
{
protected:
    TimeTest()
    {
        s_now = 1000 * k_second;
        Time::SetSource([] { return s_now; });
    }

    ~TimeTest() override { Time::SetSource(nullptr); }
};

TEST_F(TimeTest, ATimerExpiresWhenItsTimeIsReached)
{
    const Time timer = Time::TimerMs(20);
    EXPECT_FALSE(timer.Expired(Time().Now()));
    s_now += 20'000'000 - 1;
    EXPECT_FALSE(timer.Expired(Time().Now()));
    s_now += 1;
    EXPECT_TRUE(timer.Expired(Time().Now()));
    EXPECT_EQ(Time::Timer(2).AsDouble(), 1002.02);
    EXPECT_EQ(Time::TimerMs(-1500).AsDouble(), 998.52);
}

TEST_F(TimeTest, ZeroIsTheEarliestTimeAndHasAlwaysExpired)
{
    EXPECT_TRUE(Time(0).Expired(Time(0)));
    EXPECT_EQ(Time(0), Time());
    EXPECT_EQ(Time(-5), Time(0));
    s_now = 0;
    EXPECT_EQ(Time::Timer(-k_most), Time(0));
    s_now = -5;
    EXPECT_EQ(Time().Now(), Time(0));
}

TEST_F(TimeTest, TimesBeyondTheRangeStayAtItsEnd)
{
    s_now = std::numeric_limits<std::int64_t>::max() - 1;
    const Time latest = Time::Timer(k_most);
    EXPECT_GT(latest, Time().Now());
    EXPECT_EQ(latest, Time::TimerMs(k_most));
    EXPECT_GE(latest, Time(std::numeric_limits<long>::max()));
    EXPECT_NEAR(Time(std::numeric_limits<long>::max()).AsDouble(), 9.22e9, 1e8);
}

TEST_F(TimeTest, TheRealClockTellsSecondsSince1970AndNeverGoesBack)
{
    Time::SetSource(nullptr);
    const Time first = Time().Now();
    EXPECT_NEAR(first.AsDouble(), static_cast<double>(std::time(nullptr)), 60);
    EXPECT_TRUE(first.Expired(Time().Now()));
}

} // namespace
