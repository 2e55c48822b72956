#pragma once

#include "Core/Api.h"
#include "Core/Maths/Vector3.h"
#include "Core/SharedPtr.h"
#include "Gfx/Common/Colour.h"
#include "Gfx/Common/Geometry.h"

#include <list>
#include <string>

namespace Gfx
{

/// One thing of a scene: a place, a scale, one rotation, the groups of a model and their colours. Entities are flat,
/// none is part of another. Widgets::C3DFrame shows those that it has been given; geometry is shared between entities.
///
/// A vertex is first rotated, then scaled along the axes of the scene, then moved.
///
/// Each group takes the next colour of the list, and those beyond its end the last one. Colours are the entity's
/// without their alpha: transparency is set for the entity as a whole, and stays when the colours change. What is
/// transparent doesn't hide what is drawn after it.
///
/// Numbers aren't checked: what isn't finite makes an entity that can't be seen.
class GFX_API C3DEntity
{
public:
    using Vector3f = Core::Maths::Vector3<float>;

    /// The groups aren't null. The first one's extent is from then on the radius of the sphere by which the entity is
    /// touched: without a group, it can't be.
    C3DEntity(const std::string& a_name, Core::SharedPtr<SGeometry> a_geometry);
    C3DEntity(const std::string& a_name, GeometryPtrList a_geometry);
    C3DEntity(const C3DEntity&) = delete;
    C3DEntity& operator=(const C3DEntity&) = delete;
    virtual ~C3DEntity() = default;

    /// Draws with OpenGL, at its place. Called by the frame, within its paint.
    virtual void DrawObject();

    /// Neither redraws a frame.
    virtual void Show() { m_visible = true; }
    virtual void Hide() { m_visible = false; }

    /// Draws the groups, where OpenGL's matrix has them. An entity that draws in another way overrides it: it says
    /// what it needs of OpenGL by Wrapper::CGlWrapper::ToggleState, and leaves none of it on. A null group ends the
    /// process.
    virtual void DrawGeometry();

    [[nodiscard]] const std::string& Name() const { return m_name; }

    /// Hidden entities can still be touched.
    [[nodiscard]] bool Visible() const { return m_visible; }

    void SetPosition(const Vector3f& a_position) { m_position = a_position; }
    [[nodiscard]] const Vector3f& GetPosition() const { return m_position; }

    void SetScale(const Vector3f& a_scale) { m_scale = a_scale; }
    void SetScale(float a_scale) { m_scale = {a_scale, a_scale, a_scale}; }
    [[nodiscard]] const Vector3f& GetScale() const { return m_scale; }

    /// There is one rotation: each of these replaces what another one has set. Counter-clockwise, seen from where the
    /// axis points to.
    void SetRotationDegrees(const Vector3f& a_axis, float a_angle);
    void SetRotationRadians(const Vector3f& a_axis, float a_angle);
    void SetRotationDegrees_AboutYawAxis(float a_angle);

    /// Whether a CTexturedEntity uses its texture or is all of its first colour.
    void EnableTexture() { m_textureEnabled = true; }
    void DisableTexture() { m_textureEnabled = false; }

    /// In pixels, of groups that are lines. Widths other than 1 are smoothed.
    void SetLineWidth(float a_width) { m_lineWidth = a_width; }

    /// From 0, which can't be seen, to 1. Beyond these it is the nearest of them.
    void SetAlpha(float a_alpha);

    /// One colour for all groups, or one for each; their alpha doesn't count.
    void SetColour(const CColour& a_colour);
    void SetColours(const std::list<CColour>& a_colours);

    /// Replaces all groups. The sphere by which the entity is touched stays as it was.
    void SetNewGeometry(Core::SharedPtr<SGeometry> a_geometry);

    /// How far along a ray, of a direction of length 1, the sphere around the entity's position is met; the scale
    /// doesn't count. FLT_MAX for a ray that misses it; negative if it lies behind the ray's origin.
    [[nodiscard]] float Intersects(const Vector3f& a_origin, const Vector3f& a_direction) const;

protected:
    /// For a form of entity that is made with colours, whose alpha then is the entity's.
    C3DEntity(const std::string& a_name, const std::list<CColour>& a_colours, GeometryPtrList a_geometry);

    [[nodiscard]] const GeometryPtrList& Geometry() const { return m_geometry; }
    [[nodiscard]] bool TextureEnabled() const { return m_textureEnabled; }

    /// White if there is none.
    [[nodiscard]] const CColour& FirstColour() const;

private:
    std::list<CColour> m_colours;
    bool m_visible = true;
    bool m_textureEnabled = true;
    Vector3f m_position;
    float m_rotationAngle = 0;
    Vector3f m_rotationAxis{0, 1, 0};
    std::string m_name;
    GeometryPtrList m_geometry;
    float m_boundingRadiusSquared;
    float m_lineWidth = 1;
    Vector3f m_scale{1, 1, 1};
};

} // namespace Gfx
