#include "Core/Localisation/Asset.h"

#include "Core/Localisation/Manager.h"

namespace Core::Localisation
{

SharedPtr<CAsset> CAsset::Create(const std::string& a_key)
{
    SharedPtr<CAsset> asset(new CAsset(a_key));
    if (CManager* manager = CManager::Instance())
    {
        manager->RegisterAsset(asset.Get());
    }
    return asset;
}

CAsset::~CAsset()
{
    if (m_manager)
    {
        m_manager->DeregisterAsset(this);
    }
}

CAsset::CAsset(const std::string& a_key) : m_key(a_key), m_text(a_key) {}

} // namespace Core::Localisation
