#include "Managers/Textures/TextureManager.h"

#include "Core/LexicalCast.h"
#include "Core/Logging/Logger.h"
#include "Gfx/Common/Drawing.h"
#include "Managers/Textures/ImageFile.h"
#include "Managers/Textures/PageAhead.h"
#include "Managers/Themes/ThemeManager.h"
#include "Platform/Clutter/Clutter.h"

#include <algorithm>
#include <cstdint>
#include <utility>

template class Core::Patterns::StaticSingleton<Gfx::Managers::CTextureManager>;

namespace Gfx::Managers
{

using Core::Patterns::StaticSingleton;

namespace
{

template <typename... Args>
void Report(const std::string& a_source, const std::string& a_format, const Args&... a_arguments)
{
    StaticSingleton<Core::Logging::CLogger>::ref().Log(Core::Logging::elMessage, a_source, a_format, a_arguments...);
}

int Number(const Core::IO::XMLNode& a_node, const std::string& a_attribute, int a_fallback)
{
    return Core::LexicalCast<int, std::string>(a_node.Attribute(a_attribute, ""), a_fallback);
}

/// Whether an extent lies within a page. Its own length is tested by the sum alone, so that a small negative one at a
/// positive start passes.
bool IsWithin(int a_start, int a_length, int a_pageLength)
{
    const std::int64_t end = std::int64_t{a_start} + a_length;
    return a_start >= 0 && a_start < a_pageLength && end >= 0 && end <= a_pageLength;
}

const std::string& ThroughTheme(const std::string& a_name)
{
    const std::string* const element = StaticSingleton<CThemeManager>::ref().FindElement(a_name);
    return element != nullptr ? *element : a_name;
}

} // namespace

CTextureManager::CTextureManager() = default;

CTextureManager::~CTextureManager()
{
    // OpenGL may have ended before: at the end of the process the textures are left to it, where they can still be
    // found.
    static auto* const s_left = new std::list<CTexturePage>;
    s_left->splice(s_left->end(), m_pages);
    s_left->splice(s_left->end(), m_formerPages);
}

void CTextureManager::Initialise(const std::string& a_basePath)
{
    m_directory = a_basePath + detail::k_pageFolder;
    Core::IO::XMLDocument document;
    // A file that can't be read has been logged, and has no elements.
    static_cast<void>(document.Parse(m_directory + detail::k_pageTable));
    ReadTable(document);
}

bool CTextureManager::Reload(std::string& a_error)
{
    Core::IO::XMLDocument document;
    if (!document.Parse(m_directory + detail::k_pageTable))
    {
        a_error = document.ErrorText();
        return false;
    }
    detail::PageAhead().Forget();
    for (CTexturePage& page : m_formerPages)
    {
        page.ReleaseTexture();
    }
    m_formerPages = std::move(m_pages);
    m_pages.clear();
    m_pageOfElement.clear();
    ++m_reloads;
    ReadTable(document);
    return true;
}

void CTextureManager::ReadTable(const Core::IO::XMLDocument& a_document)
{
    if (const Core::IO::XMLNode* textures = a_document.Section("Textures"))
    {
        for (const Core::IO::XMLNode& child : textures->Children())
        {
            if (child.Name() == "Image")
            {
                ReadImage(child);
            }
        }
    }
}

void CTextureManager::ReadImage(const Core::IO::XMLNode& a_image)
{
    const std::string file = a_image.Attribute("file", "");
    const int width = Number(a_image, "width", 0);
    const int height = Number(a_image, "height", 0);
    if (file.empty())
    {
        Report("CTextureManager", "The filename (%s) supplied for the image node is invalid", file);
        return;
    }
    if (width <= 0 || height <= 0)
    {
        Report("CTextureManager", "The width (%d) or height (%d) of the image node %s was invalid", width, height,
               file);
        return;
    }
    CTexturePage& page = m_pages.emplace_back(m_directory + file, width, height);
    for (const Core::IO::XMLNode& child : a_image.Children())
    {
        if (child.Name() == "Element")
        {
            ReadElement(child, file, page);
        }
    }
}

void CTextureManager::ReadElement(const Core::IO::XMLNode& a_element, const std::string& a_imageFile,
                                  CTexturePage& a_page)
{
    const std::string name = a_element.Attribute("name", "");
    const int left = Number(a_element, "left", -1);
    const int top = Number(a_element, "top", -1);
    const int width = Number(a_element, "width", -1);
    const int height = Number(a_element, "height", -1);
    if (name.empty())
    {
        Report("CTextureManager", "A name was not provided for an element node within the file %s", a_imageFile);
        return;
    }
    if (!IsWithin(left, width, a_page.Width()) || !IsWithin(top, height, a_page.Height()))
    {
        Report("CTextureManager",
               "Invalid dimensions were provided for element %s. Dimensions were left: %d, top: %d, width: %d, "
               "height: %d",
               name, left, top, width, height);
        return;
    }
    const std::string style = a_element.Attribute("style", "simple");
    const int border = std::max(Number(a_element, "border", 0), 0);
    if (width <= border || height <= border)
    {
        Report("CTextureManager", "Invalid border size %d was provided for %s", border, name);
        return;
    }
    if (style == "simple")
    {
        auto* element = new CSimpleElement(left, top, width, height, a_page.Width(), a_page.Height(), border);
        element->SetBorders(Number(a_element, "border-top", border), Number(a_element, "border-bottom", border),
                            Number(a_element, "border-left", border), Number(a_element, "border-right", border));
        a_page.TakeElement(name).reset();
        a_page.AddElement(name, element);
        // The first page that has a name keeps it.
        m_pageOfElement.emplace(name, &a_page);
    }
}

void CTextureManager::LoadTextures()
{
    for (CTexturePage& page : m_pages)
    {
        page.LoadTexture();
    }
}

bool CTextureManager::RetrieveTexture(const std::string& a_name, int a_x, int a_y, int a_width, int a_height,
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

const CTexturedElement* CTextureManager::LocateElement(const std::string& a_name, void*& a_texture)
{
    a_texture = nullptr;
    const std::string& name = ThroughTheme(a_name);
    const auto page = m_pageOfElement.find(name);
    return page != m_pageOfElement.end() ? page->second->LocateElement(name, a_texture) : nullptr;
}

int CTextureManager::GetElementMargin(const std::string& a_name, Margins::EMargin a_margin) const
{
    const std::string& name = ThroughTheme(a_name);
    const auto page = m_pageOfElement.find(name);
    return page != m_pageOfElement.end() ? page->second->GetElementMargin(name, a_margin) : 0;
}

Common::SMargins CTextureManager::GetElementMargins(const std::string& a_name) const
{
    return {GetElementMargin(a_name, Margins::Left), GetElementMargin(a_name, Margins::Top),
            GetElementMargin(a_name, Margins::Right), GetElementMargin(a_name, Margins::Bottom)};
}

bool CTextureManager::LoadDataAsTexture(const unsigned char* a_data, int a_width, int a_height, int a_bytesPerPixel,
                                        std::vector<STexturedQuad>& a_quads, void*& a_texture)
{
    CoglPixelFormat format = COGL_PIXEL_FORMAT_ANY;
    switch (a_bytesPerPixel)
    {
    case 1: format = COGL_PIXEL_FORMAT_A_8; break;
    case 3: format = COGL_PIXEL_FORMAT_RGB_888; break;
    case 4: format = COGL_PIXEL_FORMAT_RGBA_8888; break;
    default: return false;
    }
    if (a_data == nullptr)
    {
        return false;
    }
    const auto isPossible = [](int a_side) { return a_side > 0 && a_side <= detail::k_longestSide; };
    a_texture = isPossible(a_width) && isPossible(a_height)
                    ? cogl_texture_new_from_data(static_cast<guint>(a_width), static_cast<guint>(a_height), 0, TRUE,
                                                 format, COGL_PIXEL_FORMAT_ANY, 0, a_data)
                    : nullptr;
    if (a_texture == nullptr)
    {
        Report("CTextureManager::LoadDataAsTexture", "Error loading texture from data.");
        return false;
    }
    a_quads.assign(1, Utilities::WholeTexture({0, 0, a_width, a_height}));
    return true;
}

bool CTextureManager::LoadFileAsTexture(const std::string& a_file, int a_x, int a_y, int a_width, int a_height,
                                        std::vector<STexturedQuad>& a_quads, void*& a_texture)
{
    a_texture = detail::LoadImageFile(a_file, "CTextureManager");
    if (a_texture == nullptr)
    {
        return false;
    }
    a_quads.assign(1, Utilities::WholeTexture({a_x, a_y, a_width, a_height}));
    return true;
}

} // namespace Gfx::Managers
