#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace Gfx::Common
{

namespace detail
{

/// a_value, or the nearest int where it isn't one.
constexpr int Saturated(std::int64_t a_value)
{
    constexpr std::int64_t lowest = std::numeric_limits<int>::min();
    constexpr std::int64_t highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(a_value, lowest, highest));
}

/// a_factor * a_numerator / a_denominator towards zero, or 0 where there is nothing to divide by. The product of an int
/// and a difference of two fits.
constexpr std::int64_t Share(std::int64_t a_factor, std::int64_t a_numerator, std::int64_t a_denominator)
{
    return a_denominator != 0 ? a_factor * a_numerator / a_denominator : 0;
}

} // namespace detail

/// A point, or a distance, in whole pixels; y runs downwards. What it is relative to (stage, parent, widget), the
/// operation that takes or gives it says.
class CPoint
{
public:
    constexpr CPoint() = default;
    constexpr CPoint(int a_x, int a_y) : m_x(a_x), m_y(a_y) {}
    constexpr CPoint(const CPoint& a_other) = default;

    /// Returns a copy of what was assigned, not a reference to this point: `(a = b).X(1)` leaves a equal to b.
    // NOLINTNEXTLINE(misc-unconventional-assign-operator,cppcoreguidelines-c-copy-assignment-signature)
    constexpr CPoint operator=(const CPoint& a_other)
    {
        m_x = a_other.m_x;
        m_y = a_other.m_y;
        return a_other;
    }

    constexpr bool operator==(const CPoint& a_other) const = default;

    /// Sum and difference stop at the limits of int instead of overflowing.
    constexpr CPoint operator-(const CPoint& a_other) const
    {
        return {detail::Saturated(std::int64_t{m_x} - a_other.m_x), detail::Saturated(std::int64_t{m_y} - a_other.m_y)};
    }
    constexpr CPoint operator+(const CPoint& a_other) const
    {
        return {detail::Saturated(std::int64_t{m_x} + a_other.m_x), detail::Saturated(std::int64_t{m_y} + a_other.m_y)};
    }

    /// Whether the point lies between a_topLeft and the edges a_right and a_bottom. The column x = a_right is outside
    /// but the row y = a_bottom is inside; the hit test of widgets depends on it.
    [[nodiscard]] constexpr bool InBoundingBox(const CPoint& a_topLeft, int a_right, int a_bottom) const
    {
        return m_x >= a_topLeft.m_x && m_y >= a_topLeft.m_y && m_x < a_right && m_y <= a_bottom;
    }

    [[nodiscard]] constexpr int X() const { return m_x; }
    constexpr void X(int a_x) { m_x = a_x; }

    [[nodiscard]] constexpr int Y() const { return m_y; }
    constexpr void Y(int a_y) { m_y = a_y; }

private:
    int m_x = 0;
    int m_y = 0;
};

} // namespace Gfx::Common
