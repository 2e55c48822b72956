#pragma once

#include "Core/IO/DataBuffer.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

/// The binary format of models, as its loader and its writer have it.
namespace Gfx::BObjectFormat
{

/// The order of the bytes in all its numbers.
inline constexpr Core::IO::CDataBuffer::Endianness k_endianness = Core::IO::CDataBuffer::eeLittle;

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

/// Reads an object that consists of such numbers from where it lies in a file.
template <typename T>
T Decoded(const std::uint8_t* a_bytes)
{
    static_assert(std::is_trivially_copyable_v<T> && sizeof(T) % k_numberSize == 0);
    std::array<std::uint8_t, sizeof(T)> bytes;
    std::memcpy(bytes.data(), a_bytes, bytes.size());
    if constexpr ((k_endianness == Core::IO::CDataBuffer::eeLittle) != (std::endian::native == std::endian::little))
    {
        for (auto number = bytes.begin(); number != bytes.end(); number += k_numberSize)
        {
            std::reverse(number, number + k_numberSize);
        }
    }
    return std::bit_cast<T>(bytes);
}

/// The most items that a record has.
inline constexpr std::int32_t k_largestCount = 200'000;

} // namespace Gfx::BObjectFormat
