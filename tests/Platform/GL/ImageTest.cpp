#include "Platform/GL/Image.h"

#include <gtest/gtest.h>

namespace
{

using Bytes = std::vector<std::uint8_t>;
using Platform::CImage;

Bytes PixelsOf(const CImage& a_image)
{
    return {a_image.Pixels(), a_image.Pixels() + a_image.RowStride() * a_image.Height()};
}

TEST(ImageTest, RowsAreTakenWithoutTheirPadding)
{
    const Bytes pixels{1, 2, 3, 9, 4, 5, 6};
    EXPECT_EQ(PixelsOf(CImage(1, 2, 3, pixels.data(), 4)), (Bytes{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(PixelsOf(CImage(3, 2, 1, pixels.data(), 0)), (Bytes{1, 2, 3, 9, 4, 5}));
}

TEST(ImageTest, ColoursAreMultipliedByTheirAlphaAndRounded)
{
    const Bytes pixels{255, 128, 1, 255, 255, 128, 3, 128, 255, 255, 255, 0};
    CImage image(3, 1, 4, pixels.data(), 0);
    image.Premultiply();
    EXPECT_EQ(PixelsOf(image), (Bytes{255, 128, 1, 255, 128, 64, 2, 128, 0, 0, 0, 0}));
}

TEST(ImageTest, EachLevelIsTheMeanOfTheOneBefore)
{
    // 5 by 3: the last column and row count no more.
    const Bytes pixels{0, 10, 20, 30, 99, 4, 6, 40, 50, 99, 99, 99, 99, 99, 99};
    CImage image(5, 3, 1, pixels.data(), 0);
    ASSERT_TRUE(image.Halve());
    EXPECT_EQ(image.Height(), 1);
    EXPECT_EQ(PixelsOf(image), (Bytes{5, 35}));
    ASSERT_TRUE(image.Halve());
    EXPECT_EQ(PixelsOf(image), (Bytes{20}));
    EXPECT_FALSE(image.Halve());

    const Bytes column{0, 0, 0, 0, 100, 20, 40, 255};
    CImage tall(1, 2, 4, column.data(), 0);
    ASSERT_TRUE(tall.Halve());
    EXPECT_EQ(PixelsOf(tall), (Bytes{50, 10, 20, 128}));
}

} // namespace
