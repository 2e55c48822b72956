#include "Core/IO/DataBuffer.h"

#include <bit>
#include <cstring>
#include <limits>

namespace Core::IO
{

CDataBuffer::CDataBuffer(Endianness a_endianness, std::size_t a_capacity) : m_endianness(a_endianness)
{
    m_bytes.reserve(a_capacity);
}

void CDataBuffer::Add(const void* a_data, std::size_t a_size)
{
    const auto* bytes = static_cast<const std::uint8_t*>(a_data);
    m_bytes.insert(m_bytes.end(), bytes, bytes + a_size);
}

void CDataBuffer::Seek(std::size_t a_offset)
{
    m_position = 0;
    if (Has(a_offset))
    {
        m_position = a_offset;
    }
}

std::uint8_t CDataBuffer::GetUInt8()
{
    return Has(1) ? m_bytes[m_position++] : 0;
}

std::int32_t CDataBuffer::GetInt32()
{
    return static_cast<std::int32_t>(GetUInt32());
}

float CDataBuffer::GetFloat()
{
    static_assert(std::numeric_limits<float>::is_iec559);
    return std::bit_cast<float>(GetUInt32());
}

std::uint32_t CDataBuffer::GetUInt32()
{
    constexpr std::size_t size = 4;
    if (!Has(size))
    {
        return 0;
    }
    std::uint32_t value = 0;
    std::memcpy(&value, m_bytes.data() + m_position, size);
    m_position += size;
    const bool isNative = (m_endianness == eeLittle) == (std::endian::native == std::endian::little);
    return isNative ? value : __builtin_bswap32(value);
}

bool CDataBuffer::Has(std::size_t a_size)
{
    if (a_size <= m_bytes.size() - m_position)
    {
        return true;
    }
    m_position = m_bytes.size();
    m_failed = true;
    return false;
}

} // namespace Core::IO
