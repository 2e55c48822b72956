// What controls cost: building and painting many buttons, with the heap that they take.

#include "BenchStage.h"

#include <benchmark/benchmark.h>
#include <clutter/clutter.h>

#include <cstdio>
#include <string>

namespace
{

using Bench::WidgetPtr;
using Gfx::Widgets::CButton;

/// In six columns, of which the display shows the first ten rows.
WidgetPtr BuildButtons(int a_count)
{
    WidgetPtr panel(new Bench::CBlock("panel", 0, 0, 800, 480));
    for (int i = 0; i < a_count; ++i)
    {
        auto* button = new CButton("button", 10 + i % 6 * 130, 4 + i / 6 * 48, 120, 44, false);
        panel->AddChild(WidgetPtr(button));
        button->Text("Button " + std::to_string(i));
    }
    Bench::Widgets().AddWidget(panel);
    return panel;
}

/// Construction, skins and layout of texts, and the first painting.
void BuildAndPaintButtons(benchmark::State& a_state)
{
    const int count = static_cast<int>(a_state.range(0));
    double bytes = 0;
    double seconds = 0;
    double paintSeconds = 0;
    double repaintSeconds = 0;
    double rounds = 0;
    const auto destroy = [](WidgetPtr& a_panel)
    {
        Bench::Widgets().DestroyWidget(a_panel.Get());
        a_panel = WidgetPtr();
        Bench::Widgets().GarbageCollect();
    };
    // The renderer compiles what it needs, and glyphs and pages are loaded, once.
    WidgetPtr first = BuildButtons(count);
    Bench::PaintStage();
    destroy(first);
    for (auto _ : a_state)
    {
        const double before = Bench::HeapInUse();
        const Bench::CStopwatch building;
        WidgetPtr panel = BuildButtons(count);
        seconds += building.Seconds();
        const Bench::CStopwatch painting;
        Bench::PaintStage();
        paintSeconds += painting.Seconds();
        const Bench::CStopwatch repainting;
        Bench::PaintStage();
        repaintSeconds += repainting.Seconds();
        bytes = (Bench::HeapInUse() - before) / count;
        destroy(panel);
        ++rounds;
    }
    a_state.counters["BuildMicroseconds"] = seconds / rounds / count * 1e6;
    a_state.counters["FirstPaintMicroseconds"] = paintSeconds / rounds / count * 1e6;
    a_state.counters["RepaintMicroseconds"] = repaintSeconds / rounds / count * 1e6;
    a_state.counters["BytesPerButton"] = bytes;
}

BENCHMARK(BuildAndPaintButtons)->Arg(12)->Arg(100)->Arg(1000)->Iterations(10)->Unit(benchmark::kMillisecond);

} // namespace
