// What is measured of each toolkit, in the same way of all.

#include "Peer.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace Peers
{

namespace
{

std::atomic<int> s_frames = 0;
std::atomic<long long> s_firstFrame = 0;

/// The clicks that have reached their handler, and when the last of them did: the toolkit may go on to paint before it
/// gives its turn back.
struct SClicks
{
    int count = 0;
    double wallSeconds = 0;
    double processorSeconds = 0;
};

SClicks s_clicks;

long long Nanoseconds(clockid_t a_clock)
{
    timespec time{};
    clock_gettime(a_clock, &time);
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

/// Processor time of all threads of this process.
double ProcessorSeconds()
{
    return static_cast<double>(Nanoseconds(CLOCK_PROCESS_CPUTIME_ID)) / 1e9;
}

double WallSeconds()
{
    return static_cast<double>(Nanoseconds(CLOCK_MONOTONIC)) / 1e9;
}

double HeapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

void Print(const char* a_name, double a_value, const char* a_unit)
{
    std::printf("%s %.6g %s\n", a_name, a_value, a_unit);
}

void Require(bool a_condition, const char* a_what)
{
    if (!a_condition)
    {
        std::fprintf(stderr, "peer: %s\n", a_what);
        std::_Exit(1);
    }
}

double Median(std::vector<double> a_values)
{
    std::sort(a_values.begin(), a_values.end());
    return a_values[a_values.size() / 2];
}

/// The kilobytes that a line of a file of /proc says.
double Kilobytes(const char* a_file, const std::string& a_key)
{
    std::ifstream file(a_file);
    for (std::string line; std::getline(file, line);)
    {
        if (line.compare(0, a_key.size(), a_key) == 0)
        {
            return std::strtod(line.c_str() + a_key.size(), nullptr);
        }
    }
    return 0;
}

void WaitForFrame(CPeer& a_peer)
{
    for (const int before = s_frames; s_frames == before;)
    {
        a_peer.Turn(true);
    }
}

/// Brings up the toolkit, and waits until its window has been painted.
void Start(CPeer& a_peer, bool a_withScreen)
{
    a_peer.Start(a_withScreen);
    while (s_frames == 0)
    {
        a_peer.Turn(true);
    }
}

/// Lets the toolkit do what it has to do, for a while.
void Rest(CPeer& a_peer, double a_seconds)
{
    for (const double end = WallSeconds() + a_seconds; WallSeconds() < end;)
    {
        while (a_peer.Turn(false) && WallSeconds() < end)
        {
        }
        usleep(500);
    }
}

/// A file that is there as long as this object.
class CFile
{
public:
    CFile()
    {
        std::string path = (std::filesystem::temp_directory_path() / "peer-XXXXXX").string();
        Require(mkdtemp(path.data()) != nullptr, "no folder for files");
        m_folder = path;
    }
    ~CFile()
    {
        std::error_code error;
        std::filesystem::remove_all(m_folder, error);
    }
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;

    /// QML's files have to have their own ending; the others' readers don't look.
    [[nodiscard]] std::string Path() const { return m_folder + "/File.qml"; }
    void Write(const std::string& a_text) const { std::ofstream(Path()) << a_text; }

private:
    std::string m_folder;
};

/// Six columns of buttons as they are on a console, of which the window shows the first ten rows.
std::vector<SButton> Buttons(int a_count)
{
    std::vector<SButton> buttons;
    for (int i = 0; i < a_count; ++i)
    {
        buttons.push_back({10 + i % 6 * 130, 4 + i / 6 * 48, 120, 44, "Button " + std::to_string(i)});
    }
    return buttons;
}

/// Shows the one that is clicked, lowest of all, and small ones beside it.
void ShowButtonsToPress(CPeer& a_peer, int a_count)
{
    std::vector<SButton> buttons{{0, 0, 80, 40, "Press"}};
    for (int i = 0; i < a_count; ++i)
    {
        buttons.push_back({i % 100 * 8, 60 + i / 100 * 4, 7, 3, ""});
    }
    Start(a_peer, false);
    a_peer.Add(buttons);
    WaitForFrame(a_peer);
    Rest(a_peer, 0.5);
}

/// In turn in two places of it, lest they be double clicks.
int ClickX(int a_number)
{
    return a_number % 2 == 0 ? 10 : 60;
}

void FirstFrame(CPeer& a_peer)
{
    Start(a_peer, true);
    std::printf("first-frame-at %lld ns\n", s_firstFrame.load());
    Print("peak-rss", Kilobytes("/proc/self/status", "VmHWM:") / 1024, "MB");
    Print("pss", Kilobytes("/proc/self/smaps_rollup", "Pss:") / 1024, "MB");
    std::printf("renderer 0 %s\n", a_peer.Renderer().c_str());
}

template <typename ActionT>
void Frames(CPeer& a_peer, const char* a_name, ActionT a_action)
{
    constexpr int frames = 240;
    constexpr double warmUpSeconds = 2;
    Start(a_peer, true);
    int number = 0;
    const auto frame = [&]
    {
        a_action(number++);
        WaitForFrame(a_peer);
    };
    for (const double end = WallSeconds() + warmUpSeconds; WallSeconds() < end;)
    {
        frame();
    }
    const int before = s_frames;
    const double start = ProcessorSeconds();
    for (int i = 0; i < frames; ++i)
    {
        frame();
    }
    const double seconds = ProcessorSeconds() - start;
    Print(a_name, seconds / frames * 1e3, "ms");
    Require(s_frames - before < frames * 11 / 10, "more frames than were asked for");
}

void Press(CPeer& a_peer, int a_count)
{
    const int clicks = a_count > 1000 ? 100 : 2000;
    ShowButtonsToPress(a_peer, a_count);
    const auto click = [&](int a_number)
    {
        const int x = ClickX(a_number);
        return a_peer.Touch(true, x, 20) && a_peer.Touch(false, x, 20);
    };
    if (!click(0))
    {
        return;
    }
    const int before = s_clicks.count;
    const double start = ProcessorSeconds();
    for (int i = 1; i <= clicks; ++i)
    {
        static_cast<void>(click(i));
    }
    const double seconds = ProcessorSeconds() - start;
    Require(s_clicks.count - before == clicks, "clicks were lost");
    Print("press", seconds / clicks * 1e6, "us");
}

void PressThroughDisplay(CPeer& a_peer, int a_count)
{
    const int clicks = a_count > 1000 ? 15 : 60;
    ShowButtonsToPress(a_peer, a_count);
    Display* const display = XOpenDisplay(nullptr);
    Require(display != nullptr, "no display");
    std::vector<double> times;
    std::vector<double> processorTimes;
    for (int i = 0; i < clicks; ++i)
    {
        XTestFakeMotionEvent(display, -1, ClickX(i), 20, CurrentTime);
        XSync(display, False);
        Rest(a_peer, 0.05);
        const int before = s_clicks.count;
        const double start = WallSeconds();
        const double processorStart = ProcessorSeconds();
        XTestFakeButtonEvent(display, 1, True, CurrentTime);
        XTestFakeButtonEvent(display, 1, False, CurrentTime);
        XFlush(display);
        while (s_clicks.count == before)
        {
            a_peer.Turn(true);
            Require(WallSeconds() - start < 5, "the click hasn't arrived");
        }
        times.push_back(s_clicks.wallSeconds - start);
        processorTimes.push_back(s_clicks.processorSeconds - processorStart);
        Rest(a_peer, 0.03);
    }
    XCloseDisplay(display);
    Print("press-display", Median(times) * 1e6, "us");
    Print("press-display-cpu", Median(processorTimes) * 1e6, "us");
}

/// The first round isn't counted: it loads and compiles what all of them need.
template <typename TextT>
void Load(CPeer& a_peer, int a_rounds, TextT a_text, double& a_seconds, double& a_secondsToFrame, double& a_bytes)
{
    Start(a_peer, false);
    Rest(a_peer, 0.2);
    const CFile file;
    std::vector<double> seconds;
    std::vector<double> secondsToFrame;
    std::vector<double> bytes;
    for (int round = 0; round <= a_rounds; ++round)
    {
        file.Write(a_text(round));
        const double before = HeapInUse();
        const double start = ProcessorSeconds();
        a_peer.Load(file.Path());
        const double end = ProcessorSeconds();
        const double after = HeapInUse();
        WaitForFrame(a_peer);
        if (round > 0)
        {
            seconds.push_back(end - start);
            secondsToFrame.push_back(ProcessorSeconds() - start);
            bytes.push_back(after - before);
        }
        Rest(a_peer, 0.1);
        a_peer.Clear();
        Rest(a_peer, 0.1);
    }
    a_seconds = Median(seconds);
    a_secondsToFrame = Median(secondsToFrame);
    a_bytes = Median(bytes);
}

void Build(CPeer& a_peer, int a_count)
{
    double seconds = 0;
    double secondsToFrame = 0;
    double bytes = 0;
    const std::vector<SButton> buttons = Buttons(a_count);
    Load(
        a_peer, a_count > 1000 ? 3 : 9, [&](int a_round) { return a_peer.ButtonsText(buttons, a_round); }, seconds,
        secondsToFrame, bytes);
    Print("build", seconds / a_count * 1e6, "us");
    Print("build-frame", secondsToFrame / a_count * 1e6, "us");
    Print("build-heap", bytes / a_count, "B");
}

void Screen(CPeer& a_peer)
{
    double seconds = 0;
    double secondsToFrame = 0;
    double bytes = 0;
    Load(
        a_peer, 21, [&](int a_round) { return a_peer.ScreenText(a_round); }, seconds, secondsToFrame, bytes);
    Print("screen", seconds * 1e3, "ms");
    Print("screen-frame", secondsToFrame * 1e3, "ms");
}

void Churn(CPeer& a_peer)
{
    constexpr int warmUps = 1000;
    constexpr int rounds = 10'000;
    constexpr int roundsPerFrame = 100;
    Start(a_peer, false);
    const std::vector<SButton> buttons = Buttons(20);
    double before = 0;
    double start = 0;
    for (int round = 0; round < warmUps + rounds; ++round)
    {
        if (round == warmUps)
        {
            before = HeapInUse();
            start = ProcessorSeconds();
        }
        a_peer.Add(buttons);
        if (round % roundsPerFrame == 0)
        {
            WaitForFrame(a_peer);
        }
        a_peer.Clear();
        if (round % roundsPerFrame == 0)
        {
            WaitForFrame(a_peer);
        }
    }
    Print("churn", (ProcessorSeconds() - start) / rounds * 1e6, "us");
    Print("churn-growth", (HeapInUse() - before) / 1024, "kB");
}

} // namespace

void CountFrame()
{
    long long none = 0;
    s_firstFrame.compare_exchange_strong(none, Nanoseconds(CLOCK_MONOTONIC));
    ++s_frames;
}

void CountClick()
{
    ++s_clicks.count;
    s_clicks.wallSeconds = WallSeconds();
    s_clicks.processorSeconds = ProcessorSeconds();
}

std::string ReadFile(const std::string& a_path)
{
    std::ostringstream text;
    text << std::ifstream(a_path).rdbuf();
    return text.str();
}

std::string Fill(const std::string& a_template, const SButton& a_button, int a_number)
{
    std::string text = a_template;
    const auto replace = [&text](const std::string& a_word, const std::string& a_value)
    {
        for (std::size_t at = text.find(a_word); at != std::string::npos; at = text.find(a_word))
        {
            text.replace(at, a_word.size(), a_value);
        }
    };
    replace("{x}", std::to_string(a_button.x));
    replace("{y}", std::to_string(a_button.y));
    replace("{width}", std::to_string(a_button.width));
    replace("{height}", std::to_string(a_button.height));
    replace("{text}", a_button.text);
    replace("{number}", std::to_string(a_number));
    return text;
}

int Run(CPeer& a_peer, int a_argc, char** a_argv)
{
    const std::string mode = a_argc > 1 ? a_argv[1] : "";
    const int number = a_argc > 2 ? std::atoi(a_argv[2]) : 0;
    if (mode == "first-frame")
    {
        FirstFrame(a_peer);
    }
    else if (mode == "show")
    {
        a_peer.Start(true);
        Rest(a_peer, number > 0 ? number : 1e9);
    }
    else if (mode == "full-frame")
    {
        Frames(a_peer, "full-frame", [&](int) { a_peer.Repaint(); });
    }
    else if (mode == "pressed-frame")
    {
        Frames(a_peer, "pressed-frame", [&](int a_number) { a_peer.ShowPressed(a_number % 2 == 0); });
    }
    else if (mode == "text-frame")
    {
        Frames(a_peer, "text-frame",
               [&](int a_number) { a_peer.SetText(a_number % 2 == 0 ? "Button 12" : "Button 11"); });
    }
    else if (mode == "press")
    {
        Press(a_peer, number);
    }
    else if (mode == "press-display")
    {
        PressThroughDisplay(a_peer, number);
    }
    else if (mode == "build")
    {
        Build(a_peer, number);
    }
    else if (mode == "screen")
    {
        Screen(a_peer);
    }
    else if (mode == "churn")
    {
        Churn(a_peer);
    }
    else
    {
        std::fprintf(stderr, "usage: %s MODE [NUMBER]\n", a_argv[0]);
        return 2;
    }
    std::fflush(stdout);
    // What a toolkit does at the end of a process isn't asked for.
    std::_Exit(0);
}

} // namespace Peers
