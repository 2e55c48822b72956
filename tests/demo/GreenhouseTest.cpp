// The demo, as somebody uses it who has it before them.

#include "demo/Greenhouse.h"

#include "Widgets/Controls/NumericEditBox/NumericEditBox.h"
#include "support/StageTest.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <iostream>
#include <string>

namespace
{

using namespace Gfx::Widgets;
using Core::IO::XMLNode;
using Core::Patterns::StaticSingleton;
using Demo::CGreenhouse;
using Gfx::Common::CPoint;
using Gfx::Managers::CThemeManager;
using GfxTest::WidgetPtr;

constexpr std::array k_pages{"Climate", "Irrigation", "Plants", "House", "History", "Alarms", "Settings"};

class GreenhouseTest : public GfxTest::CStageTest
{
protected:
    static void SetUpTestSuite()
    {
        SetUpStage(GFX_DEMO_DATA);
        StaticSingleton<Gfx::Managers::CTextureManager>::ref().LoadTextures();
        StaticSingleton<Gfx::Managers::C3DManager>::ref().Initialise(GFX_DEMO_DATA);
        static CGreenhouse s_greenhouse;
        s_demo = &s_greenhouse;
    }

    /// What layouts say in vain is only said on the streams.
    void SetUp() override
    {
        CStageTest::SetUp();
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
    }

    void TearDown() override
    {
        CStageTest::TearDown();
        const std::string output = testing::internal::GetCapturedStdout() + testing::internal::GetCapturedStderr();
        // Where something has failed, it is the report.
        HasFailure() ? static_cast<void>(std::cout << output) : ExpectSilence(output);
    }

    static void ExpectSilence(const std::string& a_output) { EXPECT_EQ(a_output, ""); }

    static WidgetPtr Find(const std::string& a_path) { return Widgets().FindWidget(a_path, nullptr); }

    static bool IsShown(const std::string& a_path)
    {
        const WidgetPtr widget = Find(a_path);
        return widget && Widgets().IsVisible(widget.Get());
    }

    static std::string Get(const std::string& a_path, const std::string& a_property)
    {
        return Find(a_path)->GetProperty(a_property, "");
    }

    static void Tap(const std::string& a_path)
    {
        const WidgetPtr widget = Find(a_path);
        ASSERT_TRUE(widget) << a_path;
        ASSERT_TRUE(Widgets().IsVisible(widget.Get())) << a_path;
        const CPoint middle = widget->AbsoluteTopLeft() + CPoint(widget->Width() / 2, widget->Height() / 2);
        Click(middle.X(), middle.Y());
    }

    static void Open(const std::string& a_page) { Tap("Navigation:Pages:" + a_page); }

