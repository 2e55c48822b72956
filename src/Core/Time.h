#pragma once

#include "Core/Api.h"

#include <compare>
#include <cstdint>

namespace Core
{

/// A point in time, in seconds since 1970.
///
/// The clock is the system's time at its first reading, plus the steady time that has passed since: log lines can be
/// read as dates, and setting the system's clock never moves a deadline. Results stay within what 64 bits of
/// nanoseconds can hold, from 1970 on.
class GFX_API Time
{
public:
    /// Returns nanoseconds since 1970.
    using Source = std::int64_t (*)();

    /// The earliest time there is.
    constexpr Time() = default;

    explicit Time(long a_seconds);

    /// The points in time so far from now; a negative distance leads into the past.
    [[nodiscard]] static Time Timer(int a_seconds);
    [[nodiscard]] static Time TimerMs(int a_milliseconds);

    /// Replaces the clock, for tests and simulations; null brings the real one back.
    static void SetSource(Source a_source);

    /// Sets this object to the current time.
    Time& Now();

    /// Whether a_now has reached this point in time.
    [[nodiscard]] bool Expired(const Time& a_now) const { return a_now >= *this; }

    [[nodiscard]] double AsDouble() const;

    [[nodiscard]] constexpr auto operator<=>(const Time& a_other) const = default;

private:
    [[nodiscard]] Time After(std::int64_t a_nanoseconds) const;

    std::int64_t m_nanoseconds = 0;
};

} // namespace Core
