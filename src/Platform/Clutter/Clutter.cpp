#include "Platform/Clutter/Clutter.h"

#include "Platform/GL/Image.h"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

namespace
{

constexpr int k_valuesPerQuad = 8;

ClutterColor s_currentColour{255, 255, 255, 255};

/// A texture's own pipelines, made at their first use; they live as long as the texture. Where it isn't made smaller,
/// the one without mipmaps gives the same pixels for less.
CoglUserDataKey s_pipelineKey;
CoglUserDataKey s_mipmapPipelineKey;

CoglPipeline* PipelineOf(CoglTexture* a_texture, bool a_mipmaps)
{
    CoglUserDataKey* const key = a_mipmaps ? &s_mipmapPipelineKey : &s_pipelineKey;
    if (auto* pipeline = static_cast<CoglPipeline*>(cogl_object_get_user_data(COGL_OBJECT(a_texture), key)))
    {
        return pipeline;
    }
    CoglContext* context = cogl_framebuffer_get_context(cogl_get_draw_framebuffer());
    CoglPipeline* pipeline = cogl_pipeline_new(context);
    cogl_pipeline_set_layer_texture(pipeline, 0, a_texture);
    cogl_pipeline_set_layer_filters(
        pipeline, 0, a_mipmaps ? COGL_PIPELINE_FILTER_LINEAR_MIPMAP_NEAREST : COGL_PIPELINE_FILTER_LINEAR,
        COGL_PIPELINE_FILTER_LINEAR);
    cogl_pipeline_set_layer_wrap_mode(pipeline, 0, COGL_PIPELINE_WRAP_MODE_CLAMP_TO_EDGE);
    if (cogl_texture_get_components(a_texture) == COGL_TEXTURE_COMPONENTS_A)
    {
        // A texture of alpha alone is black to the default combine; it is to be a stencil for the current colour.
        cogl_pipeline_set_layer_combine(pipeline, 0, "RGBA = MODULATE(PREVIOUS, TEXTURE[A])", nullptr);
    }
    cogl_object_set_user_data(COGL_OBJECT(a_texture), key, pipeline, cogl_object_unref);
    return pipeline;
}

/// How many pixels of the display one unit of the current coordinates is, along each of its axes; none where they are
/// turned, or seen at a slant.
struct SScale
{
    float x = 0;
    float y = 0;
};

SScale CurrentScale(CoglFramebuffer* a_framebuffer)
{
    CoglMatrix modelview;
    CoglMatrix projection;
    cogl_framebuffer_get_modelview_matrix(a_framebuffer, &modelview);
    cogl_framebuffer_get_projection_matrix(a_framebuffer, &projection);
    const bool isFlat = modelview.xy == 0 && modelview.yx == 0 && modelview.zx == 0 && modelview.zy == 0 &&
                        modelview.wx == 0 && modelview.wy == 0;
    const float depth = projection.wz * modelview.zw + projection.ww * modelview.ww;
    if (!isFlat || depth == 0)
    {
        return {};
    }
    const auto pixels = [depth](float a_modelview, float a_projection, float a_length)
    { return std::abs(a_modelview * a_projection / depth) * a_length / 2; };
    return {pixels(modelview.xx, projection.xx, cogl_framebuffer_get_viewport_width(a_framebuffer)),
            pixels(modelview.yy, projection.yy, cogl_framebuffer_get_viewport_height(a_framebuffer))};
}

/// Whether a quad shows its part of the texture smaller than it is. What is hardly smaller is taken from the whole
/// picture with mipmaps, too.
bool IsMadeSmaller(const float* a_quad, CoglTexture* a_texture, const SScale& a_scale)
{
    constexpr float hardly = 1.05F;
    const auto texels = [](float a_from, float a_to, int a_length)
    { return std::abs(a_to - a_from) * static_cast<float>(a_length); };
    return texels(a_quad[4], a_quad[6], cogl_texture_get_width(a_texture)) >
               std::abs(a_quad[2] - a_quad[0]) * a_scale.x * hardly ||
           texels(a_quad[5], a_quad[7], cogl_texture_get_height(a_texture)) >
               std::abs(a_quad[3] - a_quad[1]) * a_scale.y * hardly;
}

int BytesPerPixel(CoglPixelFormat a_format)
{
    switch (a_format)
    {
    case COGL_PIXEL_FORMAT_A_8: return 1;
    case COGL_PIXEL_FORMAT_RGB_888: return 3;
    default: return 4;
    }
}

CoglPixelFormat FormatOf(const Platform::CImage& a_image)
{
    switch (a_image.BytesPerPixel())
    {
    case 1: return COGL_PIXEL_FORMAT_A_8;
    case 3: return COGL_PIXEL_FORMAT_RGB_888;
    default: return COGL_PIXEL_FORMAT_RGBA_8888_PRE;
    }
}

} // namespace

void cogl_color(const ClutterColor* a_colour)
{
    s_currentColour = *a_colour;
    cogl_set_source_color4ub(a_colour->red, a_colour->green, a_colour->blue, a_colour->alpha);
}

ClutterColor cogl_current_color()
{
    return s_currentColour;
}

