#pragma once

#include "Core/Api.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

namespace Core::IO
{

/// The order of the bytes in a buffer's numbers.
enum EEndianness : int
{
    /// Least significant byte first, as in our model files.
    eeLittle = 0,
    eeBig = 1
};

/// Bytes that are gathered, then read as numbers from a position that moves along.
///
/// A read that would pass the end gives 0, moves to the end and marks the buffer as failed for good.
class GFX_API CDataBuffer
{
public:
    /// a_capacity is the number of bytes to make room for at once; the buffer grows beyond it.
    CDataBuffer(EEndianness a_endianness, std::size_t a_capacity);

    /// Appends a copy of a_size bytes. The position stays.
    void Add(const void* a_data, std::size_t a_size);

    /// Moves to an offset from the start. An offset past the end moves to the end and counts as a failed read.
    void Seek(std::size_t a_offset);

    [[nodiscard]] std::uint8_t GetUInt8();
    [[nodiscard]] std::int32_t GetInt32();
    /// IEEE 754, single precision.
    [[nodiscard]] float GetFloat();

    /// N numbers that begin at an offset from the start, wherever the position is, which stays; zeros if they don't all
    /// lie within the buffer.
    template <std::size_t N>
    [[nodiscard]] std::array<std::int32_t, N> Int32sAt(std::size_t a_offset) const
    {
        return NumbersAt<std::int32_t, N>(a_offset);
    }
    template <std::size_t N>
    [[nodiscard]] std::array<float, N> FloatsAt(std::size_t a_offset) const
    {
        static_assert(std::numeric_limits<float>::is_iec559);
        return NumbersAt<float, N>(a_offset);
    }

    [[nodiscard]] std::size_t Tell() const { return m_position; }
    [[nodiscard]] std::size_t Size() const { return m_bytes.size(); }
    [[nodiscard]] bool Failed() const { return m_failed; }

private:
    template <typename T, std::size_t N>
    [[nodiscard]] std::array<T, N> NumbersAt(std::size_t a_offset) const
    {
        if (a_offset > m_bytes.size() || N * sizeof(T) > m_bytes.size() - a_offset)
        {
            return {};
        }
        // One by one: an array that is copied as a whole would go through memory.
        const auto numbers = [&]<std::size_t... Indices>(std::index_sequence<Indices...>)
        {
            return std::array<T, N>{std::bit_cast<T>(UInt32At(a_offset + Indices * sizeof(T)))...};
        };
        return numbers(std::make_index_sequence<N>());
    }

    /// The bytes must be there.
    [[nodiscard]] std::uint32_t UInt32At(std::size_t a_offset) const
    {
        std::uint32_t number = 0;
        std::memcpy(&number, m_bytes.data() + a_offset, sizeof(number));
        const bool isNative = (m_endianness == eeLittle) == (std::endian::native == std::endian::little);
        return isNative ? number : __builtin_bswap32(number);
    }

    [[nodiscard]] std::uint32_t GetUInt32();
    [[nodiscard]] bool Has(std::size_t a_size);

    EEndianness m_endianness;
    std::vector<std::uint8_t> m_bytes;
    std::size_t m_position = 0;
    bool m_failed = false;
};

} // namespace Core::IO
