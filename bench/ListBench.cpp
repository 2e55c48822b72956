// Lists and grids of more and more items: to fill one, to select an item, to scroll by a step and from end to end.
// Microseconds: what one of these takes.

#include "BenchStage.h"

#include <benchmark/benchmark.h>

#include <string>

namespace
{

using Bench::WidgetPtr;
using Gfx::Widgets::CListBox;
using Gfx::Widgets::CListGrid;

const std::string k_zone = "zone";

std::string Id(int a_index)
{
    return k_zone + std::to_string(a_index);
}

/// Actors of buttons that are gone wait to be collected, which an application's timer does every few seconds.
void CollectEvery(int a_rounds, int a_round)
{
    if (a_round % a_rounds == a_rounds - 1)
    {
        Bench::Widgets().GarbageCollect();
    }
}

void Add(CListBox& a_list, int a_index)
{
    a_list.AddItem({Id(a_index), "Zone " + std::to_string(a_index)}, true);
}

void Add(CListGrid& a_grid, int a_index)
{
    a_grid.AddItem({Id(a_index), "Icon_Home", "Zone " + std::to_string(a_index)});
}

void Fill(CListBox& a_list, int a_count)
{
    a_list.Freeze();
    for (int i = 0; i < a_count; ++i)
    {
        Add(a_list, i);
    }
    a_list.Thaw();
}

/// A grid makes its tiles anew for each item, so it is filled while it has the least number of them.
void Fill(CListGrid& a_grid, int a_count)
{
    a_grid.SetItemSize(500, 300, 48, 48);
    for (int i = 0; i < a_count; ++i)
    {
        Add(a_grid, i);
        CollectEvery(100, i);
    }
    a_grid.SetItemSize(140, 96, 48, 48);
}

template <typename ListT>
class CFilled
{
public:
    explicit CFilled(int a_count) : m_widget(new ListT("list", 100, 40, 564, 328, false))
    {
        Bench::Widgets().AddWidget(m_widget);
        Fill(List(), a_count);
        Bench::PaintStage();
    }
    ~CFilled()
    {
        Bench::Widgets().DestroyWidget(m_widget.Get());
        m_widget = WidgetPtr();
        Bench::Widgets().GarbageCollect();
    }
    CFilled(const CFilled&) = delete;
    CFilled& operator=(const CFilled&) = delete;

    [[nodiscard]] ListT& List() { return static_cast<ListT&>(*m_widget); }

private:
    WidgetPtr m_widget;
};

/// Does something over and over, and tells what one time takes.
template <typename ActionT>
void Measure(benchmark::State& a_state, ActionT a_action)
{
    double seconds = 0;
    int round = 0;
    for (auto _ : a_state)
    {
        const Bench::CStopwatch stopwatch;
        a_action(round);
        seconds += stopwatch.Seconds();
        CollectEvery(10, round++);
    }
    a_state.counters["Microseconds"] = seconds / static_cast<double>(a_state.iterations()) * 1e6;
}

/// The whole list, frozen, with the one layout at the end.
void FillFrozen(benchmark::State& a_state)
{
    const int count = static_cast<int>(a_state.range(0));
    CFilled<CListBox> filled(0);
    double seconds = 0;
    for (auto _ : a_state)
    {
        const Bench::CStopwatch stopwatch;
        Fill(filled.List(), count);
        seconds += stopwatch.Seconds();
        filled.List().ClearItems();
    }
    a_state.counters["Microseconds"] = seconds / static_cast<double>(a_state.iterations()) * 1e6;
}

template <typename ListT>
void AddOne(benchmark::State& a_state)
{
    const int count = static_cast<int>(a_state.range(0));
    CFilled<ListT> filled(count);
    Measure(a_state, [&](int a_round) { Add(filled.List(), count + a_round); });
}

template <typename ListT>
void SelectItem(benchmark::State& a_state)
{
    const int count = static_cast<int>(a_state.range(0));
    CFilled<ListT> filled(count);
    Measure(a_state, [&](int a_round) { filled.List().SelectItem(Id(a_round * 7919 % count), false); });
}

template <typename ListT>
void ScrollByStep(benchmark::State& a_state)
{
    CFilled<ListT> filled(static_cast<int>(a_state.range(0)));
    Measure(a_state,
            [&](int)
            {
                WidgetPtr button = Bench::Widgets().FindWidget("list:ScrollForward", nullptr);
                button = button ? button : Bench::Widgets().FindWidget("list:ScrollBackward", nullptr);
                Bench::Require(static_cast<bool>(button), "nothing to scroll by");
                button->MouseEvent(Gfx::Events::FirstClick, 0, {5, 5}, false);
            });
}

template <typename ListT>
void ScrollToEnds(benchmark::State& a_state)
{
    const int count = static_cast<int>(a_state.range(0));
    CFilled<ListT> filled(count);
    Measure(a_state, [&](int a_round) { filled.List().ScrollTo(Id(a_round % 2 == 0 ? count - 1 : 0)); });
}

void Sizes(benchmark::internal::Benchmark* a_benchmark)
{
    a_benchmark->Arg(10)->Arg(1000)->Arg(100'000)->Iterations(100)->Unit(benchmark::kMillisecond);
}

void FewRounds(benchmark::internal::Benchmark* a_benchmark)
{
    a_benchmark->Arg(10)->Arg(1000)->Arg(100'000)->Iterations(10)->Unit(benchmark::kMillisecond);
}

BENCHMARK(FillFrozen)->Apply(FewRounds);
BENCHMARK(AddOne<CListBox>)->Apply(Sizes);
BENCHMARK(SelectItem<CListBox>)->Apply(Sizes);
BENCHMARK(ScrollByStep<CListBox>)->Apply(Sizes);
BENCHMARK(ScrollToEnds<CListBox>)->Apply(Sizes);
BENCHMARK(AddOne<CListGrid>)->Apply(Sizes);
BENCHMARK(SelectItem<CListGrid>)->Apply(Sizes);
BENCHMARK(ScrollByStep<CListGrid>)->Apply(Sizes);
BENCHMARK(ScrollToEnds<CListGrid>)->Apply(Sizes);

} // namespace