void cogl_texture_multiple_rectangles(CoglHandle a_texture, const CoglFixed* a_vertices, guint a_count)
{
    if (a_texture == nullptr || a_count == 0)
    {
        return;
    }
    // Grows to the longest list ever drawn and stays, so that painting doesn't allocate.
    static std::vector<float> s_vertices;
    const std::size_t valueCount = std::size_t{a_count} * k_valuesPerQuad;
    s_vertices.resize(valueCount);
    for (std::size_t i = 0; i < valueCount; ++i)
    {
        s_vertices[i] = static_cast<float>(a_vertices[i]) / 65536.0F;
    }
    CoglTexture* const texture = COGL_TEXTURE(a_texture);
    CoglFramebuffer* const framebuffer = cogl_get_draw_framebuffer();
    const SScale scale = CurrentScale(framebuffer);
    bool mipmaps = false;
    for (std::size_t i = 0; i < valueCount && !mipmaps; i += k_valuesPerQuad)
    {
        mipmaps = IsMadeSmaller(&s_vertices[i], texture, scale);
    }
    CoglPipeline* pipeline = PipelineOf(texture, mipmaps);
    const auto premultiplied = [](guint8 a_component)
    { return static_cast<guint8>((a_component * s_currentColour.alpha + 127) / 255); };
    cogl_pipeline_set_color4ub(pipeline, premultiplied(s_currentColour.red), premultiplied(s_currentColour.green),
                               premultiplied(s_currentColour.blue), s_currentColour.alpha);
    cogl_framebuffer_draw_textured_rectangles(framebuffer, pipeline, s_vertices.data(), a_count);
}

CoglFixed clutter_double_to_fixed(double a_value)
{
    constexpr double furthest = 32767.0;
    return std::isnan(a_value) ? 0 : cogl_double_to_fixed(std::clamp(a_value, -furthest, furthest));
}

void cogl_rectanglex(CoglFixed a_x, CoglFixed a_y, CoglFixed a_width, CoglFixed a_height)
{
    const auto left = static_cast<float>(a_x) / 65536.0F;
    const auto top = static_cast<float>(a_y) / 65536.0F;
    cogl_rectangle(left, top, left + static_cast<float>(a_width) / 65536.0F,
                   top + static_cast<float>(a_height) / 65536.0F);
}

CoglHandle cogl_texture_new_from_file(const char* a_path, gint, gboolean, CoglPixelFormat a_internalFormat,
                                      GError** a_error)
{
    const std::unique_ptr<GdkPixbuf, decltype(&g_object_unref)> image(gdk_pixbuf_new_from_file(a_path, a_error),
                                                                      g_object_unref);
    if (!image)
    {
        return nullptr;
    }
    const auto width = static_cast<guint>(gdk_pixbuf_get_width(image.get()));
    const auto height = static_cast<guint>(gdk_pixbuf_get_height(image.get()));
    const bool hasAlpha = gdk_pixbuf_get_has_alpha(image.get()) == TRUE;
    CoglHandle texture = cogl_texture_new_from_data(
        width, height, 0, TRUE, hasAlpha ? COGL_PIXEL_FORMAT_RGBA_8888 : COGL_PIXEL_FORMAT_RGB_888, a_internalFormat,
        static_cast<guint>(gdk_pixbuf_get_rowstride(image.get())), gdk_pixbuf_read_pixels(image.get()));
    if (texture == nullptr)
    {
        g_set_error(a_error, COGL_BITMAP_ERROR, COGL_BITMAP_ERROR_FAILED, "No texture can be made of %u by %u pixels",
                    width, height);
    }
    return texture;
}

CoglHandle cogl_texture_new_from_data(guint a_width, guint a_height, gint, gboolean, CoglPixelFormat a_format,
                                      CoglPixelFormat a_internalFormat, guint a_rowStride, const guchar* a_data)
{
    Platform::CImage image(static_cast<int>(a_width), static_cast<int>(a_height), BytesPerPixel(a_format), a_data,
                           static_cast<int>(a_rowStride));
    image.Premultiply();
    return Platform::NewTexture(std::move(image), a_internalFormat);
}

CoglHandle Platform::NewTexture(CImage a_image, CoglPixelFormat a_internalFormat)
{
    if (!a_image.HasPixels())
    {
        return nullptr;
    }
    const CoglPixelFormat format = FormatOf(a_image);
    // Left to choose, Cogl would store alpha alone as black pixels.
    const bool isAlphaAlone = format == COGL_PIXEL_FORMAT_A_8 && a_internalFormat == COGL_PIXEL_FORMAT_ANY;
    // Of its own storage: Cogl would draw the texture into another one to take it out of an atlas, for the mipmaps.
    CoglTexture* const texture = static_cast<CoglTexture*>(
        cogl_texture_new_from_data(a_image.Width(), a_image.Height(), COGL_TEXTURE_NO_ATLAS, format,
                                   isAlphaAlone ? format : a_internalFormat, a_image.RowStride(), a_image.Pixels()));
    if (texture != nullptr && cogl_is_texture_2d(texture))
    {
        // Made here, mipmaps cost the driver no shaders, which a software renderer would compile for them at start-up.
        cogl_primitive_texture_set_auto_mipmap(COGL_PRIMITIVE_TEXTURE(texture), FALSE);
        for (int level = 1; a_image.Halve(); ++level)
        {
            cogl_texture_set_data(texture, format, a_image.RowStride(), a_image.Pixels(), level, nullptr);
        }
    }
    return texture;
}

void cogl_texture_release(CoglHandle a_texture)
{
    if (a_texture != nullptr)
    {
        cogl_object_set_user_data(COGL_OBJECT(a_texture), &s_pipelineKey, nullptr, nullptr);
        cogl_object_set_user_data(COGL_OBJECT(a_texture), &s_mipmapPipelineKey, nullptr, nullptr);
        cogl_object_unref(a_texture);
    }
}
