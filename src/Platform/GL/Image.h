#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Platform
{

/// Pixels of one to four bytes in memory, rows from the top without padding, on their way to a texture.
class CImage
{
public:
    /// Copies the pixels; a row stride of 0 means rows without padding.
    CImage(int a_width, int a_height, int a_bytesPerPixel, const std::uint8_t* a_pixels, int a_rowStride);

    [[nodiscard]] int Width() const { return m_width; }
    [[nodiscard]] int Height() const { return m_height; }
    [[nodiscard]] int RowStride() const { return m_width * m_bytesPerPixel; }
    [[nodiscard]] const std::uint8_t* Pixels() const { return m_pixels.data(); }

    /// Multiplies the colours of four-byte pixels by their alpha, the last byte.
    void Premultiply();

    /// Makes the next level of a mipmap of it: half as wide and high, rounded down, and at least one pixel; each pixel
    /// is the mean of those that it covers. False if it is a single pixel.
    bool Halve();

private:
    int m_width;
    int m_height;
    int m_bytesPerPixel;
    std::vector<std::uint8_t> m_pixels;
};

} // namespace Platform
