#include "Core/Time.h"

#include <algorithm>
#include <chrono>
#include <limits>

namespace Core
{

namespace
{

constexpr std::int64_t k_nanosecondsPerSecond = 1'000'000'000;
constexpr std::int64_t k_nanosecondsPerMillisecond = 1'000'000;
constexpr std::int64_t k_latest = std::numeric_limits<std::int64_t>::max();

template <typename Clock>
std::int64_t Read()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now().time_since_epoch()).count();
}

std::int64_t RealTime()
{
    static const std::int64_t start = Read<std::chrono::system_clock>() - Read<std::chrono::steady_clock>();
    return start + Read<std::chrono::steady_clock>();
}

Time::Source s_source = RealTime;

} // namespace

Time::Time(long a_seconds)
    : m_nanoseconds(std::clamp<std::int64_t>(a_seconds, 0, k_latest / k_nanosecondsPerSecond) * k_nanosecondsPerSecond)
{
}

Time Time::Timer(int a_seconds)
{
    return Time().Now().After(a_seconds * k_nanosecondsPerSecond);
}

Time Time::TimerMs(int a_milliseconds)
{
    return Time().Now().After(a_milliseconds * k_nanosecondsPerMillisecond);
}

void Time::SetSource(Source a_source)
{
    s_source = a_source ? a_source : RealTime;
}

Time& Time::Now()
{
    m_nanoseconds = std::max<std::int64_t>(s_source(), 0);
    return *this;
}

double Time::AsDouble() const
{
    return static_cast<double>(m_nanoseconds) / static_cast<double>(k_nanosecondsPerSecond);
}

Time Time::After(std::int64_t a_nanoseconds) const
{
    Time time;
    time.m_nanoseconds =
        a_nanoseconds > k_latest - m_nanoseconds ? k_latest : std::max<std::int64_t>(m_nanoseconds + a_nanoseconds, 0);
    return time;
}

} // namespace Core
