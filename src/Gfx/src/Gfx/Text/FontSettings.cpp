#include "Gfx/Text/FontSettings.h"

#include "Core/StaticSingleton.h"
#include "Gfx/Common/Alignment.h"
#include "Managers/Config/ConfigManager.h"
#include "Managers/Themes/ThemeManager.h"

namespace Gfx::Text
{

using Core::Patterns::StaticSingleton;
using Managers::CConfigManager;
using Managers::CThemeManager;

namespace
{

/// A control's own value for one of the font keys, or else the value for all fonts.
template <typename T>
T ReadKey(const std::string& a_controlName, const std::string& a_key, const T& a_default)
{
    const CConfigManager& config = StaticSingleton<CConfigManager>::ref();
    const T general = config.Get<T>("/Gfx/Font/" + a_key, a_default);
    return config.Get<T>("/Gfx/Controls/" + a_controlName + "/Font/" + a_key, general);
}

CColour ColourOfTheme(const std::string& a_name)
{
    return ColourFromString(StaticSingleton<CThemeManager>::ref().Element(a_name, a_name));
}

} // namespace

CFontSettings::CFontSettings(const std::string& a_controlName)
    : name(ReadKey<std::string>(a_controlName, "Name", "Sans"))
    , colour(Colours::White)
    , size(ReadKey<int>(a_controlName, "Size", 16))
    , alignment(AlignmentFromString(ReadKey<std::string>(a_controlName, "Alignment", "Top,Left")))
    , colourName(ReadKey<std::string>(a_controlName, "Colour", "White"))
{
    colour = ColourOfTheme(colourName);
}

CFontSettings::CFontSettings(const std::string& a_fontName, const CColour& a_colour, int a_size, int a_alignment)
    : name(a_fontName), colour(a_colour), size(a_size), alignment(a_alignment), colourName(StringFromColour(a_colour))
{
}

std::string CFontSettings::AsString() const
{
    return name + " " + std::to_string(size) + "px";
}

void CFontSettings::UpdateStyle()
{
    if (!colourName.empty())
    {
        colour = ColourOfTheme(colourName);
    }
}

} // namespace Gfx::Text
