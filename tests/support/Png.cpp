#include "support/Png.h"

#include "support/Valgrind.h"

#include <png.h>

#include <utility>

namespace GfxTest
{

CPicture DecodePng(const std::string& a_file)
{
    TakePixelsAsDefined(a_file.data(), a_file.size());
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

std::string EncodePng(int a_width, int a_height, int a_colourType, int a_bitDepth,
                      const std::vector<std::uint8_t>& a_pixels, bool a_interlaced)
{
    std::string file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(
        png, &file,
        [](png_structp a_png, png_bytep a_data, png_size_t a_size)
        { static_cast<std::string*>(png_get_io_ptr(a_png))->append(reinterpret_cast<char*>(a_data), a_size); },
        nullptr);
    png_set_IHDR(png, info, static_cast<png_uint_32>(a_width), static_cast<png_uint_32>(a_height), a_bitDepth,
                 a_colourType, a_interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    std::vector<png_bytep> rows;
    const std::size_t rowSize = png_get_rowbytes(png, info);
    for (std::size_t row = 0; row < static_cast<std::size_t>(a_height); ++row)
    {
        rows.push_back(const_cast<png_bytep>(a_pixels.data()) + row * rowSize);
    }
    png_write_image(png, rows.data());
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return file;
}

} // namespace GfxTest
