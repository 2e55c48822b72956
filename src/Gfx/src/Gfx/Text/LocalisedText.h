#pragma once

#include "Core/Api.h"
#include "Core/Localisation/Asset.h"
#include "Core/SharedPtr.h"

#include <string>

namespace Gfx::Text
{

/// A text as the application set it, and as it is shown. A raw text that contains "Localised:" names a localised text;
/// its key is what lies behind that many characters from the start of the raw text, wherever in it the word stands.
class GFX_API CLocalisedText
{
public:
    /// Keeps a text; what is shown changes with the next Refresh().
    void SetRaw(const std::string& a_raw) { m_raw = a_raw; }

    /// Works out what is to be shown, in the language that is in use now.
    void Refresh();

    [[nodiscard]] const std::string& Raw() const { return m_raw; }
    [[nodiscard]] const std::string& Display() const { return m_display; }
    [[nodiscard]] bool IsLocalised() const { return m_localised; }

    /// The key of a localised text, the text itself of any other; neither prefix nor translation.
    [[nodiscard]] std::string Id() const;

private:
    std::string m_raw;
    std::string m_display;
    bool m_localised = false;
    Core::SharedPtr<Core::Localisation::CAsset> m_asset;
};

} // namespace Gfx::Text
