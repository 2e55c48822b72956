#include "Platform/Clutter/Frame.h"

#include "Platform/GL/GL.h"

#include <clutter/x11/clutter-x11.h>

namespace Platform
{

namespace
{

/// Until the first frame the window may still have the size that it was made with, and the stage no projection. There
/// is no telling from outside whether a frame has been, so this runs each time.
void PrepareFrame(ClutterStage* a_stage)
{
    if (clutter_check_windowing_backend(CLUTTER_WINDOWING_X11))
    {
        Display* display = clutter_x11_get_default_display();
        XSync(display, False);
        while (XPending(display) > 0)
        {
            XEvent event;
            XNextEvent(display, &event);
            clutter_x11_handle_event(&event);
        }
    }
    // Picking is the one public call that sets up the projection before a frame does.
    clutter_stage_get_actor_at_pos(a_stage, CLUTTER_PICK_ALL, 0, 0);
}

} // namespace

void PaintWholeStage(ClutterStage* a_stage)
{
    ClutterActor* stage = CLUTTER_ACTOR(a_stage);
    clutter_stage_ensure_current(a_stage);
    const float width = clutter_actor_get_width(stage);
    const float height = clutter_actor_get_height(stage);
    PrepareFrame(a_stage);
    // Picking, here or earlier, may leave the viewport shifted until the next frame.
    cogl_framebuffer_set_viewport(cogl_get_draw_framebuffer(), 0, 0, width, height);
    // Asking for an allocation that is out of date brings the layout up to date.
    ClutterActorBox allocation;
    clutter_actor_get_allocation_box(stage, &allocation);
    // Reading paints first, and everything, where the ordinary frame may have painted what changed only.
    g_free(clutter_stage_read_pixels(a_stage, 0, 0, -1, -1));
    if (!clutter_actor_is_mapped(stage))
    {
        ClutterColor colour;
        clutter_stage_get_color(a_stage, &colour);
        const auto component = [](guint8 a_value) { return static_cast<float>(a_value) / 255.0F; };
        cogl_framebuffer_clear4f(cogl_get_draw_framebuffer(), COGL_BUFFER_BIT_COLOR, component(colour.red),
                                 component(colour.green), component(colour.blue), 1.0F);
    }
    cogl_flush();
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
    glPixelStorei(GL_PACK_SKIP_ROWS, 0);
    glPixelStorei(GL_PACK_SKIP_PIXELS, 0);
}

} // namespace Platform
