#pragma once

#include <numbers>

namespace Core::Maths
{

/// Constants, in the precision of T.
template <typename T>
struct Math
{
    static constexpr T PI = std::numbers::pi_v<T>;
    static constexpr T HALF_PI = PI / 2;
    /// Times degrees gives radians.
    static constexpr T DEG_TO_RAD = PI / 180;
};

} // namespace Core::Maths
