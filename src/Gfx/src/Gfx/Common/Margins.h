#pragma once

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
