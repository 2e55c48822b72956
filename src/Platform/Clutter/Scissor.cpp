#include "Platform/Clutter/Scissor.h"

#include "Platform/Clutter/Clutter.h"

#include <algorithm>

namespace Platform
{

namespace
{

bool s_active = false;

void End()
{
    if (s_active)
    {
        cogl_framebuffer_pop_clip(cogl_get_draw_framebuffer());
        s_active = false;
    }
}

} // namespace

CScissor::CScissor(int a_x, int a_y, int a_width, int a_height)
{
    End();
    CoglFramebuffer* framebuffer = cogl_get_draw_framebuffer();
    const int width = std::max(a_width, 0);
    const int height = std::max(a_height, 0);
    const auto top = static_cast<long long>(cogl_framebuffer_get_height(framebuffer)) - height - a_y;
    cogl_framebuffer_push_scissor_clip(framebuffer, a_x, static_cast<int>(std::clamp(top, -1'000'000LL, 1'000'000LL)),
                                       width, height);
    s_active = true;
}

CScissor::~CScissor()
{
    End();
}

} // namespace Platform
