#include "Platform/GL/PngReader.h"

#include <array>
#include <csetjmp>
#include <cstddef>
#include <memory>
#include <vector>

namespace Platform
{

namespace
{

constexpr int k_bitsPerChannel = 8;

[[noreturn]] void OnError(png_structp a_png, png_const_charp a_message)
{
    static_cast<std::string*>(png_get_error_ptr(a_png))->assign(a_message);
    png_longjmp(a_png, 1);
}

void OnWarning(png_structp, png_const_charp) {}

/// Whether a file begins as a PNG file does. It stands at its beginning afterwards.
bool IsPng(std::FILE* a_file)
{
    std::array<png_byte, 8> signature{};
    const std::size_t count = std::fread(signature.data(), 1, signature.size(), a_file);
    std::rewind(a_file);
    return count == signature.size() && png_sig_cmp(signature.data(), 0, signature.size()) == 0;
}

} // namespace

CPngReader::CPngReader(std::string& a_error, int a_longestSide)
    : m_error(a_error)
    , m_longestSide(a_longestSide)
    , m_png(png_create_read_struct(PNG_LIBPNG_VER_STRING, &a_error, OnError, OnWarning))
{
    if (m_png != nullptr)
    {
        m_info = png_create_info_struct(m_png);
        m_endInfo = png_create_info_struct(m_png);
        // What isn't needed for pixels is skipped: a text may claim gigabytes.
        png_set_keep_unknown_chunks(m_png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    }
}

CPngReader::~CPngReader()
{
    png_destroy_read_struct(&m_png, &m_info, &m_endInfo);
}

bool CPngReader::ReadInfo(std::FILE* a_file)
{
    if (setjmp(png_jmpbuf(m_png)) != 0)
    {
        return false;
    }
    png_init_io(m_png, a_file);
    png_read_info(m_png, m_info);
    return IsSmallEnough();
}

bool CPngReader::IsSmallEnough()
{
    const bool isSmallEnough = Width() <= m_longestSide && Height() <= m_longestSide;
    if (!isSmallEnough)
    {
        m_error = TooLarge(Width(), Height());
    }
    return isSmallEnough;
}

bool CPngReader::ConvertToTrueColour()
{
    if (setjmp(png_jmpbuf(m_png)) != 0)
    {
        return false;
    }
    // Palettes, grey of fewer bits, and a colour that stands for transparent pixels.
    png_set_expand(m_png);
    png_set_strip_16(m_png);
    png_set_gray_to_rgb(m_png);
    static_cast<void>(png_set_interlace_handling(m_png));
    png_read_update_info(m_png, m_info);
    return true;
}

bool CPngReader::IsTrueColour() const
{
    return (png_get_color_type(m_png, m_info) == PNG_COLOR_TYPE_RGB || HasAlpha()) &&
           png_get_bit_depth(m_png, m_info) == k_bitsPerChannel;
}

bool CPngReader::ReadPixels(png_bytepp a_rows)
{
    if (setjmp(png_jmpbuf(m_png)) != 0)
    {
        return false;
    }
    png_read_image(m_png, a_rows);
    png_read_end(m_png, m_endInfo);
    return true;
}

std::optional<CImage> ReadPng(const std::string& a_path, int a_longestSide, std::string& a_error)
{
    a_error.clear();
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(a_path.c_str(), "rbe"), std::fclose);
    if (!file || !IsPng(file.get()))
    {
        return std::nullopt;
    }
    a_error = "There is no memory for the image";
    CPngReader reader(a_error, a_longestSide);
    if (!reader.IsMade() || !reader.HasInfo() || !reader.ReadInfo(file.get()) || !reader.ConvertToTrueColour())
    {
        return std::nullopt;
    }
    CImage image(reader.Width(), reader.Height(), reader.HasAlpha() ? 4 : 3);
    if (!image.HasPixels())
    {
        return std::nullopt;
    }
    std::vector<png_bytep> rows(static_cast<std::size_t>(image.Height()));
    for (std::size_t row = 0; row < rows.size(); ++row)
    {
        rows[row] = image.Pixels() + row * static_cast<std::size_t>(image.RowStride());
    }
    return reader.ReadPixels(rows.data()) ? std::optional<CImage>(std::move(image)) : std::nullopt;
}

} // namespace Platform
