#pragma once

#include "Core/Api.h"
#include "Core/StaticSingleton.h"
#include "Gfx/Common/Point.h"
#include "Platform/System/TamarindAVREventClient.h"

#include <cstdint>
#include <vector>

namespace Gfx::Managers
{

/// Turns what devices report into the events of CWidgetManager: a touch panel, the default stage's pointer and keys,
/// and the supervisor processor's switches.
///
/// It looks for its devices when it is made, at its first use. Sources of the main loop refer to it from then on, so it
/// is never destroyed before the loop has ended.
class GFX_API CInputManager
{
public:
    /// The panels that it knows.
    enum EDeviceKind : int
    {
        edkNone = 0,
        edkEGalax = 1,
        edkSTMPE610 = 2
    };

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

    CInputManager();
    CInputManager(const CInputManager&) = delete;
    CInputManager& operator=(const CInputManager&) = delete;

    /// Opens the first panel of a known name below /dev/input and watches it; a line on standard error says if there is
    /// none. Does nothing while a panel is open.
    void Probe();

    /// Has the main loop call Read whenever the open panel has something to say.
    void Init_GIO();

    /// Reads and reports all that the panel has to say. A panel that can't be read any more is closed, for good.
    void Read();
    void Read_eGalax();
    void Read_STMPE610();

    /// Whether a panel is open.
    [[nodiscard]] bool HasPanel() const { return m_deviceFd != -1; }

    /// Listens to the stage's pointer and key signals; again and again does no harm.
    void ConnectClutter();

    /// Lets the supervisor's client deliver what it has.
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

    /// Whether the map is the user's.
    [[nodiscard]] bool IsCalibrated() const { return m_calibrated; }

    /// Takes the map from the system configuration; k_uncalibrated unless it is marked there as the user's.
    void LoadCalibration();

    /// Fits the map to points of the screen and what the device reports for each of them, by least squares; at once,
    /// and without keeping it. False, with the map unchanged, for fewer than three pairs, for lists of different
    /// lengths, and for points that lie on one line: the last costs a line on standard error.
    [[nodiscard]] bool SetCalibrationPoints(const std::vector<Common::CPoint>& a_screenPoints,
                                            const std::vector<Common::CPoint>& a_rawPoints);

    /// Keeps the map in the system configuration, if it is the user's. A failure costs a log line.
    void SaveCalibration();

    /// Replaces the map at once, for all devices; it isn't kept.
    void UseCalibration(const SCalibration& a_calibration) { m_calibration = a_calibration; }

    /// The supervisor's client, whose callbacks are the following three; an application can post to it. It belongs to
    /// this object.
    [[nodiscard]] CTamarindAVREventClient* AvrClient() const { return m_avrClient; }

    /// What the supervisor tells becomes keys, from F1 to F10; docs/devices.md has the table.
    void GuidanceLineChangedEvent(CTamarindAVREventClient::ETamarindAVREvent a_event, bool a_on);
    void IgnitionEvent(CTamarindAVREventClient::ETamarindAVREvent a_event, bool a_on);

    /// a_holdSeconds counts when the key comes up.
    void PowerKeyEvent(CTamarindAVREventClient::ETamarindAVREvent a_event, bool a_pressed, double a_holdSeconds);

protected:
    /// Takes over a descriptor that doesn't block as the panel, in place of the one that is open, and watches it. It is
    /// read as a device node is, so it may be a pipe of evdev records.
    void UseDevice(int a_descriptor, EDeviceKind a_kind);

private:
    struct SRecord
    {
        std::uint16_t type;
        std::uint16_t code;
        std::int32_t value;
    };

    template <typename Decoder>
    void Drain(const char* a_name, Decoder a_decode);
    void CloseDevice();

    int m_deviceFd = -1;
    int m_deviceKind = edkNone;
    int m_rawX = 0;
    int m_rawY = 0;
    int m_touchState = 0;
    SCalibration m_calibration = k_uncalibrated;
    bool m_eventReported = false;
    bool m_calibrated = false;
    /// Never deleted: what it calls may call it as long as the process lives.
    CTamarindAVREventClient* m_avrClient = nullptr;
    bool m_connected = false;
};

} // namespace Gfx::Managers

extern template class GFX_API Core::Patterns::StaticSingleton<Gfx::Managers::CInputManager>;
