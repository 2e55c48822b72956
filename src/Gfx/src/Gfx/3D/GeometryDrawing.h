#pragma once

#include "Gfx/Common/Geometry.h"
#include "Platform/GL/GL.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace Gfx::detail
{

/// Tells OpenGL where a group's vertices lie in memory.
inline void PointToVertices(const SGeometry& a_group)
{
    glVertexPointer(3, GL_FLOAT, 0, a_group.vertices.data());
}

/// Draws a group of what OpenGL calls a_mode, once it knows where everything lies.
inline void DrawGroup(const SGeometry& a_group, GLenum a_mode)
{
    constexpr std::size_t most = std::numeric_limits<GLsizei>::max();
    glDrawArrays(a_mode, 0, static_cast<GLsizei>(std::min(a_group.vertices.size(), most)));
}

} // namespace Gfx::detail
