#include "Managers/Input/InputManager.h"
#include "Platform/System/Config.h"
#include "Platform/System/ConfigTransaction.h"
#include "Platform/System/Matrix.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <stdexcept>

namespace Gfx::Managers
{

namespace
{

// The panel covers the whole screen, whatever size the stage has.
constexpr float k_lastColumn = 799.0F;
constexpr float k_lastRow = 479.0F;

/// The nearest pixel within the screen; a value that is no number gives the first.
int Pixel(float a_value, float a_last)
{
    const float rounded = std::round(a_value);
    return rounded > 0.0F ? static_cast<int>(std::min(rounded, a_last)) : 0;
}

using SCalibration = CInputManager::SCalibration;

constexpr const char* k_section = "gfx";
constexpr const char* k_calibratedKey = "calibrated";

struct SCoefficient
{
    const char* key;
    float SCalibration::*member;
};

constexpr std::array k_coefficients{
    SCoefficient{"cal_a", &SCalibration::a}, SCoefficient{"cal_b", &SCalibration::b},
    SCoefficient{"cal_c", &SCalibration::c}, SCoefficient{"cal_d", &SCalibration::d},
    SCoefficient{"cal_e", &SCalibration::e}, SCoefficient{"cal_f", &SCalibration::f},
};

struct SRelease
{
    void operator()(CConfig* a_config) const { a_config->Release(); }
};
using ConfigPtr = std::unique_ptr<CConfig, SRelease>;

/// The affine map that takes raw points nearest to points of the screen, by the normal equations: for the rows
/// (x, y, 1) of A it is (A' A)^-1 A' times the screen's x and times its y. Throws std::range_error if there is no one
/// such map.
SCalibration Fit(const std::vector<Common::CPoint>& a_screen, const std::vector<Common::CPoint>& a_raw)
{
    const auto count = static_cast<int>(a_screen.size());
    CMatrix points(count, 3);
    CMatrix screenX(count, 1);
    CMatrix screenY(count, 1);
    for (int i = 0; i < count; ++i)
    {
        const auto index = static_cast<std::size_t>(i);
        points(i, 0) = a_raw[index].X();
        points(i, 1) = a_raw[index].Y();
        points(i, 2) = 1.0;
        screenX(i, 0) = a_screen[index].X();
        screenY(i, 0) = a_screen[index].Y();
    }
    const CMatrix transposed = points.Transpose();
    const CMatrix solver = (transposed * points).Inverse() * transposed;
    const CMatrix x = solver * screenX;
    const CMatrix y = solver * screenY;
    return {static_cast<float>(x(0, 0)), static_cast<float>(x(1, 0)), static_cast<float>(x(2, 0)),
            static_cast<float>(y(0, 0)), static_cast<float>(y(1, 0)), static_cast<float>(y(2, 0))};
}

} // namespace

Common::CPoint CInputManager::TransformCoordinates(int a_x, int a_y) const
{
    const auto x = static_cast<float>(a_x);
    const auto y = static_cast<float>(a_y);
    return {Pixel((x * m_calibration.a + y * m_calibration.b) + m_calibration.c, k_lastColumn),
            Pixel((x * m_calibration.d + y * m_calibration.e) + m_calibration.f, k_lastRow)};
}

void CInputManager::LoadCalibration()
{
    const ConfigPtr config(CConfig::GetSystemConfig());
    CConfigTransaction transaction(config.get());
    for (const auto& [key, member] : k_coefficients)
    {
        m_calibration.*member =
            static_cast<float>(transaction.GetDouble(k_section, key, double{k_identity.*member}, false));
    }
    m_calibrated = transaction.GetBool(k_section, k_calibratedKey, false, false);
    if (!m_calibrated)
    {
        m_calibration = k_uncalibrated;
    }
}

bool CInputManager::SetCalibrationPoints(const std::vector<Common::CPoint>& a_screenPoints,
                                         const std::vector<Common::CPoint>& a_rawPoints)
{
    if (a_screenPoints.size() < 3 || a_rawPoints.size() != a_screenPoints.size())
    {
        return false;
    }
    try
    {
        m_calibration = Fit(a_screenPoints, a_rawPoints);
    }
    catch (const std::range_error& error)
    {
        std::fprintf(stderr, "CInputManager::SetCalibrationPoints: caught exception: %s\n", error.what());
        return false;
    }
    m_calibrated = true;
    return true;
}

void CInputManager::SaveCalibration()
{
    const ConfigPtr config(CConfig::GetSystemConfig());
    if (!m_calibrated)
    {
        return;
    }
    CConfigTransaction transaction(config.get());
    for (const auto& [key, member] : k_coefficients)
    {
        transaction.SetDouble(k_section, key, double{m_calibration.*member});
    }
    transaction.SetBool(k_section, k_calibratedKey, true);
}

} // namespace Gfx::Managers
