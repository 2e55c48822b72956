#pragma once

#include "Core/Api.h"
#include "Gfx/Common/Margins.h"
#include "Gfx/Common/TexturedQuad.h"
#include "Managers/Textures/TexturedElement.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace Gfx::Managers
{

/// An image file with the elements that are cut from it. The image is loaded at the first use of one of them, once; if
/// that fails, none of them draws anything.
class GFX_API CTexturePage
{
public:
    CTexturePage() = default;

    /// a_file is the image's path. The size in pixels is what the elements are measured by; it has to be the image's.
    CTexturePage(const std::string& a_file, int a_width, int a_height);
    virtual ~CTexturePage();
    CTexturePage(const CTexturePage&) = delete;
    CTexturePage& operator=(const CTexturePage&) = delete;

    /// Whether the image is loaded.
    [[nodiscard]] bool IsValid() const { return m_texture != nullptr; }

    /// Loads the image if that was never tried, and says true then, whatever comes of it; otherwise IsValid().
    bool LoadTexture();

    /// Gives the image up. It can be loaded again.
    void ReleaseTexture();

    /// Whether the page has an element of that name, loaded or not.
    [[nodiscard]] bool HasElement(const std::string& a_name) const;

    /// In pixels; 0 if the page has no such element.
    [[nodiscard]] int GetElementMargin(const std::string& a_name, Margins::EMargin a_margin) const;

    /// Takes a_element over, made with new, in place of one of the same name. That one is not deleted: whoever has use
    /// for it still can, and who has not takes it out first.
    void AddElement(const std::string& a_name, CTexturedElement* a_element);

    /// Gives an element up to the caller; null if the page has none of that name.
    [[nodiscard]] std::unique_ptr<CTexturedElement> TakeElement(const std::string& a_name);

    /// The quads that draw an element in a rectangle of a widget, and the Cogl texture that they are parts of, which
    /// stays the page's. False, with nothing changed, if there is no such element or the image can't be loaded.
    [[nodiscard]] bool RetrieveElement(const std::string& a_name, int a_x, int a_y, int a_width, int a_height,
                                       std::vector<STexturedQuad>& a_quads, void*& a_texture);

    /// The same without the quads, which the element makes: null in place of false.
    [[nodiscard]] const CTexturedElement* LocateElement(const std::string& a_name, void*& a_texture);

    [[nodiscard]] const std::string& File() const { return m_file; }
    [[nodiscard]] int Width() const { return m_width; }
    [[nodiscard]] int Height() const { return m_height; }

private:
    /// Released by ReleaseTexture alone: controls draw with it.
    void* m_texture = nullptr;
    std::string m_file;
    int m_width = 0;
    int m_height = 0;
    /// The page deletes them at its end.
    std::unordered_map<std::string, CTexturedElement*> m_elements;
    bool m_loadAttempted = false;
};

} // namespace Gfx::Managers
