#pragma once

#include <cmath>

namespace Core::Maths
{

/// A vector of three components.
template <typename T>
class Vector3
{
public:
    constexpr Vector3() = default;
    constexpr Vector3(T a_x, T a_y, T a_z) : x(a_x), y(a_y), z(a_z) {}

    constexpr bool operator==(const Vector3& a_other) const = default;

    [[nodiscard]] constexpr Vector3 operator+(const Vector3& a_other) const
    {
        return {x + a_other.x, y + a_other.y, z + a_other.z};
    }

    [[nodiscard]] constexpr Vector3 operator-(const Vector3& a_other) const
    {
        return {x - a_other.x, y - a_other.y, z - a_other.z};
    }

    [[nodiscard]] constexpr Vector3 operator*(T a_factor) const { return {x * a_factor, y * a_factor, z * a_factor}; }

    /// The scalar product.
    [[nodiscard]] constexpr T Dot(const Vector3& a_other) const
    {
        return x * a_other.x + y * a_other.y + z * a_other.z;
    }

    /// This vector times a_other: of x and y, z.
    [[nodiscard]] constexpr Vector3 Cross(const Vector3& a_other) const
    {
        return {y * a_other.z - z * a_other.y, z * a_other.x - x * a_other.z, x * a_other.y - y * a_other.x};
    }

    [[nodiscard]] T Length() const { return std::hypot(x, y, z); }

    /// The vector of length 1 in this direction; the zero vector has none and stays.
    [[nodiscard]] Vector3 Normalise() const
    {
        const T length = Length();
        return length > T{} ? Vector3{x / length, y / length, z / length} : *this;
    }

    T x{};
    T y{};
    T z{};
};

} // namespace Core::Maths
