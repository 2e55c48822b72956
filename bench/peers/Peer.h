#pragma once

#include <string>
#include <vector>

namespace Peers
{

constexpr int k_width = 800;
constexpr int k_height = 480;

/// A button's box in pixels of the window, and its text.
struct SButton
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    std::string text;
};

/// What is measured of a toolkit: a program that shows the reference screen, or buttons, in a window of 800 by 480
/// pixels. The steps are each toolkit's own; what is timed, and how, is the same for all of them (Run).
class CPeer
{
public:
    virtual ~CPeer() = default;

    /// Brings up the toolkit and shows a window, with the reference screen in it or with nothing.
    virtual void Start(bool a_withScreen) = 0;

    /// What the toolkit draws with, in its own words.
    virtual std::string Renderer() = 0;

    /// One turn of the main loop, which waits for something to do or doesn't; false if there was nothing.
    virtual bool Turn(bool a_wait) = 0;

    /// Has the whole window painted anew with the next frame.
    virtual void Repaint() = 0;

    /// Of one of the reference screen's buttons: the look of being pressed, and its text.
    virtual void ShowPressed(bool a_isPressed) = 0;
    virtual void SetText(const std::string& a_text) = 0;

    /// A file of buttons, and one of the reference screen, in the toolkit's own format; a_round is different each time.
    virtual std::string ButtonsText(const std::vector<SButton>& a_buttons, int a_round) = 0;
    virtual std::string ScreenText(int a_round) = 0;

    /// Makes the widgets of such a file and puts them into the window, visible.
    virtual void Load(const std::string& a_path) = 0;

    /// Makes buttons by calls; the first one calls CountClick when it is clicked.
    virtual void Add(const std::vector<SButton>& a_buttons) = 0;

    /// Destroys what Load or Add have made.
    virtual void Clear() = 0;

    /// A press of the pointer, or a release, given to the toolkit within the process; false if there is no way.
    virtual bool Touch(bool a_isDown, int a_x, int a_y) = 0;
};

/// For peers to tell: a complete frame has gone to the display; from any thread. And: a click has arrived.
void CountFrame();
void CountClick();

/// A file's content.
std::string ReadFile(const std::string& a_path);

/// The text with all that is between "{" and "}" replaced: {x}, {y}, {width}, {height}, {text}, {number}.
std::string Fill(const std::string& a_template, const SButton& a_button, int a_number);

/// Does what the command line says, MODE [NUMBER], and prints lines of "name value unit".
int Run(CPeer& a_peer, int a_argc, char** a_argv);

} // namespace Peers
