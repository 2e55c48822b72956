#pragma once

namespace Gfx
{

/// A texture of the 3D side.
struct STexture
{
    /// OpenGL's name of it, a GLuint.
    unsigned int id = 0;
    /// Its pixels have an alpha channel.
    bool alpha = false;
};

} // namespace Gfx
