#include "Managers/3D/PngFile.h"

#include "Core/Logging/Logger.h"
#include "Core/StaticSingleton.h"
#include "Managers/Textures/ImageFile.h"

#include <png.h>

#include <csetjmp>
#include <cstddef>
#include <cstdio>
#include <vector>

namespace Gfx::Managers::detail
{

namespace
{

constexpr int k_bitsPerChannel = 8;

/// libpng's own structures, freed on every way out. An error in libpng jumps over destructors, so each operation that
/// calls it has no objects of its own.
class CPngReader
{
public:
    /// a_error takes the text of an error of libpng's.
    explicit CPngReader(std::string& a_error)
        : m_png(png_create_read_struct(PNG_LIBPNG_VER_STRING, &a_error, OnError, OnWarning))
    {
        if (m_png != nullptr)
        {
            m_info = png_create_info_struct(m_png);
            m_endInfo = png_create_info_struct(m_png);
            png_set_user_limits(m_png, k_longestSide, k_longestSide);
            // What isn't needed for pixels is skipped: a text may claim gigabytes.
            png_set_keep_unknown_chunks(m_png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
        }
    }
    ~CPngReader() { png_destroy_read_struct(&m_png, &m_info, &m_endInfo); }
    CPngReader(const CPngReader&) = delete;
    CPngReader& operator=(const CPngReader&) = delete;

    [[nodiscard]] bool IsMade() const { return m_png != nullptr; }
    [[nodiscard]] bool HasInfo() const { return m_info != nullptr && m_endInfo != nullptr; }

    [[nodiscard]] bool ReadInfo(std::FILE* a_file)
    {
        if (setjmp(png_jmpbuf(m_png)) != 0)
        {
            return false;
        }
        png_init_io(m_png, a_file);
        png_read_info(m_png, m_info);
        return true;
    }

    [[nodiscard]] int Width() const { return static_cast<int>(png_get_image_width(m_png, m_info)); }
    [[nodiscard]] int Height() const { return static_cast<int>(png_get_image_height(m_png, m_info)); }
    [[nodiscard]] int ColourType() const { return png_get_color_type(m_png, m_info); }
    [[nodiscard]] int BitsPerChannel() const { return png_get_bit_depth(m_png, m_info); }

    /// a_rows has a pointer for each row.
    [[nodiscard]] bool ReadPixels(png_bytepp a_rows)
    {
        if (setjmp(png_jmpbuf(m_png)) != 0)
        {
            return false;
        }
        png_read_image(m_png, a_rows);
        png_read_end(m_png, m_endInfo);
        return true;
    }

private:
    [[noreturn]] static void OnError(png_structp a_png, png_const_charp a_message)
    {
        static_cast<std::string*>(png_get_error_ptr(a_png))->assign(a_message);
        png_longjmp(a_png, 1);
    }
    static void OnWarning(png_structp, png_const_charp) {}

    png_structp m_png;
    png_infop m_info = nullptr;
    png_infop m_endInfo = nullptr;
};

bool FailWith(const char* a_text)
{
    std::fputs(a_text, stderr);
    return false;
}

bool ReportDamage(const std::string& a_path, const std::string& a_reason)
{
    Core::Patterns::StaticSingleton<Core::Logging::CLogger>::ref().Log(
        Core::Logging::elMessage, "C3DManager", "The texture %s is damaged: %s", a_path, a_reason);
    return false;
}

} // namespace

bool ReadPngFile(const std::string& a_path, SPixels& a_pixels)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(a_path.c_str(), "rb"), std::fclose);
    if (!file)
    {
        std::fprintf(stderr, "error opening png file: %s\n", a_path.c_str());
        return false;
    }
    std::string error;
    CPngReader reader(error);
    if (!reader.IsMade())
    {
        return false;
    }
    if (!reader.HasInfo())
    {
        return FailWith("error creating png datas\n");
    }
    if (!reader.ReadInfo(file.get()))
    {
        return ReportDamage(a_path, error);
    }
    const int colourType = reader.ColourType();
    if ((colourType != PNG_COLOR_TYPE_RGB && colourType != PNG_COLOR_TYPE_RGB_ALPHA) ||
        reader.BitsPerChannel() != k_bitsPerChannel)
    {
        return FailWith("unknown png format!\n");
    }
    a_pixels.width = reader.Width();
    a_pixels.height = reader.Height();
    a_pixels.alpha = colourType == PNG_COLOR_TYPE_RGB_ALPHA;
    const auto height = static_cast<std::size_t>(a_pixels.height);
    const std::size_t rowSize = static_cast<std::size_t>(a_pixels.width) * (a_pixels.alpha ? 4 : 3);
    // Not a container: memory that a damaged file claims, and has no pixels for, is then never touched.
    a_pixels.data.reset(static_cast<unsigned char*>(std::calloc(height, rowSize)));
    if (!a_pixels.data)
    {
        return ReportDamage(a_path, "there is no memory for its pixels");
    }
    std::vector<png_bytep> rows(height);
    for (std::size_t row = 0; row < height; ++row)
    {
        rows[row] = a_pixels.data.get() + (height - 1 - row) * rowSize;
    }
    return reader.ReadPixels(rows.data()) || ReportDamage(a_path, error);
}

} // namespace Gfx::Managers::detail
