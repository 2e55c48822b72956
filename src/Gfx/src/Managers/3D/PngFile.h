#pragma once

#include <cstdlib>
#include <memory>
#include <string>

namespace Gfx::Managers::detail
{

/// The pixels of an image as OpenGL takes them: rows from the bottom up, without gaps.
struct SPixels
{
    struct SFree
    {
        void operator()(unsigned char* a_memory) const { std::free(a_memory); }
    };

    std::unique_ptr<unsigned char[], SFree> data;
    int width = 0;
    int height = 0;
    /// Four bytes a pixel, and not three.
    bool alpha = false;
};

/// Reads a PNG file of 8 bits for each of red, green and blue, with alpha or without. False, with a line on standard
/// error or, for a damaged file, in the log, if that fails. Images of more than 8192 pixels a side count as damaged.
[[nodiscard]] bool ReadPngFile(const std::string& a_path, SPixels& a_pixels);

} // namespace Gfx::Managers::detail
