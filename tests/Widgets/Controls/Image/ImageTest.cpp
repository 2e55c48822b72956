#include "Widgets/Controls/Image/Image.h"

#include "support/LogGuard.h"
#include "support/StageTest.h"
#include "support/TemporaryDirectory.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace
{

using Gfx::CColour;
using Gfx::Colours::Yellow;
using Gfx::Widgets::CImage;

constexpr CColour k_blue(0, 0, 160, 255);

class ImageTest : public GfxTest::CControlTest
{
protected:
    static Core::SharedPtr<CImage> Add(const std::string& a_image)
    {
        return AddTopLevel(new CImage("image", 50, 60, 100, 80, a_image));
    }

    static std::string Solid()
    {
        std::ostringstream bytes;
        bytes << std::ifstream(GFX_TEST_DATA "TextureMaps/Solid.png", std::ios::binary).rdbuf();
        return bytes.str();
    }
};

TEST_F(ImageTest, AnElementFillsTheWidgetInEveryTheme)
{
    const auto image = Add("Icon");
    EXPECT_EQ(ShownExtent(Yellow), "50,60 100 x 80");
    image->Resize(30, 20);
    EXPECT_EQ(ShownExtent(Yellow), "50,60 30 x 20");
    image->SetImage("ControlInactive_Up");
    EXPECT_EQ(ShownExtent(k_blue), "50,60 30 x 20");
    EXPECT_EQ(image->GetCustomInfo().at("Image"), "ControlInactive_Up");
    SetTheme("Swapped");
    EXPECT_EQ(ShownExtent(CColour(255, 128, 64, 255)), "50,60 30 x 20");
    image->SetImage("unknown");
    EXPECT_EQ(ShownExtent(Yellow), "none");
}

TEST_F(ImageTest, AFileIsReadOnceForItsName)
{
    const GfxTest::CTemporaryDirectory directory;
    const std::string path = directory.Path() + "picture.png";
    directory.Write("picture.png", Solid());
    const auto image = Add(path);
    const GfxTest::CPicture before = FreshPicture();
    EXPECT_FALSE(before.At(60, 70) == Gfx::Colours::Black);
    std::filesystem::remove(path);
    image->SetImage(path);
    image->Resize(100, 80);
    EXPECT_EQ(FreshPicture().CountDifferences(before), 0);
}

TEST_F(ImageTest, ABadFileShowsNothingAndIsReportedOnce)
{
    const GfxTest::CTemporaryDirectory directory;
    directory.Write("truncated.png", Solid().substr(0, 60));
    directory.Write("text.png", "no picture");
    // 60,000 by 60,000 pixels, by its header, whose checksum is right.
    directory.Write(
        "huge.png",
        Solid().replace(16, 8, std::string_view("\0\0\xEA\x60\0\0\xEA\x60", 8)).replace(29, 4, "\x80\xD2uB"));
    GfxTest::ExpectLog("The image is too large (60000 by 60000)");
    for (const char* name : {"truncated.png", "text.png", "huge.png"})
    {
        GfxTest::ExpectLog("Error loading texture " + directory.Path() + name);
        const auto image = Add(directory.Path() + name);
        image->Resize(90, 70);
        image->UpdateStyle();
        EXPECT_EQ(FreshPicture().At(60, 70), Gfx::Colours::Black) << name;
        EXPECT_EQ(GfxTest::CountLogs(name), 1) << name;
        Widgets().DestroyWidget(image.Get());
    }
}

TEST_F(ImageTest, PixelsFromMemoryDrawAtTheirOwnSizeUntilAResize)
{
    const auto image = Add("Icon");
    std::array<unsigned char, 12 * 3> pixels{};
    for (std::size_t i = 0; i < pixels.size(); i += 3)
    {
        pixels[i] = 255;
    }
    image->SetImage(pixels.data(), 4, 3, 3);
    EXPECT_EQ(ShownExtent(Gfx::Colours::Red), "50,60 4 x 3");
    EXPECT_EQ(image->GetCustomInfo().at("Image"), "");
    image->SetImage(nullptr, 4, 3, 3);
    image->UpdateStyle();
    EXPECT_EQ(ShownExtent(Gfx::Colours::Red), "50,60 4 x 3");
    image->Resize(50, 50);
    EXPECT_EQ(ShownExtent(Gfx::Colours::Red), "none");
    image->SetImage(pixels.data(), 4, 3, 3);
    image->SetImage(pixels.data(), 4, 3, 2);
    EXPECT_EQ(ShownExtent(Gfx::Colours::Red), "50,60 4 x 3") << "there is no format of two bytes";
    GfxTest::ExpectLog("Error loading texture from data.");
    image->SetImage(pixels.data(), 0, 3, 3);
    EXPECT_EQ(ShownExtent(Gfx::Colours::Red), "none");
}

TEST_F(ImageTest, PixelsInPlaceOfAFileAreSoughtAsOneWithoutAName)
{
    const auto image = Add(GFX_TEST_DATA "TextureMaps/Solid.png");
    const std::array<unsigned char, 3> pixel{255, 0, 0};
    image->SetImage(pixel.data(), 1, 1, 3);
    EXPECT_EQ(ShownExtent(Gfx::Colours::Red), "50,60 1 x 1");
    GfxTest::ExpectLog("Error loading texture .");
    image->Resize(50, 50);
    EXPECT_EQ(ShownExtent(Gfx::Colours::Red), "none");
}

} // namespace
