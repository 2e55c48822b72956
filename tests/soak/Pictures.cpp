#include "Pictures.h"

#include "Report.h"

#include "support/Png.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <functional>
#include <string_view>
#include <vector>

namespace Soak
{

using GfxTest::CPicture;

namespace
{

/// Red, green and blue of each pixel.
std::vector<std::uint8_t> Colours(const CPicture& a_picture)
{
    std::vector<std::uint8_t> colours;
    for (int y = 0; y < a_picture.Height(); ++y)
    {
        for (int x = 0; x < a_picture.Width(); ++x)
        {
            const Gfx::CColour colour = a_picture.At(x, y);
            colours.insert(colours.end(), {colour.Red(), colour.Green(), colour.Blue()});
        }
    }
    return colours;
}

} // namespace

void Write(const CPicture& a_picture, const std::string& a_name)
{
    std::ofstream(PictureFolder() + a_name, std::ios::binary)
        << GfxTest::EncodePng(a_picture.Width(), a_picture.Height(), 2, 8, Colours(a_picture));
}

void Compare(const CPicture& a_picture, const CPicture& a_expected, const std::string& a_what)
{
    if (a_picture.CountDifferences(a_expected) == 0)
    {
        return;
    }
    int left = a_picture.Width();
    int top = a_picture.Height();
    int right = 0;
    int bottom = 0;
    for (int y = 0; y < a_picture.Height(); ++y)
    {
        for (int x = 0; x < a_picture.Width(); ++x)
        {
            if (!(a_picture.At(x, y) == a_expected.At(x, y)))
            {
                left = std::min(left, x);
                top = std::min(top, y);
                right = std::max(right, x + 1);
                bottom = std::max(bottom, y + 1);
            }
        }
    }
    Write(a_picture, "soak-is.png");
    Write(a_expected, "soak-should-be.png");
    Fail(a_what + ": " + std::to_string(a_picture.CountDifferences(a_expected)) + " pixels differ, within " +
         std::to_string(left) + ',' + std::to_string(top) + ' ' + std::to_string(right - left) + " x " +
         std::to_string(bottom - top) + "; see soak-is.png and soak-should-be.png in " + PictureFolder());
}

std::size_t Look(const CPicture& a_picture)
{
    const std::vector<std::uint8_t> colours = Colours(a_picture);
    return std::hash<std::string_view>()({reinterpret_cast<const char*>(colours.data()), colours.size()});
}

} // namespace Soak
