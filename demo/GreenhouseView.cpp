#include "demo/GreenhouseView.h"

#include <clutter/clutter.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace Demo
{

using Gfx::CTexturedEntity;
using Gfx::Common::CPoint;

namespace
{

constexpr unsigned int k_frameMs = 33;
/// A vent takes 1.2 seconds from one end to the other.
constexpr float k_openPerFrame = k_frameMs / 1200.0F;

// The greenhouse as its model has it.
constexpr float k_ridge = 2.65F;
constexpr float k_ventLength = 0.72F;
constexpr float k_roofSlope = 32;
constexpr float k_openAngle = 48;

constexpr float k_firstAzimuth = 52;
constexpr float k_firstElevation = 30;

constexpr int k_dragThreshold = 6;

/// Slow at both ends.
float Eased(float a_share)
{
    return a_share * a_share * (3 - 2 * a_share);
}

Gfx::Managers::C3DManager& Models()
{
    return Core::Patterns::StaticSingleton<Gfx::Managers::C3DManager>::ref();
}

} // namespace

CGreenhouseView::CGreenhouseView(const std::string& a_name, const Gfx::Common::CAABB& a_box)
    : C3DFrame(a_name, a_box.Left(), a_box.Top(), a_box.Width(), a_box.Height(), false)
{
    SetViewPerspective(19, 60, 4);
    AddGarden();
    AddWater();
    AddHouse();
    Reset();
}

CGreenhouseView::~CGreenhouseView()
{
    if (m_timer != 0)
    {
        g_source_remove(m_timer);
    }
}

Gfx::Widgets::C3DFrame::EntityPtr CGreenhouseView::Add(const std::string& a_category, const std::string& a_model,
                                                       const std::string& a_variant, const Vector3f& a_position,
                                                       const std::string& a_name)
{
    const EntityPtr entity = Models().GetModelVariant(a_category, a_model, a_variant, a_name);
    if (entity)
    {
        entity->SetPosition(a_position);
        AddEntity(entity);
    }
    return entity;
}

void CGreenhouseView::AddGarden()
{
    m_garden.push_back(Add("Garden", "Terrain", "", {0, 0, 0}));
    struct STree
    {
        float x;
        float z;
        float scale;
    };
    constexpr STree trees[] = {{-3.3F, 3.1F, 1.3F},  {-4.1F, 2.5F, 0.9F},  {-2.3F, 4.2F, 1.0F},
                               {3.3F, -3.5F, 1.5F},  {2.2F, -4.3F, 1.1F},  {4.3F, -2.5F, 0.9F},
                               {-3.0F, -3.7F, 1.2F}, {-1.0F, -4.4F, 1.0F}, {3.2F, 3.6F, 1.0F}};
    for (const STree& tree : trees)
    {
        const EntityPtr entity = Add("Garden", "Tree", "", {tree.x, -0.1F, tree.z});
        if (entity)
        {
            entity->SetScale(tree.scale);
            entity->SetRotationDegrees_AboutYawAxis(97 * tree.x);
        }
        m_garden.push_back(entity);
    }
}

void CGreenhouseView::AddWater()
{
    constexpr float height = 0.35F;
    constexpr float z = 0.9F;
    m_tank = Add("Water", "Tank", "Steel", {3.3F, 0.95F, -1.0F}, "Tank");
    m_pump = Add("Water", "Pump", "Blue", {3.49F, height, z}, "Pump");
    Add("Water", "Valve", "", {2.3F, height, z}, "Valve");
    if (m_pump)
    {
        m_pump->SetRotationDegrees_AboutYawAxis(180);
    }
    struct SPipe
    {
        Vector3f from;
        Vector3f scale;
        Vector3f axis;
    };
    // From the house to the valve, on to the pump, and from there up and over to the tank.
    const SPipe pipes[] = {{{1.6F, height, z}, {0.44F, 1, 1}, {0, 0, 0}},
                           {{2.56F, height, z}, {0.44F, 1, 1}, {0, 0, 0}},
                           {{3.28F, 0.73F, z}, {1, 0.42F, 1}, {0, 0, 1}},
                           {{3.28F, 1.08F, z + 0.05F}, {1, 1, 1.36F}, {0, 1, 0}}};
    for (const SPipe& pipe : pipes)
    {
        if (const EntityPtr entity = Add("Water", "Pipe", "", pipe.from))
        {
            entity->SetScale(pipe.scale);
            entity->SetRotationDegrees(pipe.axis, 90);
        }
    }
}

void CGreenhouseView::AddHouse()
{
    Add("House", "Greenhouse", "White", {0, 0, 0});
    for (const float side : {1.0F, -1.0F})
    {
        for (const float z : {-2.0F, 0.0F, 2.0F})
        {
            const std::string name = "Vent " + std::to_string(m_vents.size() + 1);
            const EntityPtr entity = Add("House", "Vent", "", {0, 0, z}, name);
            if (entity)
            {
                m_vents.push_back({entity, side, z, 0, 0});
                // The rotation comes first: the left side is the right one, seen in a mirror.
                entity->SetScale({side, 1, 1});
            }
        }
    }
    for (SVent& vent : m_vents)
    {
        vent.open = vent.z == 0 ? 0.7F : 0;
        vent.target = vent.open;
        PlaceVent(vent);
    }
    // Last, since it is transparent.
    if (const EntityPtr glass = Models().GetModelColoured("House", "Glass", ""))
    {
        glass->SetAlpha(0.22F);
        AddEntity(glass);
    }
}

void CGreenhouseView::PlaceVent(const SVent& a_vent)
{
    constexpr float degree = Core::Maths::Math<float>::DEG_TO_RAD;
    const float angle = k_openAngle * Eased(a_vent.open) - k_roofSlope;
    constexpr float half = k_ventLength / 2;
    // The hinge lies on the ridge; the model turns around its own middle.
    a_vent.entity->SetPosition({a_vent.side * (0.05F + half * std::cos(angle * degree)),
                                k_ridge + 0.06F + half * std::sin(angle * degree), a_vent.z});
    a_vent.entity->SetRotationDegrees({0, 0, 1}, angle);
}

void CGreenhouseView::PlaceCamera()
{
    Camera_LookAt({0, 0.3F, 0}, m_elevation, m_azimuth, 15.6F);
}

void CGreenhouseView::Reset()
{
    m_azimuth = k_firstAzimuth;
    m_elevation = k_firstElevation;
    PlaceCamera();
    SelectEntity({});
}

void CGreenhouseView::OpenVents(float a_share)
{
    for (SVent& vent : m_vents)
    {
        vent.target = a_share;
    }
    StartMoving();
}

void CGreenhouseView::StartMoving()
{
    if (m_timer == 0)
    {
        const auto move = [](gpointer a_view) -> gboolean
        { return static_cast<CGreenhouseView*>(a_view)->MoveVents(); };
        m_timer = clutter_threads_add_timeout(k_frameMs, move, this);
    }
}

bool CGreenhouseView::MoveVents()
{
    bool isMoving = false;
    for (SVent& vent : m_vents)
    {
        vent.open += std::clamp(vent.target - vent.open, -k_openPerFrame, k_openPerFrame);
        PlaceVent(vent);
        isMoving = isMoving || vent.open != vent.target;
    }
    Invalidate(false);
    if (!isMoving)
    {
        m_timer = 0;
    }
    return isMoving;
}

void CGreenhouseView::SetSeason(const std::string& a_season)
{
    for (const EntityPtr& entity : m_garden)
    {
        SetTexture(entity, entity ? entity->Name() + ":" + a_season : "");
    }
}

void CGreenhouseView::SetAlarm(bool a_alarm)
{
    SetTexture(m_tank, a_alarm ? "Water:Tank:Alarm" : "Water:Tank:Steel");
    SetTexture(m_pump, a_alarm ? "Water:Pump:Alarm" : "Water:Pump:Blue");
}

void CGreenhouseView::SetTexture(const EntityPtr& a_entity, const std::string& a_key)
{
    const auto texture = Models().GetTexture(a_key);
    if (a_entity && texture)
    {
        a_entity.StaticCast<CTexturedEntity>()->SetTexturePtr(texture);
        Invalidate(false);
    }
}

void CGreenhouseView::SelectEntity(const EntityPtr& a_entity)
{
    if (m_selected)
    {
        m_selected->SetColour(Gfx::Colours::White);
    }
    m_selected = a_entity;
    if (m_selected)
    {
        m_selected->SetColour(Gfx::Colours::Gold);
    }
    Invalidate(false);
    if (m_selectedHandler)
    {
        m_selectedHandler(a_entity ? a_entity->Name() : "");
    }
}

bool CGreenhouseView::StartDragging(const CPoint&)
{
    m_startAzimuth = m_azimuth;
    m_startElevation = m_elevation;
    m_hasMoved = false;
    return m_isDragging = true;
}

void CGreenhouseView::UpdateDragging(const CPoint& a_displacement)
{
    m_hasMoved = m_hasMoved || std::abs(a_displacement.X()) + std::abs(a_displacement.Y()) > k_dragThreshold;
    if (m_hasMoved)
    {
        m_azimuth = std::remainder(m_startAzimuth + 0.5F * static_cast<float>(a_displacement.X()), 360.0F);
        m_elevation = std::clamp(m_startElevation + 0.3F * static_cast<float>(a_displacement.Y()), 8.0F, 75.0F);
        PlaceCamera();
    }
}

void CGreenhouseView::MouseEvent(Gfx::Events::EMouseEvent a_event, int a_buttons, const CPoint& a_point, bool a_remote)
{
    C3DFrame::MouseEvent(a_event, a_buttons, a_point, a_remote);
    if (a_event != Gfx::Events::FirstClick || m_hasMoved)
    {
        return;
    }
    EntityPtr entity = EntityAt(a_point);
    if (entity && entity->Name().find(':') != std::string::npos)
    {
        // It has no name of its own.
        entity.Reset();
    }
    for (SVent& vent : m_vents)
    {
        if (vent.entity == entity)
        {
            vent.target = vent.target > 0 ? 0 : 1;
            StartMoving();
        }
    }
    SelectEntity(entity);
}

void CGreenhouseView::Resize(int a_width, int a_height)
{
    if (ResizeSelf(a_width, a_height))
    {
        SetViewPerspective(19, 60, 4);
    }
}

} // namespace Demo
