#include "Managers/Gfx/GfxManager.h"
#include "support/Png.h"
#include "support/StageTest.h"

#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>

#include <cstring>
#include <memory>

namespace
{

using Gfx::CColour;
using Gfx::Managers::CGfxManager;
using GfxTest::CBlock;
using GfxTest::CPicture;
using GfxTest::DecodePng;

constexpr CColour k_orange(250, 120, 10, 255);
constexpr CColour k_teal(10, 130, 140, 255);

class ScreenShotTest : public GfxTest::CStageTest
{
protected:
    /// Two blocks at opposite corners, one of them cutting off its child.
    void SetUp() override
    {
        CStageTest::SetUp();
        first = AddTopLevel(new CBlock("first", 0, 0, 30, 20, k_orange, true));
        AddChild(*first, new CBlock("child", 20, 10, 50, 50, Gfx::Colours::White));
        second = AddTopLevel(new CBlock("second", 760, 450, 40, 30, k_teal));
    }

    /// Compares true pictures with the stage, as it is now and as it will be once the main loop has painted it.
    void ExpectTruePictures()
    {
        const CPicture once = DecodePng(gfx.TrueScreenShot());
        const CPicture twice = DecodePng(gfx.TrueScreenShot());
        EXPECT_EQ(once.Width(), 800);
        EXPECT_EQ(once.Height(), 480);
        EXPECT_EQ(once.CountDifferences(twice), 0);
        EXPECT_EQ(once.CountDifferences(ShownPicture()), 0);
        Settle();
        EXPECT_EQ(once.CountDifferences(ShownPicture()), 0);
        EXPECT_EQ(once.CountDifferences(FreshPicture()), 0);
    }

    CGfxManager& gfx = Core::Patterns::StaticSingleton<CGfxManager>::ref();
    Core::SharedPtr<CBlock> first;
    Core::SharedPtr<CBlock> second;
};

TEST_F(ScreenShotTest, WithoutAStageThereIsNoPicture)
{
    testing::internal::CaptureStdout();
    EXPECT_EQ(CGfxManager().ScreenShot(), "");
    EXPECT_EQ(CGfxManager().TrueScreenShot(), "");
    const std::string line = "ERROR: failed to malloc mem for buffer\n";
    EXPECT_EQ(testing::internal::GetCapturedStdout(), line + line);
}

TEST_F(ScreenShotTest, APictureIsRightAtOnce)
{
    const CPicture picture = DecodePng(gfx.TrueScreenShot());
    EXPECT_EQ(picture.Extent(k_orange), "holes in 0,0 30 x 20");
    EXPECT_EQ(picture.Extent(Gfx::Colours::White), "20,10 10 x 10");
    EXPECT_EQ(picture.Extent(k_teal), "760,450 40 x 30");
    ExpectTruePictures();

    second->Move({300, 200});
    EXPECT_EQ(DecodePng(gfx.TrueScreenShot()).Extent(k_teal), "300,200 40 x 30");
    ExpectTruePictures();
}

TEST_F(ScreenShotTest, APictureIsRightAfterAClippedRedraw)
{
    WaitForClippedRedraws();
    const int draws = first->draws;
    second->Move({700, 400});
    EXPECT_EQ(Settle(), 1);
    ASSERT_EQ(first->draws, draws) << "the redraw was not clipped";
    ExpectTruePictures();
}

TEST_F(ScreenShotTest, APictureNeitherChangesTheStageNorStandsInForAFrame)
{
    Settle();
    const CPicture before = ShownPicture();
    EXPECT_NE(gfx.ScreenShot(), "");
    EXPECT_NE(gfx.TrueScreenShot(), "");
    EXPECT_EQ(ShownPicture().CountDifferences(before), 0);
    EXPECT_EQ(Settle(), 0);
    EXPECT_EQ(FreshPicture().CountDifferences(before), 0);
    second->Move({300, 200});
    EXPECT_NE(gfx.TrueScreenShot(), "");
    EXPECT_EQ(Settle(), 1);
    EXPECT_EQ(ShownPicture().Extent(k_teal), "300,200 40 x 30");
}

TEST_F(ScreenShotTest, ColoursAreExchangedUnlessTheDriverPrefersBgra)
{
    const CPicture truth = DecodePng(gfx.TrueScreenShot());
    const CPicture given = DecodePng(gfx.ScreenShot());
    GLint format = GL_RGBA;
    if (std::strstr(reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS)), "GL_OES_read_format") != nullptr)
    {
        glGetIntegerv(GL_IMPLEMENTATION_COLOR_READ_FORMAT, &format);
    }
    for (const CColour& colour : {k_orange, k_teal, Gfx::Colours::Black})
    {
        const CColour exchanged(colour.Blue(), colour.Green(), colour.Red(), 255);
        EXPECT_EQ(given.Extent(format == GL_BGRA ? colour : exchanged), truth.Extent(colour));
    }
}

TEST_F(ScreenShotTest, RawPixelsBeginAtTheBottom)
{
    int width = 0;
    int height = 0;
    const std::unique_ptr<unsigned char[]> pixels(gfx.RawScreenShot(width, height));
    ASSERT_EQ(width, 800);
    ASSERT_EQ(height, 480);
    const auto green = [&](int a_x, int a_row)
    { return int{pixels[static_cast<std::size_t>((a_row * 800 + a_x) * 4 + 1)]}; };
    EXPECT_EQ(green(0, 0), 0);
    EXPECT_EQ(green(799, 0), k_teal.Green());
    EXPECT_EQ(green(760, 29), k_teal.Green());
    EXPECT_EQ(green(760, 30), 0);
    EXPECT_EQ(green(0, 479), k_orange.Green());
    EXPECT_EQ(green(0, 459), 0);
}

} // namespace
