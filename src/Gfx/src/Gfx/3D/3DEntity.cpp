#include "Gfx/3D/3DEntity.h"

#include "Core/Assert.h"
#include "Gfx/3D/GeometryDrawing.h"
#include "Gfx/3D/GlWrapper.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace Gfx
{

using Wrapper::CGlWrapper;

namespace
{

constexpr unsigned int k_opaque = Wrapper::egsVertexArray | Wrapper::egsDepthTest | Wrapper::egsDepthWrite;
constexpr unsigned int k_transparent = Wrapper::egsVertexArray | Wrapper::egsDepthTest | Wrapper::egsBlend;

float SquaredRadius(const GeometryPtrList& a_geometry)
{
    const bool isKnown = !a_geometry.empty() && a_geometry.front();
    return isKnown ? a_geometry.front()->extent * a_geometry.front()->extent : 0;
}

GLenum Mode(EGeometryType a_type)
{
    switch (a_type)
    {
    case egtTriangles: return GL_TRIANGLES;
    case egtLines: return GL_LINES;
    case egtLineStrip: return GL_LINE_STRIP;
    default: return GL_TRIANGLE_STRIP;
    }
}

} // namespace

C3DEntity::C3DEntity(const std::string& a_name, Core::SharedPtr<SGeometry> a_geometry)
    : C3DEntity(a_name, GeometryPtrList{std::move(a_geometry)})
{
}

C3DEntity::C3DEntity(const std::string& a_name, GeometryPtrList a_geometry)
    : C3DEntity(a_name, {Colours::White}, std::move(a_geometry))
{
}

C3DEntity::C3DEntity(const std::string& a_name, const std::list<CColour>& a_colours, GeometryPtrList a_geometry)
    : m_colours(a_colours)
    , m_name(a_name)
    , m_geometry(std::move(a_geometry))
    , m_boundingRadiusSquared(SquaredRadius(m_geometry))
{
}

void C3DEntity::DrawObject()
{
    if (!m_visible)
    {
        return;
    }
    glPushMatrix();
    glTranslatef(m_position.x, m_position.y, m_position.z);
    glScalef(m_scale.x, m_scale.y, m_scale.z);
    glRotatef(m_rotationAngle, m_rotationAxis.x, m_rotationAxis.y, m_rotationAxis.z);
    DrawGeometry();
    glPopMatrix();
}

void C3DEntity::DrawGeometry()
{
    if (m_geometry.empty())
    {
        return;
    }
    unsigned int mask = FirstColour().Alpha() < 255 ? k_transparent : k_opaque;
    glLineWidth(m_lineWidth);
    if (m_lineWidth != 1)
    {
        mask |= Wrapper::egsLineSmooth;
    }
    CGlWrapper::ToggleState(mask);
    const CColour before = CGlWrapper::GetColour();
    auto colourIter = m_colours.begin();
    for (auto geometryIter = m_geometry.begin(); geometryIter != m_geometry.end(); ++geometryIter)
    {
        GFX_ASSERT(*geometryIter);
        if (colourIter != m_colours.end())
        {
            CGlWrapper::SetColour(*colourIter++);
        }
        detail::PointToVertices(**geometryIter);
        detail::DrawGroup(**geometryIter, Mode((*geometryIter)->type));
    }
    CGlWrapper::SetColour(before);
    CGlWrapper::ToggleState(0);
}

void C3DEntity::SetRotationDegrees(const Vector3f& a_axis, float a_angle)
{
    m_rotationAxis = a_axis;
    m_rotationAngle = a_angle;
}

void C3DEntity::SetRotationRadians(const Vector3f& a_axis, float a_angle)
{
    SetRotationDegrees(a_axis, a_angle * 57.29578F);
}

void C3DEntity::SetRotationDegrees_AboutYawAxis(float a_angle)
{
    SetRotationDegrees({0, 1, 0}, a_angle);
}

void C3DEntity::SetAlpha(float a_alpha)
{
    const double value = a_alpha * 255.0;
    std::uint8_t alpha = 0;
    if (value >= 255)
    {
        alpha = 255;
    }
    else if (value > 0)
    {
        alpha = static_cast<std::uint8_t>(value);
    }
    for (CColour& colour : m_colours)
    {
        colour = {colour.Red(), colour.Green(), colour.Blue(), alpha};
    }
}

void C3DEntity::SetColour(const CColour& a_colour)
{
    SetColours({a_colour});
}

void C3DEntity::SetColours(const std::list<CColour>& a_colours)
{
    const float alpha = static_cast<float>(FirstColour().Alpha()) / 255.0F;
    m_colours = a_colours;
    SetAlpha(alpha);
}

void C3DEntity::SetNewGeometry(Core::SharedPtr<SGeometry> a_geometry)
{
    m_geometry = {std::move(a_geometry)};
}

float C3DEntity::Intersects(const Vector3f& a_origin, const Vector3f& a_direction) const
{
    const Vector3f fromCentre = a_origin - m_position;
    const float b = 2 * fromCentre.Dot(a_direction);
    const float c = fromCentre.Dot(fromCentre) - m_boundingRadiusSquared;
    const float discriminant = b * b - 4 * c;
    if (discriminant <= 0)
    {
        return std::numeric_limits<float>::max();
    }
    const float root = std::sqrt(discriminant);
    const float nearHit = (-b - root) * 0.5F;
    return nearHit >= 0 ? nearHit : (root - b) * 0.5F;
}

const CColour& C3DEntity::FirstColour() const
{
    return m_colours.empty() ? Colours::White : m_colours.front();
}

} // namespace Gfx
