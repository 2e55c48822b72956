#pragma once

#include "Platform/GL/GL.h"

#include <array>

namespace Gfx::Wrapper::detail
{

/// Keeps OpenGL within a rectangle of the window for as long as it lives, whatever masks are set meanwhile: within it
/// and within what drawing was clipped to before, such as a panel or the region that is being redrawn. A viewport alone
/// wouldn't do, as lines are wider than what it clips.
class CDrawingArea
{
public:
    /// In pixels; a_x and a_y count from the bottom left of the window. A negative width or height counts as 0.
    CDrawingArea(int a_x, int a_y, int a_width, int a_height);
    ~CDrawingArea();
    CDrawingArea(const CDrawingArea&) = delete;
    CDrawingArea& operator=(const CDrawingArea&) = delete;

private:
    bool m_wasClipped;
    std::array<GLint, 4> m_box{};
    unsigned int m_keptState;
};

} // namespace Gfx::Wrapper::detail
