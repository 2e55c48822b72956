#include "Managers/Input/NewInputManager.h"
#include "support/LogGuard.h"
#include "support/TemporaryDirectory.h"

#include <gmock/gmock.h>

#include <bit>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace
{

using Gfx::Common::CPoint;
using Gfx::Managers::CInputManager;
using Points = std::vector<CPoint>;

/// Managers that find no panel, and a system configuration that isn't there at first.
class TouchCalibrationTest : public testing::Test
{
protected:
    TouchCalibrationTest() { setenv("GFX_SYSTEM_CONFIG", path.c_str(), 1); }
    ~TouchCalibrationTest() override { unsetenv("GFX_SYSTEM_CONFIG"); }

    /// What a start makes of the configuration.
    static CInputManager& Restart()
    {
        CInputManager& input = GfxTest::NewInputManager();
        input.LoadCalibration();
        return input;
    }

    const GfxTest::CTemporaryDirectory folder;
    const std::string path = folder.Path() + "system.conf";
};

constexpr std::uint32_t Bits(float a_value)
{
    return std::bit_cast<std::uint32_t>(a_value);
}
constexpr CInputManager::SCalibration k_panel = CInputManager::k_uncalibrated;
static_assert(Bits(k_panel.a) == 0xBE4DAA93 && Bits(k_panel.b) == 0x3B34E11E && Bits(k_panel.c) == 0x444A2FC6);
static_assert(Bits(k_panel.d) == 0xBB2E74F3 && Bits(k_panel.e) == 0x3E015AD1 && Bits(k_panel.f) == 0xC166768F);

TEST_F(TouchCalibrationTest, CoordinatesAreMappedRoundedAndKeptOnTheScreen)
{
    constexpr float k_nan = std::numeric_limits<float>::quiet_NaN();
    constexpr float k_infinity = std::numeric_limits<float>::infinity();
    constexpr int k_lowest = std::numeric_limits<int>::min();
    constexpr int k_highest = std::numeric_limits<int>::max();
    constexpr CInputManager::SCalibration k_identity = CInputManager::k_identity;
    const struct
    {
        CInputManager::SCalibration calibration;
        CPoint raw;
        CPoint pixel;
    } cases[] = {
        {k_identity, {800, 480}, {799, 479}},
        {k_identity, {-3, -1}, {0, 0}},
        {k_identity, {k_lowest, k_highest}, {0, 479}},
        {k_identity, {k_highest, k_lowest}, {799, 0}},
        // -401.692 + 5.52 + 808.746 and -5.324 + 252.646 - 14.404
        {k_panel, {2000, 2000}, {413, 233}},
        // y is 447.49997, but each step's result is rounded to single precision.
        {k_panel, {307, 3663}, {757, 448}},
        // Halves go away from zero; what is rounded down to the last pixel stays there.
        {{1, 0, -0.5F, 0, 1, -0.5F}, {0, 479}, {0, 479}},
        {{1, 0, 0.4F, 0, 1, 0.4F}, {799, 479}, {799, 479}},
        {{k_nan, 0, 0, 0, 1, k_nan}, {30, 40}, {0, 0}},
        {{k_infinity, 0, 0, 0, -k_infinity, 0}, {30, 40}, {799, 0}},
        {{3e38F, 3e38F, 0, -3e38F, -3e38F, 0}, {9, 9}, {799, 0}},
    };
    CInputManager& input = GfxTest::NewInputManager();
    for (const auto& [calibration, raw, pixel] : cases)
    {
        input.UseCalibration(calibration);
        const CPoint result = input.TransformCoordinates(raw.X(), raw.Y());
        EXPECT_EQ(result, pixel) << raw.X() << ',' << raw.Y() << " gives " << result.X() << ',' << result.Y();
    }
}

TEST_F(TouchCalibrationTest, TheConfigurationsMapIsUsedIfItIsTheUsers)
{
    const std::string map = "[gfx]\ncal_a=2\ncal_b=0.5\ncal_c=-1\ncal_d=0.25\ncal_e=1\ncal_f=3.5\n";
    const struct
    {
        std::string text;
        CPoint pixel;
    } cases[] = {
        // 200 + 20 - 1 and 25 + 40 + 3.5
        {map + "calibrated=true\n", {219, 69}},
        {map + "calibrated=false\n", {789, 0}},
        // What is missing is the identity's.
        {"[gfx]\ncal_c=7\ncalibrated=true\n", {107, 40}},
        {"[gfx]\ncal_a=nan\ncal_e=1e300\ncalibrated=true\n", {0, 479}},
        {map + "calibrated=true\n[", {789, 0}},
    };
    for (const auto& [text, pixel] : cases)
    {
        folder.Write("system.conf", text);
        EXPECT_EQ(Restart().TransformCoordinates(100, 40), pixel) << text;
    }
    GfxTest::ExpectLog("Unable to read " + path);
}

TEST_F(TouchCalibrationTest, PairsOfPointsDecideTheMap)
{
    constexpr int k_far = 1 << 30;
    const Points corners{{40, 30}, {760, 30}, {40, 450}};
    const Points row{{0, 0}, {10, 0}, {20, 0}, {30, 0}};
    const struct
    {
        Points screen;
        Points raw;
        bool isFit;
        bool isTold = false;
    } cases[] = {
        {corners, {{3800, 300}, {250, 320}, {3820, 3700}}, true},
        // As near to each other, and to one line, as raw points can be.
        {corners, {{4000, 4000}, {4001, 4000}, {4000, 4001}}, true},
        {corners, {{0, 0}, {4095, 4095}, {2047, 2048}}, true},
        // On one line: level, slanting, far away; and all the same.
        {row, {{5, 100}, {6, 100}, {7, 100}, {4095, 100}}, false, true},
        {row, {{1, 2}, {1001, 3002}, {334, 1001}, {667, 2000}}, false, true},
        {corners, {{-k_far, -k_far}, {k_far, k_far}, {3, 3}}, false, true},
        {corners, {{9, 9}, {9, 9}, {9, 9}}, false, true},
        // Too few, and not as many as others.
        {{{0, 0}, {10, 10}}, {{0, 0}, {10, 10}}, false},
        {corners, {{1, 1}, {2, 5}}, false},
    };
    for (const auto& [screen, raw, isFit, isTold] : cases)
    {
        CInputManager& input = Restart();
        testing::internal::CaptureStderr();
        EXPECT_EQ(input.SetCalibrationPoints(screen, raw), isFit);
        EXPECT_THAT(testing::internal::GetCapturedStderr(),
                    testing::MatchesRegex(isTold ? "CInputManager::SetCalibrationPoints: caught exception: .+\n" : ""));
        EXPECT_EQ(input.IsCalibrated(), isFit);
        for (std::size_t i = 0; i < raw.size(); ++i)
        {
            const CPoint result = input.TransformCoordinates(raw[i].X(), raw[i].Y());
            EXPECT_EQ(result, isFit ? screen[i] : Restart().TransformCoordinates(raw[i].X(), raw[i].Y()))
                << result.X() << ',' << result.Y();
        }
    }
}

TEST_F(TouchCalibrationTest, MorePairsAverageAndOnlyWhatIsSavedSurvives)
{
    CInputManager& input = Restart();
    input.SaveCalibration();
    // A square at the double size, with one corner 8 off: the plane through them is off by 2 or 6 there.
    EXPECT_TRUE(input.SetCalibrationPoints({{100, 100}, {300, 100}, {100, 300}, {308, 300}},
                                           {{50, 50}, {150, 50}, {50, 150}, {150, 150}}));
    EXPECT_EQ(input.TransformCoordinates(50, 50), CPoint(98, 100));
    EXPECT_EQ(input.TransformCoordinates(150, 150), CPoint(306, 300));
    EXPECT_FALSE(Restart().IsCalibrated());
    input.SaveCalibration();
    EXPECT_TRUE(Restart().IsCalibrated());
    EXPECT_EQ(Restart().TransformCoordinates(150, 150), CPoint(306, 300));
}

} // namespace
