#include "Widgets/TextureLayer.h"

#include "Core/StaticSingleton.h"
#include "Gfx/Common/Drawing.h"
#include "Managers/Textures/TextureManager.h"
#include "Platform/Clutter/Clutter.h"

namespace Gfx::Widgets
{

namespace
{

Managers::CTextureManager& Textures()
{
    return Core::Patterns::StaticSingleton<Managers::CTextureManager>::ref();
}

} // namespace

CTextureLayer::~CTextureLayer()
{
    DropTexture();
}

bool CTextureLayer::Retrieve(const Common::CAABB& a_rectangle)
{
    DropTexture();
    m_valid = Textures().RetrieveTexture(m_element, a_rectangle.Left(), a_rectangle.Top(), a_rectangle.Width(),
                                         a_rectangle.Height(), m_quads, m_texture);
    return m_valid;
}

bool CTextureLayer::RetrieveFile(const std::string& a_path, const Common::CAABB& a_rectangle)
{
    if (m_file != a_path || !HasTexture())
    {
        DropTexture();
        m_valid = Textures().LoadFileAsTexture(a_path, 0, 0, 0, 0, m_quads, m_texture);
        m_file = m_valid ? a_path : "";
    }
    if (m_valid)
    {
        m_quads.assign(1, Utilities::WholeTexture(a_rectangle));
    }
    return m_valid;
}

void CTextureLayer::DropTexture()
{
    if (!m_file.empty())
    {
        cogl_texture_release(m_texture);
        m_file.clear();
    }
    m_texture = nullptr;
}

void CTextureLayer::Draw() const
{
    if (m_valid)
    {
        Utilities::DrawTexturedQuads(m_quads, m_texture);
    }
}

int CTextureLayer::Margin(Margins::EMargin a_margin) const
{
    return Textures().GetElementMargin(m_element, a_margin);
}

} // namespace Gfx::Widgets
