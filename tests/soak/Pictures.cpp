#include "Pictures.h"

#include "Report.h"

#include "support/Png.h"

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
    const int differences = a_picture.CountDifferences(a_expected);
    if (differences == 0)
    {
        return;
    }
    const Gfx::Common::CAABB box =
        a_picture.BoxOf([&](int a_x, int a_y) { return a_picture.At(a_x, a_y) != a_expected.At(a_x, a_y); });
    Write(a_picture, "soak-is.png");
    Write(a_expected, "soak-should-be.png");
    Fail(a_what + ": " + std::to_string(differences) + " pixels differ, within " + std::to_string(box.Left()) + ',' +
         std::to_string(box.Top()) + ' ' + std::to_string(box.Width()) + " x " + std::to_string(box.Height()) +
         "; see soak-is.png and soak-should-be.png in " + PictureFolder());
}

std::size_t Look(const CPicture& a_picture)
{
    const std::vector<std::uint8_t> colours = Colours(a_picture);
    return std::hash<std::string_view>()({reinterpret_cast<const char*>(colours.data()), colours.size()});
}

} // namespace Soak
