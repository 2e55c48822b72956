// Textures of models.

#include "fuzz/support/Target.h"

#include "Managers/3D/PngFile.h"

#include <zlib.h>

#include <cstdint>

void GfxFuzz::SetUp() {}

void GfxFuzz::Try(std::string_view a_input)
{
    Gfx::Managers::detail::SPixels pixels;
    if (Gfx::Managers::detail::ReadPngFile(Data().Write("Texture.png", a_input), pixels))
    {
        const std::size_t size = std::size_t(pixels.width) * std::size_t(pixels.height) * (pixels.alpha ? 4 : 3);
        Use(crc32(0, pixels.data.get(), static_cast<uInt>(size)));
    }
}
