#pragma once

#include <string>

/// Watches the log lines of the tests: a line of level 2 or above, and a warning or critical message of GLib, is a
/// failure of the test that runs, unless the test expects it.
namespace GfxTest
{

/// Starts the watch; called once, by TestMain.cpp.
void InstallLogGuard();

/// Allows all lines of the running test, before and after this call, that contain a_text, and demands one at least.
/// What is searched is "<level> (<source>) : <message>"; GLib's lines have its name of the level and their domain.
void ExpectLog(const std::string& a_text);

/// How many lines of any level the running test has logged so far that contain a_text.
[[nodiscard]] int CountLogs(const std::string& a_text);

} // namespace GfxTest
