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

/// The pixels of a PNG file, premultiplied.
std::optional<Platform::CImage> ReadPng(const std::string& a_path, std::string& a_error)
{
    std::optional<Platform::CImage> image = PageAhead().Take(a_path);
    if (!image)
    {
        image = Platform::ReadPng(a_path, k_longestSide, a_error);
        if (image)
        {
            image->Premultiply();
        }
    }
    return image;
}

/// A file of any other kind.
CoglHandle LoadOther(const std::string& a_path, std::string& a_error)
{
    int width = 0;
    int height = 0;
    if (gdk_pixbuf_get_file_info(a_path.c_str(), &width, &height) != nullptr &&
        (width > k_longestSide || height > k_longestSide))
    {
        a_error = Platform::TooLarge(width, height);
        return nullptr;
    }
    GError* error = nullptr;
    CoglHandle texture = cogl_texture_new_from_file(a_path.c_str(), 0, TRUE, COGL_PIXEL_FORMAT_ANY, &error);
    if (error != nullptr)
    {
        a_error = error->message;
        g_error_free(error);
    }
    return texture;
}

} // namespace

void* LoadImageFile(const std::string& a_path, const std::string& a_logSource)
{
    CoglHandle texture = nullptr;
    std::string error;
    if (std::optional<Platform::CImage> image = ReadPng(a_path, error))
    {
        texture = Platform::NewTexture(std::move(*image), COGL_PIXEL_FORMAT_ANY);
        error = "No texture can be made of it";
    }
    else if (error.empty())
    {
        // What libpng takes at its word in a damaged PNG file can be gigabytes: none gets here.
        texture = LoadOther(a_path, error);
    }
    if (texture == nullptr)
    {
        Core::Patterns::StaticSingleton<Core::Logging::CLogger>::ref().Log(
            Core::Logging::elMessage, a_logSource, "Error loading texture %s. Error was %s", a_path, error);
    }
    return texture;
}

} // namespace Gfx::Managers::detail
