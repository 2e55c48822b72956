#pragma once

#include "Platform/Clutter/Clutter.h"

namespace Platform
{

/// Tells Clutter what the toolkit needs, where the environment doesn't say otherwise: Cogl's "gl" driver, since the 3D
/// side is fixed-function OpenGL. Writes to the environment, so no thread may run yet that reads it.
void PrepareClutter();

/// Brings Clutter up, after PrepareClutter: with the "x11" back end on a machine with an X display, "eglnative" on a
/// bare console with a graphics card, where the environment doesn't say otherwise.
///
/// False, with *a_error set (the caller frees it), where there is no display, or no OpenGL that can draw on it; the
/// process can go on. a_argc and a_argv lose the options that Clutter knows.
[[nodiscard]] bool StartClutter(int* a_argc, char*** a_argv, GError** a_error);

} // namespace Platform
