#include "Managers/3D/PngFile.h"

#include "Core/Logging/Logger.h"
#include "Core/StaticSingleton.h"
#include "Managers/Textures/ImageFile.h"
#include "Platform/GL/PngReader.h"

#include <cstddef>
#include <cstdio>
#include <vector>

namespace Gfx::Managers::detail
{

namespace
{

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
    Platform::CPngReader reader(error, k_longestSide);
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
    if (!reader.IsTrueColour())
    {
        return FailWith("unknown png format!\n");
    }
    a_pixels.width = reader.Width();
    a_pixels.height = reader.Height();
    a_pixels.alpha = reader.HasAlpha();
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
