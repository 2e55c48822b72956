// The system's settings, with the calibration of the touch panel.

#include "fuzz/support/Target.h"

#include "Managers/Input/InputManager.h"
#include "Platform/System/Config.h"
#include "Platform/System/ConfigTransaction.h"

#include <climits>
#include <cstdlib>
#include <iterator>
#include <vector>

namespace
{

using Gfx::Common::CPoint;
using Gfx::Managers::CInputManager;

constexpr CPoint k_points[]{{0, 0}, {799, 479}, {INT_MIN, INT_MAX}, {INT_MAX, INT_MIN}, {400, -1}};

CInputManager& Input()
{
    return Core::Patterns::StaticSingleton<CInputManager>::ref();
}

} // namespace

void GfxFuzz::SetUp()
{
    setenv("GFX_SYSTEM_CONFIG", (Data().Path() + "system.conf").c_str(), 1);
}

void GfxFuzz::Try(std::string_view a_input)
{
    Data().Write("system.conf", a_input);
    Input().LoadCalibration();
    std::vector<CPoint> transformed;
    for (const CPoint& point : k_points)
    {
        transformed.push_back(Input().TransformCoordinates(point.X(), point.Y()));
        if (transformed.back().X() < 0 || transformed.back().X() > 799 || transformed.back().Y() < 0 ||
            transformed.back().Y() > 479)
        {
            std::abort();
        }
    }
    Use(Input().SetCalibrationPoints(transformed, {std::begin(k_points), std::end(k_points)}));
    Input().SaveCalibration();
    Input().LoadCalibration();
}
