#pragma once

#include "support/StageTest.h"

#include <cstdint>
#include <string>
#include <vector>

namespace GfxTest
{

/// Decodes a PNG file that has 8 bits for each of red, green and blue, and neither alpha nor a palette. For anything
/// else the running test fails, and the picture has no pixels.
[[nodiscard]] CPicture DecodePng(const std::string& a_file);

/// A PNG file of pixels, rows from the top, that are written as they stand: a_colourType is libpng's (2 for red, green
/// and blue, 6 with alpha).
[[nodiscard]] std::string EncodePng(int a_width, int a_height, int a_colourType, int a_bitDepth,
                                    const std::vector<std::uint8_t>& a_pixels, bool a_interlaced = false);

} // namespace GfxTest
