#include "Core/IO/DataBuffer.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

namespace
{

using namespace Core::IO;

// A byte, so that what follows isn't aligned; -2 and 1.5 in each order.
constexpr std::array<std::uint8_t, 9> k_little{0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0xC0, 0x3F};
constexpr std::array<std::uint8_t, 9> k_big{0xFF, 0xFF, 0xFF, 0xFF, 0xFE, 0x3F, 0xC0, 0x00, 0x00};

TEST(DataBufferTest, NumbersAreReadInTheOrderOfTheBuffer)
{
    struct SCase
    {
        CDataBuffer::Endianness endianness;
        std::array<std::uint8_t, 9> bytes;
    };
    for (const SCase& example : {SCase{CDataBuffer::Endianness{0}, k_little}, SCase{CDataBuffer::eeBig, k_big}})
    {
        CDataBuffer buffer(example.endianness, 2);
        buffer.Add(example.bytes.data(), 4);
        buffer.Add(example.bytes.data() + 4, 5);
        EXPECT_EQ(buffer.Size(), 9U);
        EXPECT_EQ(buffer.Bytes(1, 8).data(), buffer.Bytes(0, 9).data() + 1);
        EXPECT_EQ(buffer.Bytes(9, 0).size(), 0U);
        EXPECT_EQ(buffer.Bytes(2, 8).size(), 0U);
        EXPECT_EQ(buffer.Bytes(static_cast<std::size_t>(-2), 4).size(), 0U);
        EXPECT_EQ(buffer.GetUInt8(), 255);
        EXPECT_EQ(buffer.GetInt32(), -2);
        EXPECT_EQ(buffer.Tell(), 5U);
        EXPECT_EQ(buffer.GetFloat(), 1.5F);
        EXPECT_EQ(buffer.Tell(), buffer.Size());
        EXPECT_FALSE(buffer.Failed());
    }
}

TEST(DataBufferTest, AReadPastTheEndGivesZeroAndMarksTheBuffer)
{
    CDataBuffer buffer(CDataBuffer::eeLittle, 0);
    EXPECT_FALSE(buffer.Failed());
    EXPECT_EQ(buffer.GetUInt8(), 0);
    EXPECT_TRUE(buffer.Failed());

    CDataBuffer cut(CDataBuffer::eeLittle, 256);
    cut.Add(k_little.data(), k_little.size());
    cut.Seek(6);
    EXPECT_FALSE(cut.Failed());
    EXPECT_EQ(cut.GetInt32(), 0);
    EXPECT_EQ(cut.Tell(), 9U);
    EXPECT_EQ(cut.GetFloat(), 0.0F);
    cut.Seek(1);
    EXPECT_EQ(cut.GetInt32(), -2);
    EXPECT_TRUE(cut.Failed());
}

TEST(DataBufferTest, SeekingPastTheEndStopsThere)
{
    CDataBuffer buffer(CDataBuffer::eeLittle, 256);
    buffer.Add(k_little.data(), k_little.size());
    buffer.Seek(9);
    EXPECT_FALSE(buffer.Failed());
    buffer.Seek(static_cast<std::size_t>(-1));
    EXPECT_EQ(buffer.Tell(), 9U);
    EXPECT_TRUE(buffer.Failed());
}

} // namespace
