#include "Managers/3D/3DManager.h"
#include "Managers/Gfx/GfxManager.h"
#include "Managers/Widgets/WidgetManager.h"
#include "support/OwnProcess.h"
#include "support/Png.h"
#include "support/StageTest.h"

#include <clutter/clutter.h>

namespace
{

using Core::Patterns::StaticSingleton;
using Gfx::Colours::Navy;
using Gfx::Colours::Orange;
using Gfx::Managers::CGfxManager;
using GfxTest::CPicture;

/// Compares a picture taken now with where the only block is to be.
void ExpectPicture(const char* a_moment, const std::string& a_block)
{
    CGfxManager& gfx = StaticSingleton<CGfxManager>::ref();
    const CPicture picture = GfxTest::DecodePng(gfx.TrueScreenShot());
    EXPECT_EQ(picture.Width(), gfx.DisplayWidth()) << a_moment;
    EXPECT_EQ(picture.Height(), gfx.DisplayHeight()) << a_moment;
    EXPECT_EQ(picture.Extent(Orange), a_block) << a_moment;
    EXPECT_EQ(picture.Count(Orange) + picture.Count(Navy), picture.Width() * picture.Height()) << a_moment;
}

int s_frames = 0;

void TakePicturesFromTheStartOn(int a_width, int a_height, const std::string& a_block, bool a_hasModels = false)
{
    CGfxManager& gfx = StaticSingleton<CGfxManager>::ref();
    EXPECT_TRUE(gfx.Setup(GFX_TEST_DATA, "early", {0, 0}, a_width, a_height, 0, nullptr, Navy));
    if (a_hasModels)
    {
        // OpenGL is used before there is anything to paint.
        auto& models = StaticSingleton<Gfx::Managers::C3DManager>::ref();
        EXPECT_TRUE(models.RegisterTextureBuffer(nullptr, 8, 8, 4, "texture", 1, 0));
    }
    ExpectPicture("at first", "none");
    const GfxTest::WidgetPtr block(new GfxTest::CBlock("block", a_width - 40, a_height - 60, 40, 60, Orange));
    StaticSingleton<Gfx::Managers::CWidgetManager>::ref().AddWidget(block);
    ExpectPicture("with a widget on a stage that isn't shown", "none");

    clutter_actor_show(gfx.GetStage());
    ExpectPicture("before the first frame", a_block);
    ExpectPicture("again before the first frame", a_block);

    g_signal_connect(gfx.GetStage(), "after-paint", G_CALLBACK(+[](ClutterStage*, gpointer) { ++s_frames; }), nullptr);
    while (s_frames == 0)
    {
        g_main_context_iteration(nullptr, TRUE);
    }
    block->Move({100, 7});
    ExpectPicture("after the first frame", "100,7 40 x 60");
    StaticSingleton<Gfx::Managers::CWidgetManager>::ref().DestroyWidget(block.Get());
}

using EarlyScreenShotTest = GfxTest::COwnProcessTest;

// The window is made in a size that is too high for the one and too small for the other.
TEST_F(EarlyScreenShotTest, PicturesAreRightFromBeforeTheFirstFrameOn)
{
    EXPECT_EXIT(GfxTest::RunToEnd([] { TakePicturesFromTheStartOn(640, 360, "600,300 40 x 60"); }),
                testing::ExitedWithCode(0), "");
    for (const bool hasModels : {false, true})
    {
        EXPECT_EXIT(GfxTest::RunToEnd([=] { TakePicturesFromTheStartOn(1000, 700, "960,640 40 x 60", hasModels); }),
                    testing::ExitedWithCode(0), "");
    }
}

} // namespace