    static inline CGreenhouse* s_demo = nullptr;
};

TEST_F(GreenhouseTest, EachEntryOfTheRailShowsItsPageAlone)
{
    for (const std::string shown : {"Settings", "Climate", "Irrigation", "Plants", "House", "History", "Alarms"})
    {
        Open(shown);
        for (const std::string page : k_pages)
        {
            EXPECT_EQ(IsShown(page), page == shown) << page << " after " << shown;
        }
        EXPECT_TRUE(IsShown("Navigation") && IsShown("Status")) << shown;
    }
}

/// What a status dump says of a widget.
int Number(const XMLNode& a_widget, const std::string& a_key)
{
    for (const XMLNode& parameter : a_widget.Child("Parameters")->Children())
    {
        if (parameter.Attribute("id", "") == a_key)
        {
            return std::stoi(parameter.Attribute("value", ""));
        }
    }
    return -1;
}

/// Returns how many widgets can be touched.
int CheckPlaces(const XMLNode& a_widget)
{
    const std::string name = a_widget.Attribute("id", "");
    const std::string type = a_widget.Attribute("type", "");
    const int width = Number(a_widget, "Width");
    const int height = Number(a_widget, "Height");
    int count = 0;
    if (type == "Button" || type == "CheckBox" || type == "RadioButton")
    {
        ++count;
        EXPECT_TRUE(width >= 44 && height >= 44) << name << " is too small for a finger";
    }
    if (const XMLNode* const children = a_widget.Child("Children"))
    {
        for (const XMLNode& child : children->Children())
        {
            const int x = Number(child, "X");
            const int y = Number(child, "Y");
            EXPECT_TRUE(x >= 0 && y >= 0 && x + Number(child, "Width") <= width &&
                        y + Number(child, "Height") <= height)
                << child.Attribute("id", "") << " lies beyond its parent";
            count += CheckPlaces(child);
        }
    }
    return count;
}

TEST_F(GreenhouseTest, WhatIsTouchedIsLargeEnoughAndLiesWithinItsParent)
{
    int count = 0;
    const auto check = [&count](const std::string& a_widget)
    {
        Core::IO::XMLDocument dump;
        ASSERT_TRUE(dump.ParseText(Find(a_widget)->GetWidgetInfo(), a_widget));
        count += CheckPlaces(*dump.RootNode()->Child("Widget"));
    };
    for (const std::string page : k_pages)
    {
        Open(page);
        check(page);
    }
    check("Navigation");
    check("Status");
    Tap("Settings:Console:OpenNetwork");
    check("Network");
    Tap("Network:Back");
    Tap("Settings:Console:OpenTouch");
    check("Calibration");
    Tap("Calibration:Card:Cancel");
    EXPECT_GT(count, 50);
}

TEST_F(GreenhouseTest, ThemeAndLanguageAreThoseChosen)
{
    Open("Settings");
    Tap("Settings:Appearance:Themes:Night");
    EXPECT_EQ(StaticSingleton<CThemeManager>::ref().GetTheme(), "Night");
    Tap("Settings:Language:German");
    EXPECT_NE(Find("Settings:Title")->GetWidgetInfo().find("value=\"Optionen\""), std::string::npos);
    EXPECT_NE(Get("Climate:Temperature:Value", "Text").find(','), std::string::npos);
    Tap("Settings:Language:English");
    Tap("Settings:Appearance:Themes:Day");
    EXPECT_NE(Find("Settings:Title")->GetWidgetInfo().find("value=\"Settings\""), std::string::npos);
}

TEST_F(GreenhouseTest, WhoMovesTheVentsTakesOver)
{
    Open("Climate");
    Tap("Climate:Control:Automatic");
    Tap("Climate:Vents:Shade");
    EXPECT_EQ(Get("Climate:Control:Manual", "Checked"), "True");
    Tap("Climate:Vents:Opening");
    const double vents = s_demo->Simulation().vents;
    s_demo->Step();
    EXPECT_TRUE(s_demo->Simulation().isShaded);
    EXPECT_EQ(s_demo->Simulation().vents, vents);
    Tap("Climate:Control:Automatic");
    s_demo->Step();
    EXPECT_FALSE(s_demo->Simulation().isShaded);
    const double setPoint = s_demo->Simulation().temperatureSetPoint;
    Tap("Climate:Temperature:More");
    EXPECT_EQ(s_demo->Simulation().temperatureSetPoint, setPoint + 1);
    Tap("Climate:Temperature:Less");
}

TEST_F(GreenhouseTest, AnAlarmIsAcknowledgedAndClearedOnceItsCauseHasGoneAndOthersCome)
{
    Tap("Status:Bell");
    EXPECT_EQ(Get("Navigation:Pages", "SelectedItem"), "Alarms");
    Tap("Alarms:List:Tank");
    EXPECT_TRUE(IsShown("Alarms:Details:New"));
    Tap("Alarms:Details:Acknowledge");
    EXPECT_TRUE(IsShown("Alarms:Details:Seen"));
    EXPECT_FALSE(IsShown("Alarms:Details:New"));
    // Twice is once too often, and what is still wrong can't be cleared.
    for (const char* button : {"Acknowledge", "Clear"})
    {
        Tap(std::string("Alarms:Details:") + button);
        const WidgetPtr box = Widgets().GetModalWidget();
        ASSERT_TRUE(box) << button;
        const CPoint corner = box->AbsoluteTopLeft() + CPoint(box->Width() - 40, box->Height() - 40);
        Click(corner.X(), corner.Y());
        EXPECT_FALSE(Widgets().GetModalWidget()) << button;
    }
    Open("Irrigation");
    Tap("Irrigation:Tank:Fill");
    Open("Alarms");
    EXPECT_TRUE(IsShown("Alarms:Details:Gone"));
    Tap("Alarms:Details:Clear");
    const WidgetPtr box = Widgets().GetModalWidget();
    ASSERT_TRUE(box);
    const CPoint corner = box->AbsoluteTopLeft() + CPoint(40, box->Height() - 40);
    Click(corner.X(), corner.Y());
    EXPECT_FALSE(IsShown("Alarms:List:Tank"));
    EXPECT_EQ(Get("Alarms:List", "SelectedItem"), "Dry");
    // Within a day, others come.
    Open("Climate");
    Tap("Climate:Control:Automatic");
    bool isWatered = false;
    for (int minute = 0; minute < 24 * 60; ++minute)
    {
        s_demo->Step();
        const Demo::SSimulation& state = s_demo->Simulation();
        ASSERT_TRUE(state.temperature > 5 && state.temperature < 35 && state.humidity > 20 && state.humidity < 100 &&
                    state.tank >= 0)
            << minute;
        isWatered = isWatered || (state.MinuteOfDay() == 20 * 60 && state.isWatering[2]);
    }
    EXPECT_TRUE(isWatered);
    Open("Alarms");
    EXPECT_TRUE(IsShown("Alarms:List:Wind"));
}

TEST_F(GreenhouseTest, ABedIsWateredUntilItIsToldToStop)
{
    Open("Irrigation");
    Tap("Irrigation:Bed4:Water");
    const double before = s_demo->Simulation().moisture[3];
    s_demo->Step();
    EXPECT_GT(s_demo->Simulation().moisture[3], before);
    Tap("Irrigation:Bed4:Stop");
    EXPECT_FALSE(s_demo->Simulation().isWatering[3]);
    EXPECT_TRUE(IsShown("Irrigation:Bed4:Off"));
}

TEST_F(GreenhouseTest, TheWizardLeadsThroughItsStagesAndSetsTheConsoleUp)
{
    Open("Settings");
    Tap("Settings:Console:OpenSetup");
    const WidgetPtr wizard = Widgets().GetModalWidget();
    ASSERT_TRUE(wizard);
    const auto tap = [&wizard](const std::string& a_path)
    {
        const WidgetPtr widget = Widgets().FindWidget("WindowPanel:" + a_path, wizard.Get());
        ASSERT_TRUE(widget) << a_path;
        const CPoint middle = widget->AbsoluteTopLeft() + CPoint(widget->Width() / 2, widget->Height() / 2);
        Click(middle.X(), middle.Y());
    };
    tap("Forwards");
    tap("SetupPlants:Page:Kinds:Flowers");
    tap("Forwards");
    tap("Backwards");
    tap("Forwards");
    tap("SetupControl:Page:Manual");
    tap("Forwards");
    EXPECT_FALSE(Widgets().GetModalWidget());
    EXPECT_EQ(s_demo->Simulation().temperatureSetPoint, 21);
    EXPECT_EQ(s_demo->Simulation().humiditySetPoint, 70);
    Open("Climate");
    EXPECT_EQ(Get("Climate:Control:Manual", "Checked"), "True");
    // The first step back leaves all as it is.
    Open("Settings");
    Tap("Settings:Console:OpenSetup");
    tap("Backwards");
    EXPECT_FALSE(Widgets().GetModalWidget());
}

TEST_F(GreenhouseTest, AKeyboardFillsAField)
{
    Open("Settings");
    Tap("Settings:Console:OpenNetwork");
    EXPECT_TRUE(IsShown("Network") && IsShown("Navigation"));
    EXPECT_FALSE(IsShown("Settings"));
    Tap("Network:Entries:Name");
    for (const char* key : {"a", "b", "Done"})
    {
        Tap(std::string("NameKeys:WindowPanel:") + key);
    }
    // The keyboard's text comes out here.
    EXPECT_NE(testing::internal::GetCapturedStdout(), "");
    testing::internal::CaptureStdout();
    EXPECT_FALSE(Widgets().GetModalWidget());
    EXPECT_EQ(Get("Network:Entries:Name", "Text"), "AB");
    // One that the program has registered, with fields that it listens to.
    EXPECT_EQ(Get("Network:Entries:Address", "Text"), "192.168.10.20 ");
    Tap("Network:Entries:Address");
    for (const char* key : {"1", "0", "Done"})
    {
        Tap(std::string("AddressKeys:WindowPanel:") + key);
    }
    EXPECT_NE(testing::internal::GetCapturedStdout(), "");
    testing::internal::CaptureStdout();
    EXPECT_FALSE(Widgets().GetModalWidget());
    EXPECT_EQ(Get("Network:Entries:Address", "Text"), "10.0.0.0 ");
    Tap("Network:Entries:Automatic");
    Tap("Network:Entries:Automatic");
    const GfxTest::CPicture picture = FreshPicture();
    dynamic_cast<Gfx::Widgets::CNumericEditBox&>(*Widgets().FindWidget("Network:Entries:Address", nullptr))
        .UnHighlightActive();
    EXPECT_EQ(picture.CountDifferences(FreshPicture()), 0) << "no field looks as if it were still written into";
    Tap("Network:Entries:Automatic");
    EXPECT_FALSE(IsShown("Network:Entries:Address"));
    Tap("Network:Entries:Connect");
    EXPECT_TRUE(IsShown("Network:Entries:Connected"));
    Tap("Network:Back");
    EXPECT_TRUE(IsShown("Settings"));
    EXPECT_EQ(Get("Navigation:Pages", "SelectedItem"), "Settings");
}

TEST_F(GreenhouseTest, FiveTouchesCalibrateThePanel)
{
    const GfxTest::CTemporaryDirectory folder;
    setenv("GFX_SYSTEM_CONFIG", (folder.Path() + "system.conf").c_str(), 1);
    auto& input = StaticSingleton<Gfx::Managers::CInputManager>::ref();
    // A panel that reports the half, mirrored.
    input.UseCalibration({2, 0, 0, 0, -2, 479});
    const auto touch = [&input](int a_x, int a_y)
    {
        input.MousePosition({a_x / 2, (479 - a_y) / 2});
        input.ReportEvents();
        for (const bool isDown : {true, false})
        {
            input.MouseButton(isDown);
            input.ReportEvents();
        }
    };
    Open("Settings");
    // The second time begins anew.
    for (int round = 0; round < 2; ++round)
    {
        round == 0 ? Tap("Settings:Console:OpenTouch") : Tap("Calibration:Result:Again");
        EXPECT_FALSE(IsShown("Navigation"));
        for (int i = 1; i <= 5; ++i)
        {
            const std::string name = "Calibration:Target" + std::to_string(i);
            ASSERT_TRUE(IsShown(name)) << name;
            const WidgetPtr target = Find(name);
            // All are touched too low.
            touch(target->AbsoluteTopLeft().X() + target->Width() / 2,
                  target->AbsoluteTopLeft().Y() + target->Height() / 2 + 20);
        }
        ASSERT_TRUE(IsShown("Calibration:Result:Good"));
        EXPECT_LE(std::stoi(Get("Calibration:Result:Error", "Text")), 1);
    }
    Tap("Calibration:Result:Save");
    EXPECT_TRUE(IsShown("Settings") && IsShown("Navigation"));
    EXPECT_TRUE(input.IsCalibrated());
    const CPoint corrected = input.TransformCoordinates(200, 140);
    EXPECT_NEAR(corrected.X(), 400, 2);
    EXPECT_NEAR(corrected.Y(), 479 - 280 - 20, 2);
    input.LoadCalibration();
    EXPECT_TRUE(input.IsCalibrated());
    input.UseCalibration(Gfx::Managers::CInputManager::k_identity);
}

} // namespace
