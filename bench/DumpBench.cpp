// The status dump of a screen of a thousand widgets.

#include "BenchStage.h"

#include <benchmark/benchmark.h>

#include <string>

namespace
{

using Bench::WidgetPtr;
using namespace Gfx::Widgets;

constexpr int k_panels = 20;
constexpr int k_buttons = 49;

void DumpThousandWidgets(benchmark::State& a_state)
{
    const WidgetPtr root(new CPanel("screen", 0, 0, 800, 480, false, true));
    for (int i = 0; i < k_panels; ++i)
    {
        const WidgetPtr panel(new CPanel("panel" + std::to_string(i), 0, i * 20, 800, 20, false, false));
        root->AddChild(panel);
        for (int j = 0; j < k_buttons; ++j)
        {
            auto* const button = new CButton("button" + std::to_string(j), j * 16, 0, 16, 16, false);
            button->Text("Salt & pepper");
            panel->AddChild(WidgetPtr(button));
        }
    }
    Bench::Widgets().AddWidget(root);
    std::string text;
    for (auto _ : a_state)
    {
        text = root->GetWidgetInfo();
    }
    int widgets = 0;
    for (std::size_t at = 0; (at = text.find("<Widget ", at)) != std::string::npos; ++at)
    {
        ++widgets;
    }
    Bench::Require(widgets == 1 + k_panels * (1 + k_buttons), "the dump isn't whole");
    a_state.counters["Bytes"] = static_cast<double>(text.size());
    Bench::Widgets().DestroyWidget(root.Get());
    Bench::Widgets().GarbageCollect();
}

BENCHMARK(DumpThousandWidgets)->Unit(benchmark::kMillisecond);

} // namespace
