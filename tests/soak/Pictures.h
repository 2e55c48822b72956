#pragma once

#include "support/StageTest.h"

#include <cstddef>
#include <string>

namespace Soak
{

/// Writes a PNG file into the folder for pictures.
void Write(const GfxTest::CPicture& a_picture, const std::string& a_name);

/// Fails, with both pictures, if they differ.
void Compare(const GfxTest::CPicture& a_picture, const GfxTest::CPicture& a_expected, const std::string& a_what);

/// A number that tells pictures apart.
[[nodiscard]] std::size_t Look(const GfxTest::CPicture& a_picture);

} // namespace Soak
