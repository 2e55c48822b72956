#include "Managers/3D/3DManager.h"

#include "Core/IO/XMLDocument.h"
#include "Core/Logging/Logger.h"
#include "Gfx/3D/GlWrapper.h"
#include "Gfx/3D/SingleColouredEntity.h"
#include "Gfx/3D/TexturedEntity.h"
#include "Gfx/Common/BObjectLoader.h"
#include "Gfx/Common/ObjectLoader.h"
#include "Managers/3D/PngFile.h"
#include "Platform/GL/GL.h"
#include "Platform/GL/GlBracket.h"

#include <cstdint>
#include <cstdio>
#include <limits>
#include <list>
#include <type_traits>
#include <utility>

template class Core::Patterns::StaticSingleton<Gfx::Managers::C3DManager>;

namespace Gfx::Managers
{

using Wrapper::CGlWrapper;

static_assert(std::is_same_v<decltype(STexture::id), GLuint>);

namespace
{

template <typename... Args>
void Report(const std::string& a_format, const Args&... a_arguments)
{
    Core::Patterns::StaticSingleton<Core::Logging::CLogger>::ref().Log(Core::Logging::elMessage, "C3DManager", a_format,
                                                                       a_arguments...);
}

bool IsBinary(const std::string& a_path)
{
    return a_path.find(".bobj") != std::string::npos;
}

/// Where the first text model of a table has a face that can't be used, which may be one that ends the process; empty
/// if there is none.
std::string FirstBadModel(const Core::IO::XMLDocument& a_table, const std::string& a_basePath)
{
    const Core::IO::XMLNode* const categories = a_table.Section("Models");
    const std::list<Core::IO::XMLNode> none;
    for (const Core::IO::XMLNode& category : categories != nullptr ? categories->Children() : none)
    {
        for (const Core::IO::XMLNode& model : category.Children())
        {
            const std::string file = model.Attribute("file", "");
            const std::string path = a_basePath + category.Attribute("path", "") + '/' + file;
            const std::string fault = IsBinary(path) || file.empty() ? "" : CObjectLoader::FirstBadFace(path);
            if (!fault.empty())
            {
                return path + ':' + fault;
            }
        }
    }
    return {};
}

/// OpenGL to itself, with texturing and nothing else switched on, for as long as it lives.
class CTexturing
{
public:
    CTexturing()
    {
        CGlWrapper::PushState();
        CGlWrapper::ToggleState(Wrapper::egsTexture2D);
    }
    ~CTexturing() { CGlWrapper::PopState(); }
    CTexturing(const CTexturing&) = delete;
    CTexturing& operator=(const CTexturing&) = delete;

private:
    Platform::CGlBracket m_bracket;
};

/// OpenGL's format for pixels of a number of bytes, or 0 with a line on standard error.
GLenum Format(int a_channels)
{
    switch (a_channels)
    {
    case 1: return GL_ALPHA;
    case 3: return GL_RGB;
    case 4: return GL_RGBA;
    default:
        std::fputs("ERROR: RegisterTextureBuffer() failed due to incompatible channel number.\n", stderr);
        return 0;
    }
}

/// Says how the bound texture is looked up.
void SetParameters(bool a_linear, bool a_clamp)
{
    for (const GLenum filter : {GL_TEXTURE_MAG_FILTER, GL_TEXTURE_MIN_FILTER})
    {
        glTexParameteri(GL_TEXTURE_2D, filter, a_linear ? GL_LINEAR : GL_NEAREST);
    }
    if (a_clamp)
    {
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    }
}

/// Fills the bound texture with pixels that have no gaps between their rows.
void SetPixels(const unsigned char* a_pixels, int a_width, int a_height, GLenum a_format)
{
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(a_format), a_width, a_height, 0, a_format, GL_UNSIGNED_BYTE,
                 a_pixels);
}

void SetPixels(const unsigned char* a_pixels, int a_x, int a_y, int a_width, int a_height, GLenum a_format)
{
    // OpenGL refuses a part that goes beyond the texture, but drivers reckon its far edges as ints.
    constexpr std::int64_t farthest = std::numeric_limits<GLint>::max();
    if (std::int64_t{a_x} + a_width > farthest || std::int64_t{a_y} + a_height > farthest)
    {
        return;
    }
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glTexSubImage2D(GL_TEXTURE_2D, 0, a_x, a_y, a_width, a_height, a_format, GL_UNSIGNED_BYTE, a_pixels);
}

std::string EntityName(const std::string& a_category, const std::string& a_model, const std::string& a_name)
{
    if (!a_name.empty())
    {
        return a_name;
    }
    return a_category + (a_category.empty() || a_model.empty() ? "" : ":") + a_model;
}

} // namespace

