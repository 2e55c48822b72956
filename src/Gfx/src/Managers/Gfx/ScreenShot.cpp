#include "Managers/Gfx/GfxManager.h"
#include "Platform/Clutter/Frame.h"
#include "Platform/GL/GL.h"

#include <png.h>

#include <array>
#include <csetjmp>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <vector>

namespace Gfx::Managers
{

namespace
{

constexpr int k_bytesPerPixel = 4;

/// Which bytes of a pixel make its red, green and blue.
using ChannelOrder = std::array<int, 3>;

constexpr ChannelOrder k_bgra{2, 1, 0};
constexpr ChannelOrder k_rgba{0, 1, 2};

std::string s_buffer;

void AppendToBuffer(png_structp, png_bytep a_data, png_size_t a_size)
{
    s_buffer.append(reinterpret_cast<const char*>(a_data), a_size);
}

/// libpng's own structures, freed on every way out.
class CPngWriter
{
public:
    CPngWriter() : m_png(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr))
    {
        if (m_png == nullptr)
        {
            std::puts("ERROR: failed to create png struct");
            return;
        }
        m_info = png_create_info_struct(m_png);
    }
    ~CPngWriter() { png_destroy_write_struct(&m_png, &m_info); }
    CPngWriter(const CPngWriter&) = delete;
    CPngWriter& operator=(const CPngWriter&) = delete;

    /// a_row holds one row of the result while it is written; it is the caller's, since an error in libpng jumps over
    /// destructors.
    [[nodiscard]] bool Write(const unsigned char* a_pixels, int a_width, int a_height, const ChannelOrder& a_order,
                             std::vector<png_byte>& a_row)
    {
        if (m_png == nullptr || m_info == nullptr || setjmp(png_jmpbuf(m_png)) != 0)
        {
            return false;
        }
        png_set_compression_level(m_png, 6);
        png_set_write_fn(m_png, nullptr, AppendToBuffer, nullptr);
        png_set_IHDR(m_png, m_info, static_cast<png_uint_32>(a_width), static_cast<png_uint_32>(a_height), 8,
                     PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        png_write_info(m_png, m_info);
        // OpenGL's rows begin at the bottom.
        for (int y = a_height - 1; y >= 0; --y)
        {
            const unsigned char* pixel = a_pixels + static_cast<std::ptrdiff_t>(y) * a_width * k_bytesPerPixel;
            for (png_byte* out = a_row.data(); out != a_row.data() + a_row.size(); out += 3)
            {
                out[0] = pixel[a_order[0]];
                out[1] = pixel[a_order[1]];
                out[2] = pixel[a_order[2]];
                pixel += k_bytesPerPixel;
            }
            png_write_row(m_png, a_row.data());
        }
        png_write_end(m_png, nullptr);
        return true;
    }

private:
    png_structp m_png;
    png_infop m_info = nullptr;
};

/// The stage, painted anew, as glReadPixels gives it.
std::unique_ptr<unsigned char[]> ReadStage(ClutterActor* a_stage, bool a_inDriversFormat, int& a_width, int& a_height)
{
    a_width = 0;
    a_height = 0;
    // Painting from within a paint would never end.
    static bool s_painting = false;
    if (a_stage == nullptr || s_painting)
    {
        return nullptr;
    }
    s_painting = true;
    Platform::PaintWholeStage(CLUTTER_STAGE(a_stage));
    s_painting = false;
    std::array<GLint, 4> viewport{};
    glGetIntegerv(GL_VIEWPORT, viewport.data());
    a_width = viewport[2];
    a_height = viewport[3];
    GLint format = GL_RGBA;
    GLint type = GL_UNSIGNED_BYTE;
    if (a_inDriversFormat)
    {
        glGetIntegerv(GL_IMPLEMENTATION_COLOR_READ_FORMAT_OES, &format);
        glGetIntegerv(GL_IMPLEMENTATION_COLOR_READ_TYPE_OES, &type);
    }
    // A format of fewer or more than four bytes would not fit the block, nor what is made of it.
    if ((format != GL_RGBA && format != GL_BGRA) || type != GL_UNSIGNED_BYTE)
    {
        format = GL_RGBA;
        type = GL_UNSIGNED_BYTE;
    }
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    auto pixels = std::make_unique<unsigned char[]>(static_cast<std::size_t>(a_width) *
                                                    static_cast<std::size_t>(a_height) * k_bytesPerPixel);
    glReadPixels(viewport[0], viewport[1], a_width, a_height, static_cast<GLenum>(format), static_cast<GLenum>(type),
                 pixels.get());
    return pixels;
}

std::string EncodePng(const unsigned char* a_pixels, int a_width, int a_height, const ChannelOrder& a_order)
{
    s_buffer.clear();
    if (a_pixels == nullptr)
    {
        std::puts("ERROR: failed to malloc mem for buffer");
        return {};
    }
    CPngWriter writer;
    std::vector<png_byte> row(static_cast<std::size_t>(a_width) * 3);
    return writer.Write(a_pixels, a_width, a_height, a_order, row) ? s_buffer : std::string();
}

} // namespace

unsigned char* CGfxManager::RawScreenShot(int& a_width, int& a_height)
{
    return ReadStage(m_stage, m_hasReadFormat, a_width, a_height).release();
}

std::string CGfxManager::ScreenShot()
{
    int width = 0;
    int height = 0;
    const std::unique_ptr<unsigned char[]> pixels(RawScreenShot(width, height));
    return EncodePng(pixels.get(), width, height, k_bgra);
}

std::string CGfxManager::TrueScreenShot()
{
    int width = 0;
    int height = 0;
    const std::unique_ptr<unsigned char[]> pixels = ReadStage(m_stage, false, width, height);
    return EncodePng(pixels.get(), width, height, k_rgba);
}

} // namespace Gfx::Managers
