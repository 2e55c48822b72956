// Press and release on a widget, down to its click handler, with more and more other widgets in the tree.

#include "BenchStage.h"

#include <benchmark/benchmark.h>

#include <random>
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

void PressAndRelease(benchmark::State& a_state, WidgetPtr (*a_makeTree)(int, WidgetPtr&))
{
    WidgetPtr clicked;
    const WidgetPtr tree = a_makeTree(static_cast<int>(a_state.range(0)), clicked);
    Core::Functor<void, Gfx::Widgets::CWidget*, int, const Gfx::Common::CPoint&, bool>::Function handler(CountClick);
    clicked->SetClickEventHandler(&handler);
    Bench::Widgets().AddWidget(tree);
    auto& gfx = StaticSingleton<Gfx::Managers::CGfxManager>::ref();
    const int before = s_clicks;
    for (auto _ : a_state)
    {
        gfx.InjectMouseEvent(Gfx::Events::FirstDown, 10, 10, false);
        gfx.InjectMouseEvent(Gfx::Events::FirstUp, 10, 10, false);
    }
    Bench::Require(s_clicks - before == static_cast<int>(a_state.iterations()), "clicks were lost");
    clicked->SetClickEventHandler(nullptr);
    Bench::Widgets().DestroyWidget(tree.Get());
    Bench::Widgets().GarbageCollect();
}

void PressAndReleaseFlat(benchmark::State& a_state)
{
    PressAndRelease(a_state, MakeFlatTree);
}

void PressAndReleaseEightDeep(benchmark::State& a_state)
{
    PressAndRelease(a_state, MakeDeepTree);
}

/// The measure for the above: as many boxes, lying side by side in memory, each asked once whether a point is in it,
/// for both events.
void BoxesInMemory(benchmark::State& a_state)
{
    std::vector<Gfx::Common::CAABB> boxes;
    for (int i = 0; i < static_cast<int>(a_state.range(0)); ++i)
    {
        boxes.emplace_back(i % k_columns * 8, 20 + i / k_columns * 4, 7, 3);
    }
    const Gfx::Common::CAABB touch(10, 10, 1, 1);
    for (auto _ : a_state)
    {
        for (int event = 0; event < 2; ++event)
        {
            int hits = 0;
            for (const auto& box : boxes)
            {
                hits += box.Intersects(touch) ? 1 : 0;
            }
            benchmark::DoNotOptimize(hits);
        }
    }
}

BENCHMARK(PressAndReleaseFlat)->Arg(10)->Arg(1000)->Arg(10000);
BENCHMARK(PressAndReleaseEightDeep)->Arg(10)->Arg(1000)->Arg(10000);
BENCHMARK(BoxesInMemory)->Arg(10)->Arg(1000)->Arg(10000);

} // namespace

int main(int a_argc, char** a_argv)
{
    benchmark::Initialize(&a_argc, a_argv);
    Bench::SetUpStage();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
