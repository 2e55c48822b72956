#include "Widgets/Controls/3DFrame/3DFrame.h"

#include "Core/StaticSingleton.h"
#include "Gfx/3D/DrawingArea.h"
#include "Managers/Gfx/GfxManager.h"
#include "Platform/GL/GL.h"
#include "Platform/GL/GlBracket.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace Gfx::Widgets
{

using Wrapper::CGlWrapper;

namespace
{

constexpr std::array s_properties{
    SProperty<C3DFrame>{"Picking", [](const C3DFrame& a_frame) { return TextFromBool(a_frame.Picking()); },
                        [](C3DFrame& a_frame, const std::string& a_value) { a_frame.Picking(IsTrue(a_value)); }},
    SProperty<C3DFrame>{"LastEntityHit", [](const C3DFrame& a_frame) { return a_frame.LastEntityHit(); }, nullptr},
};

} // namespace

std::span<const SProperty<C3DFrame>> C3DFrame::PropertyTable()
{
    return s_properties;
}

C3DFrame::C3DFrame(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_picking)
    : CWithProperties(a_name, "3DFrame", a_x, a_y, a_width, a_height, false)
    , m_depthFunction(GL_LESS)
    , m_shadingModel(GL_SMOOTH)
    , m_picking(a_picking)
{
    InitialiseClutterGroup();
    MousePriority(1);
    UpdateViewport();
    SetViewPerspective(45, 825, 1);
    m_view = CGlWrapper::Camera_LookAt(Vector3f(0, 0, 0), 0, 90, 15);
}

C3DFrame::~C3DFrame()
{
    // The destructor of an entity may still use the frame, which then has none.
    std::list<EntityPtr> entities;
    entities.swap(m_entities);
}

void C3DFrame::AddEntity(EntityPtr a_entity)
{
    if (a_entity && std::find(m_entities.begin(), m_entities.end(), a_entity) == m_entities.end())
    {
        m_entities.push_back(std::move(a_entity));
        Invalidate(false);
    }
}

void C3DFrame::RemoveEntity(EntityPtr a_entity)
{
    const auto entity = std::find(m_entities.begin(), m_entities.end(), a_entity);
    if (!a_entity || entity == m_entities.end())
    {
        return;
    }
    if (m_drawings > 0)
    {
        entity->Reset();
    }
    else
    {
        m_entities.erase(entity);
    }
    Invalidate(false);
}

void C3DFrame::Camera_LookAt(const Vector3f& a_eye, const Vector3f& a_target)
{
    m_view = CGlWrapper::Camera_LookAt(a_eye, a_target);
    Invalidate(false);
}

void C3DFrame::Camera_LookAt(const Vector3f& a_target, float a_elevation, float a_azimuth, float a_distance)
{
    m_view = CGlWrapper::Camera_LookAt(a_target, a_elevation, a_azimuth, a_distance);
    Invalidate(false);
}

void C3DFrame::Camera_LookFrom(const Vector3f& a_eye, float a_elevation, float a_azimuth, float a_unused)
{
    m_view = CGlWrapper::Camera_LookFrom(a_eye, a_elevation, a_azimuth, a_unused);
    Invalidate(false);
}

void C3DFrame::SetViewPerspective(float a_halfAngle, float a_far, float a_near)
{
    m_projection = CGlWrapper::GeneratePerspectiveMatrix(static_cast<float>(Width()), static_cast<float>(Height()),
                                                         a_halfAngle, a_far, a_near);
}

void C3DFrame::Picking(bool a_picking)
{
    m_picking = a_picking;
    if (!m_picking)
    {
        m_lastEntityHit.clear();
    }
}

C3DFrame::EntityPtr C3DFrame::EntityAt(const Common::CPoint& a_point) const
{
    return Pick(a_point, 0, 0);
}

void C3DFrame::UpdateViewport()
{
    FollowPosition();
}

void C3DFrame::DrawSelf() const
{
    // Nobody is told when a widget further up is moved.
    FollowPosition();
    Platform::MarkFrameAsDrawn();
    const Platform::CGlBracket bracket;
    CGlWrapper::PushState();
    DrawScene();
    CGlWrapper::PopState();
}

void C3DFrame::FollowPosition() const
{
    const Common::CPoint absolute = AbsoluteTopLeft();
    const std::int64_t displayHeight = Core::Patterns::StaticSingleton<Managers::CGfxManager>::ref().DisplayHeight();
    m_viewportX = absolute.X();
    m_viewportY = Common::detail::Saturated(displayHeight - Height() - absolute.Y());
}

void C3DFrame::DrawScene() const
{
    const Wrapper::detail::CDrawingArea area(m_viewportX, m_viewportY, Width(), Height());
    CGlWrapper::ClearDepth(1);
    glClear(GL_DEPTH_BUFFER_BIT);
    GLint depthFunction = 0;
    glGetIntegerv(GL_DEPTH_FUNC, &depthFunction);
    glDepthFunc(static_cast<GLenum>(m_depthFunction));
    GLint shadingModel = 0;
    glGetIntegerv(GL_SHADE_MODEL, &shadingModel);
    glShadeModel(static_cast<GLenum>(m_shadingModel));
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadMatrixf(m_projection.m.data());
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    std::array<GLint, 4> viewport{};
    glGetIntegerv(GL_VIEWPORT, viewport.data());
    glViewport(m_viewportX, m_viewportY, Width(), Height());
    glLoadMatrixf(m_view.m.data());
    DrawEntities();
    glPopMatrix();
    glViewport(viewport[0], viewport[1], viewport[2], viewport[3]);
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glShadeModel(static_cast<GLenum>(shadingModel));
    glDepthFunc(static_cast<GLenum>(depthFunction));
}

void C3DFrame::DrawEntities() const
{
    // An entity of the application's own may, while it draws, add and remove entities, itself included, have all of
    // this drawn once more, or destroy the frame.
    const CLife life(Children());
    ++m_drawings;
    for (const EntityPtr& listed : m_entities)
    {
        if (EntityPtr entity = listed)
        {
            entity->DrawObject();
            entity.Reset();
            if (life.IsOver())
            {
                return;
            }
        }
    }
    if (--m_drawings == 0)
    {
        m_entities.remove(EntityPtr());
    }
}

void C3DFrame::NotifyPositionChanged()
{
    CWidget::NotifyPositionChanged();
    UpdateViewport();
}

void C3DFrame::Resize(int a_width, int a_height)
{
    if (ResizeSelf(a_width, a_height))
    {
        UpdateViewport();
    }
}

void C3DFrame::MouseEvent(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point, bool a_remote)
{
    const CLife life(Children());
    // A handler may change what the argument refers to.
    const Common::CPoint point = a_point;
    CWidget::MouseEvent(a_event, a_buttons, point, a_remote);
    if (life.IsOver() || a_event != Events::FirstClick || !m_picking)
    {
        return;
    }
    const EntityPtr hit = Pick(point, m_viewportX, m_viewportY);
    if (!hit)
    {
        m_lastEntityHit.clear();
        return;
    }
    m_lastEntityHit = hit->Name();
    if (m_entityHitHandler != nullptr)
    {
        m_entityHitHandler->Execute(this, hit);
    }
}

C3DFrame::EntityPtr C3DFrame::Pick(const Common::CPoint& a_point, int a_viewportX, int a_viewportY) const
{
    const auto x = static_cast<float>(a_point.X());
    const auto y = static_cast<float>(std::int64_t{Height()} - a_point.Y());
    const auto unProject = [&](float a_depth)
    {
        Vector3f point;
        // Without an inverse it stays in the origin, and the ray has no direction.
        static_cast<void>(CGlWrapper::UnProject(x, y, a_depth, m_view, m_projection, a_viewportX, a_viewportY, Width(),
                                                Height(), point));
        return point;
    };
    const Vector3f nearPoint = unProject(0);
    const Vector3f ray = unProject(1) - nearPoint;
    const Vector3f direction = ray * (1 / std::sqrt(ray.Dot(ray)));
    EntityPtr hit;
    float best = std::numeric_limits<float>::max();
    for (const EntityPtr& entity : m_entities)
    {
        const float distance = entity ? entity->Intersects(nearPoint, direction) : best;
        if (distance < best)
        {
            hit = entity;
            best = distance;
        }
    }
    return hit;
}

} // namespace Gfx::Widgets
