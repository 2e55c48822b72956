#include "Core/Localisation/Manager.h"

#include "Core/IO/XMLDocument.h"
#include "Core/Localisation/Asset.h"
#include "Core/Logging/Logger.h"
#include "Core/Utilities.h"

#include <glib.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace Core::Localisation
{

namespace
{

constexpr const char* k_baseLanguage = "en";
constexpr const char* k_source = "CManager";
constexpr std::string_view k_languageEscape = "%LANG%";

CManager* s_instance = nullptr;

Logging::CLogger& Logger()
{
    return Patterns::StaticSingleton<Logging::CLogger>::ref();
}

/// A language becomes a part of a file name, and may come from the environment.
bool IsLanguageName(std::string_view a_name)
{
    return !a_name.empty() && a_name.front() != '.' &&
           std::all_of(a_name.begin(), a_name.end(),
                       [](char a_character) {
                           return g_ascii_isalnum(a_character) ||
                                  std::string_view("_-@.").find(a_character) != std::string_view::npos;
                       });
}

} // namespace

CManager::CManager(std::string a_basePath) : m_basePath(std::move(a_basePath)), m_language(k_baseLanguage)
{
    for (const char* const* name = g_get_language_names(); *name; ++name)
    {
        if (*name == std::string_view(k_baseLanguage) || HasCatalogue(*name))
        {
            m_language = *name;
            break;
        }
    }
    if (HasCatalogue(m_language))
    {
        LoadCatalogue(m_language, m_catalogue);
    }
}

CManager::~CManager()
{
    for (CAsset* asset : m_assets)
    {
        asset->m_manager = nullptr;
    }
    if (s_instance == this)
    {
        s_instance = nullptr;
    }
}

CManager* CManager::Instance()
{
    return s_instance;
}

void CManager::Instance(CManager* a_manager)
{
    s_instance = a_manager;
}

std::string_view CManager::Translate(std::string_view a_key) const
{
    const auto text = m_catalogue.find(a_key);
    return text != m_catalogue.end() ? text->second : a_key;
}

bool CManager::SetLanguage(const std::string& a_language)
{
    Catalogue catalogue;
    if (HasCatalogue(a_language))
    {
        if (!LoadCatalogue(a_language, catalogue))
        {
            return false;
        }
    }
    else if (a_language != k_baseLanguage)
    {
        Logger().Log(Logging::elMessage, k_source, "No catalogue for the language %s: %s", a_language,
                     CataloguePath(a_language));
        return false;
    }
    m_catalogue = std::move(catalogue);
    m_language = a_language;
    UpdateCompleted();
    return true;
}

std::vector<std::string> CManager::Languages() const
{
    std::vector<std::string> languages;
    std::error_code error;
    std::filesystem::directory_iterator entry(m_basePath + "Localisation", error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error))
    {
        const std::filesystem::path file = entry->path().filename();
        if (file.extension() == ".xml" && HasCatalogue(file.stem().string()))
        {
            languages.push_back(file.stem().string());
        }
    }
    std::sort(languages.begin(), languages.end());
    return languages;
}

std::string CManager::ProcessEscapes(const std::string& a_text) const
{
    std::string result;
    std::size_t start = 0;
    for (std::size_t escape; (escape = a_text.find(k_languageEscape, start)) != std::string::npos;
         start = escape + k_languageEscape.size())
    {
        result.append(a_text, start, escape - start).append(m_language);
    }
    return result.append(a_text, start);
}

void CManager::AddUpdateCompletedCallback(UpdateCompletedCallback* a_callback)
{
    if (a_callback && FindCallback(a_callback) == m_callbacks.end())
    {
        m_callbacks.emplace_back(a_callback);
    }
}

void CManager::RemoveUpdateCompletedCallback(const UpdateCompletedCallback* a_callback)
{
    const auto callback = FindCallback(a_callback);
    if (callback != m_callbacks.end())
    {
        // It dies when the list is in order again.
        const SharedPtr<UpdateCompletedCallback> removed = std::move(*callback);
        m_callbacks.erase(callback);
    }
}

void CManager::DeregisterAsset(CAsset* a_asset)
{
    if (m_assets.erase(a_asset) != 0)
    {
        a_asset->m_manager = nullptr;
    }
}

void CManager::UpdateCompleted()
{
    // Translate may be an application's, which may make or drop assets.
    const std::vector<CAsset*> assets(m_assets.begin(), m_assets.end());
    for (CAsset* asset : assets)
    {
        if (m_assets.contains(asset))
        {
            Refresh(*asset);
        }
    }

    // The copy keeps each callback alive while it runs, also when it removes itself.
    const Callbacks callbacks = m_callbacks;
    for (const SharedPtr<UpdateCompletedCallback>& callback : callbacks)
    {
        if (FindCallback(callback.Get()) != m_callbacks.end())
        {
            callback->Execute();
        }
    }
}

CManager::Callbacks::iterator CManager::FindCallback(const UpdateCompletedCallback* a_callback)
{
    return std::find_if(m_callbacks.begin(), m_callbacks.end(),
                        [&](const auto& a_known) { return a_known.Get() == a_callback; });
}

void CManager::RegisterAsset(CAsset* a_asset)
{
    m_assets.insert(a_asset);
    a_asset->m_manager = this;
    Refresh(*a_asset);
}

void CManager::Refresh(CAsset& a_asset) const
{
    a_asset.m_text = Translate(a_asset.m_key);
}

std::string CManager::CataloguePath(const std::string& a_language) const
{
    return m_basePath + "Localisation/" + a_language + ".xml";
}

bool CManager::HasCatalogue(const std::string& a_language) const
{
    return IsLanguageName(a_language) && Utilities::FileExists(CataloguePath(a_language));
}

bool CManager::LoadCatalogue(const std::string& a_language, Catalogue& a_catalogue) const
{
    const std::string path = CataloguePath(a_language);
    IO::XMLDocument document;
    if (!document.Parse(path))
    {
        return false;
    }
    const IO::XMLNode* root = document.Section("Localisation");
    if (!root)
    {
        Logger().Log(Logging::elMessage, k_source, "%s: there is no element Localisation", path);
        return false;
    }
    for (const IO::XMLNode& node : root->Children())
    {
        const std::string id = node.Attribute("id", "");
        if (node.Name() != "Text" || id.empty())
        {
            Logger().Log(Logging::elSkipped, k_source, "%s:%d: skipping an element %s that isn't a Text with an id",
                         path, node.Line(), node.Name());
            continue;
        }
        a_catalogue[id] = node.Data();
    }
    return true;
}

} // namespace Core::Localisation
