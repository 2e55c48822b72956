// The configuration, the themes and the texture table of one file, and every control under them. Its root element is
// Gfx; the others stand below it.

#include "fuzz/support/Stage.h"
#include "fuzz/support/Target.h"

#include "Managers/Gfx/GfxManager.h"
#include "Managers/Layout/LayoutManager.h"
#include "Managers/Themes/ThemeManager.h"

#include <array>
#include <filesystem>

namespace
{

using Core::Patterns::StaticSingleton;
using Gfx::Managers::CThemeManager;
using GfxFuzz::CStage;

constexpr const char* k_base = R"(<Gfx>
  <Themes><Theme id="Base"/></Themes>
  <Textures/>
</Gfx>)";

constexpr const char* k_screen = R"(<Layouts><Layout id="Screen">
  <Panel id="panel" x="0" y="0" width="800" height="480">
    <Label id="label" x="10" y="10" width="100" height="30" text="label" background="True"/>
    <Button id="button" x="10" y="50" width="100" height="40" text="button" image="Icon">
      <Events><Click><ShowMessageBox width="300" height="200" title="t" message="m" btn1="1" btn2="2"/></Click></Events>
    </Button>
    <CheckBox id="check" x="10" y="100" width="100" height="30" text="check" checked="True"/>
    <RadioGroup>
      <RadioButton id="one" x="10" y="140" width="100" height="30" text="one" checked="True"/>
      <RadioButton id="two" x="10" y="180" width="100" height="30" text="two"/>
    </RadioGroup>
    <Image id="image" x="10" y="220" width="40" height="40" image="Icon"/>
    <ProgressBar id="progress" x="10" y="270" width="100" height="20" min="0" max="10" current="4"/>
    <Scrollbar id="scroll" x="120" y="10" width="30" height="200" minimum="0" maximum="9" current="5" step="1"/>
    <TextBox id="text" x="160" y="10" width="200" height="100" text="Some words that fill several lines of a box."/>
    <EditBox id="edit" x="160" y="120" width="200" height="40" text="edit"/>
    <NumericEditBox id="numbers" x="160" y="170" width="200" height="40"/>
    <ListBox id="list" x="370" y="10" width="150" height="150">
      <Item id="a" text="a" image="Icon"/><Item id="b" text="b"/><Item id="c" text="c"/>
    </ListBox>
    <ListGrid id="grid" x="370" y="170" width="150" height="150">
      <Item id="a" text="a" image="Icon"/><Item id="b" text="b"/>
    </ListGrid>
    <Graph id="graph" x="530" y="10" width="200" height="150"/>
    <Frame3D id="scene" x="530" y="170" width="100" height="100"/>
  </Panel>
  <Window id="window" x="400" y="250" width="300" height="200" title="window"><Label id="in" x="5" y="5"/></Window>
  <Keyboard id="keys" x="0" y="0" layout="Letters" title="keys" visible="False"/>
</Layout></Layouts>)";

constexpr std::array k_files{"Configuration/GfxConfig.xml", "Configuration/ThemeConfig.xml",
                             "TextureMaps/TextureConfig.xml"};

void Load(std::string_view a_text)
{
    for (const char* file : k_files)
    {
        GfxFuzz::Data().Write(file, a_text);
    }
    std::vector<std::string> errors;
    StaticSingleton<Gfx::Managers::CGfxManager>::ref().Reload(errors);
}

class CCleaner
{
public:
    ~CCleaner()
    {
        CStage::Clear();
        Load(k_base);
        CStage::Iterate();
    }
};

} // namespace

void GfxFuzz::SetUp()
{
    for (const char* file : k_files)
    {
        Data().Write(file, k_base);
    }
    for (const char* file : {"Configuration/OSK.xml", "TextureMaps/Solid.png"})
    {
        std::filesystem::create_symlink(std::string(GFX_TEST_DATA) + file, Data().Path() + file);
    }
    Data().Write("Layouts/Screen.xml", k_screen);
    CStage::Make(Data().Path());
}

void GfxFuzz::Try(std::string_view a_input)
{
    const CCleaner cleaner;
    Load(a_input);
    Gfx::Managers::CLayoutManager& layouts = StaticSingleton<Gfx::Managers::CLayoutManager>::ref();
    layouts.ApplyLayout("Screen");
    CStage::Paint();
    CStage::TouchAll();
    for (const std::string& theme : StaticSingleton<CThemeManager>::ref().ThemeIds())
    {
        StaticSingleton<CThemeManager>::ref().SetTheme(theme);
    }
    if (const GfxTest::WidgetPtr keys = CStage::Widgets().FindWidget("keys", nullptr))
    {
        keys->SetShowHide(true);
        CStage::TouchAll();
    }
    CStage::Advance(1000);
    CStage::Widgets().Idle();
    CStage::Iterate();
    CStage::Paint();
}
