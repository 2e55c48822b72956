#include "fuzz/support/Stage.h"

#include "Managers/Gfx/GfxManager.h"
#include "Managers/Textures/TextureManager.h"
#include "Platform/GL/GL.h"

#include <clutter/clutter.h>

#include <cstdlib>

namespace GfxFuzz
{

using Core::Patterns::StaticSingleton;
using GfxTest::WidgetPtr;

void CStage::Make(const std::string& a_data)
{
    setenv("LANGUAGE", "de", 1);
    // Everything draws, however little of it will be seen.
    setenv("CLUTTER_PAINT", "disable-culling", 1);
    SetUpStage(a_data);
    if (testing::Test::HasFailure())
    {
        std::abort();
    }
    StaticSingleton<Gfx::Managers::CTextureManager>::ref().LoadTextures();
    // All is drawn, and nothing made visible: pixels would take nine tenths of the time.
    glEnable(GL_RASTERIZER_DISCARD);
}

void CStage::Paint()
{
    ClutterActor* const stage = StaticSingleton<Gfx::Managers::CGfxManager>::ref().GetStage();
    // Asking for an allocation that is out of date brings the layout up to date.
    ClutterActorBox allocation;
    clutter_actor_get_allocation_box(stage, &allocation);
    g_free(clutter_stage_read_pixels(CLUTTER_STAGE(stage), 0, 0, 1, 1));
}

void CStage::Iterate()
{
    constexpr int most = 20;
    for (int i = 0; i < most && g_main_context_iteration(nullptr, FALSE) != FALSE; ++i)
    {
    }
}

void CStage::TouchAll()
{
    constexpr int step = 60;
    for (int y = step / 2; y < k_height; y += step)
    {
        for (int x = step / 2; x < k_width; x += step)
        {
            Press(x, y);
            MoveTo(x + step / 4, y + step / 2);
            Release(x + step / 4, y + step / 2);
        }
    }
}

void CStage::Clear()
{
    Widgets().MouseEvent(Gfx::Events::FirstUp, 0, {0, 0}, false);
    Widgets().SetKeyboardEventCallback(nullptr);
    Widgets().SetMousePointer({});
    // A handler may answer by adding more.
    for (int i = 0; i < 4 && !Widgets().TopLevelWidgets().empty(); ++i)
    {
        for (const WidgetPtr& widget : Widgets().TopLevelWidgets())
        {
            Widgets().DestroyWidget(widget.Get());
        }
        Widgets().GarbageCollect();
    }
}

} // namespace GfxFuzz
