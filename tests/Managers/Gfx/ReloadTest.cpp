// A data directory that changes under a running interface.

#include "Core/Localisation/Manager.h"
#include "Managers/3D/3DManager.h"
#include "Managers/Config/ConfigManager.h"
#include "Managers/Gfx/GfxManager.h"
#include "Managers/Layout/LayoutManager.h"
#include "Managers/Textures/TextureManager.h"
#include "Managers/Themes/ThemeManager.h"
#include "Widgets/Controls/Button/Button.h"
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
using Gfx::Managers::CLayoutManager;
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
        ReloadLayouts("");
        SetTheme("One");
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

    static void WriteLayouts(const std::string& a_layouts)
    {
        s_data.Write("Layouts/All.xml", "<Layouts>" + a_layouts + "</Layouts>");
    }

    static std::string Panel(const std::string& a_id, const std::string& a_attributes = "")
    {
        return "<Panel id='" + a_id + "' x='0' y='0' " + a_attributes + "/>";
    }

    static std::string Layout(const std::string& a_id, const std::string& a_elements)
    {
        return "<Layout id='" + a_id + "'>" + a_elements + "</Layout>";
    }

    /// The names of the top-level widgets from the bottom up, hidden ones in brackets.
    static std::string Screen()
    {
        std::string names;
        for (const GfxTest::WidgetPtr& widget : Widgets().TopLevelWidgets())
        {
            const std::string name = widget->GetName(true);
            names += (names.empty() ? "" : " ") + (widget->Visible() ? name : '(' + name + ')');
        }
        return names;
    }

    static void Apply(const std::string& a_layout)
    {
        GfxTest::ExpectLog("parsing layout");
        GfxTest::ExpectLog("layout parsed");
        Layouts().ApplyLayout(a_layout);
    }

    /// The errors.
    static std::vector<std::string> Reload()
    {
        std::vector<std::string> errors;
        const bool isWhole = StaticSingleton<CGfxManager>::ref().Reload(errors);
        EXPECT_EQ(isWhole, errors.empty());
        return errors;
    }

    static void ExpectReload() { EXPECT_EQ(Reload(), std::vector<std::string>()); }

    static void ReloadLayouts(const std::string& a_layouts)
    {
        WriteLayouts(a_layouts);
        ExpectReload();
    }

    static GfxTest::WidgetPtr Find(const char* a_name) { return Widgets().FindWidget(a_name, nullptr); }
    static CLayoutManager& Layouts() { return StaticSingleton<CLayoutManager>::ref(); }
    static CThemeManager& Themes() { return StaticSingleton<CThemeManager>::ref(); }
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
        ExpectReload();
        EXPECT_EQ(FreshPicture().At(20, 20), k_orange);
        EXPECT_EQ(Value(), 2);
        WriteAll();
        ExpectReload();
        EXPECT_EQ(FreshPicture().At(20, 20), k_blue);
    }
}

TEST_F(ReloadTest, TheThemeStaysWhileThereIsOne)
{
    SetTheme("Two");
    WriteThemes("<Theme id='One'/><Theme id='Two'><Element id='Ink' value='Red'/></Theme>");
    ExpectReload();
    EXPECT_EQ(Themes().GetTheme(), "Two");
    EXPECT_EQ(Themes().Element("Ink", ""), "Red");
    WriteThemes("<Theme id='One'/>");
    ExpectReload();
    EXPECT_EQ(Themes().GetTheme(), "One");
}

TEST_F(ReloadTest, AFaultLeavesWhatWasThereAndIsLocated)
{
    GfxTest::ExpectLog("texture not loaded - loading now");
    const auto image = AddTopLevel(new CImage("image", 0, 0, 40, 40, "Face"));
    const std::string layouts = Layout("Good", Panel("g"));
    ReloadLayouts(layouts);
    Apply("Good");
    const auto expectUnchanged = [](const std::string& a_file)
    {
        EXPECT_EQ(Value(), 1) << a_file;
        EXPECT_EQ(Themes().GetTheme(), "One") << a_file;
        EXPECT_EQ(FreshPicture().At(20, 20), k_blue) << a_file;
        EXPECT_EQ(Screen(), "image g") << a_file;
    };
    for (const std::string file : {"Configuration/GfxConfig.xml", "Configuration/ThemeConfig.xml",
                                   "TextureMaps/TextureConfig.xml", "Layouts/All.xml"})
    {
        WriteAll();
        WriteLayouts(layouts);
        s_data.Write(file, "<Broken>\n  <Open\n</Broken>");
        GfxTest::ExpectLog(s_data.Path() + file + ":3:");
        const std::vector<std::string> errors = Reload();
        ASSERT_EQ(errors.size(), 1U) << file;
        EXPECT_NE(errors[0].find(file + ":3:"), std::string::npos) << errors[0];
        expectUnchanged(file);
    }
    WriteLayouts(layouts);
    s_data.Write("Configuration/ThemeConfig.xml", "<Themes default='Missing'><Theme id='One'/></Themes>");
    EXPECT_EQ(Reload().size(), 1U);
    expectUnchanged("a default theme that is missing");
}

