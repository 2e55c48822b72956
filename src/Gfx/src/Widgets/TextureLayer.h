#pragma once

#include "Core/Api.h"
#include "Gfx/Common/AABB.h"
#include "Gfx/Common/Margins.h"
#include "Gfx/Common/TexturedQuad.h"

#include <memory>
#include <string>
#include <vector>

namespace Gfx::Managers
{
class CTexturedElement;
}

namespace Gfx::Widgets
{

/// One layer of a control's picture: an element of a texture page, stretched over a rectangle of the control. The quads
/// are those of the last Retrieve(), made when they are first drawn: most controls have looks that they never show.
class GFX_API CTextureLayer
{
public:
    CTextureLayer() = default;
    ~CTextureLayer();
    CTextureLayer(const CTextureLayer&) = delete;
    CTextureLayer& operator=(const CTextureLayer&) = delete;

    /// Looks the element up anew, through the current theme. One that isn't known, or whose page can't be loaded,
    /// leaves a layer that is not valid and draws nothing.
    bool Retrieve(const Common::CAABB& a_rectangle);

    /// The same for an image file, whose path is used as it stands. The layer keeps the image, and reads the file again
    /// only when the path has changed or the texture was dropped; one that can't be read isn't tried again, either.
    bool RetrieveFile(const std::string& a_path, const Common::CAABB& a_rectangle);

    /// The same for pixels in memory, as Managers::CTextureManager::LoadDataAsTexture takes them; they draw at their
    /// own size. False, and the layer stays as it is, for a form that there isn't.
    bool RetrieveData(const unsigned char* a_data, int a_width, int a_height, int a_bytesPerPixel);

    /// An image that may be either: RetrieveFile() if a_isFile, else Retrieve() of the element of that name.
    bool RetrieveImage(const std::string& a_name, bool a_isFile, const Common::CAABB& a_rectangle);

    /// Draws the layer if it is valid, in the current colour. Called while the control paints.
    void Draw() const;

    /// Whether the last retrieval has succeeded.
    [[nodiscard]] bool IsValid() const { return m_valid; }

    /// Whether quads are at hand. What has been dropped, or given up by the texture manager, is to be retrieved again.
    [[nodiscard]] bool HasTexture() const { return m_texture != nullptr && !IsGivenUp(); }
    void DropTexture();

    /// The widths of the element's borders, in pixels; 0 if it isn't known.
    [[nodiscard]] Common::SMargins Margins() const;

    [[nodiscard]] const std::string& Element() const { return m_element; }
    void Element(const std::string& a_element) { m_element = a_element; }

private:
    /// Whether the texture manager's element and texture are gone. It tells the widgets on the stage to retrieve them
    /// anew before that, but there may be others.
    [[nodiscard]] bool IsGivenUp() const;

    std::string m_element;
    mutable std::vector<STexturedQuad> m_quads;
    /// What makes the quads, as long as there are none; the texture manager's.
    mutable const Managers::CTexturedElement* m_maker = nullptr;
    Common::CAABB m_rectangle;
    void* m_texture = nullptr;
    bool m_valid = false;
    /// Whether the texture is the layer's own, from a file or from memory, and not a page's.
    bool m_owned = false;
    /// Of the texture manager, when it was asked.
    unsigned m_reloads = 0;
    /// The path, if the texture was asked for by one.
    std::unique_ptr<const std::string> m_file;
};

} // namespace Gfx::Widgets
