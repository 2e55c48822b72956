#pragma once

#include "Core/Api.h"
#include "Core/IO/XMLDocument.h"
#include "Core/StaticSingleton.h"
#include "Gfx/Common/Margins.h"
#include "Gfx/Common/TexturedQuad.h"
#include "Managers/Textures/TexturePage.h"

#include <list>
#include <string>
#include <unordered_map>
#include <vector>

namespace Gfx::Managers
{

/// The art of the interface: a few large images, the pages, cut into named elements, as the file
/// TextureMaps/TextureConfig.xml below the data directory tells.
///
/// \code{.xml}
/// <Textures>
///   <Image file="Controls.png" width="512" height="512">
///     <Element name="Panel_Up" left="4" top="4" width="24" height="24" border="8"/>
///   </Image>
/// </Textures>
/// \endcode
///
/// A name that is asked for goes through the theme first, which can put another element in its place.
class GFX_API CTextureManager
{
public:
    CTextureManager();
    ~CTextureManager();
    CTextureManager(const CTextureManager&) = delete;
    CTextureManager& operator=(const CTextureManager&) = delete;

    /// Reads the table; a_basePath is the data directory, with a separator at its end. Bad images and elements are
    /// logged and left out. A further call adds to what is there.
    void Initialise(const std::string& a_basePath);

    /// Reads the table again, in place of all pages that are known; images are loaded anew. Widgets have to be told.
    /// What was retrieved before is good until the reload after this one. On failure all stays as it was, and a_error
    /// says where the fault is.
    [[nodiscard]] bool Reload(std::string& a_error);

    /// How often the table has been read again.
    [[nodiscard]] unsigned Reloads() const { return m_reloads; }

    /// Loads all pages now, rather than each at its first use.
    void LoadTextures();

    /// The quads that draw an element in a rectangle of a widget, and the Cogl texture that they are parts of; it
    /// stays the manager's. False, with a_texture null and a_quads as they were, if no page has the element or its
    /// image can't be loaded.
    [[nodiscard]] bool RetrieveTexture(const std::string& a_name, int a_x, int a_y, int a_width, int a_height,
                                       std::vector<STexturedQuad>& a_quads, void*& a_texture);

    /// The same without the quads, which the element makes: null in place of false. The element stays the manager's.
    [[nodiscard]] const CTexturedElement* LocateElement(const std::string& a_name, void*& a_texture);

    /// The width of one border of an element, in pixels; 0 if no page has it.
    [[nodiscard]] int GetElementMargin(const std::string& a_name, Margins::EMargin a_margin) const;

    /// All four.
    [[nodiscard]] Common::SMargins GetElementMargins(const std::string& a_name) const;

    /// Makes a texture of pixels in memory, rows from the top without padding: one byte each for alpha, three for red,
    /// green, blue, four with alpha behind them. It draws at its own size. The texture is never released by the
    /// library. False if a_data is null, for any other number of bytes, or if the texture can't be made.
    [[nodiscard]] bool LoadDataAsTexture(const unsigned char* a_data, int a_width, int a_height, int a_bytesPerPixel,
                                         std::vector<STexturedQuad>& a_quads, void*& a_texture);

    /// Makes a texture of an image file, to be drawn in a rectangle of a widget; the path is used as it stands. The
    /// texture is never released by the library. False, with a_texture null and a log line, if that fails.
    [[nodiscard]] bool LoadFileAsTexture(const std::string& a_file, int a_x, int a_y, int a_width, int a_height,
                                         std::vector<STexturedQuad>& a_quads, void*& a_texture);

private:
    void ReadTable(const Core::IO::XMLDocument& a_document);
    void ReadImage(const Core::IO::XMLNode& a_image);
    void ReadElement(const Core::IO::XMLNode& a_element, const std::string& a_imageFile, CTexturePage& a_page);

    std::list<CTexturePage> m_pages;
    /// Of the table before the last reload: widgets may draw with them until they are told.
    std::list<CTexturePage> m_formerPages;
    std::unordered_map<std::string, CTexturePage*> m_pageOfElement;
    std::string m_directory;
    unsigned m_reloads = 0;
};

} // namespace Gfx::Managers

extern template class GFX_API Core::Patterns::StaticSingleton<Gfx::Managers::CTextureManager>;
