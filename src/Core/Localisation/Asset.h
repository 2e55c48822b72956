#pragma once

#include "Core/Api.h"
#include "Core/SharedPtr.h"

#include <string>

namespace Core::Localisation
{

class CManager;

/// A text that follows the language: it has a key, and shows what the manager has for it. An asset that was made while
/// there was no manager, or whose manager is gone, keeps what it shows.
class GFX_API CAsset
{
public:
    /// Makes an asset that follows the present manager. Without a manager it shows its key.
    [[nodiscard]] static SharedPtr<CAsset> Create(const std::string& a_key);

    ~CAsset();
    CAsset(const CAsset&) = delete;
    CAsset& operator=(const CAsset&) = delete;

    /// The key.
    [[nodiscard]] const std::string& Id() const { return m_key; }

    /// The text in the present language; the key, if the language doesn't have it.
    [[nodiscard]] const std::string& ToString() const { return m_text; }

private:
    friend class CManager;

    explicit CAsset(const std::string& a_key);

    std::string m_key;
    std::string m_text;
    /// The manager that it is registered with; null for none.
    CManager* m_manager = nullptr;
};

} // namespace Core::Localisation
