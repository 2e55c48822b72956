// What typing costs: from a key press to the frame that shows its character; and what the on-screen keyboard adds.

#include "BenchStage.h"
#include "Counters.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <string>

namespace
{

using Bench::WidgetPtr;
using Gfx::Widgets::CEditBox;
using Gfx::Widgets::CNumericEditBox;
using Gfx::Widgets::COnScreenKeyboard;

constexpr unsigned int k_backspace = 0xFF08;

/// A screen of controls around what is typed in.
WidgetPtr BuildScreen()
{
    WidgetPtr panel(new Gfx::Widgets::CPanel("panel", 0, 0, 800, 480, false, true));
    for (int i = 0; i < 30; ++i)
    {
        auto* button = new Gfx::Widgets::CButton("button", 10 + i % 6 * 130, 100 + i / 6 * 60, 120, 50, false);
        panel->AddChild(WidgetPtr(button));
        button->Text("Button");
    }
    Bench::Widgets().AddWidget(panel);
    return panel;
}

void Destroy(const WidgetPtr& a_panel)
{
    Bench::Widgets().DestroyWidget(a_panel.Get());
    Bench::Widgets().GarbageCollect();
}

/// A character and a backspace in turn, with a frame after each.
void TypeAndPaint(benchmark::State& a_state, Gfx::Widgets::CWidget& a_box)
{
    Bench::PaintStage();
    const long allocations = Bench::Counters().allocations;
    const Bench::CStopwatch stopwatch;
    bool isBackspace = false;
    for (auto _ : a_state)
    {
        a_box.KeyboardEvent(isBackspace ? k_backspace : '7');
        Bench::WaitForFrame();
        isBackspace = !isBackspace;
    }
    const auto keys = static_cast<double>(a_state.iterations());
    a_state.counters["ProcessorMicroseconds"] = stopwatch.Seconds() / keys * 1e6;
    a_state.counters["Allocations"] = static_cast<double>(Bench::Counters().allocations - allocations) / keys;
}

/// In a text of a given length.
void KeyToFrame(benchmark::State& a_state)
{
    const WidgetPtr panel = BuildScreen();
    const std::string text(static_cast<std::size_t>(a_state.range(0)), 'a');
    auto* const box = new CEditBox("box", 20, 20, 500, 48, false, text);
    panel->AddChild(WidgetPtr(box));
    TypeAndPaint(a_state, *box);
    Destroy(panel);
}

/// In a field of an address.
void MaskedKeyToFrame(benchmark::State& a_state)
{
    const WidgetPtr panel = BuildScreen();
    auto* const box = new CNumericEditBox("box", 20, 20, 500, 48, {{".", 3}, {".", 3}, {".", 3}, {"", 4}});
    panel->AddChild(WidgetPtr(box));
    for (const char key : std::string("1.2.3.4"))
    {
        box->KeyboardEvent(static_cast<unsigned char>(key));
    }
    TypeAndPaint(a_state, *box);
    Destroy(panel);
}

/// Many keys between two frames, as a scanner or a paste sends them, up to the full text.
void ManyKeysToFrame(benchmark::State& a_state)
{
    const WidgetPtr panel = BuildScreen();
    auto* const box = new CEditBox("box", 20, 20, 500, 48, false, "");
    panel->AddChild(WidgetPtr(box));
    Bench::PaintStage();
    const Bench::CStopwatch stopwatch;
    for (auto _ : a_state)
    {
        box->Text("");
        for (int i = 0; i < a_state.range(0); ++i)
        {
            box->KeyboardEvent('a');
        }
        Bench::WaitForFrame();
    }
    const auto keys = static_cast<double>(a_state.iterations() * a_state.range(0));
    a_state.counters["NanosecondsPerKey"] = stopwatch.Seconds() / keys * 1e9;
    Destroy(panel);
}

/// Keeps the keyboard's trace out of the tables.
class CSilence
{
public:
    CSilence() : m_output(dup(STDOUT_FILENO))
    {
        std::fflush(stdout);
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDOUT_FILENO);
        close(nowhere);
    }

    ~CSilence()
    {
        std::fflush(stdout);
        dup2(m_output, STDOUT_FILENO);
        close(m_output);
    }