TEST_F(ReloadTest, ModelsAreReadAgainIfTheyHaveBeenRead)
{
    auto& models = StaticSingleton<Gfx::Managers::C3DManager>::ref();
    const auto write = [](const std::string& a_id)
    {
        s_data.Write("Models/Models.xml",
                     "<Models><Category id='C' path='S'><Model id='" + a_id +
                         "' file='M.obj'><Colour id='c' colour='Red'/></Model></Category></Models>");
    };
    const auto has = [&models](const char* a_id) { return bool(models.GetModelColoured("C", a_id, "")); };
    s_data.Write("Models/S/M.obj", "v 0 0 0\n");
    write("A");
    ExpectReload();
    EXPECT_FALSE(has("A"));
    models.Initialise(s_data.Path());
    EXPECT_TRUE(has("A"));
    write("B");
    Settle();
    ExpectReload();
    EXPECT_TRUE(!has("A") && has("B"));
    EXPECT_GT(Settle(), 0) << "scenes may have changed";
    s_data.Write("Models/Models.xml", "<Models>");
    GfxTest::ExpectLog("Models.xml");
    EXPECT_EQ(Reload().size(), 1U);
    EXPECT_TRUE(has("B"));
    write("B");
}

TEST_F(ReloadTest, AChangedLayoutTakesThePlaceOfTheFormerOneAndTheOthersStay)
{
    const std::string other =
        Layout("Other", "<Panel id='o1' x='0' y='0'>" + Panel("inner") + "</Panel>" + Panel("o2"));
    ReloadLayouts(Layout("Main", Panel("m1") + Panel("m2") + Panel("m3")) + other + Layout("Unused", Panel("u")));
    Apply("Main");
    Apply("Other");
    Layouts().SetFlag("reload", "kept");
    Widgets().BringToFront(Find("m1").Get());
    Find("m2")->Hide();
    ASSERT_EQ(Screen(), "(m2) m3 o1 o2 m1");
    const Gfx::Widgets::CWidget* const kept = Find("o1").Get();

    const struct
    {
        std::string main;
        const char* screen;
    } cases[] = {
        {Panel("m1") + Panel("m2", "width='9'") + Panel("m3"), "(m2) m3 o1 o2 m1"},
        // One more lies over the one that it follows, one fewer is gone.
        {Panel("new") + Panel("m1") + Panel("m4") + Panel("m2"), "new (m2) o1 o2 m1 m4"},
        // What the file itself shows or hides goes before what was open.
        {Panel("m1", "visible='False'") + Panel("m2"), "(m2) o1 o2 (m1)"},
        {"", "o1 o2"},
        {Panel("m1"), "o1 o2 m1"},
    };
    for (const auto& row : cases)
    {
        ReloadLayouts(Layout("Main", row.main) + other);
        EXPECT_EQ(Screen(), row.screen);
        EXPECT_EQ(Find("o1").Get(), kept);
        EXPECT_EQ(Layouts().GetFlag("reload"), "kept");
    }
    // Neither one that the application has taken away, nor one that was never shown.
    Widgets().DestroyWidget(Find("m1").Get());
    ReloadLayouts(Layout("Main", Panel("m1", "width='7'")) + other + Layout("Unused", Panel("u", "width='7'")));
    EXPECT_EQ(Screen(), "o1 o2");
    // A new configuration makes all of them anew.
    s_data.Write("Configuration/GfxConfig.xml", "<Gfx><Value>5</Value></Gfx>");
    ExpectReload();
    EXPECT_EQ(Screen(), "o1 o2");
    EXPECT_NE(Find("o1").Get(), kept);
}

