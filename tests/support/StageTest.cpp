#include "support/StageTest.h"

#include "Core/Time.h"
#include "Gfx/Common/Drawing.h"
#include "Managers/Gfx/GfxManager.h"
#include "Managers/Input/InputManager.h"
#include "Managers/Textures/TextureManager.h"
#include "Managers/Themes/ThemeManager.h"
#include "support/TemporaryDirectory.h"
#include "support/Valgrind.h"

#include <GL/gl.h>
#include <clutter/clutter.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <utility>

namespace GfxTest
{

using Core::Patterns::StaticSingleton;
using Gfx::Managers::CGfxManager;
using Gfx::Managers::CInputManager;
using Gfx::Managers::CWidgetManager;

namespace
{

std::int64_t s_now = 0;

std::int64_t StandingClock()
{
    return s_now;
}

int s_frames = 0;

void CountFrame(ClutterStage*, gpointer)
{
    ++s_frames;
}

/// Waits for whatever the main loop has a deadline for; false if there is nothing of the kind.
bool IsSomethingToCome()
{
    GMainContext* context = g_main_context_default();
    gint priority = 0;
    g_main_context_prepare(context, &priority);
    gint timeout = -1;
    std::array<GPollFD, 64> descriptors{};
    g_main_context_query(context, priority, &timeout, descriptors.data(), descriptors.size());
    if (timeout < 0)
    {
        return false;
    }
    g_main_context_iteration(context, TRUE);
    return true;
}

std::vector<WidgetPtr> s_topLevels;

CPicture ReadBuffer()
{
    std::array<GLint, 4> viewport{};
    glGetIntegerv(GL_VIEWPORT, viewport.data());
    const int width = viewport[2];
    const int height = viewport[3];
    const std::size_t rowSize = static_cast<std::size_t>(width) * 4;
    std::vector<std::uint8_t> bottomUp(rowSize * static_cast<std::size_t>(height));
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
    glPixelStorei(GL_PACK_SKIP_ROWS, 0);
    glPixelStorei(GL_PACK_SKIP_PIXELS, 0);
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, bottomUp.data());
    TakePixelsAsDefined(bottomUp.data(), bottomUp.size());
    std::vector<std::uint8_t> pixels;
    pixels.reserve(bottomUp.size());
    for (int y = height - 1; y >= 0; --y)
    {
        const auto row = bottomUp.begin() + static_cast<std::ptrdiff_t>(rowSize) * y;
        pixels.insert(pixels.end(), row, row + static_cast<std::ptrdiff_t>(rowSize));
    }
    return {std::move(pixels), width, height};
}

} // namespace

CBlock::CBlock(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, const Gfx::CColour& a_colour,
               bool a_scissor)
    : CWidget(a_name, "Block", a_x, a_y, a_width, a_height, a_scissor), m_colour(a_colour)
{
    InitialiseClutterGroup();
}

void CBlock::DrawSelf() const
{
    ++draws;
    Gfx::Utilities::FillRectangle({0, 0, Width() + overhang, Height() + overhang}, m_colour);
}

Gfx::CColour CPicture::At(int a_x, int a_y) const
{
    const std::uint8_t* pixel = m_pixels.data() + (static_cast<std::ptrdiff_t>(a_y) * m_width + a_x) * 4;
    return {pixel[0], pixel[1], pixel[2], 255};
}

int CPicture::CountIf(const Question& a_is) const
{
    int count = 0;
    for (int y = 0; y < m_height; ++y)
    {
        for (int x = 0; x < m_width; ++x)
        {
            count += a_is(x, y) ? 1 : 0;
        }
    }
    return count;
}

Gfx::Common::CAABB CPicture::BoxOf(const Question& a_is) const
{
    int left = m_width;
    int top = m_height;
    int right = 0;
    int bottom = 0;
    const int count = CountIf(
        [&](int a_x, int a_y)
        {
            if (!a_is(a_x, a_y))
            {
                return false;
            }
            left = std::min(left, a_x);
            top = std::min(top, a_y);
            right = std::max(right, a_x + 1);
            bottom = std::max(bottom, a_y + 1);
            return true;
        });
    return count > 0 ? Gfx::Common::CAABB(left, top, right - left, bottom - top) : Gfx::Common::CAABB();
}

int CPicture::CountDifferences(const CPicture& a_other) const
{
    if (m_width != a_other.m_width || m_height != a_other.m_height)
    {
        return std::max(m_width * m_height, 1);
    }
    return CountIf([&](int a_x, int a_y) { return At(a_x, a_y) != a_other.At(a_x, a_y); });
}

int CPicture::Count(const Gfx::CColour& a_colour) const
{
    return CountIf([&](int a_x, int a_y) { return At(a_x, a_y) == a_colour; });
}

std::string CPicture::Extent(const Gfx::CColour& a_colour) const
{
    const Gfx::Common::CAABB box = BoxOf([&](int a_x, int a_y) { return At(a_x, a_y) == a_colour; });
    if (box.Width() == 0)
    {
        return "none";
    }
    return (Count(a_colour) == box.Width() * box.Height() ? "" : "holes in ") + std::to_string(box.Left()) + ',' +
           std::to_string(box.Top()) + ' ' + std::to_string(box.Width()) + " x " + std::to_string(box.Height());
}

std::string ShownText(ClutterActor* a_actor)
{
    char* text = nullptr;
    g_object_get(a_actor, "text", &text, nullptr);
    const std::string shown = text;
    g_free(text);
    return shown;
}

Gfx::CColour TextColour(ClutterActor* a_actor)
{
    ClutterColor* colour = nullptr;
    g_object_get(a_actor, "color", &colour, nullptr);
    const Gfx::CColour result(colour->red, colour->green, colour->blue, colour->alpha);
    clutter_color_free(colour);
    return result;
}

