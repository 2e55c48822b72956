#include "Managers/Input/InputManager.h"

#include <algorithm>
#include <cmath>

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

} // namespace

Common::CPoint CInputManager::TransformCoordinates(int a_x, int a_y) const
{
    const auto x = static_cast<float>(a_x);
    const auto y = static_cast<float>(a_y);
    return {Pixel((x * m_calibration.a + y * m_calibration.b) + m_calibration.c, k_lastColumn),
            Pixel((x * m_calibration.d + y * m_calibration.e) + m_calibration.f, k_lastRow)};
}

} // namespace Gfx::Managers
