#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace Platform
{

/// Pixels of one to four bytes in memory, rows from the top without padding, on their way to a texture.
class CImage
{
public:
    /// Its pixels are anything at first, and memory that nothing is written to isn't taken. Without pixels if there is
    /// no memory for them.
    CImage(int a_width, int a_height, int a_bytesPerPixel);
    /// Copies the pixels; a row stride of 0 means rows without padding.
    CImage(int a_width, int a_height, int a_bytesPerPixel, const std::uint8_t* a_pixels, int a_rowStride);

    [[nodiscard]] int Width() const { return m_width; }
    [[nodiscard]] int Height() const { return m_height; }
    [[nodiscard]] int BytesPerPixel() const { return m_bytesPerPixel; }
    [[nodiscard]] int RowStride() const { return m_width * m_bytesPerPixel; }
    [[nodiscard]] bool HasPixels() const { return m_pixels != nullptr; }
    [[nodiscard]] std::uint8_t* Pixels() { return m_pixels.get(); }
    [[nodiscard]] const std::uint8_t* Pixels() const { return m_pixels.get(); }

    /// Multiplies the colours of four-byte pixels by their alpha, the last byte. Others stay as they are.
    void Premultiply();

    /// Makes the next level of a mipmap of it: half as wide and high, rounded down, and at least one pixel; each pixel
    /// is the mean of those that it covers. False if it is a single pixel.
    bool Halve();

private:
    [[nodiscard]] std::size_t Size() const
    {
        return static_cast<std::size_t>(RowStride()) * static_cast<std::size_t>(m_height);
    }

    int m_width;
    int m_height;
    int m_bytesPerPixel;
    std::unique_ptr<std::uint8_t[]> m_pixels;
};

/// What is said of an image with a side that is too long.
[[nodiscard]] std::string TooLarge(int a_width, int a_height);

} // namespace Platform
