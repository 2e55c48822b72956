#include "Platform/GL/PngReader.h"

#include "support/Png.h"
#include "support/TemporaryDirectory.h"

#include <gdk-pixbuf/gdk-pixbuf.h>
#include <gtest/gtest.h>

#include <cstring>
#include <memory>

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

TEST(PngReaderTest, PixelsAreThoseThatAnyOtherDecoderFinds)
{
    const GfxTest::CTemporaryDirectory directory;
    Bytes pixels(19 * 7 * 4);
    for (std::size_t i = 0; i < pixels.size(); ++i)
    {
        pixels[i] = static_cast<std::uint8_t>(i * 37);
    }
    struct SCase
    {
        int colourType;
        bool interlaced;
    };
    for (const SCase& test : {SCase{2, false}, {2, true}, {6, false}, {6, true}})
    {
        const std::string path =
            directory.Write("a.png", GfxTest::EncodePng(19, 7, test.colourType, 8, pixels, test.interlaced));
        const auto image = Platform::ReadPng(path, k_longestSide);
        ASSERT_TRUE(image);
        EXPECT_EQ(image->BytesPerPixel(), test.colourType == 6 ? 4 : 3);
        EXPECT_EQ(Bytes(image->Pixels(), image->Pixels() + image->RowStride() * image->Height()), Expected(path));
    }
}

TEST(PngReaderTest, FilesOfOtherKindsAndBadOnesAreLeftToOthers)
{
    const GfxTest::CTemporaryDirectory directory;
    const Bytes pixels(21 * 8);
    const std::string whole = GfxTest::EncodePng(4, 4, 2, 8, pixels);
    std::string keyed = whole;
    // The length, the word, red, green and blue of 16 bits each, and the check sum; after the signature and the header.
    keyed.insert(33, std::string("\0\0\0\6tRNS\0\0\0\0\0\0\x6E\xA6\x07\x91", 18));
    std::string damaged = whole;
    damaged[damaged.find("IDAT") + 6] ^= 1;
    for (const std::string& file : {std::string("no image at all"), whole.substr(0, whole.size() - 13), damaged, keyed,
                                    GfxTest::EncodePng(4, 4, 0, 8, pixels), GfxTest::EncodePng(4, 4, 2, 16, pixels),
                                    GfxTest::EncodePng(k_longestSide + 1, 1, 2, 8, pixels),
                                    GfxTest::EncodePng(1, k_longestSide + 1, 2, 8, pixels)})
    {
        EXPECT_FALSE(Platform::ReadPng(directory.Write("a.png", file), k_longestSide)) << file.size();
    }
    EXPECT_FALSE(Platform::ReadPng(directory.Path() + "missing.png", k_longestSide));
    EXPECT_TRUE(Platform::ReadPng(directory.Write("a.png", whole), k_longestSide));
}

} // namespace
