#include "Widgets/Controls/ScrollBar/ScrollBar.h"

#include "Core/Functor.h"
#include "support/StageTest.h"

#include <array>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

namespace
{

using Gfx::CColour;
using Gfx::Widgets::CScrollBar;
using Gfx::Widgets::CWidget;

// What the elements of the test's page look like.
constexpr CColour k_slider{255, 255, 0, 255};
constexpr CColour k_activeSlider{255, 0, 0, 255};
constexpr CColour k_activeStepper{160, 0, 160, 255};
constexpr CColour k_left{200, 100, 0, 255};
constexpr CColour k_up{0, 100, 200, 255};

constexpr int k_lowest = std::numeric_limits<int>::min();
constexpr int k_highest = std::numeric_limits<int>::max();

class ScrollBarTest : public GfxTest::CControlTest
{
protected:
    using Handler = Core::Functor<void, CWidget*, int>;

    /// A bar of 400 by 40: steppers at 100 and 460, the slider of 60 between 144 and 456, so that it travels 252.
    Core::SharedPtr<CScrollBar> AddBar(int a_current, int a_step = 1, bool a_horizontal = true)
    {
        const auto bar = AddTopLevel(new CScrollBar("bar", 100, a_horizontal ? 100 : 60, a_horizontal ? 400 : 40,
                                                    a_horizontal ? 40 : 400, a_horizontal, 0, 100, a_current, a_step));
        bar->SetTextures("Panel_Down", "Icon", "Red_Up", "Indicator_Up", "ActiveTitleBar");
        bar->SetScrollEventHandler(m_handler.get());
        return bar;
    }

