// ThemeConfig.xml, read at start and in place of another one.

#include "fuzz/support/Target.h"

#include "Managers/Themes/ThemeManager.h"

namespace
{

void UseThemes(const Gfx::Managers::CThemeManager& a_themes)
{
    GfxFuzz::Use(a_themes.ThemeIds());
    GfxFuzz::Use(a_themes.Colour("TextColour"));
    GfxFuzz::Use(a_themes.Element("Panel_Up", ""));
}

} // namespace

void GfxFuzz::SetUp() {}

void GfxFuzz::Try(std::string_view a_input)
{
    Gfx::Managers::CThemeManager themes;
    Data().Write("Configuration/ThemeConfig.xml", R"(<Themes><Theme id="Former"/></Themes>)");
    themes.Initialise(Data().Path());
    Data().Write("Configuration/ThemeConfig.xml", a_input);
    std::string error;
    Use(themes.Reload(error));
    UseThemes(themes);
    Gfx::Managers::CThemeManager fresh;
    fresh.Initialise(Data().Path());
    UseThemes(fresh);
}