void C3DManager::Initialise(const std::string& a_basePath)
{
    m_basePath = a_basePath + "Models/";
    Core::IO::XMLDocument document;
    // A file that can't be read has been logged, and has no models.
    static_cast<void>(document.Parse(m_basePath + "Models.xml"));
    ReadTable(document);
}

bool C3DManager::Reload(std::string& a_error)
{
    if (m_basePath.empty())
    {
        return true;
    }
    Core::IO::XMLDocument document;
    if (!document.Parse(m_basePath + "Models.xml"))
    {
        a_error = document.ErrorText();
        return false;
    }
    a_error = FirstBadModel(document, m_basePath);
    if (!a_error.empty())
    {
        return false;
    }
    for (const auto& [categoryId, models] : m_categories)
    {
        for (const auto& [modelId, model] : models)
        {
            for (const auto& [variantId, key] : model.variants)
            {
                m_formerTextures.insert(m_textures.extract(key));
            }
        }
    }
    m_categories.clear();
    m_geometryCache.clear();
    ReadTable(document);
    std::erase_if(m_formerTextures,
                  [this](const auto& a_former)
                  {
                      const TexturePtr& texture = a_former.second;
                      const auto fresh = m_textures.find(a_former.first);
                      if (fresh == m_textures.end() && texture.Count() > 1)
                      {
                          return false;
                      }
                      TexturePtr unused = texture;
                      if (fresh != m_textures.end())
                      {
                          // Entities have the former record.
                          std::swap(*texture, *fresh->second);
                          unused = std::exchange(fresh->second, texture);
                      }
                      glDeleteTextures(1, &unused->id);
                      return true;
                  });
    return true;
}

void C3DManager::ReadTable(const Core::IO::XMLDocument& a_document)
{
    if (const Core::IO::XMLNode* const models = a_document.Section("Models"))
    {
        for (const Core::IO::XMLNode& child : models->Children())
        {
            if (child.Name() == "Category")
            {
                ReadCategory(child);
            }
        }
    }
}

void C3DManager::ReadCategory(const Core::IO::XMLNode& a_category)
{
    const std::string id = a_category.Attribute("id", "");
    const std::string path = a_category.Attribute("path", "");
    if (id.empty() || path.empty())
    {
        Report("The id (%s) or path (%s) supplied for the category node is invalid", id, path);
        return;
    }
    for (const Core::IO::XMLNode& child : a_category.Children())
    {
        if (child.Name() == "Model")
        {
            ReadModel(child, id, m_basePath + path + "/");
        }
    }
}

