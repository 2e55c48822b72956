#pragma once

#include "support/StageTest.h"

#include <X11/keysym.h>

#include <array>
#include <set>

struct _XDisplay;

namespace Soak
{

/// Keys beside those of letters and digits.
inline constexpr std::array<unsigned long, 19> k_specialKeys{
    XK_Tab, XK_Return, XK_Escape, XK_BackSpace, XK_Delete, XK_Left,   XK_Right, XK_Up,    XK_Down,   XK_Home,
    XK_End, XK_F1,     XK_F5,     XK_F10,       XK_space,  XK_period, XK_plus,  XK_minus, XK_Page_Up};

/// Who sits before the console: sends the pointer and keys of the X server, by a connection of its own, and waits until
/// the stage has had each of them; and sees what the server shows.
class CHands
{
public:
    /// Of the stage, which must be shown.
    CHands();

    /// In stage coordinates, which may lie outside.
    void MoveTo(int a_x, int a_y);
    /// Of buttons 1 to 3.
    void Press(unsigned int a_button);
    void Release(unsigned int a_button);
    void Tap(int a_x, int a_y);
    void Scroll(bool a_down);

    /// A key by its X symbol, with the shift key held or not; nothing if no key has the symbol.
    void Key(unsigned long a_symbol, bool a_shift);

    /// Releases whatever is held.
    void LetGo();

    /// What the X server has of the stage's window, which is what is seen: the buffer that OpenGL draws into has traces
    /// of picking in it, and may have what was never shown.
    [[nodiscard]] GfxTest::CPicture Seen() const;

    [[nodiscard]] long Events() const { return m_sent; }

private:
    void Await();

    _XDisplay* m_display;
    unsigned long m_window = 0;
    int m_left = 0;
    int m_top = 0;
    int m_x = -1;
    int m_y = -1;
    std::set<unsigned int> m_held;
    long m_sent = 0;
};

/// Lets the main loop do what is ready to be done.
void Pump();

} // namespace Soak
