#include "Platform/GL/Image.h"

#include <algorithm>
#include <new>

namespace Platform
{

CImage::CImage(int a_width, int a_height, int a_bytesPerPixel)
    : m_width(a_width)
    , m_height(a_height)
    , m_bytesPerPixel(a_bytesPerPixel)
    , m_pixels(new (std::nothrow) std::uint8_t[Size()])
{
}

CImage::CImage(int a_width, int a_height, int a_bytesPerPixel, const std::uint8_t* a_pixels, int a_rowStride)
    : CImage(a_width, a_height, a_bytesPerPixel)
{
    const auto length = static_cast<std::size_t>(RowStride());
    const auto stride = a_rowStride != 0 ? static_cast<std::size_t>(a_rowStride) : length;
    for (std::size_t row = 0; HasPixels() && row < static_cast<std::size_t>(m_height); ++row)
    {
        std::copy_n(a_pixels + row * stride, length, m_pixels.get() + row * length);
    }
}

void CImage::Premultiply()
{
    if (m_bytesPerPixel != 4 || !HasPixels())
    {
        return;
    }
    const std::size_t size = Size();
    for (std::size_t i = 0; i + 3 < size; i += 4)
    {
        const unsigned alpha = m_pixels[i + 3];
        if (alpha == 255)
        {
            continue;
        }
        for (std::size_t component = i; component < i + 3; ++component)
        {
            // A division by 255, rounded to nearest, exactly as Cogl does it.
            const unsigned product = m_pixels[component] * alpha + 128;
            m_pixels[component] = static_cast<std::uint8_t>(((product >> 8U) + product) >> 8U);
        }
    }
}

bool CImage::Halve()
{
    if (m_width <= 1 && m_height <= 1)
    {
        return false;
    }
    const auto step = static_cast<std::size_t>(m_bytesPerPixel);
    // Of a side of one pixel, that pixel counts twice.
    const std::size_t right = m_width > 1 ? step : 0;
    const std::size_t below = m_height > 1 ? static_cast<std::size_t>(RowStride()) : 0;
    const auto stride = static_cast<std::size_t>(RowStride());
    m_width = std::max(m_width / 2, 1);
    m_height = std::max(m_height / 2, 1);
    // In place: what is written lies before all that is still to be read.
    std::uint8_t* target = m_pixels.get();
    for (std::size_t y = 0; y < static_cast<std::size_t>(m_height); ++y)
    {
        const std::uint8_t* source = m_pixels.get() + y * 2 * stride;
        for (std::size_t x = 0; x < static_cast<std::size_t>(m_width); ++x, source += 2 * step)
        {
            for (std::size_t component = 0; component < step; ++component)
            {
                const std::uint8_t* pixel = source + component;
                const unsigned sum = unsigned{pixel[0]} + pixel[right] + pixel[below] + pixel[right + below];
                *target++ = static_cast<std::uint8_t>((sum + 2) / 4);
            }
        }
    }
    return true;
}

std::string TooLarge(int a_width, int a_height)
{
    return "The image is too large (" + std::to_string(a_width) + " by " + std::to_string(a_height) + ")";
}

} // namespace Platform