void C3DManager::ReadModel(const Core::IO::XMLNode& a_node, const std::string& a_category,
                           const std::string& a_directory)
{
    SModel model;
    model.id = a_node.Attribute("id", "");
    const std::string file = a_node.Attribute("file", "");
    if (model.id.empty() || file.empty())
    {
        Report("The id (%s) or file (%s) supplied for the model node is invalid", model.id, file);
        return;
    }
    model.geometry = LoadGeometry(a_directory + file);
    if (model.geometry.empty())
    {
        Report("An error occurred loading the model file %s", a_directory + file);
        return;
    }
    for (const Core::IO::XMLNode& child : a_node.Children())
    {
        ReadVariant(child, a_category, a_directory, model);
    }
    for (const Core::IO::XMLNode& child : a_node.Children())
    {
        const std::string colour = child.Attribute("colour", "");
        if (!child.Attribute("id", "").empty() && !colour.empty())
        {
            model.colours.push_back(ColourFromString(colour));
        }
    }
    if (model.variants.empty() && model.colours.empty())
    {
        Report("The model %s in category %s has no texture variants or colours. It will not be loaded.", model.id,
               a_category);
        return;
    }
    m_categories[a_category][model.id] = model;
}

void C3DManager::ReadVariant(const Core::IO::XMLNode& a_node, const std::string& a_category,
                             const std::string& a_directory, SModel& a_model)
{
    const std::string id = a_node.Attribute("id", "");
    const std::string file = a_node.Attribute("file", "");
    if (id.empty() || file.empty())
    {
        return;
    }
    const std::string path = a_directory + file;
    const std::string key = a_category + ":" + a_model.id + ":" + id;
    if (!RegisterTexture(path, key))
    {
        Report("Failed to register texture %s for %s.", path, key);
        return;
    }
    a_model.variants[id] = key;
    if (a_model.defaultVariant.empty() || a_node.Attribute("default", "False") == "True")
    {
        a_model.defaultVariant = key;
    }
}

const GeometryPtrList& C3DManager::LoadGeometry(const std::string& a_path)
{
    const auto [entry, isNew] = m_geometryCache.try_emplace(a_path);
    if (isNew)
    {
        entry->second =
            IsBinary(a_path) ? CBObjectLoader::LoadObjectFile(a_path) : CObjectLoader::LoadObjectFile(a_path);
    }
    return entry->second;
}

const C3DManager::SModel* C3DManager::FindModel(const std::string& a_category, const std::string& a_model) const
{
    const auto category = m_categories.find(a_category);
    if (category == m_categories.end())
    {
        return nullptr;
    }
    const auto model = category->second.find(a_model);
    return model != category->second.end() ? &model->second : nullptr;
}

C3DManager::EntityPtr C3DManager::GetModelColoured(const std::string& a_category, const std::string& a_model,
                                                   const std::string& a_name)
{
    const SModel* const model = FindModel(a_category, a_model);
    if (model == nullptr)
    {
        return {};
    }
    return EntityPtr(
        new CSingleColouredEntity(EntityName(a_category, a_model, a_name), model->colours, model->geometry));
}

C3DManager::EntityPtr C3DManager::GetModelColoured(const std::string& a_category, const std::string& a_model,
                                                   const CColour& a_colour, const std::string& a_name)
{
    const SModel* const model = FindModel(a_category, a_model);
    if (model == nullptr)
    {
        return {};
    }
    return EntityPtr(new CSingleColouredEntity(EntityName(a_category, a_model, a_name), std::list<CColour>{a_colour},
                                               model->geometry));
}

C3DManager::EntityPtr C3DManager::GetModelVariant(const std::string& a_category, const std::string& a_model,
                                                  const std::string& a_variant, const std::string& a_name)
{
    const SModel* const model = FindModel(a_category, a_model);
    if (model == nullptr)
    {
        return {};
    }
    const auto variant = model->variants.find(a_variant);
    const TexturePtr texture = GetTexture(variant != model->variants.end() ? variant->second : model->defaultVariant);
    return EntityPtr(new CTexturedEntity(EntityName(a_category, a_model, a_name), texture, model->geometry));
}

C3DManager::TexturePtr C3DManager::GetTexture(const std::string& a_key) const
{
    const auto texture = m_textures.find(a_key);
    return texture != m_textures.end() ? texture->second : TexturePtr();
}

