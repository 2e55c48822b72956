#pragma once

#include "Core/Api.h"

#include <string>
#include <string_view>
#include <vector>

namespace Core::Utilities
{

/// Whether there is something at a_path that isn't a folder; false if it can't be reached.
[[nodiscard]] GFX_API bool FileExists(const std::string& a_path);

/// Splits a_text at each a_delimiter. 1, with the pieces in a_result in place of what it held, if a_text has the
/// delimiter in it; otherwise, or if the delimiter is empty, 0, and a_result is left alone. a_dropEmpty is 0 to keep
/// empty pieces; any other value leaves them out.
[[nodiscard]] GFX_API int SplitString(std::string_view a_text, std::string_view a_delimiter,
                                      std::vector<std::string>& a_result, int a_dropEmpty);

/// A to Z in lower case; all other bytes as they are.
[[nodiscard]] GFX_API std::string StringToLower(std::string a_text);

/// a_text without the white space of the C locale at its ends.
[[nodiscard]] GFX_API std::string trim(std::string_view a_text);

} // namespace Core::Utilities
