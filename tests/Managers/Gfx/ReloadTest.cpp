// A data directory that changes under a running interface.

#include "Managers/Config/ConfigManager.h"
#include "Managers/Gfx/GfxManager.h"
#include "Managers/Textures/TextureManager.h"
#include "Managers/Themes/ThemeManager.h"
#include "Widgets/Controls/Image/Image.h"
#include "support/LogGuard.h"
#include "support/StageTest.h"
#include "support/TemporaryDirectory.h"

#include <filesystem>

namespace
{

using Core::Patterns::StaticSingleton;
using Gfx::Managers::CConfigManager;
using Gfx::Managers::CGfxManager;
using Gfx::Managers::CThemeManager;
using Gfx::Widgets::CImage;

constexpr Gfx::CColour k_blue(0, 0, 160, 255);
constexpr Gfx::CColour k_orange(255, 128, 64, 255);

class ReloadTest : public GfxTest::CStageTest
{
protected:
    static void SetUpTestSuite()
    {
        std::filesystem::create_directories(s_data.Path() + "TextureMaps");
        std::filesystem::copy_file(GFX_TEST_DATA "TextureMaps/Solid.png", s_data.Path() + "TextureMaps/Solid.png");
        WriteAll();
        SetUpStage(s_data.Path());
        StaticSingleton<Gfx::Managers::CTextureManager>::ref().LoadTextures();
    }

    void SetUp() override
    {
        CStageTest::SetUp();
        WriteAll();
        ASSERT_TRUE(Reload().empty());
        StaticSingleton<CThemeManager>::ref().SetTheme("One");
    }

    static void WriteAll()
    {
        s_data.Write("Configuration/GfxConfig.xml", "<Gfx><Value>1</Value></Gfx>");
        WriteThemes("<Theme id='One'/><Theme id='Two'/>");
        WriteElement(4);
    }

    static void WriteThemes(const std::string& a_themes)
    {
        s_data.Write("Configuration/ThemeConfig.xml", "<Themes default='One'>" + a_themes + "</Themes>");
    }

    /// The element lies a_left pixels from the left of the page, in its row of solid colours.
    static void WriteElement(int a_left, int a_top = 4)
    {
        s_data.Write("TextureMaps/TextureConfig.xml",
                     "<Textures><Image file='Solid.png' width='128' height='128'><Element name='Face' left='" +
                         std::to_string(a_left) + "' top='" + std::to_string(a_top) +
                         "' width='16' height='16'/></Image></Textures>");
    }

    /// The errors.
    static std::vector<std::string> Reload()
    {
        std::vector<std::string> errors;
        const bool isWhole = StaticSingleton<CGfxManager>::ref().Reload(errors);
        EXPECT_EQ(isWhole, errors.empty());
        return errors;
    }

    static int Value() { return StaticSingleton<CConfigManager>::ref().Get<int>("/Gfx/Value", 0); }

    static inline GfxTest::CTemporaryDirectory s_data;
};

TEST_F(ReloadTest, WidgetsTakeTheNewArtAndLaterOnesTheNewConfiguration)
{
    GfxTest::ExpectLog("texture not loaded - loading now");
    const auto image = AddTopLevel(new CImage("image", 0, 0, 40, 40, "Face"));
    EXPECT_EQ(FreshPicture().At(20, 20), k_blue);
    EXPECT_EQ(Value(), 1);
    // Often enough for what was shown before to have been given up.
    for (int i = 0; i < 3; ++i)
    {
        WriteElement(76, 52);
        s_data.Write("Configuration/GfxConfig.xml", "<Gfx><Value>2</Value></Gfx>");
        EXPECT_TRUE(Reload().empty());
        EXPECT_EQ(FreshPicture().At(20, 20), k_orange);
        EXPECT_EQ(Value(), 2);
        WriteAll();
        EXPECT_TRUE(Reload().empty());
        EXPECT_EQ(FreshPicture().At(20, 20), k_blue);
    }
}

TEST_F(ReloadTest, TheThemeStaysWhileThereIsOne)
{
    CThemeManager& themes = StaticSingleton<CThemeManager>::ref();
    themes.SetTheme("Two");
    WriteThemes("<Theme id='One'/><Theme id='Two'><Element id='Ink' value='Red'/></Theme>");
    EXPECT_TRUE(Reload().empty());
    EXPECT_EQ(themes.GetTheme(), "Two");
    EXPECT_EQ(themes.Element("Ink", ""), "Red");
    WriteThemes("<Theme id='One'/>");
    EXPECT_TRUE(Reload().empty());
    EXPECT_EQ(themes.GetTheme(), "One");
}

TEST_F(ReloadTest, AFaultLeavesWhatWasThereAndIsLocated)
{
    GfxTest::ExpectLog("texture not loaded - loading now");
    const auto image = AddTopLevel(new CImage("image", 0, 0, 40, 40, "Face"));
    for (const char* file :
         {"Configuration/GfxConfig.xml", "Configuration/ThemeConfig.xml", "TextureMaps/TextureConfig.xml"})
    {
        WriteAll();
        s_data.Write(file, "<Broken>\n  <Open\n</Broken>");
        GfxTest::ExpectLog(s_data.Path() + file + ":3:");
        const std::vector<std::string> errors = Reload();
        ASSERT_EQ(errors.size(), 1U) << file;
        EXPECT_NE(errors[0].find(file), std::string::npos);
        EXPECT_EQ(Value(), 1);
        EXPECT_EQ(StaticSingleton<CThemeManager>::ref().GetTheme(), "One");
        EXPECT_EQ(FreshPicture().At(20, 20), k_blue);
    }
    WriteAll();
    s_data.Write("Configuration/ThemeConfig.xml", "<Themes default='Missing'><Theme id='One'/></Themes>");
    EXPECT_EQ(Reload().size(), 1U);
    EXPECT_EQ(StaticSingleton<CThemeManager>::ref().GetTheme(), "One");
}

} // namespace
