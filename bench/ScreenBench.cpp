// A whole screen of controls: what it costs to paint it, to change one button of it, to switch its theme and to scroll
// a long panel, with the draw calls, texture uploads and allocations of a frame.

#include "BenchStage.h"
#include "Counters.h"

#include "Platform/Clutter/Clutter.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace
{

using Bench::WidgetPtr;
using Core::Patterns::StaticSingleton;
using namespace Gfx::Widgets;

constexpr int k_width = 800;
constexpr int k_height = 480;

/// One textured quad over the whole display: the least that a full repaint can cost.
class CWholeDisplay : public CWidget
{
public:
    CWholeDisplay() : CWidget("display", "Display", 0, 0, k_width, k_height, false)
    {
        const std::vector<unsigned char> pixels(std::size_t{k_width} * k_height * 4, 200);
        Bench::Require(m_layer.RetrieveData(pixels.data(), k_width, k_height, 4), "no texture");
        InitialiseClutterGroup();
    }
    void DrawSelf() const override { m_layer.Draw(); }

private:
    CTextureLayer m_layer;
};

const std::string& SixtyWords()
{
    static const std::string s_text = []
    {
        std::string text;
        for (int i = 0; i < 12; ++i)
        {
            text += "Turn left at the lights ";
        }
        return text;
    }();
    return s_text;
}

CButton* AddButton(CWidget& a_parent, int a_x, int a_y, int a_width, const std::string& a_text)
{
    auto* button = new CButton("button", a_x, a_y, a_width, 44, false);
    a_parent.AddChild(WidgetPtr(button));
    button->Text(a_text);
    return button;
}

/// A title, 12 buttons, a list of 8 more, and the rest of the controls, on the stage's colour or on a textured panel
/// that covers it.
struct SScreen
{
    explicit SScreen(bool a_onPanel = false)
    {
        auto* panel = new CPanel("screen", 0, 0, k_width, k_height, false, true);
        panel->Background(a_onPanel);
        root = WidgetPtr(panel);
        root->AddChild(WidgetPtr(new CLabel("title", 10, 8, 400, 28, false, false, false, "Settings", true)));
        for (int i = 0; i < 12; ++i)
        {
            button = AddButton(*root, 10 + i % 3 * 130, 44 + i / 3 * 52, 120, "Button " + std::to_string(i));
        }
        for (int i = 0; i < 8; ++i)
        {
            AddButton(*root, 410, 8 + i * 48, 310, "Row number " + std::to_string(i));
        }
        root->AddChild(WidgetPtr(new CScrollBar("scroll", 730, 8, 60, 380, false, 0, 100, 30, 1)));
        root->AddChild(WidgetPtr(new CProgressBar("progress", 10, 262, 380, 24, 0, 100, 60, true)));
        root->AddChild(WidgetPtr(new CCheckBox("check", 10, 300, 180, 32, "Check box")));
        root->AddChild(WidgetPtr(new CRadioButton("radio", 10, 340, 180, 32, "First choice")));
        root->AddChild(WidgetPtr(new CRadioButton("radio", 200, 340, 180, 32, "Second choice")));
        root->AddChild(WidgetPtr(new CLabel("text", 10, 384, 780, 90, true, false, false, SixtyWords(), true)));
        Bench::Widgets().AddWidget(root);
        Bench::PaintStage();
        Bench::PaintStage();
    }
    ~SScreen()
    {
        Bench::Widgets().DestroyWidget(root.Get());
        root = WidgetPtr();
        Bench::Widgets().GarbageCollect();
    }
    SScreen(const SScreen&) = delete;
    SScreen& operator=(const SScreen&) = delete;

    WidgetPtr root;
    CButton* button = nullptr;
};

/// Does something over and over; tells the processor time of one time, and what it drew, uploaded and allocated. A few
/// times go before, since the renderer compiles what it needs.
template <typename ActionT>
double Measure(benchmark::State& a_state, ActionT a_action)
{
    constexpr int warmUps = 4;
    for (int i = 0; i < warmUps; ++i)
    {
        a_action();
    }
    const Bench::SCounters before = Bench::Counters();
    const Bench::CStopwatch stopwatch;
    for (auto _ : a_state)
    {
        a_action();
    }
    const double seconds = stopwatch.Seconds();
    const Bench::SCounters after = Bench::Counters();
    const auto each = [&a_state](double a_value) { return a_value / static_cast<double>(a_state.iterations()); };
    a_state.counters["Milliseconds"] = each(seconds) * 1e3;
    a_state.counters["Draws"] = each(static_cast<double>(after.draws - before.draws));
    a_state.counters["Uploads"] = each(static_cast<double>(after.uploads - before.uploads));
    a_state.counters["Allocations"] = each(static_cast<double>(after.allocations - before.allocations));
    return each(seconds);
}

double s_quad = 0;
double s_full = 0;

void OneQuad(benchmark::State& a_state)
{
    WidgetPtr display(new CWholeDisplay);
    Bench::Widgets().AddWidget(display);
    Bench::PaintStage();
    s_quad = Measure(a_state, Bench::PaintStage);
    Bench::Widgets().DestroyWidget(display.Get());
    display = WidgetPtr();
    Bench::Widgets().GarbageCollect();
}

void ScreenRepaint(benchmark::State& a_state)
{
    const SScreen screen;
    s_full = Measure(a_state, Bench::PaintStage);
    a_state.counters["OfOneQuad"] = s_full / s_quad;
}

void ScreenOnPanelRepaint(benchmark::State& a_state)
{
    const SScreen screen(true);
    a_state.counters["OfOneQuad"] = Measure(a_state, Bench::PaintStage) / s_quad;
}

void OneButtonChanges(benchmark::State& a_state)
{
    const SScreen screen;
    bool isPressed = false;
    const double seconds = Measure(a_state,
                                   [&]
                                   {
                                       isPressed = !isPressed;
                                       const auto event = isPressed ? Gfx::Events::FirstDown : Gfx::Events::FirstUp;
                                       screen.button->MouseEvent(event, 1, {5, 5}, false);
                                       Bench::PaintWidget(*screen.button);
                                   });
    a_state.counters["FullRepaints"] = s_full / seconds;
}

void SwitchTheme(benchmark::State& a_state)
{
    const SScreen screen;
    auto& themes = StaticSingleton<Gfx::Managers::CThemeManager>::ref();
    bool isNight = false;
    const auto change = [&]
    {
        isNight = !isNight;
        themes.SetTheme(isNight ? "Night" : "Day");
        Bench::PaintStage();
    };
    Measure(a_state, change);
}

/// From the top to the bottom of a panel of 100 buttons, and a frame for each step.
void ScrollPanel(benchmark::State& a_state)
{
    WidgetPtr root(new CPanel("long", 0, 0, k_width, k_height, true, true));
    for (int i = 0; i < 100; ++i)
    {
        AddButton(*root, 10 + i % 4 * 170, 10 + i / 4 * 60, 160, "Button " + std::to_string(i));
    }
    Bench::Widgets().AddWidget(root);
    Bench::PaintStage();
    const WidgetPtr bar = Bench::Widgets().FindWidget("long:PanelScrollBar", nullptr);
    Bench::Require(bar && bar->StartDragging({26, 70}), "the slider can't be dragged");
    int way = 0;
    Measure(a_state,
            [&]
            {
                way = way == 300 ? 0 : way + 3;
                bar->UpdateDragging({0, way});
                Bench::PaintStage();
            });
    bar->EndDragging();
    Bench::Widgets().DestroyWidget(root.Get());
    root = WidgetPtr();
    Bench::Widgets().GarbageCollect();
}

BENCHMARK(OneQuad)->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(ScreenRepaint)->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(ScreenOnPanelRepaint)->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(OneButtonChanges)->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(SwitchTheme)->Iterations(50)->Unit(benchmark::kMillisecond);
BENCHMARK(ScrollPanel)->Iterations(202)->Unit(benchmark::kMillisecond);

} // namespace
