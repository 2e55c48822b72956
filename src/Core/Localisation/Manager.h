#pragma once

#include "Core/Api.h"
#include "Core/Functor.h"
#include "Core/SharedPtr.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace Core::Localisation
{

class CAsset;

/// The texts of the interface in the language of the user.
///
/// A language is a catalogue, "Localisation/<language>.xml" below the base path:
///
///     <Localisation language="de">
///       <Text id="greeting">Hallo</Text>
///     </Localisation>
///
/// Of texts with the same id the last one counts. The base language "en" needs no catalogue: a text that isn't found
/// shows its key. An application with texts of another origin derives from this class, overrides Translate, and makes
/// its manager the instance before it sets the toolkit up.
class GFX_API CManager
{
public:
    using UpdateCompletedCallback = Functor<void>::Signature;

    /// Chooses the user's language: the first that the environment names (LANGUAGE, LC_ALL, LC_MESSAGES, LANG) and that
    /// is "en" or has a catalogue; "en" if there is none. a_basePath ends in a slash.
    explicit CManager(std::string a_basePath = {});
    virtual ~CManager();
    CManager(const CManager&) = delete;
    CManager& operator=(const CManager&) = delete;

    /// The manager that assets are made with; null at first. It stays its maker's, and lives to the end of the process.
    [[nodiscard]] static CManager* Instance();
    static void Instance(CManager* a_manager);

    /// The text of a key, or a_key itself if it has none. What is returned is valid until the language changes, and as
    /// long as a_key.
    [[nodiscard]] virtual std::string_view Translate(std::string_view a_key) const;

    /// Loads a language, be it the present one, refreshes all assets, and then runs the update callbacks in the order
    /// of their registration. False, nothing changed, one log line, if its catalogue is missing or can't be read.
    [[nodiscard]] bool SetLanguage(const std::string& a_language);
    [[nodiscard]] const std::string& Language() const { return m_language; }

    /// The languages that have a catalogue, sorted.
    [[nodiscard]] std::vector<std::string> Languages() const;

    /// a_text with the language in place of every "%LANG%".
    [[nodiscard]] std::string ProcessEscapes(const std::string& a_text) const;

    /// a_callback runs after each change of language. It is owned from now on. Callbacks may add and remove callbacks;
    /// one that is added meanwhile runs from the next change on.
    void AddUpdateCompletedCallback(UpdateCompletedCallback* a_callback);

    /// Deletes a_callback, if it was added; after its end, if it is running.
    void RemoveUpdateCompletedCallback(const UpdateCompletedCallback* a_callback);

    /// Lets go of an asset: it keeps the text that it shows. Assets do this themselves when they die.
    void DeregisterAsset(CAsset* a_asset);

protected:
    /// Refreshes all assets and runs the update callbacks: for a manager whose Translate has other results now.
    void UpdateCompleted();

private:
    friend class CAsset;

    struct SHash
    {
        using is_transparent = void;
        std::size_t operator()(std::string_view a_text) const { return std::hash<std::string_view>()(a_text); }
    };

    using Catalogue = std::unordered_map<std::string, std::string, SHash, std::equal_to<>>;
    using Callbacks = std::vector<SharedPtr<UpdateCompletedCallback>>;

    [[nodiscard]] Callbacks::iterator FindCallback(const UpdateCompletedCallback* a_callback);
    void RegisterAsset(CAsset* a_asset);
    void Refresh(CAsset& a_asset) const;
    [[nodiscard]] std::string CataloguePath(const std::string& a_language) const;
    [[nodiscard]] bool HasCatalogue(const std::string& a_language) const;
    bool LoadCatalogue(const std::string& a_language, Catalogue& a_catalogue) const;

    std::string m_basePath;
    std::string m_language;
    Catalogue m_catalogue;
    std::unordered_set<CAsset*> m_assets;
    Callbacks m_callbacks;
};

} // namespace Core::Localisation
