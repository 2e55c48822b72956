#include "Widgets/TextureLayer.h"

#include "Core/StaticSingleton.h"
#include "Gfx/Common/Drawing.h"
#include "Managers/Textures/TextureManager.h"
#include "Managers/Textures/TexturedElement.h"
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
    m_maker = Textures().LocateElement(m_element, m_texture);
    m_reloads = Textures().Reloads();
    m_rectangle = a_rectangle;
    m_valid = m_maker != nullptr;
    m_quads.clear();
    return m_valid;
}

bool CTextureLayer::RetrieveFile(const std::string& a_path, const Common::CAABB& a_rectangle)
{
    if (m_file == nullptr || *m_file != a_path)
    {
        DropTexture();
        m_valid = Textures().LoadFileAsTexture(a_path, 0, 0, 0, 0, m_quads, m_texture);
        m_owned = m_valid;
        m_file = std::make_unique<const std::string>(a_path);
    }
    if (m_valid)
    {
        m_quads.assign(1, Utilities::WholeTexture(a_rectangle));
    }
    return m_valid;
}

bool CTextureLayer::RetrieveImage(const std::string& a_name, bool a_isFile, const Common::CAABB& a_rectangle)
{
    if (a_isFile)
    {
        return RetrieveFile(a_name, a_rectangle);
    }
    m_element = a_name;
    return Retrieve(a_rectangle);
}

bool CTextureLayer::RetrieveData(const unsigned char* a_data, int a_width, int a_height, int a_bytesPerPixel)
{
    void* texture = m_texture;
    const bool isLoaded = Textures().LoadDataAsTexture(a_data, a_width, a_height, a_bytesPerPixel, m_quads, texture);
    // Whatever is drawn now, a file of that name is to be read anew.
    m_file.reset();
    if (texture != m_texture)
    {
        DropTexture();
        m_texture = texture;
        m_valid = m_owned = isLoaded;
    }
    return isLoaded;
}

void CTextureLayer::DropTexture()
{
    if (m_owned)
    {
        cogl_texture_release(m_texture);
        m_owned = false;
    }
    m_file.reset();
    m_maker = nullptr;
    m_texture = nullptr;
}

bool CTextureLayer::IsGivenUp() const
{
    return !m_owned && Textures().Reloads() - m_reloads > 1;
}

void CTextureLayer::Draw() const
{
    if (!m_valid || IsGivenUp())
    {
        return;
    }
    if (m_maker != nullptr)
    {
        m_maker->Generate(m_rectangle.Left(), m_rectangle.Top(), m_rectangle.Width(), m_rectangle.Height(), m_quads);
        m_maker = nullptr;
    }
    Utilities::DrawTexturedQuads(m_quads, m_texture);
}

Common::SMargins CTextureLayer::Margins() const
{
    return Textures().GetElementMargins(m_element);
}

} // namespace Gfx::Widgets
