// A graph of ten series of a thousand points: what a point costs, and a frame.

#include "BenchStage.h"
#include "Counters.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <string>

namespace
{

using Bench::WidgetPtr;
using Gfx::Widgets::CGraph;

constexpr int k_series = 10;
constexpr unsigned int k_points = 1000;

std::string SeriesName(int a_index)
{
    return "series " + std::to_string(a_index);
}

struct SGraph
{
    SGraph(Gfx::EAutoScaleMode a_mode, int a_seriesCount)
        : graph(new CGraph("graph", 0, 0, 800, 480, a_mode, a_mode, true, true)), widget(graph)
    {
        Bench::Widgets().AddWidget(widget);
        graph->SetXRange(0, k_points);
        graph->SetYRange(-2, 2);
        for (int i = 0; i < a_seriesCount; ++i)
        {
            graph->AddSeries(SeriesName(i), Gfx::Colours::DarkRed, 1.0F, k_points);
        }
        for (unsigned int i = 0; i < k_points; ++i)
        {
            for (int j = 0; j < a_seriesCount; ++j)
            {
                Add(j);
            }
            ++now;
        }
        Bench::PaintStage();
        Bench::PaintStage();
    }
    ~SGraph()
    {
        Bench::Widgets().DestroyWidget(graph);
        widget = WidgetPtr();
        Bench::Widgets().GarbageCollect();
    }
    SGraph(const SGraph&) = delete;
    SGraph& operator=(const SGraph&) = delete;

    void Add(int a_series)
    {
        graph->AddPoint(SeriesName(a_series), now, std::sin(now / 50.0) + a_series * 0.05, false);
    }

    CGraph* graph;
    WidgetPtr widget;
    double now = 0;
};

/// A point for a full series, in a graph with the number of series that the argument says.
void AddPoint(benchmark::State& a_state, Gfx::EAutoScaleMode a_mode)
{
    SGraph screen(a_mode, static_cast<int>(a_state.range(0)));
    const std::string name = SeriesName(0);
    const long before = Bench::Counters().allocations;
    for (auto _ : a_state)
    {
        screen.now += 1;
        screen.graph->AddPoint(name, screen.now, static_cast<double>(a_state.iterations() % 7), false);
    }
    a_state.counters["Allocations"] =
        static_cast<double>(Bench::Counters().allocations - before) / static_cast<double>(a_state.iterations());
}

/// A frame of the whole graph, with as many new points for each series before it as the second argument says.
void Frame(benchmark::State& a_state, Gfx::EAutoScaleMode a_mode)
{
    const auto seriesCount = static_cast<int>(a_state.range(0));
    SGraph screen(a_mode, seriesCount);
    const auto frame = [&]
    {
        for (int i = 0; i < a_state.range(1); ++i)
        {
            screen.now += 1;
            for (int j = 0; j < seriesCount; ++j)
            {
                screen.Add(j);
            }
        }
        Bench::PaintStage();
    };
    for (int i = 0; i < 4; ++i)
    {
        frame();
    }
    const Bench::SCounters before = Bench::Counters();
    const Bench::CStopwatch stopwatch;
    for (auto _ : a_state)
    {
        frame();
    }
    const double seconds = stopwatch.Seconds();
    const Bench::SCounters after = Bench::Counters();
    const auto each = [&a_state](double a_value) { return a_value / static_cast<double>(a_state.iterations()); };
    a_state.counters["Milliseconds"] = each(seconds) * 1e3;
    a_state.counters["Draws"] = each(static_cast<double>(after.draws - before.draws));
    a_state.counters["Allocations"] = each(static_cast<double>(after.allocations - before.allocations));
}

BENCHMARK_CAPTURE(AddPoint, Off, Gfx::easmOff)->Arg(1)->Arg(k_series);
BENCHMARK_CAPTURE(AddPoint, Scale, Gfx::easmScale)->Arg(1)->Arg(k_series);
BENCHMARK_CAPTURE(AddPoint, Slide, Gfx::easmSlide)->Arg(1)->Arg(k_series);
BENCHMARK_CAPTURE(Frame, Off, Gfx::easmOff)
    ->Args({0, 0})
    ->Args({k_series, 0})
    ->Args({k_series, 1})
    ->Iterations(300)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Frame, Slide, Gfx::easmSlide)->Args({k_series, 1})->Iterations(300)->Unit(benchmark::kMillisecond);

} // namespace
