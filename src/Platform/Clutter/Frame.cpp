#include "Platform/Clutter/Frame.h"

#include "Platform/GL/GL.h"

#include <clutter/x11/clutter-x11.h>

#include <algorithm>

namespace Platform
{

namespace
{

/// Has Cogl tell OpenGL the viewport at the next drawing. A viewport that it has already it would take for told, though
/// OpenGL's is counted from the bottom of a window whose height may have changed since.
void ResetViewport(float a_width, float a_height)
{
    CoglFramebuffer* framebuffer = cogl_get_draw_framebuffer();
    cogl_framebuffer_set_viewport(framebuffer, 0, 0, a_width, a_height + 1);
    cogl_framebuffer_set_viewport(framebuffer, 0, 0, a_width, a_height);
}

} // namespace

void SizeWindow(ClutterStage* a_stage)
{
    if (!clutter_check_windowing_backend(CLUTTER_WINDOWING_X11))
    {
        return;
    }
    Display* display = clutter_x11_get_default_display();
    if (!clutter_actor_is_mapped(CLUTTER_ACTOR(a_stage)))
    {
        XResizeWindow(display, clutter_x11_get_stage_window(a_stage),
                      static_cast<unsigned int>(clutter_actor_get_width(CLUTTER_ACTOR(a_stage))),
                      static_cast<unsigned int>(clutter_actor_get_height(CLUTTER_ACTOR(a_stage))));
    }
    XSync(display, False);
    while (XPending(display) > 0)
    {
        XEvent event;
        XNextEvent(display, &event);
        clutter_x11_handle_event(&event);
    }
}

void PaintWholeStage(ClutterStage* a_stage)
{
    ClutterActor* stage = CLUTTER_ACTOR(a_stage);
    clutter_stage_ensure_current(a_stage);
    // Until the first frame the window may still have the size that it was made with, and the stage no projection.
    // There is no telling from outside whether a frame has been, so this happens each time. Picking is the one public
    // call that sets up the projection before a frame does.
    SizeWindow(a_stage);
    clutter_stage_get_actor_at_pos(a_stage, CLUTTER_PICK_ALL, 0, 0);
    const float width = clutter_actor_get_width(stage);
    const float height = clutter_actor_get_height(stage);
    // Picking, here or earlier, may leave the viewport shifted until the next frame.
    ResetViewport(width, height);
    // Asking for an allocation that is out of date brings the layout up to date.
    ClutterActorBox allocation;
    clutter_actor_get_allocation_box(stage, &allocation);
    // Reading paints first, and everything, where the ordinary frame may have painted what changed only. A window that
    // is still too small must not be read beyond its edges, where drivers crash.
    CoglFramebuffer* framebuffer = cogl_get_draw_framebuffer();
    g_free(clutter_stage_read_pixels(a_stage, 0, 0,
                                     std::min(static_cast<int>(width), cogl_framebuffer_get_width(framebuffer)),
                                     std::min(static_cast<int>(height), cogl_framebuffer_get_height(framebuffer))));
    if (!clutter_actor_is_mapped(stage))
    {
        ClutterColor colour;
        clutter_stage_get_color(a_stage, &colour);
        const auto component = [](guint8 a_value) { return static_cast<float>(a_value) / 255.0F; };
        cogl_framebuffer_clear4f(framebuffer, COGL_BUFFER_BIT_COLOR, component(colour.red), component(colour.green),
                                 component(colour.blue), 1.0F);
    }
    cogl_flush();
    // For the frames to come, before which the window may get its size.
    ResetViewport(width, height);
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
    glPixelStorei(GL_PACK_SKIP_ROWS, 0);
    glPixelStorei(GL_PACK_SKIP_PIXELS, 0);
}

} // namespace Platform
