#include "Widgets/Controls/Image/Image.h"

#include "Core/Utilities.h"

namespace Gfx::Widgets
{

CImage::CImage(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, const std::string& a_image)
    : CWidget(a_name, "Image", a_x, a_y, a_width, a_height, false)
{
    InitialiseClutterGroup();
    SetImage(a_image);
    CImage::UpdateCustomInfo();
}

void CImage::SetImage(const std::string& a_image)
{
    if (a_image == m_imageName)
    {
        return;
    }
    m_imageName = a_image;
    m_isFile = Core::Utilities::FileExists(a_image);
    LoadTextures();
    UpdateCustomInfo();
    Invalidate(false);
}

void CImage::SetImage(const unsigned char* a_data, int a_width, int a_height, int a_bytesPerPixel)
{
    if (a_data == nullptr)
    {
        return;
    }
    m_imageName.clear();
    m_isFile = false;
    m_layer.RetrieveData(a_data, a_width, a_height, a_bytesPerPixel);
    UpdateCustomInfo();
    Invalidate(false);
}

void CImage::LoadTextures()
{
    const Common::CAABB whole(0, 0, Width(), Height());
    if (m_isFile)
    {
        m_layer.RetrieveFile(m_imageName, whole);
    }
    else
    {
        m_layer.Element(m_imageName);
        m_layer.Retrieve(whole);
    }
}

void CImage::DrawSelf() const
{
    m_layer.Draw();
}

void CImage::Resize(int a_width, int a_height)
{
    CWidget::Resize(a_width, a_height);
    LoadTextures();
}

void CImage::UpdateStyle()
{
    CWidget::UpdateStyle();
    // An element may be another one in another theme; pixels from memory are the same in all.
    if (!m_isFile && !m_imageName.empty())
    {
        LoadTextures();
        QueueRedraw();
    }
}

void CImage::UpdateCustomInfo()
{
    SetCustomInfo("Image", m_imageName);
}

} // namespace Gfx::Widgets
