// Heap: what a plain widget takes beside its actor, and what is left after many rounds of building and destroying.

#include "BenchStage.h"

#include <benchmark/benchmark.h>
#include <clutter/clutter.h>

#include <string>
#include <vector>

namespace
{

using Bench::CBlock;
using Bench::WidgetPtr;

constexpr int k_rounds = 10000;

void BytesPerWidget(benchmark::State& a_state)
{
    const int count = static_cast<int>(a_state.range(0));
    double widgetBytes = 0;
    double actorBytes = 0;
    for (auto _ : a_state)
    {
        WidgetPtr panel(new CBlock("panel", 0, 0, 800, 480));
        double before = Bench::HeapInUse();
        for (int i = 0; i < count; ++i)
        {
            panel->AddChild(WidgetPtr(new CBlock("other", 0, 0, 10, 10)));
        }
        widgetBytes = (Bench::HeapInUse() - before) / count;

        ClutterActor* const group = clutter_group_new();
        g_object_ref_sink(group);
        before = Bench::HeapInUse();
        for (int i = 0; i < count; ++i)
        {
            ClutterActor* const child = clutter_group_new();
            clutter_actor_set_position(child, 0, 0);
            clutter_actor_set_size(child, 10, 10);
            clutter_container_add_actor(CLUTTER_CONTAINER(group), child);
        }
        actorBytes = (Bench::HeapInUse() - before) / count;
        clutter_actor_destroy(group);
        g_object_unref(group);
    }
    a_state.counters["WithActor"] = widgetBytes;
    a_state.counters["ActorAlone"] = actorBytes;
    a_state.counters["BesideActor"] = widgetBytes - actorBytes;
}

void BuildPaintDestroy()
{
    constexpr int widgets = 20;
    WidgetPtr panel(new CBlock("panel", 0, 0, 800, 480));
    for (int i = 1; i < widgets; ++i)
    {
        panel->AddChild(WidgetPtr(new CBlock("other", i * 20, i * 10, 18, 8)));
    }
    Bench::Widgets().AddWidget(panel);
    Bench::PaintStage();
    Bench::Widgets().DestroyWidget(panel.Get());
    Bench::Widgets().GarbageCollect();
}

/// The growth is counted from the middle of the rounds on, once every pool has found its size.
void HeapAfterRounds(benchmark::State& a_state)
{
    double middle = 0;
    double end = 0;
    for (auto _ : a_state)
    {
        for (int round = 0; round < k_rounds; ++round)
        {
            if (round == k_rounds / 2)
            {
                middle = Bench::HeapInUse();
            }
            BuildPaintDestroy();
        }
        end = Bench::HeapInUse();
    }
    a_state.counters["Growth"] = end - middle;
    a_state.counters["BytesPerRound"] = (end - middle) / (k_rounds / 2);
}

BENCHMARK(BytesPerWidget)->Arg(1000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(HeapAfterRounds)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace
