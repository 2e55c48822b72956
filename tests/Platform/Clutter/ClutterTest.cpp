#include "Platform/Clutter/Clutter.h"

#include "support/StageTest.h"

#include <algorithm>
#include <functional>
#include <limits>

namespace
{

using Gfx::CColour;
using Gfx::Colours::Black;
using Gfx::Colours::Blue;
using Gfx::Colours::Lime;
using Gfx::Colours::Red;

constexpr ClutterColor k_white{255, 255, 255, 255};
constexpr ClutterColor k_background{40, 80, 200, 255};

/// A whole texture's quad, as the toolkit hands it over.
struct SQuad
{
    SQuad(double a_x1, double a_y1, double a_x2, double a_y2)
    {
        const double numbers[] = {a_x1, a_y1, a_x2, a_y2, 0, 0, 1, 1};
        std::transform(std::begin(numbers), std::end(numbers), values, clutter_double_to_fixed);
    }

    CoglFixed values[8];
};

/// Covers the stage, and draws what a test wants over the background.
class CCanvas : public Gfx::Widgets::CWidget
{
public:
    explicit CCanvas(std::function<void()> a_draw)
        : CWidget("canvas", "Canvas", 0, 0, 800, 480, false), m_draw(std::move(a_draw))
    {
        InitialiseClutterGroup();
    }
    void DrawSelf() const override
    {
        cogl_color(&k_background);
        cogl_rectanglex(0, 0, 800 << 16, 480 << 16);
        m_draw();
    }

private:
    std::function<void()> m_draw;
};

class ClutterTest : public GfxTest::CStageTest
{
protected:
    /// The stage with what a_draw draws on it, in this frame and all that follow in the test.
    static GfxTest::CPicture Draw(std::function<void()> a_draw)
    {
        AddTopLevel(new CCanvas(std::move(a_draw)));
        return FreshPicture();
    }

