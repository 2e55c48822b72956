#pragma once

#include "demo/Pictures.h"

#include <functional>
#include <string>

/// How both demos begin.
namespace Demo
{

/// Sets the console up with a data directory and a title for its window; false if that fails.
[[nodiscard]] bool SetUpConsole(const std::string& a_data, const std::string& a_title);

/// Shows the stage and writes the picture that is asked for, or by a_writeAll those of a folder; the program's result.
[[nodiscard]] int WritePictures(const SPictureOptions& a_options,
                                const std::function<bool(const std::string& a_folder)>& a_writeAll);

} // namespace Demo
