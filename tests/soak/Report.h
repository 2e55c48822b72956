#pragma once

#include <string>
#include <vector>

/// What the soak says, and what it hears the program say.
namespace Soak
{

/// Takes the process's output streams away from what is tested, so that every line of it can be looked at, and prints
/// the last steps if the process crashes, ends by itself, or does nothing for three minutes.
void StartReport(unsigned long a_seed);

/// From now on the process may end.
void EndReport();

/// Prints a line where the output went before.
void Say(const std::string& a_line);

/// Enters a step into the ring of those that are printed with a failure.
void NoteStep(const std::string& a_step);

/// Prints a failure with the seed and the last steps, and ends the process with 1.
[[noreturn]] void Fail(const std::string& a_what);

/// Fails if anything was written since the last time that isn't in the list of what may be: the library's lines from
/// level 2 on, GLib's warnings, and what goes to the streams directly. While data is damaged, more may be.
void CheckOutput(bool a_isDamaged);

/// Where pictures of a failure go, with a separator at its end.
std::string& PictureFolder();

} // namespace Soak
