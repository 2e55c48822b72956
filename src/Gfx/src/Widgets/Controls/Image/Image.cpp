#include "Widgets/Controls/Image/Image.h"

#include "Core/Utilities.h"

namespace Gfx::Widgets
{

CImage::CImage(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, const std::string& a_image)
    : CWidget(a_name, "Image", a_x, a_y, a_width, a_height, false)
{
    InitialiseClutterGroup();
    SetImage(a_image);
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
    m_layer.RetrieveData(a_data, a_width, a_height, a_bytesPerPixel);
    UpdateCustomInfo();
    Invalidate(false);
}

void CImage::LoadTextures()
{
    m_layer.RetrieveImage(m_imageName, m_isFile, {0, 0, Width(), Height()});
}

void CImage::DrawSelf() const
{
    m_layer.Draw();
}

void CImage::Resize(int a_width, int a_height)
{
    if (ResizeSelf(a_width, a_height))
    {
        LoadTextures();
    }
}

void CImage::UpdateStyle()
{
    // An element may be another one in another theme; pixels from memory are the same in all.
    if (UpdateStyleSelf() && !m_isFile && !m_imageName.empty())
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
