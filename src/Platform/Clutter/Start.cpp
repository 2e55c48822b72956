#include "Platform/Clutter/Start.h"

#include <X11/Xlib.h>
#include <pango/pangocairo.h>

#include <cstdlib>

namespace Platform
{

namespace
{

bool HasGraphicsCard()
{
    GDir* directory = g_dir_open("/dev/dri", 0, nullptr);
    if (directory == nullptr)
    {
        return false;
    }
    bool found = false;
    while (const char* name = g_dir_read_name(directory))
    {
        found = found || g_str_has_prefix(name, "card");
    }
    g_dir_close(directory);
    return found;
}

/// Whether Cogl has taken a driver whose contexts have the fixed-function pipeline.
bool HasFixedFunction()
{
    CoglContext* context = clutter_backend_get_cogl_context(clutter_get_default_backend());
    const CoglDriver driver = cogl_renderer_get_driver(cogl_display_get_renderer(cogl_context_get_display(context)));
    return driver == COGL_DRIVER_GL || driver == COGL_DRIVER_GLES1;
}

bool s_displayRefused = false;

int NoteDisplayError(Display*, XErrorEvent*)
{
    s_displayRefused = true;
    return 0;
}

/// A server that refuses to make a GL context answers with an X error, for which Xlib would end the process.
class CDisplayErrorGuard
{
public:
    CDisplayErrorGuard() : m_previous(XSetErrorHandler(NoteDisplayError)) { s_displayRefused = false; }
    ~CDisplayErrorGuard() { XSetErrorHandler(m_previous); }
    CDisplayErrorGuard(const CDisplayErrorGuard&) = delete;
    CDisplayErrorGuard& operator=(const CDisplayErrorGuard&) = delete;

private:
    XErrorHandler m_previous;
};

} // namespace

void PrepareClutter()
{
    setenv("COGL_DRIVER", "gl", 0);
    // Texts aren't drawn smaller than they are, and mipmaps of the glyphs cost a software renderer several shaders.
    setenv("CLUTTER_DISABLE_MIPMAPPED_TEXT", "1", 0);
}

bool StartClutter(int* a_argc, char*** a_argv, GError** a_error)
{
    // Pango reads the system's fonts on a thread of its own as soon as anybody has a font map; meanwhile the display is
    // opened, which takes longer.
    g_object_unref(pango_cairo_font_map_new());
    const bool bareConsole = std::getenv("DISPLAY") == nullptr && HasGraphicsCard();
    // CLUTTER_BACKEND in the environment wins over this.
    clutter_set_windowing_backend(bareConsole ? "eglnative" : "x11");
    const CDisplayErrorGuard guard;
    if (clutter_init_with_args(a_argc, a_argv, nullptr, nullptr, nullptr, a_error) != CLUTTER_INIT_SUCCESS)
    {
        return false;
    }
    if (s_displayRefused || !HasFixedFunction())
    {
        g_set_error_literal(a_error, CLUTTER_INIT_ERROR, CLUTTER_INIT_ERROR_BACKEND,
                            "The display can't be drawn on with fixed-function OpenGL");
        return false;
    }
    return true;
}

} // namespace Platform
