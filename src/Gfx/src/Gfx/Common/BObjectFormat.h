#pragma once

#include "Core/IO/DataBuffer.h"

#include <cstddef>
#include <cstdint>

/// The binary format of models, as its loader and its writer have it.
namespace Gfx::BObjectFormat
{

/// The order of the bytes in all its numbers.
inline constexpr Core::IO::EEndianness k_endianness = Core::IO::eeLittle;

enum ETag : std::uint8_t
{
    etPosition = 'v',
    etNormal = 'n',
    etTexCoord = 't',
    etTriangle = 'f'
};

inline constexpr std::size_t k_positionNumbers = 3;
inline constexpr std::size_t k_normalNumbers = 3;
inline constexpr std::size_t k_texCoordNumbers = 2;
inline constexpr std::size_t k_triangleNumbers = 9;

/// Numbers have four bytes.
inline constexpr std::size_t k_numberSize = 4;

/// The most items that a record has.
inline constexpr std::int32_t k_largestCount = 200'000;

} // namespace Gfx::BObjectFormat
