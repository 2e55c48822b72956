#include "Managers/Textures/TexturePage.h"

#include "Core/Logging/Logger.h"
#include "Managers/Textures/ImageFile.h"
#include "Platform/Clutter/Clutter.h"

namespace Gfx::Managers
{

CTexturePage::CTexturePage(const std::string& a_file, int a_width, int a_height)
    : m_file(a_file), m_width(a_width), m_height(a_height)
{
}

CTexturePage::~CTexturePage()
{
    for (const auto& [name, element] : m_elements)
    {
        delete element;
    }
}

bool CTexturePage::LoadTexture()
{
    if (m_loadAttempted)
    {
        return IsValid();
    }
    m_loadAttempted = true;
    m_texture = detail::LoadImageFile(m_file, "CTexturePage");
    return true;
}

void CTexturePage::ReleaseTexture()
{
    cogl_texture_release(m_texture);
    m_texture = nullptr;
    m_loadAttempted = false;
}

bool CTexturePage::HasElement(const std::string& a_name) const
{
    return m_elements.count(a_name) != 0;
}

int CTexturePage::GetElementMargin(const std::string& a_name, Margins::EMargin a_margin) const
{
    const auto element = m_elements.find(a_name);
    return element != m_elements.end() ? element->second->GetElementMargin(a_margin) : 0;
}

void CTexturePage::AddElement(const std::string& a_name, CTexturedElement* a_element)
{
    if (a_element != nullptr)
    {
        m_elements[a_name] = a_element;
    }
}

std::unique_ptr<CTexturedElement> CTexturePage::TakeElement(const std::string& a_name)
{
    const auto element = m_elements.find(a_name);
    if (element == m_elements.end())
    {
        return nullptr;
    }
    std::unique_ptr<CTexturedElement> taken(element->second);
    m_elements.erase(element);
    return taken;
}

bool CTexturePage::RetrieveElement(const std::string& a_name, int a_x, int a_y, int a_width, int a_height,
                                   std::vector<STexturedQuad>& a_quads, void*& a_texture)
{
    const CTexturedElement* const element = LocateElement(a_name, a_texture);
    if (element == nullptr)
    {
        return false;
    }
    element->Generate(a_x, a_y, a_width, a_height, a_quads);
    return true;
}

const CTexturedElement* CTexturePage::LocateElement(const std::string& a_name, void*& a_texture)
{
    const auto element = m_elements.find(a_name);
    if (element == m_elements.end())
    {
        return nullptr;
    }
    if (!m_loadAttempted)
    {
        Core::Patterns::StaticSingleton<Core::Logging::CLogger>::ref().Log(
            Core::Logging::elMessage, "Gfx", "CTexturePage::RetrieveElement - texture not loaded - loading now", "");
        LoadTexture();
    }
    if (!IsValid())
    {
        return nullptr;
    }
    a_texture = m_texture;
    return element->second;
}

} // namespace Gfx::Managers
