#include "Hands.h"

#include "Report.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <clutter/clutter.h>
#include <clutter/x11/clutter-x11.h>

#include <cstdint>
#include <vector>

namespace Soak
{

namespace
{

constexpr unsigned int k_patienceMs = 10'000;

long s_expected = 0;
long s_seen = 0;

gboolean OnEvent(const ClutterEvent* a_event, gpointer)
{
    switch (clutter_event_type(a_event))
    {
    case CLUTTER_BUTTON_PRESS:
    case CLUTTER_BUTTON_RELEASE:
    case CLUTTER_MOTION:
    case CLUTTER_KEY_PRESS:
    case CLUTTER_KEY_RELEASE: ++s_seen; break;
    default: break;
    }
    return CLUTTER_EVENT_PROPAGATE;
}

gboolean OnImpatience(gpointer)
{
    Fail("an event of the pointer or the keyboard hasn't come");
}

} // namespace

void Pump()
{
    while (g_main_context_iteration(nullptr, FALSE) != FALSE)
    {
    }
}

CHands::CHands() : m_display(XOpenDisplay(nullptr))
{
    auto* const stage = CLUTTER_STAGE(clutter_stage_get_default());
    Display* const display = clutter_x11_get_default_display();
    Window child = 0;
    m_window = clutter_x11_get_stage_window(stage);
    XTranslateCoordinates(display, m_window, DefaultRootWindow(display), 0, 0, &m_left, &m_top, &child);
    // As a window manager does it; otherwise keys would go where the pointer is.
    XSetInputFocus(m_display, m_window, RevertToParent, CurrentTime);
    XSync(m_display, False);
    clutter_event_add_filter(stage, OnEvent, nullptr, nullptr);
}

void CHands::Await()
{
    XSync(m_display, False);
    ++m_sent;
    ++s_expected;
    const guint impatience = g_timeout_add(k_patienceMs, OnImpatience, nullptr);
    while (s_seen < s_expected)
    {
        g_main_context_iteration(nullptr, TRUE);
    }
    g_source_remove(impatience);
    s_expected = s_seen;
    Pump();
}

void CHands::MoveTo(int a_x, int a_y)
{
    if (a_x == m_x && a_y == m_y)
    {
        return;
    }
    m_x = a_x;
    m_y = a_y;
    XTestFakeMotionEvent(m_display, -1, m_left + a_x, m_top + a_y, 0);
    ClutterActor* const stage = clutter_stage_get_default();
    if (!m_held.empty() || (a_x >= 0 && a_y >= 0 && static_cast<float>(a_x) < clutter_actor_get_width(stage) &&
                            static_cast<float>(a_y) < clutter_actor_get_height(stage)))
    {
        Await();
        return;
    }
    // Nobody hears of a pointer outside.
    XSync(m_display, False);
    ++m_sent;
    Pump();
}

void CHands::Press(unsigned int a_button)
{
    if (m_held.insert(a_button).second)
    {
        XTestFakeButtonEvent(m_display, a_button, True, 0);
        Await();
    }
}

void CHands::Release(unsigned int a_button)
{
    if (m_held.erase(a_button) != 0)
    {
        XTestFakeButtonEvent(m_display, a_button, False, 0);
        Await();
    }
}

void CHands::Tap(int a_x, int a_y)
{
    MoveTo(a_x, a_y);
    Press(Button1);
    Release(Button1);
}

void CHands::Scroll(bool a_down)
{
    for (const Bool isPress : {True, False})
    {
        XTestFakeButtonEvent(m_display, a_down ? Button5 : Button4, isPress, 0);
    }
    XSync(m_display, False);
    ++m_sent;
    Pump();
}

void CHands::Key(unsigned long a_symbol, bool a_shift)
{
    const KeyCode key = XKeysymToKeycode(m_display, a_symbol);
    const KeyCode shift = XKeysymToKeycode(m_display, XK_Shift_L);
    if (key == 0)
    {
        return;
    }
    const auto send = [this](KeyCode a_key, Bool a_isPress)
    {
        XTestFakeKeyEvent(m_display, a_key, a_isPress, 0);
        Await();
    };
    if (a_shift)
    {
        send(shift, True);
    }
    send(key, True);
    send(key, False);
    if (a_shift)
    {
        send(shift, False);
    }
}

void CHands::LetGo()
{
    for (const unsigned int button : std::set<unsigned int>(m_held))
    {
        Release(button);
    }
}

GfxTest::CPicture CHands::Seen() const
{
    // The frames that are under way come first.
    XSync(clutter_x11_get_default_display(), False);
    ClutterActor* const stage = clutter_stage_get_default();
    const int width = static_cast<int>(clutter_actor_get_width(stage));
    const int height = static_cast<int>(clutter_actor_get_height(stage));
    XImage* const image = XGetImage(m_display, m_window, 0, 0, static_cast<unsigned int>(width),
                                    static_cast<unsigned int>(height), AllPlanes, ZPixmap);
    std::vector<std::uint8_t> pixels;
    pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
    for (int y = 0; image != nullptr && y < height; ++y)
    {
        for (int x = 0; x < width; ++x)
        {
            const unsigned long pixel = XGetPixel(image, x, y);
            for (const int shift : {16, 8, 0})
            {
                pixels.push_back(static_cast<std::uint8_t>(pixel >> shift));
            }
            pixels.push_back(255);
        }
    }
    if (image == nullptr)
    {
        Fail("the window can't be read");
    }
    XDestroyImage(image);
    return {std::move(pixels), width, height};
}

} // namespace Soak
