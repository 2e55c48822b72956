#pragma once

#include <cstdint>
#include <type_traits>

namespace Gfx
{

/// A rectangle to draw and the part of a texture to draw in it. All values are signed 16.16 fixed point: positions in
/// pixels of the drawing widget, texture coordinates from 0 to 1 over the whole texture.
///
/// An array of quads is handed to Cogl as it stands, as vertex sets of eight values, so order and size are fixed.
struct STexturedQuad
{
    std::int32_t x1 = 0;
    std::int32_t y1 = 0;
    std::int32_t x2 = 0;
    std::int32_t y2 = 0;
    std::int32_t tx1 = 0;
    std::int32_t ty1 = 0;
    std::int32_t tx2 = 0;
    std::int32_t ty2 = 0;

    constexpr bool operator==(const STexturedQuad& a_other) const = default;
};

static_assert(sizeof(STexturedQuad) == 32 && std::is_standard_layout_v<STexturedQuad> &&
              std::is_trivially_copyable_v<STexturedQuad>);

} // namespace Gfx
