#pragma once

#include "Core/Api.h"
#include "Core/IO/XMLDocument.h"
#include "Core/Maths/Vector2.h"
#include "Core/Maths/Vector3.h"
#include "Core/SharedPtr.h"
#include "Core/StaticSingleton.h"
#include "Gfx/3D/3DEntity.h"
#include "Gfx/3D/Texture.h"
#include "Gfx/Common/Colour.h"
#include "Gfx/Common/Geometry.h"

#include <list>
#include <map>
#include <string>
#include <vector>

namespace Gfx::Managers
{

/// The library of 3D models, as the file Models/Models.xml below the data directory tells, and the textures of the 3D
/// side. It hands out entities, which share geometry and textures.
///
/// \code{.xml}
/// <Models>
///   <Category id="Plant" path="Plant">
///     <Model id="Tank" file="Tank.obj">
///       <Variant id="Steel" file="Steel.png" default="True"/>
///       <Colour id="Body" colour="SteelBlue"/>
///     </Model>
///   </Category>
/// </Models>
/// \endcode
///
/// It needs OpenGL: nothing of it is called before CGfxManager::Setup has said true.
class GFX_API C3DManager
{
public:
    using EntityPtr = Core::SharedPtr<C3DEntity>;
    using TexturePtr = Core::SharedPtr<STexture>;

    /// A model of the library.
    struct SModel
    {
        std::string id;
        /// The key of the texture that is used where no variant is named; empty for a model without any.
        std::string defaultVariant;
        /// Keys of textures by the variants' names.
        std::map<std::string, std::string> variants;
        GeometryPtrList geometry;
        /// One for each group.
        std::list<CColour> colours;
    };

    /// Reads the table and loads all that it names; for the application to call, before it wants models. a_basePath is
    /// the data directory, with a separator at its end. What can't be used is logged and left out. A further call adds
    /// to what is there; a model that it names once more has no textures then, since their keys are taken.
    void Initialise(const std::string& a_basePath);

    /// Reads the table that was last initialised again, and what it names, in place of all models that are known.
    /// Entities that are there keep their geometry, and take the new pixels of their texture if it still has a name;
    /// frames have to be told. True, with nothing done, before Initialise. If the table can't be read, or a text file
    /// of its models has a face that is no good, all stays as it was, and a_error says where the fault is.
    [[nodiscard]] bool Reload(std::string& a_error);

    /// A new entity of a model in its own colours. Its name is a_name, or "category:model" if that is empty. Null if
    /// there is no such model.
    [[nodiscard]] EntityPtr GetModelColoured(const std::string& a_category, const std::string& a_model,
                                             const std::string& a_name);

    /// The same, all in one colour.
    [[nodiscard]] EntityPtr GetModelColoured(const std::string& a_category, const std::string& a_model,
                                             const CColour& a_colour, const std::string& a_name);

    /// The same with a texture: a CTexturedEntity. A variant that the model doesn't have is its default one. A model
    /// without any gives an entity without texture, which needs one before it is drawn.
    [[nodiscard]] EntityPtr GetModelVariant(const std::string& a_category, const std::string& a_model,
                                            const std::string& a_variant, const std::string& a_name);

    /// Null if the key isn't known. The keys of models' textures are "category:model:variant".
    [[nodiscard]] TexturePtr GetTexture(const std::string& a_key) const;

    /// Makes a texture of a PNG file, with linear filtering, that repeats. False if the key is taken, or if the file
    /// can't be used.
    [[nodiscard]] bool RegisterTexture(const std::string& a_path, const std::string& a_key);

    /// Makes a texture of pixels in memory, rows from the bottom up without gaps: one byte each for alpha, three for
    /// red, green and blue, four with alpha behind them. If the key is known, its texture gets these pixels at its
    /// lower left; it doesn't grow. False for another number of bytes. Null, for a new key, is a texture whose pixels
    /// come later.
    [[nodiscard]] bool RegisterTextureBuffer(const unsigned char* a_pixels, int a_width, int a_height, int a_channels,
                                             const std::string& a_key, int a_linear, int a_clamp);

    /// Replaces a part of a texture; a_x and a_y count from its lower left. A part that isn't within it changes
    /// nothing. False if the key isn't known, and for what RegisterTextureBuffer refuses.
    [[nodiscard]] bool UpdateTextureBuffer(const unsigned char* a_pixels, int a_x, int a_y, int a_width, int a_height,
                                           int a_channels, const std::string& a_key);

    /// Gives a texture back to OpenGL. Entities that have it are drawn without it, unless OpenGL has given its name
    /// away again: they should get another one. True if the key isn't known.
    bool DeleteTexture(const std::string& a_key);

    /// The same; false if the texture isn't one of the manager's.
    bool DeleteTexture(TexturePtr& a_texture);

    /// Makes a texture of a PNG file that has 8 bits for each of red, green and blue, and alpha or not; it is the
    /// caller's, and isn't registered. 0, or -1 with the reason in the log or on standard error.
    [[nodiscard]] int LoadTextureFromFile(const char* a_path, unsigned int* a_id, bool& a_alpha, int a_linear,
                                          int a_clamp);

    /// MakeGeometry(), with and without texture coordinates.
    [[nodiscard]] Core::SharedPtr<SGeometry> ConvertGeometry(
        const std::vector<Core::Maths::Vector2<float>>& a_texCoords,
        const std::vector<Core::Maths::Vector3<float>>& a_vertices, float a_extent, EGeometryType a_type) const;
    [[nodiscard]] Core::SharedPtr<SGeometry> ConvertGeometry(const std::vector<Core::Maths::Vector3<float>>& a_vertices,
                                                             float a_extent, EGeometryType a_type) const;

private:
    void ReadTable(const Core::IO::XMLDocument& a_document);
    void ReadCategory(const Core::IO::XMLNode& a_category);
    void ReadModel(const Core::IO::XMLNode& a_node, const std::string& a_category, const std::string& a_directory);
    void ReadVariant(const Core::IO::XMLNode& a_node, const std::string& a_category, const std::string& a_directory,
                     SModel& a_model);
    const GeometryPtrList& LoadGeometry(const std::string& a_path);
    [[nodiscard]] const SModel* FindModel(const std::string& a_category, const std::string& a_model) const;

    std::map<std::string, TexturePtr> m_textures;
    std::string m_basePath;
    std::map<std::string, std::map<std::string, SModel>> m_categories;
    /// By path, so that a file which several models name is loaded once.
    std::map<std::string, GeometryPtrList> m_geometryCache;
    /// Textures, by key, that a reload didn't find again, for as long as entities have them.
    std::map<std::string, TexturePtr> m_formerTextures;
};

} // namespace Gfx::Managers

extern template class GFX_API Core::Patterns::StaticSingleton<Gfx::Managers::C3DManager>;
