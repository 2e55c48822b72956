// PNG files have checksums, which mutations would hardly ever get past; so they are put right after each.

#include <zlib.h>

#include <cstddef>
#include <cstdint>

namespace
{

constexpr std::size_t k_signatureSize = 8;
/// Of a chunk: its length and type in front, its checksum behind.
constexpr std::size_t k_headSize = 8;
constexpr std::size_t k_checksumSize = 4;

std::size_t BigEndian(const std::uint8_t* a_bytes)
{
    return std::size_t{a_bytes[0]} << 24U | std::size_t{a_bytes[1]} << 16U | std::size_t{a_bytes[2]} << 8U |
           std::size_t{a_bytes[3]};
}

} // namespace

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* a_data, std::size_t a_size, std::size_t a_mostSize);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* a_data, std::size_t a_size, std::size_t a_mostSize,
                                               unsigned int)
{
    const std::size_t size = LLVMFuzzerMutate(a_data, a_size, a_mostSize);
    std::size_t at = k_signatureSize;
    while (at + k_headSize + k_checksumSize <= size)
    {
        const std::size_t length = BigEndian(a_data + at);
        if (length > size - at - k_headSize - k_checksumSize)
        {
            break;
        }
        std::uint8_t* const type = a_data + at + 4;
        const uLong checksum = crc32(0, type, static_cast<uInt>(4 + length));
        for (std::size_t i = 0; i < k_checksumSize; ++i)
        {
            type[4 + length + i] = static_cast<std::uint8_t>(checksum >> (24U - 8U * i));
        }
        at += k_headSize + length + k_checksumSize;
    }
    return size;
}
