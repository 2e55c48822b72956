#include "Managers/Themes/ThemeManager.h"

#include "Core/Assert.h"
#include "Core/IO/XMLDocument.h"
#include "Core/Logging/Logger.h"
#include "Managers/Widgets/WidgetManager.h"

#include <utility>

template class Core::Patterns::StaticSingleton<Gfx::Managers::CThemeManager>;

namespace Gfx::Managers
{

using Core::Patterns::StaticSingleton;

namespace
{

void Report(const char* a_message)
{
    StaticSingleton<Core::Logging::CLogger>::ref().Log(Core::Logging::elMessage, "CThemeManager", a_message, "");
}

} // namespace

void CThemeManager::Initialise(const std::string& a_basePath)
{
    m_configurationPath = a_basePath + "Configuration/";
    Core::IO::XMLDocument document;
    // A file that can't be read has no themes, which the assertion below is for.
    static_cast<void>(document.Parse(m_configurationPath + "ThemeConfig.xml"));
    const Core::IO::XMLNode* currentNode = document.Section("Themes");
    GFX_ASSERT(currentNode);
    ReadThemes(*currentNode);
    m_currentTheme = m_defaultTheme;
}

bool CThemeManager::Reload(std::string& a_error)
{
    const std::string path = m_configurationPath + "ThemeConfig.xml";
    Core::IO::XMLDocument document;
    if (!document.Parse(path))
    {
        a_error = document.ErrorText();
        return false;
    }
    CThemeManager fresh;
    if (const Core::IO::XMLNode* themes = document.Section("Themes"))
    {
        fresh.ReadThemes(*themes);
    }
    if (fresh.m_themes.count(fresh.m_defaultTheme) == 0)
    {
        a_error = path + ": there is no theme of the default one's name";
        return false;
    }
    m_themes = std::move(fresh.m_themes);
    m_defaultTheme = fresh.m_defaultTheme;
    if (m_themes.count(m_currentTheme) == 0)
    {
        m_currentTheme = m_defaultTheme;
    }
    return true;
}

void CThemeManager::ReadThemes(const Core::IO::XMLNode& a_themes)
{
    m_defaultTheme = a_themes.Attribute("default", "");
    for (const Core::IO::XMLNode& child : a_themes.Children())
    {
        if (child.Name() == "Theme")
        {
            ReadTheme(child);
        }
    }
}

void CThemeManager::ReadTheme(const Core::IO::XMLNode& a_theme)
{
    const std::string id = a_theme.Attribute("id", "");
    if (id.empty())
    {
        Report("A theme id was missing from a theme node");
        return;
    }
    if (m_defaultTheme.empty())
    {
        m_defaultTheme = id;
    }
    ElementMap& elements = m_themes[id];
    for (const Core::IO::XMLNode& child : a_theme.Children())
    {
        if (child.Name() != "Element")
        {
            continue;
        }
        const std::string name = child.Attribute("id", "");
        const std::string value = child.Attribute("value", "");
        if (name.empty() || value.empty())
        {
            Report("An element requires both an id and a value");
            continue;
        }
        elements[name] = value;
    }
}

std::string CThemeManager::Element(const std::string& a_name, const std::string& a_default) const
{
    const std::string* const element = FindElement(a_name);
    return element != nullptr ? *element : a_default;
}

const std::string* CThemeManager::FindElement(const std::string& a_name) const
{
    const auto themeIter = m_themes.find(m_currentTheme);
    GFX_ASSERT(themeIter != m_themes.end());
    const auto element = themeIter->second.find(a_name);
    return element != themeIter->second.end() ? &element->second : nullptr;
}

CColour CThemeManager::Colour(const std::string& a_name) const
{
    return ColourFromString(Element(a_name, a_name));
}

void CThemeManager::SetTheme(const std::string& a_id)
{
    if (m_themes.count(a_id) != 0)
    {
        m_currentTheme = a_id;
        StaticSingleton<CWidgetManager>::ref().UpdateStyle();
    }
}

std::vector<std::string> CThemeManager::ThemeIds() const
{
    std::vector<std::string> ids;
    for (const auto& [id, elements] : m_themes)
    {
        ids.push_back(id);
    }
    return ids;
}

} // namespace Gfx::Managers
