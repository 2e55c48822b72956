#include "Gfx/3D/DrawingArea.h"

#include "Gfx/3D/GlWrapper.h"
#include "Gfx/Common/Point.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace Gfx::Wrapper::detail
{

namespace
{

/// A start and a length.
using Span = std::pair<GLint, GLint>;

Span Intersection(const Span& a_first, const Span& a_second)
{
    const std::int64_t start = std::max(a_first.first, a_second.first);
    const std::int64_t end =
        std::min(std::int64_t{a_first.first} + a_first.second, std::int64_t{a_second.first} + a_second.second);
    return {static_cast<GLint>(start), Common::detail::Saturated(std::max(end - start, std::int64_t{0}))};
}

} // namespace

CDrawingArea::CDrawingArea(int a_x, int a_y, int a_width, int a_height)
    : m_wasClipped(glIsEnabled(GL_SCISSOR_TEST) != GL_FALSE)
    , m_keptState(std::exchange(CGlWrapper::s_keptState, CGlWrapper::s_keptState | egsScissorTest))
{
    glGetIntegerv(GL_SCISSOR_BOX, m_box.data());
    Span across(a_x, std::max(a_width, 0));
    Span down(a_y, std::max(a_height, 0));
    if (m_wasClipped)
    {
        across = Intersection(across, {m_box[0], m_box[2]});
        down = Intersection(down, {m_box[1], m_box[3]});
    }
    glScissor(across.first, down.first, across.second, down.second);
    glEnable(GL_SCISSOR_TEST);
}

CDrawingArea::~CDrawingArea()
{
    CGlWrapper::s_keptState = m_keptState;
    glScissor(m_box[0], m_box[1], m_box[2], m_box[3]);
    m_wasClipped ? glEnable(GL_SCISSOR_TEST) : glDisable(GL_SCISSOR_TEST);
}

} // namespace Gfx::Wrapper::detail
