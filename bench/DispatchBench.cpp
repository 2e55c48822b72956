// Press and release on a widget, down to its click handler, with more and more other widgets in the tree.
// xBoxes: against as many boxes in memory, in the same run. xSmallest: the growth.

#include "BenchStage.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace
{

using Bench::CBlock;
using Bench::WidgetPtr;
using Core::Patterns::StaticSingleton;

int s_clicks = 0;

void CountClick(Gfx::Widgets::CWidget*, int, const Gfx::Common::CPoint&, bool)
{
    ++s_clicks;
}

constexpr int k_columns = 100;
constexpr int k_smallest = 10;

/// A panel over the whole stage with a_count widgets side by side, and the one that is clicked.
WidgetPtr MakeFlatTree(int a_count, WidgetPtr& a_clicked)
{
    WidgetPtr panel(new CBlock("panel", 0, 0, 800, 480));
    for (int i = 0; i < a_count; ++i)
    {
        panel->AddChild(WidgetPtr(new CBlock("other", i % k_columns * 8, 20 + i / k_columns * 4, 7, 3)));
    }
    a_clicked = WidgetPtr(new CBlock("clicked", 0, 0, 40, 16));
    panel->AddChild(a_clicked);
    return panel;
}

/// The same number in panels nested eight deep, each covering the stage; the one that is clicked is in the innermost.
WidgetPtr MakeDeepTree(int a_count, WidgetPtr& a_clicked)
{
    constexpr int depth = 8;
    WidgetPtr outermost(new CBlock("panel", 0, 0, 800, 480));
    WidgetPtr panel = outermost;
    for (int level = 0; level < depth; ++level)
    {
        for (int i = level; i < a_count; i += depth)
        {
            panel->AddChild(WidgetPtr(new CBlock("other", i % k_columns * 8, 20 + i / k_columns * 4, 7, 3)));
        }
        if (level < depth - 1)
        {
            WidgetPtr inner(new CBlock("panel", 0, 0, 800, 480));
            panel->AddChild(inner);
            panel = inner;
        }
    }
    a_clicked = WidgetPtr(new CBlock("clicked", 0, 0, 40, 16));
    panel->AddChild(a_clicked);
    return outermost;
}

/// What the figures are held against: the time in which as many boxes, lying side by side in memory, are each asked
/// once for each of the two events whether a point is in them.
double SecondsForBoxes(int a_count)
{
    std::vector<Gfx::Common::CAABB> boxes;
    for (int i = 0; i < a_count; ++i)
    {
        boxes.emplace_back(i % k_columns * 8, 20 + i / k_columns * 4, 7, 3);
    }
    const Gfx::Common::CAABB touch(10, 10, 1, 1);
    const int rounds = 2 * (1 + 2'000'000 / a_count);
    const Bench::CStopwatch stopwatch;
    for (int round = 0; round < rounds; ++round)
    {
        int hits = 0;
        for (const auto& box : boxes)
        {
            hits += box.Intersects(touch) ? 1 : 0;
        }
        benchmark::DoNotOptimize(hits);
    }
    return stopwatch.Seconds() / rounds * 2;
}

void PressAndRelease(benchmark::State& a_state, WidgetPtr (*a_makeTree)(int, WidgetPtr&), double& a_secondsOfSmallest)
{
    WidgetPtr clicked;
    const WidgetPtr tree = a_makeTree(static_cast<int>(a_state.range(0)), clicked);
    Core::Functor<void, Gfx::Widgets::CWidget*, int, const Gfx::Common::CPoint&, bool>::Function handler(CountClick);
    clicked->SetClickEventHandler(&handler);
    Bench::Widgets().AddWidget(tree);
    auto& gfx = StaticSingleton<Gfx::Managers::CGfxManager>::ref();
    const int before = s_clicks;
    const Bench::CStopwatch stopwatch;
    for (auto _ : a_state)
    {
        gfx.InjectMouseEvent(Gfx::Events::FirstDown, 10, 10, false);
        gfx.InjectMouseEvent(Gfx::Events::FirstUp, 10, 10, false);
    }
    const double seconds = stopwatch.Seconds() / static_cast<double>(a_state.iterations());
    if (a_state.range(0) == k_smallest)
    {
        a_secondsOfSmallest = seconds;
    }
    a_state.counters["xBoxes"] = seconds / SecondsForBoxes(static_cast<int>(a_state.range(0)));
    a_state.counters["xSmallest"] = seconds / a_secondsOfSmallest;
    Bench::Require(s_clicks - before == static_cast<int>(a_state.iterations()), "clicks were lost");
    clicked->SetClickEventHandler(nullptr);
    Bench::Widgets().DestroyWidget(tree.Get());
    Bench::Widgets().GarbageCollect();
}

void PressAndReleaseFlat(benchmark::State& a_state)
{
    static double s_secondsOfSmallest = 0;
    PressAndRelease(a_state, MakeFlatTree, s_secondsOfSmallest);
}

void PressAndReleaseEightDeep(benchmark::State& a_state)
{
    static double s_secondsOfSmallest = 0;
    PressAndRelease(a_state, MakeDeepTree, s_secondsOfSmallest);
}

BENCHMARK(PressAndReleaseFlat)->Arg(k_smallest)->Arg(1000)->Arg(10000);
BENCHMARK(PressAndReleaseEightDeep)->Arg(k_smallest)->Arg(1000)->Arg(10000);

} // namespace
