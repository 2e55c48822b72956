#include "Managers/Config/ConfigManager.h"

#include "Core/Logging/Logger.h"

#include <utility>

template class Core::Patterns::StaticSingleton<Gfx::Managers::CConfigManager>;

namespace Gfx::Managers
{

void CConfigManager::Initialise(const std::string& a_basePath)
{
    ++m_generation;
    m_basePath = a_basePath;
    m_configurationPath = a_basePath + "Configuration/";
    if (!Parse(m_configurationPath + "GfxConfig.xml"))
    {
        Core::Patterns::StaticSingleton<Core::Logging::CLogger>::ref().Log(Core::Logging::elMessage, "CConfigManager",
                                                                           "%s", "Unable to load GfxConfig.xml");
    }
    ReadOwnKeys();
}

bool CConfigManager::Reload(std::string& a_error)
{
    XMLDocument document;
    if (!document.Parse(m_configurationPath + "GfxConfig.xml"))
    {
        a_error = document.ErrorText();
        return false;
    }
    if (document.RootNode()->ContentHash() == RootNode()->ContentHash())
    {
        return true;
    }
    XMLDocument::operator=(std::move(document));
    ++m_generation;
    m_values.clear();
    ReadOwnKeys();
    return true;
}

void CConfigManager::ReadOwnKeys()
{
    m_clipText = Get<std::string>("/Gfx/General/ClipText", "No") == "Yes";
}

const std::string& CConfigManager::RawText(const std::string& a_path) const
{
    const auto known = m_values.find(a_path);
    return known != m_values.end() ? known->second : m_values.emplace(a_path, FindValue(a_path, "")).first->second;
}

} // namespace Gfx::Managers