TEST_F(ReloadTest, ALayoutThatComesBackSpeaksTheLanguageOfNow)
{
    s_data.Write("Localisation/de.xml", "<Localisation language='de'><Text id='hello'>Hallo</Text></Localisation>");
    auto& localisation = *Core::Localisation::CManager::Instance();
    ASSERT_TRUE(localisation.SetLanguage("en"));
    const std::string label = "<Label id='l' x='0' y='0' width='90' height='30' text='Localised:hello'/>";
    ReloadLayouts(Layout("Away", "<Panel id='away' x='0' y='0'>" + label + "</Panel>") + Layout("Kept", label));
    Apply("Away");
    const GfxTest::WidgetPtr kept = Layouts().RetrieveLayout("Kept").front();
    Widgets().DestroyWidget(Find("away").Get());
    ASSERT_TRUE(localisation.SetLanguage("de"));
    Layouts().ApplyLayout("Away");
    EXPECT_EQ(Find("away:l")->GetCustomInfo().at("Text"), "Hallo");
    EXPECT_EQ(Layouts().RetrieveLayout("Kept").front(), kept);
    EXPECT_EQ(kept->GetCustomInfo().at("Text"), "Hallo");
    ASSERT_TRUE(localisation.SetLanguage("en"));
}

TEST_F(ReloadTest, AWidgetOffTheStageDrawsNothingThatWasGivenUp)
{
    GfxTest::ExpectLog("texture not loaded - loading now");
    const Core::SharedPtr<Gfx::Widgets::CButton> button(new Gfx::Widgets::CButton("button", 0, 0, 40, 40, false));
    button->SetTextures("Face", "Face", "Face", "Default");
    const Core::SharedPtr<CImage> image(new CImage("image", 40, 0, 40, 40, "Face"));
    const auto ground = AddTopLevel(new GfxTest::CBlock("ground", 0, 0, 800, 480, Gfx::Colours::Black));
    WriteElement(76, 52);
    EXPECT_TRUE(Reload().empty());
    EXPECT_TRUE(Reload().empty());
    button->MouseEvent(Gfx::Events::FirstDown, 1, {5, 5}, false);
    ground->AddChildren({button, image});
    EXPECT_EQ(FreshPicture().At(20, 20), k_orange);
    EXPECT_EQ(FreshPicture().At(60, 20), Gfx::Colours::Black);
    ground->UpdateStyle();
    EXPECT_EQ(FreshPicture().At(60, 20), k_orange);
}

TEST_F(ReloadTest, AFormerLayoutHearsNoMoreOfTouchesBesideIt)
{
    const auto write = [](const std::string& a_word)
    {
        ReloadLayouts(Layout("Popup", "<Panel id='p' x='0' y='0'><Panel id='c' x='0' y='0'><Events><NonClientHit>"
                                      "<SetFlag id='beside' value='" +
                                          a_word + "'/></NonClientHit></Events></Panel></Panel>"));
    };
    write("former");
    Apply("Popup");
    write("now");
    Click(700, 400);
    EXPECT_EQ(Layouts().GetFlag("beside"), "now");
    ReloadLayouts("");
    Layouts().SetFlag("beside", "");
    Click(700, 400);
    EXPECT_EQ(Layouts().GetFlag("beside"), "");
}

TEST_F(ReloadTest, AMessageBoxAnswersToTheElementThatHasPutItUp)
{
    const std::string click = "<Events><Click><ShowMessageBox btn1='Yes'><Button1><SetFlag id='answered' "
                              "value='yes'/></Button1></ShowMessageBox></Click></Events></Panel>";
    ReloadLayouts(Layout("Ask", "<Panel id='a' x='0' y='0' width='50' height='50'>" + click));
    Apply("Ask");
    Click(10, 10);
    for (int width = 60; width < 64; ++width)
    {
        ReloadLayouts(
            Layout("Ask", "<Panel id='a' x='0' y='0' height='50' width='" + std::to_string(width) + "'>" + click));
    }
    ASSERT_EQ(Screen(), "a WidgetMgrMessage");
    const auto button = Find("WidgetMgrMessage:WindowPanel:MessageBoxBtn1");
    ASSERT_TRUE(button);
    const Gfx::Common::CPoint corner = button->AbsoluteTopLeft();
    Click(corner.X() + 5, corner.Y() + 5);
    EXPECT_EQ(Layouts().GetFlag("answered"), "yes");
}

} // namespace
