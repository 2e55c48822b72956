#include "Managers/Textures/TexturedElement.h"

#include "Platform/Clutter/Clutter.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace Gfx::Managers
{

namespace
{

constexpr std::size_t k_lines = 4;

/// What fixed point can tell; controls add borders up without fear.
constexpr int k_widestBorder = 32767;

using Lines = std::array<CoglFixed, k_lines>;

/// A position in whole pixels as 16.16 fixed point, or the nearest that it can tell.
CoglFixed Fixed(std::int64_t a_pixels)
{
    constexpr std::int64_t furthest = 32767;
    return static_cast<CoglFixed>(std::clamp(a_pixels, -furthest - 1, furthest) * 65536);
}

/// The four lines of a nine-piece grid along one axis of the target.
Lines TargetLines(int a_start, int a_size, int a_firstBorder, int a_lastBorder)
{
    const std::int64_t start = a_start;
    const std::int64_t end = start + a_size;
    return {Fixed(start), Fixed(start + a_firstBorder), Fixed(end - a_lastBorder), Fixed(end)};
}

/// The same on the page, as parts of its size.
Lines SourceLines(float a_start, float a_size, int a_firstBorder, int a_lastBorder, float a_pageSize)
{
    const auto first = static_cast<float>(a_firstBorder);
    const auto last = static_cast<float>(a_lastBorder);
    return {clutter_double_to_fixed(a_start / a_pageSize), clutter_double_to_fixed((first + a_start) / a_pageSize),
            clutter_double_to_fixed((a_start + a_size - last) / a_pageSize),
            clutter_double_to_fixed((a_start + a_size) / a_pageSize)};
}

} // namespace

CTexturedElement::CTexturedElement(int a_left, int a_top, int a_width, int a_height, int a_pageWidth, int a_pageHeight)
    : m_left(static_cast<float>(a_left))
    , m_top(static_cast<float>(a_top))
    , m_width(static_cast<float>(a_width))
    , m_height(static_cast<float>(a_height))
    , m_pageWidth(static_cast<float>(a_pageWidth))
    , m_pageHeight(static_cast<float>(a_pageHeight))
{
}

CSimpleElement::CSimpleElement(int a_left, int a_top, int a_width, int a_height, int a_pageWidth, int a_pageHeight,
                               int a_border)
    : CTexturedElement(a_left, a_top, a_width, a_height, a_pageWidth, a_pageHeight)
{
    CSimpleElement::SetBorders(a_border, a_border, a_border, a_border);
}

void CSimpleElement::Generate(int a_x, int a_y, int a_width, int a_height, std::vector<STexturedQuad>& a_quads) const
{
    const Lines x = TargetLines(a_x, a_width, m_leftBorder, m_rightBorder);
    const Lines y = TargetLines(a_y, a_height, m_topBorder, m_bottomBorder);
    const Lines s = SourceLines(m_left, m_width, m_leftBorder, m_rightBorder, m_pageWidth);
    const Lines r = SourceLines(m_top, m_height, m_topBorder, m_bottomBorder, m_pageHeight);
    a_quads.clear();
    if (m_topBorder == 0 && m_bottomBorder == 0 && m_leftBorder == 0 && m_rightBorder == 0)
    {
        a_quads.push_back({x[0], y[0], x[3], y[3], s[0], r[0], s[3], r[3]});
        return;
    }
    a_quads.reserve((k_lines - 1) * (k_lines - 1));
    for (std::size_t row = 0; row + 1 < k_lines; ++row)
    {
        for (std::size_t column = 0; column + 1 < k_lines; ++column)
        {
            a_quads.push_back(
                {x[column], y[row], x[column + 1], y[row + 1], s[column], r[row], s[column + 1], r[row + 1]});
        }
    }
}

int CSimpleElement::GetElementMargin(Margins::EMargin a_margin) const
{
    switch (a_margin)
    {
    case Margins::Left: return m_leftBorder;
    case Margins::Right: return m_rightBorder;
    case Margins::Bottom: return m_bottomBorder;
    default: return m_topBorder;
    }
}

void CSimpleElement::SetBorders(int a_top, int a_bottom, int a_left, int a_right)
{
    m_topBorder = std::clamp(a_top, -k_widestBorder, k_widestBorder);
    m_bottomBorder = std::clamp(a_bottom, -k_widestBorder, k_widestBorder);
    m_leftBorder = std::clamp(a_left, -k_widestBorder, k_widestBorder);
    m_rightBorder = std::clamp(a_right, -k_widestBorder, k_widestBorder);
}

} // namespace Gfx::Managers
