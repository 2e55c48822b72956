#include "Managers/Textures/ImageFile.h"

#include "Core/Logging/Logger.h"
#include "Platform/Clutter/Clutter.h"

#include <gdk-pixbuf/gdk-pixbuf.h>

namespace Gfx::Managers::detail
{

void* LoadImageFile(const std::string& a_path, const std::string& a_logSource)
{
    GError* error = nullptr;
    CoglHandle texture = nullptr;
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
