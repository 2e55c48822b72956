#include "Widgets/Controls/ProgressBar/ProgressBar.h"

#include "support/StageTest.h"

#include <array>
#include <limits>
#include <string>

namespace
{

using Gfx::CColour;
using Gfx::Widgets::CProgressBar;

constexpr CColour k_bar{90, 90, 90, 255};

class ProgressBarTest : public GfxTest::CControlTest
{
protected:
    static void SetUpTestSuite()
    {
        // A background with borders of 4, 6, 2 and 10 from the left on, and a bar with borders of 4.
        SetUpConfiguredStage("<Controls><ProgressBar><Textures><Background>Uneven</Background><Bar>Panel_Up</Bar>"
                             "</Textures></ProgressBar></Controls>");
    }

    static Core::SharedPtr<CProgressBar> Add(int a_minimum, int a_maximum, int a_current, bool a_leftToRight = true)
    {
        return AddTopLevel(new CProgressBar("bar", 100, 100, 206, 50, a_minimum, a_maximum, a_current, a_leftToRight));
    }
};

TEST_F(ProgressBarTest, TheBarsLengthIsTheValuesShareOfTheInside)
{
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    struct SCase
    {
        int minimum;
        int maximum;
        int current;
        bool leftToRight;
        const char* extent;
    };
    // The inside is 200 by 34 pixels at 104,106.
    const std::array cases{
        SCase{0, 100, 50, true, "104,106 100 x 34"},
        SCase{0, 100, 50, false, "204,106 100 x 34"},
        SCase{0, 100, 100, true, "104,106 200 x 34"},
        SCase{0, 3, 1, true, "104,106 66 x 34"},
        SCase{0, 100, 0, true, "none"},
        SCase{-100, 100, 0, true, "none"},
        SCase{-100, 100, 1, true, "104,106 101 x 34"},
        SCase{10, 20, 10, true, "104,106 8 x 34"},
        SCase{0, 1000, 1, true, "104,106 8 x 34"},
        SCase{0, 1000, 1, false, "296,106 8 x 34"},
        SCase{7, 7, 7, true, "104,106 200 x 34"},
        SCase{least, most, most, true, "104,106 200 x 34"},
    };
    for (const SCase& row : cases)
    {
        const auto bar = Add(row.minimum, row.maximum, row.current, row.leftToRight);
        EXPECT_EQ(ShownExtent(k_bar), row.extent) << row.minimum << ' ' << row.maximum << ' ' << row.current;
        Widgets().DestroyWidget(bar.Get());
    }
}

TEST_F(ProgressBarTest, TheBarFollowsSizeAndTheme)
{
    const auto bar = Add(0, 1000, 1);
    bar->Resize(406, 60);
    bar->SetProperty("Current", "500 of them");
    EXPECT_EQ(ShownExtent(k_bar), "104,106 200 x 44");
    SetTheme("Swapped");
    EXPECT_EQ(ShownExtent(CColour(255, 128, 64, 255)), "104,106 200 x 44");
}

TEST_F(ProgressBarTest, ValuesAreKeptWithinTheBoundsAndBoundsMustNotCutThemOff)
{
    const auto bar = Add(0, 100, 10);
    bar->Current(1000);
    EXPECT_EQ(bar->Current(), 100);
    bar->Current(-5);
    EXPECT_EQ(bar->Current(), 0);
    bar->SetProperty("Current", "12");
    bar->SetProperty("Minimum", "-20");
    bar->SetProperty("Maximum", "40");
    EXPECT_EQ(bar->GetProperty("Current", ""), "12");
    EXPECT_EQ(bar->GetProperty("Minimum", ""), "-20");
    EXPECT_EQ(bar->GetCustomInfo().at("Maximum"), "40");
    EXPECT_DEATH(bar->Minimum(50), "m_current >= m_min");
    EXPECT_DEATH(bar->Maximum(5), "m_current <= m_max");
    EXPECT_DEATH(CProgressBar("bar", 0, 0, 10, 10, 5, 9, 4, true), "m_current >= m_min");
}

} // namespace
