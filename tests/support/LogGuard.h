#pragma once

#include <string>

namespace GfxTest
{

/// Lets log lines, and warnings of GLib, that contain a_part pass in the running test; without, each one of level 2 or
/// above fails it. A part that no line contains by the end of the test fails it too.
void ExpectLog(const std::string& a_part);

/// How many lines of the running test so far contain a_part; messages that the guard lets pass anyway included.
int CountLogs(const std::string& a_part);

/// Watches all tests of this process.
void InstallLogGuard();

} // namespace GfxTest
