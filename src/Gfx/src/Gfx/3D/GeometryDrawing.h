#pragma once

#include "Gfx/Common/Geometry.h"
#include "Platform/GL/GL.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace Gfx::detail
{

/// Draws a group of what OpenGL calls a_mode, from where its vertices lie in memory.
inline void DrawGroup(const SGeometry& a_group, GLenum a_mode)
{
    constexpr std::size_t most = std::numeric_limits<GLsizei>::max();
    glVertexPointer(3, GL_FLOAT, 0, a_group.vertices.data());
    glDrawArrays(a_mode, 0, static_cast<GLsizei>(std::min(a_group.vertices.size(), most)));
}

} // namespace Gfx::detail
