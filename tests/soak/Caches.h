#pragma once

namespace Soak
{

// What libraries keep for good, once it has been used. It is made to be there at once, so that it isn't taken for
// growth.

/// The numbers by which Clutter finds the actor under the pointer: as many as there ever were actors on the stage.
void FillActorNumbers();

/// The pictures of the letters that keys may write, in all fonts that are on the stage; hidden ones, too.
void FillGlyphs();

} // namespace Soak
