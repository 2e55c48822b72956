// OSK.xml, and the keyboards that it makes: each is typed on.

#include "fuzz/support/Stage.h"
#include "fuzz/support/Target.h"

#include "Managers/Config/ConfigManager.h"
#include "Widgets/Controls/Keyboard/OnScreenKeyboard.h"

#include <filesystem>

namespace
{

using Gfx::Widgets::COnScreenKeyboard;
using GfxFuzz::CStage;

class CCleaner
{
public:
    ~CCleaner()
    {
        CStage::Clear();
        COnScreenKeyboard::Keyboards.clear();
        CStage::Iterate();
    }
};

void UseKeyboard(const std::string& a_layout, const std::string& a_mode)
{
    const Core::SharedPtr<COnScreenKeyboard> keyboard(
        new COnScreenKeyboard("keyboard", 0, 0, a_layout, a_mode, "title"));
    CStage::Widgets().AddWidget(keyboard);
    keyboard->Show();
    for (std::size_t page = 0; page < 2; ++page)
    {
        keyboard->NextPage();
        CStage::TouchAll();
    }
    keyboard->Text("aB3-\xC3\xA4");
    keyboard->Mode("Default");
    CStage::TouchAll();
    for (const auto& [id, layout] : COnScreenKeyboard::Keyboards)
    {
        keyboard->SelectLayout(id);
        keyboard->SelectPage("");
    }
    GfxFuzz::Use(keyboard->Text());
    keyboard->UpdateStyle();
    CStage::Paint();
    CStage::Clear();
}

} // namespace

void GfxFuzz::SetUp()
{
    std::filesystem::create_directory(Data().Path() + "Configuration");
    for (const char* file : {"Configuration/GfxConfig.xml", "Configuration/ThemeConfig.xml", "TextureMaps"})
    {
        std::filesystem::create_symlink(std::string(GFX_TEST_DATA) + file, Data().Path() + file);
    }
    CStage::Make(Data().Path());
}

void GfxFuzz::Try(std::string_view a_input)
{
    Data().Write("Configuration/OSK.xml", a_input);
    const CCleaner cleaner;
    COnScreenKeyboard::Keyboards.clear();
    COnScreenKeyboard::ParseConfiguration();
    constexpr int most = 3;
    int count = 0;
    for (auto layout = COnScreenKeyboard::Keyboards.begin();
         layout != COnScreenKeyboard::Keyboards.end() && count < most; ++layout, ++count)
    {
        UseKeyboard(layout->first, layout->second.modes.empty() ? "" : layout->second.modes.rbegin()->first);
    }
}
