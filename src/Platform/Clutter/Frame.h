#pragma once

#include "Platform/Clutter/Clutter.h"

namespace Platform
{

/// Lays out and paints the whole stage, at once and without showing it, so that the buffer which glReadPixels reads
/// holds a complete, current frame; and resets how OpenGL packs pixels that are read. Works before the first frame
/// has been shown, too. A stage that isn't shown has nothing on it but its colour.
void PaintWholeStage(ClutterStage* a_stage);

} // namespace Platform
