#pragma once

#include "Core/Api.h"
#include "Core/Functor.h"
#include "Core/Maths/Vector3.h"
#include "Core/SharedPtr.h"
#include "Gfx/3D/3DEntity.h"
#include "Gfx/3D/GlWrapper.h"
#include "Widgets/Property.h"
#include "Widgets/Widget.h"

#include <list>
#include <span>
#include <string>

namespace Gfx::Widgets
{

/// A 3D scene: entities, seen by a camera, drawn over whatever widgets lie behind. The scene fills the widget and
/// nothing else; its transparency is the entities' own, and not the widget's.
///
/// A touch can tell which entity it hit. Wherever the widget lies, it is taken for one in the bottom left corner of the
/// display, so elsewhere a touch counts as one further to the left and down; EntityAt() has no such offset.
///
/// Properties: "Picking" ("True"; anything else is false), "LastEntityHit" (read-only): the name of the entity that the
/// last touch hit, or nothing.
///
/// \code
/// Core::SharedPtr<C3DFrame> frame(new C3DFrame("view", 0, 0, 400, 300, true));
/// frame->AddEntity(StaticSingleton<C3DManager>::ref().GetModelVariant("Plant", "Tank", "", ""));
/// frame->Camera_LookAt({0, 1, 0}, 20, 60, 8);
/// \endcode
class GFX_API C3DFrame : public CWithProperties<C3DFrame, CWidget>
{
public:
    using EntityPtr = Core::SharedPtr<C3DEntity>;
    using EntityHitHandler = Core::Functor<void, CWidget*, EntityPtr>::Signature;
    using Vector3f = Core::Maths::Vector3<float>;

    [[nodiscard]] static std::span<const SProperty<C3DFrame>> PropertyTable();

    /// The camera stands 15 units from the origin, on the z axis, and sees what is between 1 and 825 units from it in a
    /// field of 90 degrees.
    C3DFrame(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_picking);
    ~C3DFrame() override;

    /// Entities are drawn in the order in which they were added: what is transparent comes last. Shared with the
    /// caller; does nothing for null and for one that is there. What is changed of an entity itself is seen after the
    /// next Invalidate.
    void AddEntity(EntityPtr a_entity);
    void RemoveEntity(EntityPtr a_entity);

    /// Set the camera, as Wrapper::CGlWrapper describes it.
    void Camera_LookAt(const Vector3f& a_eye, const Vector3f& a_target);
    void Camera_LookAt(const Vector3f& a_target, float a_elevation, float a_azimuth, float a_distance);
    void Camera_LookFrom(const Vector3f& a_eye, float a_elevation, float a_azimuth, float a_unused);

    /// Sets the field of view, as Wrapper::CGlWrapper::GeneratePerspectiveMatrix describes it, for the widget as large
    /// as it is now. Neither redraws nor follows a change of size.
    void SetViewPerspective(float a_halfAngle, float a_far, float a_near);

    /// As of OpenGL; GL_LESS and GL_SMOOTH at first. Neither redraws.
    void DepthFunction(int a_function) { m_depthFunction = a_function; }
    void ShadingModel(int a_model) { m_shadingModel = a_model; }

    /// Whether touches are looked into.
    [[nodiscard]] bool Picking() const { return m_picking; }
    void Picking(bool a_picking);

    /// Told which entity a touch has hit. It stays the caller's.
    void SetEntityHitEventHandler(EntityHitHandler* a_handler) { m_entityHitHandler = a_handler; }

    /// The entity that is met first behind a point of the widget, whether Picking() is on or not; null if there is
    /// none. Its sphere counts, not its geometry; hidden entities count, too.
    [[nodiscard]] EntityPtr EntityAt(const Common::CPoint& a_point) const;

    [[nodiscard]] const std::string& LastEntityHit() const { return m_lastEntityHit; }

    /// Takes over where the widget is on the display. Happens by itself.
    void UpdateViewport();

    void DrawSelf() const override;
    void NotifyPositionChanged() override;
    void Resize(int a_width, int a_height) override;
    void MouseEvent(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point, bool a_remote) override;

private:
    void FollowPosition() const;
    void DrawScene() const;
    void DrawEntities() const;
    /// a_point is in the widget's coordinates, a_viewportX and a_viewportY are those that the ray is reckoned with.
    [[nodiscard]] EntityPtr Pick(const Common::CPoint& a_point, int a_viewportX, int a_viewportY) const;

    int m_depthFunction;
    int m_shadingModel;
    /// From the bottom left of the display.
    mutable int m_viewportX = 0;
    mutable int m_viewportY = 0;
    EntityHitHandler* m_entityHitHandler = nullptr;
    bool m_picking;
    /// One that is removed while the scene is drawn stays as null until that is done.
    mutable std::list<EntityPtr> m_entities;
    /// How many are under way, one within the other.
    mutable int m_drawings = 0;
    Wrapper::SViewMatrix m_projection;
    Wrapper::SViewMatrix m_view;
    std::string m_lastEntityHit;
};

} // namespace Gfx::Widgets
