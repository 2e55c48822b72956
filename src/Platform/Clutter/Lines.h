#pragma once

#include "Platform/Clutter/Clutter.h"

#include <cstddef>
#include <span>

namespace Platform
{

/// Straight lines of one colour, kept where the driver draws them from, all by one call.
class CLines
{
public:
    struct SPosition
    {
        float x;
        float y;
    };

    CLines() = default;
    ~CLines();
    CLines(const CLines&) = delete;
    CLines& operator=(const CLines&) = delete;

    /// Takes the lines that are to be drawn from now on: two positions for each, in the coordinates of whoever paints.
    /// A whole number is the edge of a pixel. To be called while something paints.
    void Set(std::span<const SPosition> a_ends);

    /// a_colour isn't premultiplied. a_width is in pixels; what isn't above 0 counts as 1, and the driver has a limit.
    /// To be called while something paints.
    void Draw(const ClutterColor& a_colour, float a_width) const;

private:
    void Reserve(std::size_t a_count);

    CoglAttributeBuffer* m_buffer = nullptr;
    CoglPrimitive* m_primitive = nullptr;
    std::size_t m_capacity = 0;
    std::size_t m_count = 0;
};

} // namespace Platform
