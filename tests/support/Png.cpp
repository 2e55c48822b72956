#include "support/Png.h"

#include <png.h>

#include <utility>

namespace GfxTest
{

CPicture DecodePng(const std::string& a_file)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&image, a_file.data(), a_file.size()) == 0)
    {
        ADD_FAILURE() << "no PNG file: " << image.message;
        return {{}, 0, 0};
    }
    EXPECT_EQ(image.format, static_cast<png_uint_32>(PNG_FORMAT_RGB));
    image.format = PNG_FORMAT_RGBA;
    std::vector<std::uint8_t> pixels(PNG_IMAGE_SIZE(image));
    if (png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) == 0)
    {
        ADD_FAILURE() << "broken PNG file: " << image.message;
        return {{}, 0, 0};
    }
    return {std::move(pixels), static_cast<int>(image.width), static_cast<int>(image.height)};
}

} // namespace GfxTest
