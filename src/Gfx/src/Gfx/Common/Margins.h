#pragma once

namespace Gfx::Common
{

/// How much of a box is kept free at each side, in pixels.
struct SMargins
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    [[nodiscard]] constexpr int Horizontal() const { return left + right; }
    [[nodiscard]] constexpr int Vertical() const { return top + bottom; }
};

} // namespace Gfx::Common

namespace Gfx::Margins
{

/// The sides of a texture element. Any int is a valid value; where one outside the four names leads, the operation
/// that takes the margin says.
enum EMargin : int
{
    Left = 0,
    Top = 1,
    Right = 2,
    Bottom = 3
};

} // namespace Gfx::Margins
