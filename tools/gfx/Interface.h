#pragma once

#include "Options.h"

#include <string>
#include <vector>

namespace Tool
{

/// Makes the kind of element known that the toolkit leaves to its applications: "NumericEditBox".
void RegisterElements();

/// Brings the toolkit up on a data directory, with the theme and language that the options name; false, with a line of
/// why, if that can't be done. "all" isn't a name here. May be called once.
[[nodiscard]] bool StartInterface(const SOptions& a_options);

/// Reports a layout that isn't there.
[[nodiscard]] bool HasLayout(const std::string& a_id, const std::string& a_directory);

/// Puts a layout on the stage, and touches what the options say. A stage of a wizard, which only a program can enter,
/// is shown. False, with a line of why, if there is no such layout or nothing to touch.
[[nodiscard]] bool ShowLayout(const std::string& a_id, const SOptions& a_options);

/// "Main" if the options name no layout.
[[nodiscard]] std::vector<std::string> WantedLayouts(const SOptions& a_options);

/// All languages, the base language included.
[[nodiscard]] std::vector<std::string> AllLanguages();

/// Prints one line for each; how many they are.
std::size_t Print(const std::vector<std::string>& a_findings);

} // namespace Tool
