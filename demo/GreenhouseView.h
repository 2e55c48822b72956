#pragma once

#include <Gfx/Gfx.h>

#include <functional>
#include <string>
#include <vector>

namespace Demo
{

/// A greenhouse in its garden. Dragging turns it, a touch on a vent selects the vent and opens or closes it.
///
/// Vents move by a timer that runs only while there is something to move.
class CGreenhouseView : public Gfx::Widgets::C3DFrame
{
public:
    CGreenhouseView(const std::string& a_name, const Gfx::Common::CAABB& a_box);
    ~CGreenhouseView() override;

    /// Called with the name of what was selected, or with nothing.
    void OnSelected(std::function<void(const std::string&)> a_handler) { m_selectedHandler = std::move(a_handler); }

    /// Selects nothing, and looks from where it did at first.
    void Reset();

    /// From 0, closed, to 1.
    void OpenVents(float a_share);

    /// One of the variants of the garden's models.
    void SetSeason(const std::string& a_season);

    /// Whether the tank and the pump are in the colours of an alarm.
    void SetAlarm(bool a_alarm);

    [[nodiscard]] bool Draggable() const override { return true; }
    bool StartDragging(const Gfx::Common::CPoint& a_point) override;
    void UpdateDragging(const Gfx::Common::CPoint& a_displacement) override;
    void EndDragging() override { m_isDragging = false; }
    [[nodiscard]] bool IsDragging() const override { return m_isDragging; }
    void MouseEvent(Gfx::Events::EMouseEvent a_event, int a_buttons, const Gfx::Common::CPoint& a_point,
                    bool a_remote) override;
    void Resize(int a_width, int a_height) override;

private:
    struct SVent
    {
        EntityPtr entity;
        /// 1 on the right of the ridge, -1 on its left.
        float side;
        float z;
        float open;
        float target;
    };

    EntityPtr Add(const std::string& a_category, const std::string& a_model, const std::string& a_variant,
                  const Vector3f& a_position, const std::string& a_name = "");
    void AddGarden();
    void AddWater();
    void AddHouse();
    void PlaceVent(const SVent& a_vent);
    void PlaceCamera();
    void StartMoving();
    /// False when all vents are where they should be.
    bool MoveVents();
    void SelectEntity(const EntityPtr& a_entity);
    void SetTexture(const EntityPtr& a_entity, const std::string& a_key);

    std::vector<SVent> m_vents;
    std::vector<EntityPtr> m_garden;
    EntityPtr m_tank;
    EntityPtr m_pump;
    EntityPtr m_selected;
    std::function<void(const std::string&)> m_selectedHandler;
    float m_azimuth = 0;
    float m_elevation = 0;
    float m_startAzimuth = 0;
    float m_startElevation = 0;
    bool m_isDragging = false;
    /// The press has become a drag, and its end is no touch.
    bool m_hasMoved = false;
    unsigned int m_timer = 0;
};

} // namespace Demo
