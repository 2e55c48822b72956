#include "Managers/Textures/ImageFile.h"

#include "Core/Logging/Logger.h"
#include "Managers/Textures/PageAhead.h"
#include "Platform/Clutter/Clutter.h"
#include "Platform/GL/PngReader.h"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <optional>
#include <utility>

namespace Gfx::Managers::detail
{

namespace
{

/// The pixels of a file of the kind that pages are, premultiplied.
std::optional<Platform::CImage> ReadPage(const std::string& a_path)
{
    std::optional<Platform::CImage> image = PageAhead().Take(a_path);
    if (!image)
    {
        image = Platform::ReadPng(a_path, k_longestSide);
        if (image)
        {
            image->Premultiply();
        }
    }
    return image;
}

} // namespace

void* LoadImageFile(const std::string& a_path, const std::string& a_logSource)
{
    CoglHandle texture = nullptr;
    if (std::optional<Platform::CImage> image = ReadPage(a_path))
    {
        texture = Platform::NewTexture(std::move(*image), COGL_PIXEL_FORMAT_ANY);
    }
    if (texture != nullptr)
    {
        return texture;
    }
    // Other kinds of images, and what is wrong with a file.
    GError* error = nullptr;
    int width = 0;
    int height = 0;
    if (gdk_pixbuf_get_file_info(a_path.c_str(), &width, &height) != nullptr &&
        (width > k_longestSide || height > k_longestSide))
    {
        g_set_error(&error, COGL_BITMAP_ERROR, COGL_BITMAP_ERROR_FAILED, "The image is too large (%d by %d)", width,
                    height);
    }
    else
    {
        texture = cogl_texture_new_from_file(a_path.c_str(), 0, TRUE, COGL_PIXEL_FORMAT_ANY, &error);
    }
    if (error != nullptr)
    {
        Core::Patterns::StaticSingleton<Core::Logging::CLogger>::ref().Log(
            Core::Logging::elMessage, a_logSource, "Error loading texture %s. Error was %s", a_path, error->message);
        g_error_free(error);
        return nullptr;
    }
    return texture;
}

} // namespace Gfx::Managers::detail
