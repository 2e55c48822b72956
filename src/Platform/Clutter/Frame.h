#pragma once

#include "Platform/Clutter/Clutter.h"

namespace Platform
{

/// Gives the stage's window the stage's size now, where it would get it when it is shown. A driver may look at the size
/// when OpenGL is first used, as for a texture, and then not again before the first frame.
void SizeWindow(ClutterStage* a_stage);

/// Lays out and paints the whole stage, at once and without showing it, so that the buffer which glReadPixels reads
/// holds a complete, current frame; and resets how OpenGL packs pixels that are read. Works before the first frame
/// has been shown, too. A stage that isn't shown has nothing on it but its colour.
void PaintWholeStage(ClutterStage* a_stage);

} // namespace Platform
