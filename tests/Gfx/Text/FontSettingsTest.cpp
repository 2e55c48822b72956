#include "Gfx/Text/FontSettings.h"

#include "Core/StaticSingleton.h"
#include "Managers/Config/ConfigManager.h"
#include "Managers/Themes/ThemeManager.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

using Core::Patterns::StaticSingleton;
using Gfx::CColour;
using Gfx::Text::CFontSettings;

class FontSettingsTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        const GfxTest::CTemporaryDirectory directory;
        directory.Write("Configuration/GfxConfig.xml", R"(<Gfx>
            <Font><Size>20</Size><Alignment>Bottom,Right</Alignment></Font>
            <Controls>
              <Button><Font><Name>Serif</Name><Colour>Ink</Colour><Size>big</Size></Font></Button>
              <Label><Font><Size>11</Size><Colour>Teal</Colour><Alignment>Middle</Alignment></Font></Label>
            </Controls></Gfx>)");
        directory.Write("Configuration/ThemeConfig.xml", R"(<Themes>
            <Theme id="day"><Element id="Ink" value="Navy"/></Theme>
            <Theme id="night"><Element id="Ink" value="Gold"/></Theme>
            <Theme id="void"/></Themes>)");
        StaticSingleton<Gfx::Managers::CConfigManager>::ref().Initialise(directory.Path());
        StaticSingleton<Gfx::Managers::CThemeManager>::ref().Initialise(directory.Path());
    }

    void SetUp() override { StaticSingleton<Gfx::Managers::CThemeManager>::ref().SetTheme("day"); }
};

TEST_F(FontSettingsTest, AControlsKeysComeBeforeTheGeneralOnesAndTheseBeforeTheDefaults)
{
    const CFontSettings window("Window");
    EXPECT_EQ(window.AsString(), "Sans 20px");
    EXPECT_TRUE(window.colour == Gfx::Colours::White);
    EXPECT_EQ(window.colourName, "White");
    EXPECT_EQ(window.alignment, 0x33);
    const CFontSettings label("Label");
    EXPECT_EQ(label.AsString(), "Sans 11px");
    EXPECT_TRUE(label.colour == Gfx::Colours::Teal);
    EXPECT_EQ(label.alignment, 0x20);
    EXPECT_EQ(CFontSettings("Button").AsString(), "Serif 20px") << "a size that is no number doesn't count";
}

TEST_F(FontSettingsTest, AColourFollowsTheThemeByItsName)
{
    CFontSettings button("Button");
    EXPECT_TRUE(button.colour == Gfx::Colours::Navy);
    StaticSingleton<Gfx::Managers::CThemeManager>::ref().SetTheme("night");
    EXPECT_TRUE(button.colour == Gfx::Colours::Navy) << "not before it is told";
    button.UpdateStyle();
    EXPECT_TRUE(button.colour == Gfx::Colours::Gold);
    button.size = 3;
    button.colour = Gfx::Colours::Red;
    StaticSingleton<Gfx::Managers::CThemeManager>::ref().SetTheme("void");
    button.UpdateStyle();
    EXPECT_TRUE(button.colour == Gfx::Colours::White) << "Ink is no named colour";
    EXPECT_EQ(button.size, 3);
}

TEST_F(FontSettingsTest, AColourOutsideTheTableStaysAndOneOfTheTableBecomesOpaque)
{
    CFontSettings free("Mono", CColour(1, 2, 3, 4), 12, 0x11);
    EXPECT_EQ(free.colourName, "");
    free.UpdateStyle();
    EXPECT_TRUE(free.colour == CColour(1, 2, 3, 4));
    CFontSettings bound("Mono", CColour(0, 255, 255, 128), 12, 0x11);
    EXPECT_EQ(bound.colourName, "Aqua");
    bound.UpdateStyle();
    EXPECT_TRUE(bound.colour == Gfx::Colours::Aqua);
}

TEST_F(FontSettingsTest, AnyLengthOfFamilyNameIsTaken)
{
    const CFontSettings font(std::string(5000, 'x'), Gfx::Colours::White, -1, 0);
    EXPECT_EQ(font.AsString(), std::string(5000, 'x') + " -1px");
}

} // namespace
