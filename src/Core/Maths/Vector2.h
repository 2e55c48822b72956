#pragma once

#include <cmath>

namespace Core::Maths
{

/// A vector of two components.
template <typename T>
class Vector2
{
public:
    constexpr Vector2() = default;
    constexpr Vector2(T a_x, T a_y) : x(a_x), y(a_y) {}

    constexpr bool operator==(const Vector2& a_other) const = default;

    [[nodiscard]] constexpr Vector2 operator+(const Vector2& a_other) const { return {x + a_other.x, y + a_other.y}; }
    [[nodiscard]] constexpr Vector2 operator-(const Vector2& a_other) const { return {x - a_other.x, y - a_other.y}; }
    [[nodiscard]] constexpr Vector2 operator*(T a_factor) const { return {x * a_factor, y * a_factor}; }

    /// The scalar product.
    [[nodiscard]] constexpr T Dot(const Vector2& a_other) const { return x * a_other.x + y * a_other.y; }

    [[nodiscard]] T Length() const { return std::hypot(x, y); }

    T x{};
    T y{};
};

} // namespace Core::Maths
