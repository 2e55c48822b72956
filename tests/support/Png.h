#pragma once

#include "support/StageTest.h"

#include <string>

namespace GfxTest
{

/// Decodes a PNG file that has 8 bits for each of red, green and blue, and neither alpha nor a palette. For anything
/// else the running test fails, and the picture has no pixels.
[[nodiscard]] CPicture DecodePng(const std::string& a_file);

} // namespace GfxTest