bool C3DManager::RegisterTexture(const std::string& a_path, const std::string& a_key)
{
    if (m_textures.count(a_key) != 0)
    {
        return false;
    }
    const CTexturing texturing;
    STexture texture;
    if (LoadTextureFromFile(a_path.c_str(), &texture.id, texture.alpha, 1, 0) != 0)
    {
        return false;
    }
    m_textures[a_key] = TexturePtr(new STexture(texture));
    return true;
}

bool C3DManager::RegisterTextureBuffer(const unsigned char* a_pixels, int a_width, int a_height, int a_channels,
                                       const std::string& a_key, int a_linear, int a_clamp)
{
    const TexturePtr known = GetTexture(a_key);
    const GLenum format = Format(a_channels);
    if (format == 0 || (known && a_pixels == nullptr))
    {
        return false;
    }
    const CTexturing texturing;
    STexture texture;
    if (known)
    {
        texture.id = known->id;
        glBindTexture(GL_TEXTURE_2D, texture.id);
        SetPixels(a_pixels, 0, 0, a_width, a_height, format);
    }
    else
    {
        glGenTextures(1, &texture.id);
        glBindTexture(GL_TEXTURE_2D, texture.id);
        SetPixels(a_pixels, a_width, a_height, format);
    }
    SetParameters(a_linear != 0, a_clamp != 0);
    texture.alpha = format != GL_RGB;
    if (known)
    {
        *known = texture;
    }
    else
    {
        m_textures[a_key] = TexturePtr(new STexture(texture));
    }
    return true;
}

bool C3DManager::UpdateTextureBuffer(const unsigned char* a_pixels, int a_x, int a_y, int a_width, int a_height,
                                     int a_channels, const std::string& a_key)
{
    const TexturePtr texture = GetTexture(a_key);
    const GLenum format = texture ? Format(a_channels) : 0;
    if (format == 0 || a_pixels == nullptr)
    {
        return false;
    }
    const CTexturing texturing;
    glBindTexture(GL_TEXTURE_2D, texture->id);
    SetPixels(a_pixels, a_x, a_y, a_width, a_height, format);
    return true;
}

bool C3DManager::DeleteTexture(const std::string& a_key)
{
    TexturePtr texture = GetTexture(a_key);
    return !texture || DeleteTexture(texture);
}

bool C3DManager::DeleteTexture(TexturePtr& a_texture)
{
    for (auto entry = m_textures.begin(); a_texture && entry != m_textures.end(); ++entry)
    {
        if (entry->second->id == a_texture->id)
        {
            glDeleteTextures(1, &a_texture->id);
            m_textures.erase(entry);
            return true;
        }
    }
    return false;
}

int C3DManager::LoadTextureFromFile(const char* a_path, unsigned int* a_id, bool& a_alpha, int a_linear, int a_clamp)
{
    detail::SPixels pixels;
    if (a_path == nullptr || a_id == nullptr || !detail::ReadPngFile(a_path, pixels))
    {
        return -1;
    }
    const Platform::CGlBracket bracket;
    glGenTextures(1, a_id);
    glBindTexture(GL_TEXTURE_2D, *a_id);
    SetPixels(pixels.data.get(), pixels.width, pixels.height, pixels.alpha ? GL_RGBA : GL_RGB);
    SetParameters(a_linear != 0, a_clamp != 0);
    a_alpha = pixels.alpha;
    return 0;
}

Core::SharedPtr<SGeometry> C3DManager::ConvertGeometry(const std::vector<Core::Maths::Vector2<float>>& a_texCoords,
                                                       const std::vector<Core::Maths::Vector3<float>>& a_vertices,
                                                       float a_extent, EGeometryType a_type) const
{
    return MakeGeometry(a_texCoords, a_vertices, a_extent, a_type);
}

Core::SharedPtr<SGeometry> C3DManager::ConvertGeometry(const std::vector<Core::Maths::Vector3<float>>& a_vertices,
                                                       float a_extent, EGeometryType a_type) const
{
    return MakeGeometry({}, a_vertices, a_extent, a_type);
}

} // namespace Gfx::Managers
