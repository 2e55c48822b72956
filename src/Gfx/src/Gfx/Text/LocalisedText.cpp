#include "Gfx/Text/LocalisedText.h"

#include "Core/Localisation/Manager.h"
#include "Gfx/Common/Colour.h"

namespace Gfx::Text
{

void CLocalisedText::Refresh()
{
    m_localised = m_raw.find(k_localisedPrefix) != std::string::npos;
    if (!m_localised)
    {
        m_display = m_raw;
        return;
    }
    if (Core::Localisation::CManager* manager = Core::Localisation::CManager::Instance(); manager != nullptr && m_asset)
    {
        manager->DeregisterAsset(m_asset.Get());
    }
    m_asset = Core::Localisation::CAsset::Create(m_raw.substr(k_localisedPrefix.size()));
    m_display = m_asset->ToString();
}

std::string CLocalisedText::Id() const
{
    return m_localised ? m_asset->Id() : m_display;
}

} // namespace Gfx::Text