    static CoglHandle Texture(guint a_side, CoglPixelFormat a_format, const std::vector<guchar>& a_bytes)
    {
        return cogl_texture_new_from_data(a_side, a_side, 0, FALSE, a_format, COGL_PIXEL_FORMAT_ANY, 0, a_bytes.data());
    }
};

/// Compares a pixel with a texel, modulated by the current colour, over the background.
void ExpectBlend(const CColour& a_actual, const ClutterColor& a_texel, const ClutterColor& a_current)
{
    const double alpha = a_texel.alpha / 255.0 * a_current.alpha / 255.0;
    const auto blend = [alpha](int a_texelPart, int a_currentPart, int a_backgroundPart)
    { return a_texelPart * a_currentPart / 255.0 * alpha + a_backgroundPart * (1 - alpha); };
    EXPECT_NEAR(a_actual.Red(), blend(a_texel.red, a_current.red, k_background.red), 1.0);
    EXPECT_NEAR(a_actual.Green(), blend(a_texel.green, a_current.green, k_background.green), 1.0);
    EXPECT_NEAR(a_actual.Blue(), blend(a_texel.blue, a_current.blue, k_background.blue), 1.0);
}

TEST_F(ClutterTest, TexturesAreModulatedByTheCurrentColour)
{
    const struct
    {
        ClutterColor texel;
        ClutterColor current;
    } blends[] = {{k_white, k_white},
                  {{255, 0, 0, 255}, {255, 255, 255, 128}},
                  {{0, 255, 0, 128}, k_white},
                  {{0, 255, 0, 128}, {255, 255, 255, 128}},
                  {{200, 100, 50, 255}, {128, 128, 128, 255}},
                  {{200, 100, 50, 77}, {10, 200, 255, 99}},
                  {{255, 255, 255, 255}, {255, 0, 255, 1}},
                  {{255, 255, 255, 0}, k_white},
                  {{90, 250, 30, 255}, {255, 255, 255, 0}}};
    std::vector<CoglHandle> textures;
    for (const auto& [texel, current] : blends)
    {
        SCOPED_TRACE(clutter_color_to_pixel(&texel));
        CoglHandle texture = Texture(1, COGL_PIXEL_FORMAT_RGBA_8888, {texel.red, texel.green, texel.blue, texel.alpha});
        const auto draw = [texture, &colour = current]
        {
            cogl_color(&colour);
            cogl_texture_multiple_rectangles(texture, SQuad(0, 0, 20, 20).values, 1);
            const ClutterColor kept = cogl_current_color();
            EXPECT_TRUE(clutter_color_equal(&kept, &colour));
        };
        ExpectBlend(Draw(draw).At(10, 10), texel, current);
        textures.push_back(texture);
    }
    std::for_each(textures.begin(), textures.end(), cogl_texture_release);
}

TEST_F(ClutterTest, ATextureOfAlphaAloneIsAStencilForTheCurrentColour)
{
    // Each texel is so large that its outer half is pure.
    CoglHandle texture = Texture(2, COGL_PIXEL_FORMAT_A_8, {255, 128, 0, 255});
    const ClutterColor current{250, 120, 10, 200};
    const auto draw = [&]
    {
        cogl_color(&current);
        cogl_texture_multiple_rectangles(texture, SQuad(0, 0, 200, 200).values, 1);
    };
    const GfxTest::CPicture picture = Draw(draw);
    ExpectBlend(picture.At(10, 10), k_white, current);
    ExpectBlend(picture.At(190, 10), {255, 255, 255, 128}, current);
    ExpectBlend(picture.At(10, 190), {255, 255, 255, 0}, current);
    ExpectBlend(picture.At(190, 190), k_white, current);
    cogl_texture_release(texture);
}

TEST_F(ClutterTest, QuadsAreDrawnInOrderAndReversedOnesAreMirrored)
{
    CoglHandle texture = Texture(2, COGL_PIXEL_FORMAT_RGB_888, {255, 0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0});
    const std::vector<SQuad> quads{{0, 0, 40, 40},    {140, 0, 100, 40}, {200, 40, 240, 0},
                                   {340, 40, 300, 0}, {400, 0, 440, 40}, {420, 0, 460, 40}};
    const auto draw = [&]
    {
        cogl_color(&k_white);
        cogl_texture_multiple_rectangles(nullptr, quads.front().values, 6);
        cogl_texture_multiple_rectangles(texture, quads.front().values, 6);
        cogl_texture_multiple_rectangles(texture, SQuad(0, 0, 800, 480).values, 0);
        cogl_texture_multiple_rectangles(nullptr, SQuad(0, 0, 800, 480).values, 1);
    };
    const GfxTest::CPicture picture = Draw(draw);
    const struct
    {
        int x;
        CColour corners[4];
    } cases[] = {{0, {Red, Lime, Blue, Black}},
                 {100, {Lime, Red, Black, Blue}},
                 {200, {Blue, Black, Red, Lime}},
                 {300, {Black, Blue, Lime, Red}},
                 {420, {Red, Lime, Blue, Black}}};
    for (const auto& [x, corners] : cases)
    {
        EXPECT_EQ(picture.At(x + 5, 5), corners[0]) << x;
        EXPECT_EQ(picture.At(x + 35, 5), corners[1]) << x;
        EXPECT_EQ(picture.At(x + 5, 35), corners[2]) << x;
        EXPECT_EQ(picture.At(x + 35, 35), corners[3]) << x;
    }
    EXPECT_EQ(picture.At(700, 300), CColour(40, 80, 200, 255)) << "without a texture or quads nothing is drawn";
    cogl_texture_release(texture);
    cogl_texture_release(nullptr);
}

TEST_F(ClutterTest, FixedPointIsRoundedToNearestAndDrawsToThePixel)
{
    const struct
    {
        double value;
        CoglFixed fixed;
    } cases[] = {{0.1, 6554}, {0.3, 19661}, {1.0 / 3, 21845}, {-0.5, -32768}, {-0.1, -6554}, {799, 52363264}};
    for (const auto& [value, fixed] : cases)
    {
        EXPECT_EQ(clutter_double_to_fixed(value), fixed) << value;
    }
    EXPECT_GT(clutter_double_to_fixed(1e9), 32766 * 65536);
    EXPECT_LT(clutter_double_to_fixed(-std::numeric_limits<double>::infinity()), -32766 * 65536);
    EXPECT_EQ(clutter_double_to_fixed(std::numeric_limits<double>::quiet_NaN()), 0);

    const auto draw = []
    {
        cogl_color(&k_white);
        cogl_rectanglex(10 << 16, 20 << 16, 30 << 16, 40 << 16);
    };
    EXPECT_EQ(Draw(draw).Extent(Gfx::Colours::White), "10,20 30 x 40");
}

TEST_F(ClutterTest, AFinePatternIsGreyWhereItIsMadeSmallerAndItselfWhereItIsNot)
{
    // A third of it shows one texel of three, unless they are averaged.
    constexpr int side = 63;
    std::vector<guchar> bytes;
    for (int i = 0; i < side * side; ++i)
    {
        bytes.insert(bytes.end(), 3, (i % side + i / side) % 2 == 0 ? 255 : 0);
    }
    CoglHandle texture = Texture(side, COGL_PIXEL_FORMAT_RGB_888, bytes);
    const struct
    {
        double width;
        double height;
        double scale;
        bool isGrey;
    } cases[] = {{63, 63, 1, false},      {21, 21, 1, true},          {63, 21, 1, true}, {21, 63, 1, true},
                 {63, 63, 1.0 / 3, true}, {189, 189, 1.0 / 3, false}, {21, 21, 3, false}};
    for (const auto& [width, height, scale, isGrey] : cases)
    {
        SCOPED_TRACE(testing::Message() << width << " by " << height << ", scaled by " << scale);
        const auto draw = [&]
        {
            cogl_color(&k_white);
            cogl_texture_multiple_rectangles(texture, SQuad(0, 0, width, height).values, 1);
        };
        const auto canvas = AddTopLevel(new CCanvas(draw));
        clutter_actor_set_scale(canvas->GetActor(), scale, scale);
        const GfxTest::CPicture picture = FreshPicture();
        const auto isGreyAt = [&picture](int a_x, int a_y) { return std::abs(picture.At(a_x, a_y).Red() - 128) < 8; };
        EXPECT_EQ(isGreyAt(8, 8) && isGreyAt(9, 8) && isGreyAt(8, 9), isGrey) << picture.At(8, 8).Red();
        Widgets().DestroyWidget(canvas.Get());
    }
    cogl_texture_release(texture);
}

TEST_F(ClutterTest, AReleasedTextureDiesThoughItWasDrawn)
{
    static int deaths = 0;
    static CoglUserDataKey key;
    CoglHandle texture = Texture(1, COGL_PIXEL_FORMAT_RGB_888, {255, 0, 0});
    cogl_object_set_user_data(COGL_OBJECT(texture), &key, &key, [](void*) { ++deaths; });
    CoglHandle drawn = texture;
    const auto draw = [&drawn]
    {
        cogl_color(&k_white);
        cogl_texture_multiple_rectangles(drawn, SQuad(0, 0, 100, 100).values, 1);
    };
    EXPECT_EQ(Draw(draw).At(50, 50), Red);
    // Until another one is drawn, Cogl itself holds the last.
    drawn = Texture(1, COGL_PIXEL_FORMAT_RGB_888, {0, 255, 0});
    EXPECT_EQ(FreshPicture().At(50, 50), Lime);
    EXPECT_EQ(deaths, 0);
    cogl_texture_release(texture);
    EXPECT_EQ(deaths, 1);
    cogl_texture_release(drawn);
}

} // namespace
