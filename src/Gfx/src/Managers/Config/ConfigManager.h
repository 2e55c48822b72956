#pragma once

#include "Core/Api.h"
#include "Core/IO/XMLDocument.h"
#include "Core/LexicalCast.h"
#include "Core/StaticSingleton.h"

#include <map>
#include <string>

namespace Gfx::Managers
{

/// Read access to Configuration/GfxConfig.xml below the data directory: values by the path of their element, such as
/// "/Gfx/General/TouchArea", with a default at every place that reads one.
///
/// A missing or empty element, a text that isn't entirely a value of the asked type, and a missing or malformed file
/// all give the default. A Boolean is the word "Yes" or "No", read as a std::string and compared exactly.
class GFX_API CConfigManager : public Core::IO::XMLDocument
{
public:
    /// a_basePath is the data directory, with a separator at its end. A file that can't be loaded is logged.
    void Initialise(const std::string& a_basePath);

    /// Reads the file again, for those who ask from now on. On failure all stays as it was, and a_error says where the
    /// fault is.
    [[nodiscard]] bool Reload(std::string& a_error);

    /// T is int or std::string; a std::string with white space in it counts as no value.
    template <typename T>
    [[nodiscard]] T Get(const std::string& a_path, const T& a_default) const
    {
        if (m_keyObserver != nullptr)
        {
            ReportKey(a_path, a_default);
        }
        const std::string& text = RawText(a_path);
        return text.empty() ? a_default : Core::LexicalCast<T, std::string>(text, a_default);
    }

    /// Hears of every key that is asked for, with its default: for programs that document a configuration. Null for
    /// none.
    using KeyObserver = void (*)(const std::string& a_path, const std::string& a_default, bool a_isNumber);
    void SetKeyObserver(KeyObserver a_observer) { m_keyObserver = a_observer; }

    /// How often a file has been loaded. What was read at another count has to be read anew.
    [[nodiscard]] int Generation() const { return m_generation; }

    /// Whether labels are clipped to their controls: /Gfx/General/ClipText.
    [[nodiscard]] bool ClipText() const { return m_clipText; }

    /// The data directory, as it was given to Initialise.
    [[nodiscard]] const std::string& BasePath() const { return m_basePath; }

private:
    void ReadOwnKeys();

    void ReportKey(const std::string& a_path, int a_default) const
    {
        m_keyObserver(a_path, std::to_string(a_default), true);
    }
    void ReportKey(const std::string& a_path, const std::string& a_default) const
    {
        m_keyObserver(a_path, a_default, false);
    }

    /// The text at a_path, looked up in the document once; a missing one is remembered as empty.
    [[nodiscard]] const std::string& RawText(const std::string& a_path) const;

    KeyObserver m_keyObserver = nullptr;
    mutable std::map<std::string, std::string> m_values;
    int m_generation = 0;
    bool m_clipText = false;
    std::string m_basePath;
    std::string m_configurationPath;
};

} // namespace Gfx::Managers

extern template class GFX_API Core::Patterns::StaticSingleton<Gfx::Managers::CConfigManager>;
