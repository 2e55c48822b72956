#pragma once

#include <array>
#include <cstddef>

namespace Demo
{

/// The climate of a greenhouse, by rules that know no chance: the same inputs give the same day. One step is a minute.
struct SSimulation
{
    static constexpr std::size_t k_beds = 4;

    /// Minutes since the midnight before the start.
    int time = 8 * 60;
    /// In degrees Celsius, percent and kilolux.
    double temperature = 23.4;
    double humidity = 64;
    double light = 24;
    /// In percent, as are those that follow.
    double vents = 35;
    double tank = 22;
    std::array<double, k_beds> moisture{58, 41, 27, 66};
    std::array<bool, k_beds> isWatering{false, true, false, false};
    bool isShaded = false;
    bool isLit = false;

    double temperatureSetPoint = 22;
    double humiditySetPoint = 65;
    double lightSetPoint = 10;
    /// Whether vents, shade and lamps follow the set points.
    bool isAutomatic = true;

    void Step();

    [[nodiscard]] int MinuteOfDay() const { return time % (24 * 60); }
    [[nodiscard]] bool IsWindy() const;
    [[nodiscard]] bool IsTankEmpty() const { return tank <= 5; }
    void WaterDryBeds();

private:
    void Control(double a_sun);
    void StepWater();
};

} // namespace Demo
