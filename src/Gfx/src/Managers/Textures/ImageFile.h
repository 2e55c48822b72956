#pragma once

#include <string>

namespace Gfx::Managers::detail
{

/// Loads an image file as a Cogl texture, which the caller owns. Null, with one log line from a_logSource that names
/// the file and the reason, if that fails. Images of more than 8192 pixels a side are refused unread: no console's
/// graphics chip takes them, and a file of a few bytes can claim any size.
[[nodiscard]] void* LoadImageFile(const std::string& a_path, const std::string& a_logSource);

} // namespace Gfx::Managers::detail
