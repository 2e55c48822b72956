// The least that a program with OpenGL can do: opens a window as large as the console's screen, clears it and shows it.

#include <GL/glx.h>
#include <X11/Xlib.h>

namespace
{

constexpr unsigned k_width = 800;
constexpr unsigned k_height = 480;

} // namespace

int main()
{
    Display* const display = XOpenDisplay(nullptr);
    int attributes[] = {GLX_RGBA, GLX_DOUBLEBUFFER, None};
    XVisualInfo* const visual =
        display != nullptr ? glXChooseVisual(display, DefaultScreen(display), attributes) : nullptr;
    GLXContext context = visual != nullptr ? glXCreateContext(display, visual, nullptr, True) : nullptr;
    if (context == nullptr)
    {
        return 1;
    }
    const Window root = RootWindow(display, visual->screen);
    XSetWindowAttributes settings{};
    settings.colormap = XCreateColormap(display, root, visual->visual, AllocNone);
    settings.event_mask = StructureNotifyMask;
    const Window window = XCreateWindow(display, root, 0, 0, k_width, k_height, 0, visual->depth, InputOutput,
                                        visual->visual, CWColormap | CWEventMask, &settings);
    XMapWindow(display, window);
    XEvent event;
    do
    {
        XNextEvent(display, &event);
    } while (event.type != MapNotify);
    glXMakeCurrent(display, window, context);
    glClearColor(0.2F, 0.4F, 0.4F, 1.0F);
    glClear(GL_COLOR_BUFFER_BIT);
    glXSwapBuffers(display, window);
    glFinish();
    return 0;
}
