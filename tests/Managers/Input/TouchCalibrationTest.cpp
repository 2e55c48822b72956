#include "Managers/Input/NewInputManager.h"
#include "support/LogGuard.h"
#include "support/TemporaryDirectory.h"

#include <gmock/gmock.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

namespace
{

using Gfx::Common::CPoint;
using Gfx::Managers::CInputManager;
using Points = std::vector<CPoint>;

constexpr const char* k_written = "[gfx]\ncal_a=2\ncal_b=0.5\ncal_c=-1\ncal_d=0.25\ncal_e=1\ncal_f=3.5\ncalibrated=";

/// Managers that find no panel, and a system configuration that isn't there at first.
class TouchCalibrationTest : public testing::Test
{
protected:
    void SetUp() override
    {
        setenv("GFX_SYSTEM_CONFIG", path.c_str(), 1);
        testing::internal::CaptureStderr();
    }
    void TearDown() override
    {
        testing::internal::GetCapturedStderr();
        unsetenv("GFX_SYSTEM_CONFIG");
    }

    static std::string TakeStderr()
    {
        const std::string text = testing::internal::GetCapturedStderr();
        testing::internal::CaptureStderr();
        return text;
    }

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

TEST_F(TouchCalibrationTest, TheUncalibratedMapIsThePanels)
{
    constexpr auto k_bits = [](float a_value) { return std::bit_cast<std::uint32_t>(a_value); };
    constexpr CInputManager::SCalibration k_map = CInputManager::k_uncalibrated;
    static_assert(k_bits(k_map.a) == 0xBE4DAA93 && k_bits(k_map.b) == 0x3B34E11E && k_bits(k_map.c) == 0x444A2FC6);
    static_assert(k_bits(k_map.d) == 0xBB2E74F3 && k_bits(k_map.e) == 0x3E015AD1 && k_bits(k_map.f) == 0xC166768F);
    EXPECT_EQ(Restart().TransformCoordinates(2000, 2000), CPoint(413, 233));
}

TEST_F(TouchCalibrationTest, CoordinatesAreMappedRoundedAndKeptOnTheScreen)
{
    constexpr float k_nan = std::numeric_limits<float>::quiet_NaN();
    constexpr float k_infinity = std::numeric_limits<float>::infinity();
    constexpr int k_lowest = std::numeric_limits<int>::min();
    constexpr int k_highest = std::numeric_limits<int>::max();
    constexpr CInputManager::SCalibration k_identity = CInputManager::k_identity;
    constexpr CInputManager::SCalibration k_panel = CInputManager::k_uncalibrated;
    const struct
    {
        CInputManager::SCalibration calibration;
        CPoint raw;
        CPoint pixel;
    } cases[] = {
        {k_identity, {799, 479}, {799, 479}},
        {k_identity, {800, 480}, {799, 479}},
        {k_identity, {-3, -1}, {0, 0}},
        {k_identity, {k_lowest, k_highest}, {0, 479}},
        {k_identity, {k_highest, k_lowest}, {799, 0}},
        // -401.692 + 5.52 + 808.746 and -5.324 + 252.646 - 14.404
        {k_panel, {2000, 2000}, {413, 233}},
        {k_panel, {0, 0}, {799, 0}},
        {k_panel, {4095, 4095}, {0, 479}},
        // y is 447.49997, but each step's result is rounded to single precision.
        {k_panel, {307, 3663}, {757, 448}},
        // Halves go away from zero; what is rounded down to the last pixel stays there.
        {{1, 0, 0.5F, 0, 1, 0.49F}, {10, 10}, {11, 10}},
        {{1, 0, -0.5F, 0, 1, -0.5F}, {0, 479}, {0, 479}},
        {{1, 0, 0.4F, 0, 1, 0.4F}, {799, 479}, {799, 479}},
        {{0, 1, 0, 1, 0, 0}, {30, 40}, {40, 30}},
        {{k_nan, 0, 0, 0, 1, k_nan}, {30, 40}, {0, 0}},
        {{k_infinity, 0, 0, 0, -k_infinity, 0}, {30, 40}, {799, 0}},
        {{k_infinity, 0, 0, 0, 1, k_infinity}, {0, 40}, {0, 479}},
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
    folder.Write("system.conf", k_written + std::string("true\n"));
    EXPECT_TRUE(Restart().IsCalibrated());
    // 200 + 20 - 1 and 25 + 40 + 3.5
    EXPECT_EQ(Restart().TransformCoordinates(100, 40), CPoint(219, 69));

    folder.Write("system.conf", k_written + std::string("false\n"));
    EXPECT_FALSE(Restart().IsCalibrated());
    EXPECT_EQ(Restart().TransformCoordinates(2000, 2000), CPoint(413, 233));

    folder.Write("system.conf", "[gfx]\ncal_c=7\ncalibrated=true\n");
    EXPECT_EQ(Restart().TransformCoordinates(100, 40), CPoint(107, 40)) << "what is missing is the identity's";

    folder.Write("system.conf", "[gfx]\ncal_a=nan\ncal_c=7\ncal_e=1e300\ncalibrated=true\n");
    EXPECT_EQ(Restart().TransformCoordinates(100, 40), CPoint(0, 479));

    folder.Write("system.conf", "[gfx]\ncal_c=");
    folder.Write("system.conf", "cal_c=7\ncalibrated=true\n");
    EXPECT_EQ(Restart().TransformCoordinates(2000, 2000), CPoint(413, 233));
    GfxTest::ExpectLog("Unable to read " + path);
}

TEST_F(TouchCalibrationTest, PairsOfPointsDecideTheMap)
{
    constexpr int k_far = 1 << 30;
    const Points corners{{40, 30}, {760, 30}, {40, 450}};
    const struct
    {
        Points screen;
        Points raw;
        bool isFit;
    } cases[] = {
        {corners, {{3800, 300}, {250, 320}, {3820, 3700}}, true},
        // As near to each other, and to one line, as raw points can be.
        {corners, {{4000, 4000}, {4001, 4000}, {4000, 4001}}, true},
        {corners, {{0, 0}, {4095, 4095}, {2047, 2048}}, true},
        // On one line: level, slanting, far away, and all the same.
        {{{0, 0}, {10, 0}, {20, 0}, {30, 0}}, {{5, 100}, {6, 100}, {7, 100}, {4095, 100}}, false},
        {{{0, 0}, {10, 0}, {20, 0}, {30, 0}}, {{1, 2}, {1001, 3002}, {334, 1001}, {667, 2000}}, false},
        {corners, {{-k_far, -k_far}, {k_far, k_far}, {3, 3}}, false},
        {corners, {{9, 9}, {9, 9}, {9, 9}}, false},
        // Too few, and not as many as others.
        {{{0, 0}, {10, 10}}, {{0, 0}, {10, 10}}, false},
        {corners, {{1, 1}, {2, 5}}, false},
        {{}, {}, false},
    };
    for (const auto& [screen, raw, isFit] : cases)
    {
        CInputManager& input = Restart();
        TakeStderr();
        EXPECT_EQ(input.SetCalibrationPoints(screen, raw), isFit);
        EXPECT_EQ(input.IsCalibrated(), isFit);
        const bool isSingular = !isFit && screen.size() >= 3 && raw.size() == screen.size();
        EXPECT_THAT(TakeStderr(), testing::MatchesRegex(
                                      isSingular ? "CInputManager::SetCalibrationPoints: caught exception: .+\n" : ""));
        for (std::size_t i = 0; i < screen.size() && isFit; ++i)
        {
            const CPoint result = input.TransformCoordinates(raw[i].X(), raw[i].Y());
            EXPECT_EQ(result, screen[i]) << result.X() << ',' << result.Y();
        }
        if (!isFit)
        {
            EXPECT_EQ(input.TransformCoordinates(2000, 2000), CPoint(413, 233)) << "the map stays";
        }
    }
}

TEST_F(TouchCalibrationTest, MoreThanThreePairsAverage)
{
    CInputManager& input = Restart();
    // A square at the double size, with one corner 8 off: the plane through them is off by 2 or 6 there.
    EXPECT_TRUE(input.SetCalibrationPoints({{100, 100}, {300, 100}, {100, 300}, {308, 300}},
                                           {{50, 50}, {150, 50}, {50, 150}, {150, 150}}));
    EXPECT_EQ(input.TransformCoordinates(50, 50), CPoint(98, 100));
    EXPECT_EQ(input.TransformCoordinates(150, 150), CPoint(306, 300));
}

TEST_F(TouchCalibrationTest, OnlyWhatIsSavedSurvivesARestart)
{
    CInputManager& input = Restart();
    input.SaveCalibration();
    EXPECT_FALSE(std::ifstream(path)) << "there is nothing to save";

    EXPECT_TRUE(input.SetCalibrationPoints({{40, 30}, {760, 30}, {40, 450}}, {{38, 30}, {250, 31}, {39, 370}}));
    EXPECT_FALSE(Restart().IsCalibrated());
    input.SaveCalibration();
    CInputManager& restarted = Restart();
    EXPECT_TRUE(restarted.IsCalibrated());
    for (const CPoint& raw : Points{{38, 30}, {250, 31}, {39, 370}, {123, 234}})
    {
        EXPECT_EQ(restarted.TransformCoordinates(raw.X(), raw.Y()), input.TransformCoordinates(raw.X(), raw.Y()));
    }
    std::ifstream file(path);
    EXPECT_THAT(std::string(std::istreambuf_iterator<char>(file), {}),
                testing::MatchesRegex("\\[gfx\\]\ncal_a=.*\ncal_b=.*\ncal_c=.*\ncal_d=.*\ncal_e=.*\ncal_f=.*\n"
                                      "calibrated=true\n"));
}

} // namespace
