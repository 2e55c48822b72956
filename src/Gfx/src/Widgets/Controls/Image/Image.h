#pragma once

#include "Core/Api.h"
#include "Widgets/TextureLayer.h"
#include "Widgets/Widget.h"

#include <string>

namespace Gfx::Widgets
{

/// A picture that fills the widget: an element of a texture page, an image file, or pixels in memory.
class GFX_API CImage : public CWidget
{
public:
    /// a_image is the path of a file, or else the name of an element.
    CImage(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, const std::string& a_image);

    /// Does nothing if it is the image already, even if the file has changed.
    void SetImage(const std::string& a_image);

    /// Copies the pixels, rows from the top without padding: 1 byte each (alpha), 3 (red, green, blue) or 4 (and
    /// alpha). They are drawn at their own size, and lost at the next Resize. Null does nothing; pixels of another
    /// number of bytes leave the picture as it is, without its name.
    void SetImage(const unsigned char* a_data, int a_width, int a_height, int a_bytesPerPixel);

    /// Makes the quads anew, for the elements, the theme and the size that hold now. Happens by itself.
    void LoadTextures();

    void DrawSelf() const override;
    void Resize(int a_width, int a_height) override;
    void UpdateStyle() override;
    void UpdateCustomInfo() override;

private:
    std::string m_imageName;
    /// Whether the last name was that of a file; pixels from memory don't change it.
    bool m_isFile = false;
    CTextureLayer m_layer;
};

} // namespace Gfx::Widgets
