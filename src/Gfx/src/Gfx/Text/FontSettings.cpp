#include "Gfx/Text/FontSettings.h"

#include "Core/StaticSingleton.h"
#include "Gfx/Common/Alignment.h"
#include "Managers/Config/ConfigManager.h"
#include "Managers/Themes/ThemeManager.h"

#include <unordered_map>

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

/// What the configuration says of a control's font.
struct SFontKeys
{
    explicit SFontKeys(const std::string& a_controlName)
        : name(ReadKey<std::string>(a_controlName, "Name", "Sans"))
        , size(ReadKey<int>(a_controlName, "Size", 16))
        , alignment(AlignmentFromString(ReadKey<std::string>(a_controlName, "Alignment", "Top,Left")))
        , colourName(ReadKey<std::string>(a_controlName, "Colour", "White"))
    {
    }

    std::string name;
    int size;
    int alignment;
    std::string colourName;
};

/// Read once for each kind of control, until another configuration is loaded.
const SFontKeys& FontKeys(const std::string& a_controlName)
{
    static std::unordered_map<std::string, SFontKeys> s_known;
    static int s_generation = -1;
    const int generation = StaticSingleton<CConfigManager>::ref().Generation();
    if (s_generation != generation)
    {
        s_known.clear();
        s_generation = generation;
    }
    const auto known = s_known.find(a_controlName);
    return known != s_known.end() ? known->second : s_known.emplace(a_controlName, a_controlName).first->second;
}

} // namespace

CFontSettings::CFontSettings(const std::string& a_controlName) : colour(Colours::White)
{
    const SFontKeys& keys = FontKeys(a_controlName);
    name = keys.name;
    size = keys.size;
    alignment = keys.alignment;
    colourName = keys.colourName;
    colour = StaticSingleton<CThemeManager>::ref().Colour(colourName);
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
        colour = StaticSingleton<CThemeManager>::ref().Colour(colourName);
    }
}

} // namespace Gfx::Text
