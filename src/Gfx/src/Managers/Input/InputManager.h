#pragma once

#include "Core/Api.h"
#include "Core/StaticSingleton.h"
#include "Gfx/Common/Point.h"

namespace Gfx::Managers
{

/// Turns what devices report into the events of CWidgetManager.
class GFX_API CInputManager
{
public:
    /// The affine map from a device's coordinates to pixels of the stage:
    /// x' = a * x + b * y + c, y' = d * x + e * y + f.
    struct SCalibration
    {
        float a;
        float b;
        float c;
        float d;
        float e;
        float f;
    };

    /// For a device that reports pixels of the stage, such as a desktop's pointer.
    static constexpr SCalibration k_identity{1.0F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F};

    /// For the console's panel, whose x runs backwards.
    static constexpr SCalibration k_uncalibrated{-0.200846F, 0.00276F, 808.74646F, -0.002662F, 0.126323F, -14.403945F};

    /// Listens to the stage's pointer and key signals; again and again does no harm.
    void ConnectClutter();

    void Idle();

    /// The first button, or a finger, went down or up; told to the widgets with the next position.
    void MouseButton(bool a_down);

    /// The pointer is at a_point, in the device's coordinates.
    void MousePosition(const Common::CPoint& a_point);

    /// Tells the widgets of what has changed.
    void ReportEvents();

    /// The last position, in the device's coordinates.
    [[nodiscard]] Common::CPoint RawCoordinates() const { return {m_rawX, m_rawY}; }

    /// A device's coordinates as pixels of an 800 by 480 screen, kept within it.
    [[nodiscard]] Common::CPoint TransformCoordinates(int a_x, int a_y) const;

    /// Replaces the map at once, for all devices; it isn't kept.
    void UseCalibration(const SCalibration& a_calibration) { m_calibration = a_calibration; }

private:
    bool m_connected = false;
    int m_rawX = 0;
    int m_rawY = 0;
    int m_touchState = 0;
    SCalibration m_calibration = k_uncalibrated;
    bool m_eventReported = false;
};

} // namespace Gfx::Managers

extern template class GFX_API Core::Patterns::StaticSingleton<Gfx::Managers::CInputManager>;
