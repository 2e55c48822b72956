#pragma once

#include <string>

namespace Gfx::Managers::detail
{

/// No console's graphics chip takes more, and a file of a few bytes can claim any size.
constexpr int k_longestSide = 8192;

/// Loads an image file as a Cogl texture, which the caller owns. Null, with one log line from a_logSource that names
/// the file and the reason, if that fails. Images of more than k_longestSide pixels a side are refused unread.
[[nodiscard]] void* LoadImageFile(const std::string& a_path, const std::string& a_logSource);

} // namespace Gfx::Managers::detail
