#pragma once

#include "Gfx/Common/Point.h"

#include <algorithm>
#include <cstdint>

namespace Gfx::Common
{

/// An axis-aligned box in whole pixels, kept as its left top corner and its size.
///
/// Right() and Bottom() lie one pixel past the last column and row that the box covers, and yet every test counts them
/// as inside: boxes that only touch do intersect, and a box without size contains its own corner.
///
/// Sizes may be negative; nothing checks them. Where an edge would lie beyond the limits of int, the tests still
/// compare the true edge, while Right() and Bottom() give the limit.
class CAABB
{
public:
    constexpr CAABB() = default;
    constexpr CAABB(int a_left, int a_top, int a_width, int a_height)
        : m_left(a_left), m_top(a_top), m_width(a_width), m_height(a_height)
    {
    }
    constexpr CAABB(const CAABB& a_other) = default;

    /// Returns a copy of what was assigned, not a reference to this box.
    // NOLINTNEXTLINE(misc-unconventional-assign-operator,cppcoreguidelines-c-copy-assignment-signature)
    constexpr CAABB operator=(const CAABB& a_other)
    {
        m_left = a_other.m_left;
        m_top = a_other.m_top;
        m_width = a_other.m_width;
        m_height = a_other.m_height;
        return a_other;
    }

    constexpr bool operator==(const CAABB& a_other) const = default;

    /// True also for boxes that have only an edge or a corner in common.
    [[nodiscard]] constexpr bool Intersects(const CAABB& a_other) const
    {
        // One negative distance makes the whole negative. Without branches, as a touch asks this of every widget.
        return ((a_other.TrueRight() - m_left) | (TrueRight() - a_other.m_left) | (a_other.TrueBottom() - m_top) |
                (TrueBottom() - a_other.m_top)) >= 0;
    }

    /// All four edges count as inside.
    [[nodiscard]] constexpr bool Contains(const CPoint& a_point) const { return Covers(a_point.X(), a_point.Y()); }

    /// Whether both the left top and the right bottom corner of a_other are inside.
    [[nodiscard]] constexpr bool Contains(const CAABB& a_other) const
    {
        return Covers(a_other.m_left, a_other.m_top) && Covers(a_other.TrueRight(), a_other.TrueBottom());
    }

    /// The overlap in square pixels: 0 for boxes that only touch, at most the largest int. An extent with a negative
    /// size counts as the same extent turned round.
    [[nodiscard]] constexpr int IntersectionArea(const CAABB& a_other) const
    {
        if (!Intersects(a_other))
        {
            return 0;
        }
        return detail::Saturated(Overlap(m_left, TrueRight(), a_other.m_left, a_other.TrueRight()) *
                                 Overlap(m_top, TrueBottom(), a_other.m_top, a_other.TrueBottom()));
    }

    /// Moves the box; Right() moves along.
    constexpr void Left(int a_left) { m_left = a_left; }
    [[nodiscard]] constexpr int Left() const { return m_left; }

    /// Moves the box; Bottom() moves along.
    constexpr void Top(int a_top) { m_top = a_top; }
    [[nodiscard]] constexpr int Top() const { return m_top; }

    /// Resizes the box and leaves Left() alone, so set the left edge first. Widths stop at the limits of int.
    constexpr void Right(int a_right) { m_width = detail::Saturated(std::int64_t{a_right} - m_left); }
    [[nodiscard]] constexpr int Right() const { return detail::Saturated(TrueRight()); }

    /// Resizes the box and leaves Top() alone, so set the top edge first. Heights stop at the limits of int.
    constexpr void Bottom(int a_bottom) { m_height = detail::Saturated(std::int64_t{a_bottom} - m_top); }
    [[nodiscard]] constexpr int Bottom() const { return detail::Saturated(TrueBottom()); }

    constexpr void Width(int a_width) { m_width = a_width; }
    [[nodiscard]] constexpr int Width() const { return m_width; }

    constexpr void Height(int a_height) { m_height = a_height; }
    [[nodiscard]] constexpr int Height() const { return m_height; }

private:
    [[nodiscard]] constexpr std::int64_t TrueRight() const { return std::int64_t{m_left} + m_width; }
    [[nodiscard]] constexpr std::int64_t TrueBottom() const { return std::int64_t{m_top} + m_height; }

    [[nodiscard]] constexpr bool Covers(std::int64_t a_x, std::int64_t a_y) const
    {
        return m_left <= a_x && a_x <= TrueRight() && m_top <= a_y && a_y <= TrueBottom();
    }

    /// The distance between the middle two of the four edges. For extents that intersect this is the length of the
    /// overlap, whichever way round they are, and below 2^31, so the product of two fits.
    [[nodiscard]] static constexpr std::int64_t Overlap(std::int64_t a_start, std::int64_t a_end,
                                                        std::int64_t a_otherStart, std::int64_t a_otherEnd)
    {
        return std::min(std::max(a_start, a_end), std::max(a_otherStart, a_otherEnd)) -
               std::max(std::min(a_start, a_end), std::min(a_otherStart, a_otherEnd));
    }

    int m_left = 0;
    int m_top = 0;
    int m_width = 0;
    int m_height = 0;
};

} // namespace Gfx::Common
