#include "BenchStage.h"

#include <clutter/clutter.h>
#include <malloc.h>

#include <cstdio>
#include <cstdlib>

namespace Bench
{

using Core::Patterns::StaticSingleton;
using Gfx::Managers::CGfxManager;

namespace
{

int s_frames = 0;

void CountFrame(ClutterStage*, gpointer)
{
    ++s_frames;
}

} // namespace

CBlock::CBlock(const std::string& a_name, int a_x, int a_y, int a_width, int a_height)
    : CWidget(a_name, "Block", a_x, a_y, a_width, a_height, false)
{
    InitialiseClutterGroup();
}

void CBlock::DrawSelf() const
{
    Gfx::Utilities::FillRectangle({0, 0, Width(), Height()}, Gfx::Colours::SteelBlue);
}

void SetUpStage()
{
    setenv("CLUTTER_DEFAULT_FPS", "1000", 1);
    auto& logger = StaticSingleton<Core::Logging::CLogger>::ref();
    logger.Configure(Core::Logging::ELogEventLevel{4}, Core::Logging::ELogEventLevel{4}, false, "");
    CGfxManager& gfx = StaticSingleton<CGfxManager>::ref();
    Require(gfx.Setup(GFX_BENCH_DATA, "benchmark", {0, 0}, 800, 480, 0, nullptr, Gfx::Colours::Black), "no display");
    g_signal_connect(gfx.GetStage(), "after-paint", G_CALLBACK(CountFrame), nullptr);
    clutter_actor_show(gfx.GetStage());
    // The scene graph repaints nothing but whole stages until a while after the last change of the stage's size.
    for (const gint64 end = g_get_monotonic_time() + 1'500'000; g_get_monotonic_time() < end;)
    {
        PaintStage();
    }
}

Gfx::Managers::CWidgetManager& Widgets()
{
    return StaticSingleton<Gfx::Managers::CWidgetManager>::ref();
}

void WaitForFrame()
{
    for (const int before = s_frames; s_frames == before;)
    {
        g_main_context_iteration(nullptr, TRUE);
    }
}

void PaintStage()
{
    clutter_actor_queue_redraw(StaticSingleton<CGfxManager>::ref().GetStage());
    WaitForFrame();
}

void PaintWidget(Gfx::Widgets::CWidget& a_widget)
{
    a_widget.Invalidate(false);
    WaitForFrame();
}

double HeapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

void Require(bool a_condition, const char* a_what)
{
    if (!a_condition)
    {
        std::fprintf(stderr, "benchmark: %s\n", a_what);
        std::exit(1);
    }
}

} // namespace Bench