    /// What the handler has been told, and after how many values it destroys the bar.
    std::vector<int> m_values;
    std::size_t m_lastValue = 0;
    const std::unique_ptr<Handler::Signature> m_handler{Handler::Make(
        [this](CWidget* a_bar, int a_current)
        {
            m_values.push_back(a_current);
            if (m_values.size() == m_lastValue)
            {
                Widgets().DestroyWidget(a_bar);
            }
        })};
};

TEST_F(ScrollBarTest, PartsLieAlongTheBar)
{
    const auto bar = AddBar(0);
    EXPECT_EQ(ShownExtent({40, 40, 40, 255}), "holes in 140,100 320 x 40");
    EXPECT_EQ(ShownExtent(k_slider), "144,104 60 x 32");
    EXPECT_EQ(ShownExtent(k_left), "108,108 24 x 24");
    EXPECT_EQ(ShownExtent({100, 200, 0, 255}), "468,108 24 x 24");
    EXPECT_EQ(ShownExtent({0, 255, 0, 255}), "holes in 100,100 400 x 40");
    bar->Current(50);
    EXPECT_EQ(ShownExtent(k_slider), "270,104 60 x 32");
    bar->Resize(300, 60);
    EXPECT_EQ(ShownExtent(k_slider), "220,104 60 x 52") << "half of 152";
    Widgets().DestroyWidget(bar.Get());

    const auto vertical = AddBar(50, 1, false);
    EXPECT_EQ(ShownExtent(k_slider), "104,230 32 x 60");
    vertical->SetImages("", "Arrow_Left");
    EXPECT_EQ(ShownExtent(k_up), "108,68 24 x 24");
    EXPECT_EQ(ShownExtent(k_left), "108,428 24 x 24");
    vertical->SetTextures("", "ControlInactive_Up", "", "", "");
    EXPECT_EQ(ShownExtent({0, 0, 160, 255}), "104,230 32 x 60");
    SetTheme("Swapped");
    EXPECT_EQ(ShownExtent({255, 128, 64, 255}), "104,230 32 x 60");
}

TEST_F(ScrollBarTest, TheSliderOfAShortBarTakesTwoThirdsOfTheWayBetweenSquareSteppers)
{
    const auto bar = AddTopLevel(new CScrollBar("bar", 100, 100, 80, 200, false, 0, 100, 0, 1));
    bar->SetTextures("Panel_Down", "Icon", "Icon", "Indicator_Up", "Indicator_Up");
    EXPECT_EQ(ShownExtent(k_slider), "104,144 72 x 26");
}

TEST_F(ScrollBarTest, AHeldStepperRepeatsAtEachIdleRoundWhileItIsSelected)
{
    const auto bar = AddBar(97);
    Press(470, 110);
    EXPECT_EQ(ShownExtent(k_activeStepper), "holes in 460,100 40 x 40");
    Widgets().Idle();
    EXPECT_EQ(m_values, (std::vector<int>{98, 99}));
    Widgets().Idle();
    Widgets().Idle();
    EXPECT_EQ(m_values.size(), 3U) << "at the end nothing changes";
    Release(470, 110);
    EXPECT_EQ(ShownExtent(k_activeStepper), "none");
    Press(110, 110);
    EXPECT_EQ(ShownExtent(k_activeStepper), "holes in 100,100 40 x 40");
    bar->Deselect();
    Widgets().Idle();
    EXPECT_EQ(bar->Current(), 99);
    bar->Select();
    Widgets().Idle();
    EXPECT_EQ(bar->Current(), 98);
}

TEST_F(ScrollBarTest, APressBesideTheSliderIsWorthTenSteps)
{
    const auto bar = AddBar(50);
    bar->SetProperty("Step", "2");
    EXPECT_EQ(bar->GetCustomInfo().at("StepSize"), "2");
    Click(269, 110);
    MoveTo(150, 110);
    Click(300, 110);
    Click(450, 110);
    EXPECT_EQ(m_values, (std::vector<int>{30, 50, 70}));
}

TEST_F(ScrollBarTest, SettersKeepTheValueWithinTheBoundsAndTellNobody)
{
    const auto bar = AddBar(100);
    bar->SetProperty("Current", "500");
    EXPECT_EQ(bar->GetProperty("Current", ""), "100");
    bar->Minimum(-100);
    EXPECT_EQ(ShownExtent(k_slider), "396,104 60 x 32");
    bar->Maximum(300);
    EXPECT_EQ(ShownExtent(k_slider), "270,104 60 x 32");
    bar->Maximum(-200);
    EXPECT_EQ(bar->Current(), -200) << "the upper bound has the last word";
    EXPECT_TRUE(m_values.empty());
}

TEST_F(ScrollBarTest, TheSliderIsDraggedByTheWayFromThePress)
{
    const auto bar = AddBar(50);
    Press(280, 110);
    EXPECT_EQ(ShownExtent(k_activeSlider), "270,104 60 x 32");
    MoveTo(290, 300);
    EXPECT_EQ(ShownExtent(k_activeSlider), "277,104 60 x 32");
    MoveTo(270, 110);
    MoveTo(799, 110);
    MoveTo(800, 110);
    MoveTo(280, 110);
    EXPECT_EQ(m_values, (std::vector<int>{53, 47, 100, 50}));
    Release(10, 10);
    EXPECT_FALSE(bar->IsDragging());
    EXPECT_EQ(ShownExtent(k_slider), "270,104 60 x 32");
}

TEST_F(ScrollBarTest, NoNumbersAreTooLargeOrTooSmall)
{
    // The press that begins the drag lies on the slider; the last one lies before it, wherever it is.
    for (const auto& [width, minimum, maximum, current, step, slider, displacement, dragged, pagedBack] :
         {std::array{400, 7, 7, 7, 1, 44, 50, 7, 7},
          {148, 0, 100, 50, 1, 44, 10, 50, 40},
          {400, k_lowest, k_highest, 0, k_highest, 170, k_lowest, k_lowest, k_lowest},
          {400, k_lowest, k_highest, -1, k_lowest, 170, k_highest, k_highest, k_highest},
          {149, k_lowest, k_highest, 0, 1, 44, k_highest, k_highest, k_highest - 10}})
    {
        const auto bar = AddTopLevel(new CScrollBar("bar", 0, 0, width, 20, true, minimum, maximum, current, step));
        ASSERT_TRUE(bar->StartDragging({slider, 10})) << width << ' ' << step;
        bar->UpdateDragging({displacement, 0});
        bar->EndDragging();
        EXPECT_EQ(bar->Current(), dragged) << width << ' ' << step;
        bar->MouseEvent(Gfx::Events::FirstDown, 1, {41, 19}, false);
        EXPECT_EQ(bar->Current(), pagedBack) << width << ' ' << step;
    }
}

TEST_F(ScrollBarTest, AHandlerMayDestroyItsBar)
{
    // By a stepper, at its repetition, beside the slider, and in a drag.
    for (const auto& [x, values] : {std::pair{470, 1U}, {470, 2U}, {200, 1U}, {280, 1U}})
    {
        m_values.clear();
        m_lastValue = values;
        {
            const Core::SharedPtr<CScrollBar> bar(new CScrollBar("bar", 100, 100, 400, 40, true, 0, 100, 50, 1));
            bar->SetScrollEventHandler(m_handler.get());
            Widgets().AddWidget(bar);
        }
        Press(x, 110);
        MoveTo(x + 20, 110);
        Widgets().Idle();
        Widgets().GarbageCollect();
        // The press that was stored after the destruction ends with another release.
        Release(1, 1);
        EXPECT_EQ(m_values.size(), values) << x;
    }
}

} // namespace
