#include "demo/Simulation.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Demo
{

namespace
{

constexpr double k_brightest = 55;
constexpr double k_lampLight = 12;
constexpr double k_shadeFrom = 45;
constexpr double k_shadeTo = 38;
/// Part of a difference that is made up in a minute.
constexpr double k_humidityRate = 0.05;
constexpr double k_litresPerMinute = 0.15;
constexpr double k_wetEnough = 80;
constexpr double k_wantsWater = 60;

} // namespace

bool SSimulation::IsWindy() const
{
    const int minute = time % (4 * 60);
    return minute >= 10 && minute < 30;
}

void SSimulation::Step()
{
    ++time;
    const double hour = MinuteOfDay() / 60.0;
    const double cloud = std::sin(time / 17.0);
    const double sun =
        k_brightest * std::max(0.0, std::sin((hour - 6) / 14 * std::numbers::pi)) * (1 - 0.12 * cloud * cloud);
    const double outside = 12 + 9 * std::sin((hour - 9) / 12 * std::numbers::pi);
    if (isAutomatic)
    {
        Control(sun);
    }
    light = sun * (isShaded ? 0.5 : 1) + (isLit ? k_lampLight : 0);
    const double heating = temperature < temperatureSetPoint - 2 ? 0.25 : 0;
    temperature += heating + 0.0075 * light - (temperature - outside) * (0.005 + 0.0003 * vents);
    const double moistAir = std::clamp(humiditySetPoint + 12 - 0.35 * vents, 30.0, 95.0);
    humidity += (moistAir - humidity) * k_humidityRate;
    StepWater();
}

void SSimulation::Control(double a_sun)
{
    const double target = IsWindy() ? 0 : std::clamp(25 * (temperature - temperatureSetPoint), 0.0, 100.0);
    vents += std::clamp(target - vents, -5.0, 5.0);
    isShaded = a_sun > (isShaded ? k_shadeTo : k_shadeFrom);
    const double hour = MinuteOfDay() / 60.0;
    isLit = a_sun < lightSetPoint && hour >= 6 && hour < 22;
}

void SSimulation::StepWater()
{
    for (std::size_t i = 0; i < k_beds; ++i)
    {
        moisture[i] = std::max(0.0, moisture[i] - 0.01 - 0.001 * light);
        if (isWatering[i])
        {
            moisture[i] += 1;
            tank -= k_litresPerMinute;
            isWatering[i] = moisture[i] < k_wetEnough && !IsTankEmpty();
        }
    }
}

void SSimulation::WaterDryBeds()
{
    for (std::size_t i = 0; i < k_beds; ++i)
    {
        isWatering[i] = isWatering[i] || (moisture[i] < k_wantsWater && !IsTankEmpty());
    }
}

} // namespace Demo
