#pragma once

#include "Core/Api.h"
#include "Core/IO/XMLNode.h"
#include "Core/StaticSingleton.h"
#include "Gfx/Common/Colour.h"

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace Gfx::Managers
{

/// Named style elements, such as colours and names of texture elements, by theme: Configuration/ThemeConfig.xml below
/// the data directory.
///
/// \code{.xml}
/// <Themes default="Day">
///   <Theme id="Day">
///     <Element id="TextColour" value="Black"/>
///   </Theme>
/// </Themes>
/// \endcode
///
/// The table may also stand below another root element. What a value stands for is the business of whoever asks for it.
/// The file is required, and has to define the theme that it makes the default one, or at least one theme; without, the
/// process ends.
class GFX_API CThemeManager
{
public:
    /// a_basePath is the data directory, with a separator at its end. Bad nodes are logged and left out.
    void Initialise(const std::string& a_basePath);

    /// Reads the file again, in place of all themes that are known; the current one stays so, if there still is one of
    /// that name. Widgets have to be told. On failure all stays as it was, and a_error says where the fault is.
    [[nodiscard]] bool Reload(std::string& a_error);

    /// The value of a_name in the current theme; a_default if it has none. Other themes aren't asked.
    [[nodiscard]] std::string Element(const std::string& a_name, const std::string& a_default) const;

    /// The same without a copy: null if the theme has none. It is good until a further theme file is read.
    [[nodiscard]] const std::string* FindElement(const std::string& a_name) const;

    /// The colour that the current theme has under a_name, or else the named colour.
    [[nodiscard]] CColour Colour(const std::string& a_name) const;

    /// Makes a_id the current theme, and every widget read its style anew, even if it is current already. Does nothing
    /// if there is no such theme.
    void SetTheme(const std::string& a_id);

    [[nodiscard]] const std::string& GetTheme() const { return m_currentTheme; }

    /// All themes' names, sorted.
    [[nodiscard]] std::vector<std::string> ThemeIds() const;

private:
    using ElementMap = std::unordered_map<std::string, std::string>;

    void ReadThemes(const Core::IO::XMLNode& a_themes);
    void ReadTheme(const Core::IO::XMLNode& a_theme);

    std::string m_configurationPath;
    std::string m_defaultTheme;
    std::string m_currentTheme;
    std::map<std::string, ElementMap> m_themes;
};

} // namespace Gfx::Managers

extern template class GFX_API Core::Patterns::StaticSingleton<Gfx::Managers::CThemeManager>;
