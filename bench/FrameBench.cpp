// A 3D frame with entities of 1,000 triangles each: what it costs in processor time to paint it, as a whole and without
// drawing its pixels, and to find out which of them a touch hits; and what it costs to enter and leave OpenGL in a
// paint. AllocationsPerFrame counts those of C++ code, GlCallsPerFrame the toolkit's own calls; Redundant are those
// among them that switch something on or off that has been so already.

#include "BenchStage.h"
#include "Counters.h"
#include "GlCalls.h"

#include "Platform/GL/GlBracket.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace
{

using Core::Maths::Vector3;
using Core::Patterns::StaticSingleton;
using Gfx::Widgets::C3DFrame;

constexpr int k_triangles = 1000;
constexpr float k_radius = 0.5F;

/// A ball of bands, with coordinates of a texture that goes once around it.
Core::SharedPtr<Gfx::SGeometry> Ball()
{
    constexpr int bands = 20;
    constexpr int sectors = k_triangles / bands / 2;
    std::vector<Core::Maths::Vector2<float>> texCoords;
    std::vector<Vector3<float>> vertices;
    const auto add = [&](int a_band, int a_sector)
    {
        const float down = Core::Maths::Math<float>::PI * static_cast<float>(a_band) / bands;
        const float around = 2 * Core::Maths::Math<float>::PI * static_cast<float>(a_sector) / sectors;
        vertices.push_back(
            Vector3<float>(std::sin(down) * std::cos(around), std::cos(down), std::sin(down) * std::sin(around)) *
            k_radius);
        texCoords.emplace_back(static_cast<float>(a_sector) / sectors, static_cast<float>(a_band) / bands);
    };
    for (int band = 0; band < bands; ++band)
    {
        for (int sector = 0; sector < sectors; ++sector)
        {
            add(band, sector);
            add(band + 1, sector);
            add(band + 1, sector + 1);
            add(band, sector);
            add(band + 1, sector + 1);
            add(band, sector + 1);
        }
    }
    return Gfx::MakeGeometry(texCoords, vertices, k_radius, Gfx::egtTriangles);
}

Core::SharedPtr<Gfx::STexture> Checks()
{
    auto& models = StaticSingleton<Gfx::Managers::C3DManager>::ref();
    if (!models.GetTexture("checks"))
    {
        std::vector<unsigned char> pixels;
        for (int i = 0; i < 64 * 64; ++i)
        {
            pixels.insert(pixels.end(), 3, (i / 8 + i / 512) % 2 == 0 ? 220 : 90);
        }
        Bench::Require(models.RegisterTextureBuffer(pixels.data(), 64, 64, 3, "checks", 1, 0), "no texture");
    }
    return models.GetTexture("checks");
}

/// A frame of 400 by 300 pixels with balls side by side, alone on the stage.
struct SScene
{
    explicit SScene(int a_entities) : frame(new C3DFrame("frame", 200, 90, 400, 300, true))
    {
        const auto ball = Ball();
        const int columns = static_cast<int>(std::ceil(std::sqrt(a_entities)));
        for (int i = 0; i < a_entities; ++i)
        {
            const C3DFrame::EntityPtr entity(new Gfx::CTexturedEntity("ball " + std::to_string(i), Checks(), ball));
            const auto place = [columns](int a_index)
            { return static_cast<float>(a_index) - 0.5F * static_cast<float>(columns - 1); };
            entity->SetPosition({place(i % columns), place(i / columns), 0});
            frame->AddEntity(entity);
        }
        frame->SetViewPerspective(45, 100, 0.5F);
        frame->Camera_LookAt({0, 0, 0}, 0, 90, 0.6F * static_cast<float>(columns) + 0.5F);
        Bench::Widgets().AddWidget(frame);
        Bench::PaintStage();
        Bench::PaintWidget(*frame);
    }
    ~SScene()
    {
        Bench::Widgets().DestroyWidget(frame.Get());
        frame.Reset();
        Bench::Widgets().GarbageCollect();
    }
    SScene(const SScene&) = delete;
    SScene& operator=(const SScene&) = delete;

    Core::SharedPtr<C3DFrame> frame;
};

void Paint(benchmark::State& a_state, C3DFrame& a_frame)
{
    const long allocations = Bench::Counters().allocations;
    const Bench::SGlCalls calls = Bench::GlCalls();
    const Bench::CStopwatch stopwatch;
    for (auto _ : a_state)
    {
        Bench::PaintWidget(a_frame);
    }
    const double seconds = stopwatch.Seconds();
    const auto perFrame = [frames = static_cast<double>(a_state.iterations())](long a_before, long a_after)
    { return static_cast<double>(a_after - a_before) / frames; };
    const std::pair<const char*, double> counters[] = {
        {"AllocationsPerFrame", perFrame(allocations, Bench::Counters().allocations)},
        {"CpuMilliseconds", 1e3 * seconds / static_cast<double>(a_state.iterations())},
        {"GlCallsPerFrame", perFrame(calls.all, Bench::GlCalls().all)},
        {"Redundant", perFrame(calls.redundantSwitches, Bench::GlCalls().redundantSwitches)},
    };
    a_state.counters.insert(std::begin(counters), std::end(counters));
}

void PaintFrame(benchmark::State& a_state)
{
    const SScene scene(static_cast<int>(a_state.range(0)));
    Paint(a_state, *scene.frame);
}

/// Everything lies outside of the clip volume: no pixel is drawn.
void PaintFrameUnseen(benchmark::State& a_state)
{
    const SScene scene(static_cast<int>(a_state.range(0)));
    scene.frame->Camera_LookAt({0, 0, -500}, 0, 90, 1);
    Paint(a_state, *scene.frame);
}

/// What the frame costs on top of a plain widget of its size.
void PaintBlock(benchmark::State& a_state)
{
    Bench::WidgetPtr block(new Bench::CBlock("block", 200, 90, 400, 300));
    Bench::Widgets().AddWidget(block);
    Bench::PaintStage();
    const Bench::CStopwatch stopwatch;
    for (auto _ : a_state)
    {
        Bench::PaintWidget(*block);
    }
    a_state.counters["CpuMilliseconds"] = 1e3 * stopwatch.Seconds() / static_cast<double>(a_state.iterations());
    Bench::Widgets().DestroyWidget(block.Get());
    block.Reset();
    Bench::Widgets().GarbageCollect();
}

/// Enters and leaves OpenGL many times in one paint.
class CBrackets : public Gfx::Widgets::CWidget
{
public:
    static constexpr int k_brackets = 1000;

    CBrackets() : CWidget("brackets", "Brackets", 0, 0, 10, 10, false) { InitialiseClutterGroup(); }
    void DrawSelf() const override
    {
        const Bench::CStopwatch stopwatch;
        for (int i = 0; i < k_brackets; ++i)
        {
            const Platform::CGlBracket bracket;
        }
        seconds += stopwatch.Seconds();
    }

    mutable double seconds = 0;
};

void Bracket(benchmark::State& a_state)
{
    const Core::SharedPtr<CBrackets> brackets(new CBrackets);
    Bench::Widgets().AddWidget(brackets);
    Bench::PaintStage();
    brackets->seconds = 0;
    for (auto _ : a_state)
    {
        Bench::PaintWidget(*brackets);
    }
    a_state.counters["MicrosecondsEach"] =
        1e6 * brackets->seconds / static_cast<double>(a_state.iterations() * CBrackets::k_brackets);
    Bench::Widgets().DestroyWidget(brackets.Get());
    Bench::Widgets().GarbageCollect();
}

void Pick(benchmark::State& a_state)
{
    const SScene scene(static_cast<int>(a_state.range(0)));
    Bench::Require(scene.frame->EntityAt({200, 150}) || a_state.range(0) > 1, "nothing is hit");
    for (auto _ : a_state)
    {
        benchmark::DoNotOptimize(scene.frame->EntityAt({200, 150}));
    }
}

BENCHMARK(PaintBlock)->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(PaintFrame)->Arg(0)->Arg(1)->Arg(10)->Arg(100)->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(PaintFrameUnseen)->Arg(1)->Arg(10)->Arg(100)->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(Bracket)->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(Pick)->Arg(1)->Arg(100)->Arg(10000)->Unit(benchmark::kMicrosecond);

} // namespace
