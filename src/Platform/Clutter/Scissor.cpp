#include "Platform/Clutter/Scissor.h"

#include "Platform/Clutter/Clutter.h"

#include <algorithm>
#include <cstdint>

namespace Platform
{

namespace
{

bool s_active = false;

void Push(int a_x, int a_y, int a_width, int a_height)
{
    CoglFramebuffer* framebuffer = cogl_get_draw_framebuffer();
    // Cogl counts from the top, and adds position and size up without regard to what an int can hold.
    const std::int64_t windowWidth = cogl_framebuffer_get_width(framebuffer);
    const std::int64_t windowHeight = cogl_framebuffer_get_height(framebuffer);
    const auto within = [](std::int64_t a_value, std::int64_t a_limit)
    { return static_cast<int>(std::clamp(a_value, std::int64_t{0}, a_limit)); };
    const int left = within(a_x, windowWidth);
    const int right = within(std::int64_t{a_x} + a_width, windowWidth);
    const int bottom = within(windowHeight - a_y, windowHeight);
    const int top = within(windowHeight - a_y - a_height, windowHeight);
    cogl_framebuffer_push_scissor_clip(framebuffer, left, top, std::max(right - left, 0), std::max(bottom - top, 0));
}

void Pop()
{
    cogl_framebuffer_pop_clip(cogl_get_draw_framebuffer());
}

void End()
{
    if (s_active)
    {
        Pop();
        s_active = false;
    }
}

} // namespace

CScissor::CScissor(int a_x, int a_y, int a_width, int a_height)
{
    End();
    Push(a_x, a_y, a_width, a_height);
    s_active = true;
}

CScissor::~CScissor()
{
    End();
}

CInnerScissor::CInnerScissor(int a_x, int a_y, int a_width, int a_height)
{
    Push(a_x, a_y, a_width, a_height);
}

CInnerScissor::~CInnerScissor()
{
    Pop();
}

} // namespace Platform
