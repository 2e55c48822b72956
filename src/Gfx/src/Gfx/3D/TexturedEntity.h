#pragma once

#include "Core/Api.h"
#include "Core/SharedPtr.h"
#include "Gfx/3D/3DEntity.h"
#include "Gfx/3D/Texture.h"

namespace Gfx
{

/// An entity all of whose groups have one texture, which its first colour tints. With a texture that has alpha it is
/// blended with what was drawn before it, and hides what is drawn after it.
///
/// Lines are drawn as strips of triangles. A group without texture coordinates is of one colour, that of the texture's
/// corner.
class GFX_API CTexturedEntity : public C3DEntity
{
public:
    CTexturedEntity(const std::string& a_name, Core::SharedPtr<STexture> a_texture,
                    Core::SharedPtr<SGeometry> a_geometry);
    CTexturedEntity(const std::string& a_name, Core::SharedPtr<STexture> a_texture, GeometryPtrList a_geometry);

    /// Without a texture this ends the process, unless texturing is disabled.
    void DrawGeometry() override;

    /// Without one, drawing ends the process, unless texturing is disabled.
    [[nodiscard]] Core::SharedPtr<STexture> GetTexturePtr() { return m_texturePtr; }
    void SetTexturePtr(Core::SharedPtr<STexture> a_texture);

private:
    Core::SharedPtr<STexture> m_texturePtr;
};

} // namespace Gfx
