// What a frame costs in processor time: the whole stage with 200 textured widgets on it, and one of them alone.

#include "BenchStage.h"

#include "Platform/Clutter/Clutter.h"

#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <vector>

namespace
{

using Bench::WidgetPtr;

constexpr int k_widgets = 200;
constexpr int k_columns = 20;

/// Draws nine stretched pieces of a texture, as a control with a border does.
class CTexturedBlock : public Gfx::Widgets::CWidget
{
public:
    CTexturedBlock(int a_x, int a_y, int a_width, int a_height, CoglHandle a_texture)
        : CWidget("textured", "Textured", a_x, a_y, a_width, a_height, false), m_texture(a_texture)
    {
        const std::array<int, 4> x{0, 8, a_width - 8, a_width};
        const std::array<int, 4> y{0, 8, a_height - 8, a_height};
        const std::array<int, 4> source{0, 0x4000, 0xC000, 0x10000};
        for (std::size_t row = 0; row < 3; ++row)
        {
            for (std::size_t column = 0; column < 3; ++column)
            {
                m_quads.push_back({x[column] << 16, y[row] << 16, x[column + 1] << 16, y[row + 1] << 16, source[column],
                                   source[row], source[column + 1], source[row + 1]});
            }
        }
        InitialiseClutterGroup();
    }
    void DrawSelf() const override { Gfx::Utilities::DrawTexturedQuads(m_quads, m_texture); }

private:
    CoglHandle m_texture;
    std::vector<Gfx::STexturedQuad> m_quads;
};

WidgetPtr s_panel;
std::vector<WidgetPtr> s_blocks;

/// Once, for all that follow.
void BuildScreen()
{
    if (s_panel)
    {
        return;
    }
    std::vector<guchar> pixels(64 * 64 * 4, 200);
    const CoglHandle texture = cogl_texture_new_from_data(64, 64, 0, FALSE, COGL_PIXEL_FORMAT_RGBA_8888,
                                                          COGL_PIXEL_FORMAT_ANY, 0, pixels.data());
    s_panel = WidgetPtr(new Bench::CBlock("panel", 0, 0, 800, 480));
    for (int i = 0; i < k_widgets; ++i)
    {
        s_blocks.emplace_back(new CTexturedBlock(i % k_columns * 40, i / k_columns * 48, 38, 44, texture));
        s_panel->AddChild(s_blocks.back());
    }
    Bench::Widgets().AddWidget(s_panel);
}

double s_secondsOfFullRepaint = 0;

/// Paints over and over; returns the processor seconds that one time takes.
template <typename PaintT>
double Repaint(benchmark::State& a_state, PaintT a_paint)
{
    const Bench::CStopwatch stopwatch;
    for (auto _ : a_state)
    {
        a_paint();
    }
    return stopwatch.Seconds() / static_cast<double>(a_state.iterations());
}

void FullRepaint(benchmark::State& a_state)
{
    BuildScreen();
    s_secondsOfFullRepaint = Repaint(a_state, Bench::PaintStage);
}

void OneWidgetRepaint(benchmark::State& a_state)
{
    BuildScreen();
    const double seconds = Repaint(a_state, [] { Bench::PaintWidget(*s_blocks[k_widgets / 2]); });
    a_state.counters["PartOfFull"] = seconds / s_secondsOfFullRepaint;
}

BENCHMARK(FullRepaint)->MeasureProcessCPUTime()->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(OneWidgetRepaint)->MeasureProcessCPUTime()->UseRealTime()->Unit(benchmark::kMicrosecond);

} // namespace
