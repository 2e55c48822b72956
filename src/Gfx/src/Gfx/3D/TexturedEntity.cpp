#include "Gfx/3D/TexturedEntity.h"

#include "Core/Assert.h"
#include "Gfx/3D/GeometryDrawing.h"
#include "Gfx/3D/GlWrapper.h"

#include <utility>

namespace Gfx
{

using Wrapper::CGlWrapper;

namespace
{

constexpr unsigned int k_plain = Wrapper::egsVertexArray | Wrapper::egsDepthTest | Wrapper::egsDepthWrite;
constexpr unsigned int k_textured = k_plain | Wrapper::egsTextureCoordArray | Wrapper::egsTexture2D;

} // namespace

CTexturedEntity::CTexturedEntity(const std::string& a_name, Core::SharedPtr<STexture> a_texture,
                                 Core::SharedPtr<SGeometry> a_geometry)
    : C3DEntity(a_name, std::move(a_geometry)), m_texturePtr(std::move(a_texture))
{
}

CTexturedEntity::CTexturedEntity(const std::string& a_name, Core::SharedPtr<STexture> a_texture,
                                 GeometryPtrList a_geometry)
    : C3DEntity(a_name, std::move(a_geometry)), m_texturePtr(std::move(a_texture))
{
}

void CTexturedEntity::DrawGeometry()
{
    const GeometryPtrList& geometry = Geometry();
    if (geometry.empty())
    {
        return;
    }
    unsigned int mask = k_plain;
    if (TextureEnabled())
    {
        GFX_ASSERT(m_texturePtr);
        mask = k_textured | (m_texturePtr->alpha ? Wrapper::egsBlend : 0U);
    }
    if (FirstColour().Alpha() < 255)
    {
        mask |= Wrapper::egsBlend;
    }
    CGlWrapper::ToggleState(mask);
    const CColour before = CGlWrapper::GetColour();
    CGlWrapper::SetColour(FirstColour());
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    if (TextureEnabled())
    {
        glBindTexture(GL_TEXTURE_2D, m_texturePtr->id);
    }
    for (auto geometryIter = geometry.begin(); geometryIter != geometry.end(); ++geometryIter)
    {
        GFX_ASSERT(*geometryIter);
        const SGeometry& group = **geometryIter;
        // OpenGL would read a pair for each vertex, whether it is there or not.
        const bool lacksCoordinates = TextureEnabled() && group.texCoords.size() < group.vertices.size();
        if (lacksCoordinates)
        {
            glDisableClientState(GL_TEXTURE_COORD_ARRAY);
        }
        detail::PointToVertices(group);
        glTexCoordPointer(2, GL_FLOAT, 0, group.texCoords.data());
        detail::DrawGroup(group, group.type == egtTriangles ? GL_TRIANGLES : GL_TRIANGLE_STRIP);
        if (lacksCoordinates)
        {
            glEnableClientState(GL_TEXTURE_COORD_ARRAY);
        }
    }
    CGlWrapper::SetColour(before);
    CGlWrapper::ToggleState(0);
}

void CTexturedEntity::SetTexturePtr(Core::SharedPtr<STexture> a_texture)
{
    m_texturePtr = std::move(a_texture);
}

} // namespace Gfx