    CSilence(const CSilence&) = delete;
    CSilence& operator=(const CSilence&) = delete;

private:
    int m_output;
};

/// The shipped keyboard of most keys, over a screen.
COnScreenKeyboard& ShowKeyboard()
{
    auto* const keyboard = new COnScreenKeyboard("keyboard", 0, 0, "Greek", "Default", "");
    Bench::Widgets().AddWidget(WidgetPtr(keyboard));
    keyboard->Show();
    Bench::PaintStage();
    return *keyboard;
}

/// From the end of a touch to its character, and to its end by Backspace.
void TouchedKeyToFrame(benchmark::State& a_state)
{
    const CSilence silence;
    const WidgetPtr panel = BuildScreen();
    COnScreenKeyboard& keyboard = ShowKeyboard();
    auto& gfx = Core::Patterns::StaticSingleton<Gfx::Managers::CGfxManager>::ref();
    const auto touch = [&gfx](const WidgetPtr& a_key, Gfx::Events::EMouseEvent a_event)
    {
        const Gfx::Common::CAABB box = a_key->AABB();
        gfx.InjectMouseEvent(a_event, box.Left() + box.Width() / 2, box.Top() + box.Height() / 2, false);
    };
    const WidgetPtr letter = Bench::Widgets().FindWidget(&keyboard, {"WindowPanel", "\u03B1"});
    const WidgetPtr backspace = Bench::Widgets().FindWidget(&keyboard, {"WindowPanel", "Backspace"});
    bool isBackspace = false;
    for (auto _ : a_state)
    {
        const WidgetPtr& key = isBackspace ? backspace : letter;
        a_state.PauseTiming();
        touch(key, Gfx::Events::FirstDown);
        Bench::WaitForFrame();
        a_state.ResumeTiming();
        touch(key, Gfx::Events::FirstUp);
        Bench::WaitForFrame();
        isBackspace = !isBackspace;
    }
    touch(letter, Gfx::Events::FirstDown);
    touch(letter, Gfx::Events::FirstUp);
    Bench::Require(!keyboard.Text().empty(), "the key types nothing");
    Destroy(Bench::Widgets().FindWidget("keyboard", nullptr));
    Destroy(panel);
}

void PageToFrame(benchmark::State& a_state)
{
    const CSilence silence;
    const WidgetPtr panel = BuildScreen();
    COnScreenKeyboard& keyboard = ShowKeyboard();
    for (auto _ : a_state)
    {
        keyboard.NextPage();
        Bench::WaitForFrame();
        a_state.PauseTiming();
        Bench::Widgets().GarbageCollect();
        a_state.ResumeTiming();
    }
    Destroy(Bench::Widgets().FindWidget("keyboard", nullptr));
    Destroy(panel);
}

/// From nothing to a keyboard on the screen, as when the first one is opened.
void OpenKeyboard(benchmark::State& a_state)
{
    const CSilence silence;
    const WidgetPtr panel = BuildScreen();
    for (auto _ : a_state)
    {
        COnScreenKeyboard::Keyboards.clear();
        ShowKeyboard();
        a_state.PauseTiming();
        Destroy(Bench::Widgets().FindWidget("keyboard", nullptr));
        a_state.ResumeTiming();
    }
    Destroy(panel);
}

void ParseLayouts(benchmark::State& a_state)
{
    for (auto _ : a_state)
    {
        COnScreenKeyboard::Keyboards.clear();
        COnScreenKeyboard::ParseConfiguration();
    }
}

BENCHMARK(KeyToFrame)->Arg(0)->Arg(20)->Arg(200)->Arg(2047)->Unit(benchmark::kMicrosecond);
BENCHMARK(MaskedKeyToFrame)->Unit(benchmark::kMicrosecond);
BENCHMARK(ManyKeysToFrame)->Arg(2000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(TouchedKeyToFrame)->Unit(benchmark::kMicrosecond);
BENCHMARK(PageToFrame)->Unit(benchmark::kMicrosecond);
BENCHMARK(OpenKeyboard)->Unit(benchmark::kMicrosecond);
BENCHMARK(ParseLayouts)->Unit(benchmark::kMicrosecond);

} // namespace
