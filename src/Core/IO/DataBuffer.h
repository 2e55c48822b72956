#pragma once

#include "Core/Api.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace Core::IO
{

/// Bytes that are gathered, then read as numbers from a position that moves along.
///
/// A read that would pass the end gives 0, moves to the end and marks the buffer as failed for good.
class GFX_API CDataBuffer
{
public:
    /// The order of the bytes in a number.
    enum Endianness : int
    {
        /// Least significant byte first, as in our model files.
        eeLittle = 0,
        eeBig = 1
    };

    /// a_capacity is the number of bytes to make room for at once; the buffer grows beyond it.
    CDataBuffer(Endianness a_endianness, std::size_t a_capacity);

    /// Appends a copy of a_size bytes. The position stays.
    void Add(const void* a_data, std::size_t a_size);

    /// Moves to an offset from the start. An offset past the end moves to the end and counts as a failed read.
    void Seek(std::size_t a_offset);

    /// The byte, or the four bytes in the buffer's order, at the position, which moves behind them.
    [[nodiscard]] std::uint8_t GetUInt8();
    [[nodiscard]] std::int32_t GetInt32();

    /// IEEE 754, single precision.
    [[nodiscard]] float GetFloat();

    /// a_size bytes that begin at an offset from the start, wherever the position is, which stays; none if they don't
    /// all lie within the buffer. They are valid until the next Add.
    [[nodiscard]] std::span<const std::uint8_t> Bytes(std::size_t a_offset, std::size_t a_size) const
    {
        const bool isWithin = a_offset <= m_bytes.size() && a_size <= m_bytes.size() - a_offset;
        return isWithin ? std::span(m_bytes).subspan(a_offset, a_size) : std::span<const std::uint8_t>();
    }

    [[nodiscard]] std::size_t Tell() const { return m_position; }
    [[nodiscard]] std::size_t Size() const { return m_bytes.size(); }
    [[nodiscard]] bool Failed() const { return m_failed; }

private:
    [[nodiscard]] std::uint32_t GetUInt32();
    [[nodiscard]] bool Has(std::size_t a_size);

    Endianness m_endianness;
    std::vector<std::uint8_t> m_bytes;
    std::size_t m_position = 0;
    bool m_failed = false;
};

} // namespace Core::IO
