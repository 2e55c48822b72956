#include "Platform/GL/PngReader.h"

#include "support/Png.h"
#include "support/TemporaryDirectory.h"

#include <gdk-pixbuf/gdk-pixbuf.h>
#include <gtest/gtest.h>
#include <zlib.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace
{

using Bytes = std::vector<std::uint8_t>;

constexpr int k_longestSide = 20;

/// The pixels as the image library of the desktop decodes them.
Bytes Expected(const std::string& a_path)
{
    const std::unique_ptr<GdkPixbuf, decltype(&g_object_unref)> image(gdk_pixbuf_new_from_file(a_path.c_str(), nullptr),
                                                                      g_object_unref);
    Bytes pixels;
    for (int y = 0; image && y < gdk_pixbuf_get_height(image.get()); ++y)
    {
        const guchar* const row = gdk_pixbuf_read_pixels(image.get()) + y * gdk_pixbuf_get_rowstride(image.get());
        pixels.insert(pixels.end(), row,
                      row + gdk_pixbuf_get_width(image.get()) * gdk_pixbuf_get_n_channels(image.get()));
    }
    return pixels;
}

/// A chunk with its length and its check sum.
std::string Chunk(const std::string& a_name, const std::string& a_content)
{
    const std::string body = a_name + a_content;
    const auto number = [](std::uint64_t a_value)
    {
        std::string bytes;
        for (const unsigned shift : {24U, 16U, 8U, 0U})
        {
            bytes += static_cast<char>(a_value >> shift);
        }
        return bytes;
    };
    return number(a_content.size()) + body +
           number(crc32(0, reinterpret_cast<const Bytef*>(body.data()), static_cast<uInt>(body.size())));
}

/// The file with a chunk put in after its signature and its header.
std::string WithChunk(std::string a_file, const std::string& a_name, const std::string& a_content)
{
    return a_file.insert(33, Chunk(a_name, a_content));
}

TEST(PngReaderTest, PixelsAreThoseThatAnyOtherDecoderFinds)
{
    const GfxTest::CTemporaryDirectory directory;
    Bytes pixels(19 * 7 * 8);
    for (std::size_t i = 0; i < pixels.size(); ++i)
    {
        pixels[i] = static_cast<std::uint8_t>(i * 37);
    }
    const auto encode = [&pixels](int a_colourType, int a_bitDepth, bool a_interlaced = false)
    { return GfxTest::EncodePng(19, 7, a_colourType, a_bitDepth, pixels, a_interlaced); };
    std::string colours;
    for (int i = 0; i < 16 * 3; ++i)
    {
        colours += static_cast<char>(i * 5);
    }
    // A palette's pixels are stored as greys are.
    std::string palette = encode(0, 4);
    palette.replace(8, 25, Chunk("IHDR", palette.substr(16, 9) + '\3' + palette.substr(26, 3)));
    palette = WithChunk(palette, "PLTE", colours);
    const std::vector<std::pair<std::string, int>> files{
        {encode(2, 8), 3},
        {encode(2, 8, true), 3},
        {encode(6, 8), 4},
        {encode(6, 8, true), 4},
        {encode(2, 16), 3},
        {encode(6, 16), 4},
        {encode(0, 1), 3},
        {encode(0, 4, true), 3},
        {encode(0, 8), 3},
        {encode(0, 16), 3},
        {encode(4, 8), 4},
        {encode(4, 16), 4},
        {palette, 3},
        // What is transparent: a colour, a grey, the first three.
        {WithChunk(encode(2, 8), "tRNS", {"\0\x25\0\x4A\0\x6F", 6}), 4},
        {WithChunk(encode(0, 4), "tRNS", {"\0\5", 2}), 4},
        {palette.substr(0, 33 + 12 + colours.size()) + Chunk("tRNS", {"\0\x40\x80", 3}) +
             palette.substr(33 + 12 + colours.size()),
         4}};
    for (const auto& [file, bytesPerPixel] : files)
    {
        const std::string path = directory.Write("a.png", file);
        std::string error;
        const auto image = Platform::ReadPng(path, k_longestSide, error);
        ASSERT_TRUE(image) << error;
        EXPECT_EQ(image->BytesPerPixel(), bytesPerPixel);
        EXPECT_EQ(Bytes(image->Pixels(), image->Pixels() + image->RowStride() * image->Height()), Expected(path));
    }
}

TEST(PngReaderTest, BadFilesAreRefusedWithAReasonAndOtherKindsAreLeftToOthers)
{
    const GfxTest::CTemporaryDirectory directory;
    const Bytes pixels(21 * 8);
    const std::string whole = GfxTest::EncodePng(4, 4, 2, 8, pixels);
    std::string damaged = whole;
    damaged[damaged.find("IDAT") + 6] ^= 1;
    std::string error;
    for (const std::string& file : {whole.substr(0, whole.size() - 13), whole.substr(0, 8), damaged,
                                    GfxTest::EncodePng(k_longestSide + 1, 1, 2, 8, pixels),
                                    GfxTest::EncodePng(1, k_longestSide + 1, 2, 8, pixels)})
    {
        EXPECT_FALSE(Platform::ReadPng(directory.Write("a.png", file), k_longestSide, error)) << file.size();
        EXPECT_NE(error, "") << file.size();
    }
    EXPECT_EQ(error, "The image is too large (1 by 21)");
    for (const std::string& file : {std::string(), std::string("no image at all"), whole.substr(0, 7)})
    {
        EXPECT_FALSE(Platform::ReadPng(directory.Write("a.png", file), k_longestSide, error)) << file.size();
        EXPECT_EQ(error, "") << file.size();
    }
    EXPECT_FALSE(Platform::ReadPng(directory.Path() + "missing.png", k_longestSide, error));
    EXPECT_EQ(error, "");
    EXPECT_TRUE(Platform::ReadPng(directory.Write("a.png", whole), k_longestSide, error));
}

} // namespace