void CStageTest::SetUpTestSuite()
{
    SetUpStage(GFX_TEST_DATA);
}

void CStageTest::SetUpStage(const std::string& a_basePath)
{
    CGfxManager& gfx = StaticSingleton<CGfxManager>::ref();
    if (gfx.GetStage() != nullptr)
    {
        return;
    }
    Core::Time::SetSource(StandingClock);
    setenv("CLUTTER_DEFAULT_FPS", "1000", 1);
    // A font of the tests' own, so that sizes and pixels are the same everywhere.
    setenv("FONTCONFIG_FILE", GFX_TEST_DATA "Fonts/fonts.conf", 1);
    ASSERT_TRUE(gfx.Setup(a_basePath, "test", {0, 0}, k_width, k_height, 0, nullptr, Gfx::Colours::Black));
    g_signal_connect(gfx.GetStage(), "after-paint", G_CALLBACK(CountFrame), nullptr);
    StaticSingleton<CInputManager>::ref().UseCalibration(CInputManager::k_identity);
    StaticSingleton<CInputManager>::ref().ConnectClutter();
    clutter_actor_show(gfx.GetStage());
    while (s_frames == 0)
    {
        g_main_context_iteration(nullptr, TRUE);
    }
}

void CStageTest::SetUpConfiguredStage(const std::string& a_configuration)
{
    if (StaticSingleton<CGfxManager>::ref().GetStage() != nullptr)
    {
        return;
    }
    static const CTemporaryDirectory s_data;
    s_data.Write("Configuration/GfxConfig.xml", "<Gfx>" + a_configuration + "</Gfx>");
    for (const char* own : {"Configuration/ThemeConfig.xml", "TextureMaps"})
    {
        std::filesystem::create_symlink(std::string(GFX_TEST_DATA) + own, s_data.Path() + own);
    }
    SetUpStage(s_data.Path());
    StaticSingleton<Gfx::Managers::CTextureManager>::ref().LoadTextures();
}

void CStageTest::SetUp()
{
    // A press that an earlier test has left pending.
    Widgets().MouseEvent(Gfx::Events::FirstUp, 0, {0, 0}, false);
    Settle();
}

void CStageTest::TearDown()
{
    Widgets().SetKeyboardEventCallback(nullptr);
    Widgets().SetMousePointer({});
    for (const WidgetPtr& widget : std::exchange(s_topLevels, {}))
    {
        Widgets().DestroyWidget(widget.Get());
    }
    Widgets().GarbageCollect();
    Settle();
}

void CStageTest::AddToStage(const WidgetPtr& a_widget)
{
    s_topLevels.push_back(a_widget);
    Widgets().AddWidget(a_widget);
}

void CStageTest::ForgetTopLevels()
{
    s_topLevels.clear();
}

CWidgetManager& CStageTest::Widgets()
{
    return StaticSingleton<CWidgetManager>::ref();
}

void CStageTest::SetTheme(const std::string& a_theme)
{
    StaticSingleton<Gfx::Managers::CThemeManager>::ref().SetTheme(a_theme);
}

void CStageTest::Press(int a_x, int a_y)
{
    StaticSingleton<CGfxManager>::ref().InjectMouseEvent(Gfx::Events::FirstDown, a_x, a_y, false);
}

void CStageTest::MoveTo(int a_x, int a_y)
{
    StaticSingleton<CGfxManager>::ref().InjectMouseEvent(Gfx::Events::Move, a_x, a_y, false);
}

void CStageTest::Release(int a_x, int a_y)
{
    StaticSingleton<CGfxManager>::ref().InjectMouseEvent(Gfx::Events::FirstUp, a_x, a_y, false);
}

void CStageTest::Click(int a_x, int a_y)
{
    Press(a_x, a_y);
    Release(a_x, a_y);
}

void CStageTest::Advance(int a_milliseconds)
{
    s_now += std::int64_t{a_milliseconds} * 1'000'000;
}

int CStageTest::Settle()
{
    const int before = s_frames;
    // Frames are painted at a limited rate: one may still be to come when there is nothing to do just now.
    while (g_main_context_iteration(nullptr, FALSE) != FALSE || IsSomethingToCome())
    {
    }
    return s_frames - before;
}

void CStageTest::WaitForClippedRedraws()
{
    const auto probe = AddTopLevel(new CBlock("probe", 0, 0, 10, 10, Gfx::Colours::Black));
    const auto other = AddTopLevel(new CBlock("other", 20, 0, 10, 10, Gfx::Colours::Black));
    Settle();
    for (int draws = -1; draws != other->draws;)
    {
        draws = other->draws;
        probe->Invalidate(false);
        Settle();
    }
    Widgets().DestroyWidget(probe.Get());
    Widgets().DestroyWidget(other.Get());
    Settle();
}

CPicture CStageTest::ShownPicture()
{
    clutter_stage_ensure_current(CLUTTER_STAGE(StaticSingleton<CGfxManager>::ref().GetStage()));
    return ReadBuffer();
}

CPicture CStageTest::FreshPicture()
{
    clutter_actor_queue_redraw(StaticSingleton<CGfxManager>::ref().GetStage());
    Settle();
    return ReadBuffer();
}

void CControlTest::SetUpTestSuite()
{
    CStageTest::SetUpTestSuite();
    StaticSingleton<Gfx::Managers::CTextureManager>::ref().LoadTextures();
}

void CControlTest::SetUp()
{
    CStageTest::SetUp();
    SetTheme("Plain");
}

std::string CControlTest::ShownExtent(const Gfx::CColour& a_colour)
{
    Settle();
    return ShownPicture().Extent(a_colour);
}

} // namespace GfxTest
