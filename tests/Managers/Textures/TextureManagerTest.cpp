#include "Managers/Textures/TextureManager.h"

#include "Gfx/Common/Drawing.h"
#include "Managers/Themes/ThemeManager.h"
#include "support/LogGuard.h"
#include "support/Png.h"
#include "support/StageTest.h"
#include "support/TemporaryDirectory.h"

#include <cogl/cogl.h>
#include <gdk-pixbuf/gdk-pixbuf.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace
{

using Core::Patterns::StaticSingleton;
using Gfx::STexturedQuad;
using Gfx::Colours::Black;
using Gfx::Colours::Lime;
using Gfx::Colours::Red;
using Gfx::Managers::CTextureManager;
using Gfx::Margins::Left;
using GfxTest::ExpectLog;

/// A directory of images and their table, and a manager that reads it.
class TextureManagerTest : public GfxTest::CStageTest
{
protected:
    void SetUp() override
    {
        CStageTest::SetUp();
        // One theme that swaps an element, and one that doesn't.
        m_directory.Write("Configuration/ThemeConfig.xml", R"(<Themes>
            <Theme id="plain"/><Theme id="swapped"><Element id="Left" value="Right"/></Theme></Themes>)");
        StaticSingleton<Gfx::Managers::CThemeManager>::ref().Initialise(m_directory.Path());
        SetTheme("plain");
    }

    /// The left half red, the right half lime.
    std::string WriteImage(const std::string& a_name, int a_width, int a_height)
    {
        GdkPixbuf* image = gdk_pixbuf_new(GDK_COLORSPACE_RGB, FALSE, 8, a_width, a_height);
        for (int y = 0; y < a_height; ++y)
        {
            for (int x = 0; x < a_width; ++x)
            {
                guchar* pixel = gdk_pixbuf_get_pixels(image) + y * gdk_pixbuf_get_rowstride(image) + x * 3;
                pixel[0] = x < a_width / 2 ? 255 : 0;
                pixel[1] = x < a_width / 2 ? 0 : 255;
                pixel[2] = 0;
            }
        }
        const std::string path = m_directory.Write("TextureMaps/" + a_name, "");
        gdk_pixbuf_save(image, path.c_str(), "png", nullptr, nullptr);
        g_object_unref(image);
        return path;
    }

    void ReadTable(const std::string& a_images)
    {
        m_directory.Write("TextureMaps/TextureConfig.xml", "<Textures>" + a_images + "</Textures>");
        m_manager.Initialise(m_directory.Path());
    }

    bool Retrieve(const std::string& a_name)
    {
        return m_manager.RetrieveTexture(a_name, 0, 0, 40, 20, m_quads, m_texture);
    }

    GfxTest::CTemporaryDirectory m_directory;
    CTextureManager m_manager;
    std::vector<STexturedQuad> m_quads;
    void* m_texture = nullptr;
};

class CTextured : public Gfx::Widgets::CWidget
{
public:
    CTextured(const std::vector<STexturedQuad>& a_quads, void* a_texture)
        : CWidget("textured", "", 100, 100, 40, 20, false), m_quads(a_quads), m_texture(a_texture)
    {
        InitialiseClutterGroup();
    }
    void DrawSelf() const override { Gfx::Utilities::DrawTexturedQuads(m_quads, m_texture); }

private:
    std::vector<STexturedQuad> m_quads;
    void* m_texture;
};

TEST_F(TextureManagerTest, AnElementIsDrawnFromItsPageThroughTheTheme)
{
    WriteImage("page.png", 64, 32);
    ReadTable(R"(<Image file="page.png" width="64" height="32">
        <Element name="Left" left="4" top="4" width="24" height="24" border="4" border-left="7"/>
        <Element name="Right" left="36" top="4" width="24" height="24"/></Image>)");
    ExpectLog("3 (Gfx) : CTexturePage::RetrieveElement - texture not loaded - loading now");
    ASSERT_TRUE(Retrieve("Left"));
    EXPECT_EQ(m_quads.size(), 9U);
    AddTopLevel(new CTextured(m_quads, m_texture));
    EXPECT_EQ(FreshPicture().At(110, 110), Red);
    EXPECT_EQ(FreshPicture().At(139, 119), Red);
    EXPECT_EQ(FreshPicture().At(140, 110), Black);
    EXPECT_EQ(m_manager.GetElementMargin("Left", Left), 7);

    SetTheme("swapped");
    ASSERT_TRUE(Retrieve("Left"));
    EXPECT_EQ(m_quads.size(), 1U);
    EXPECT_EQ(m_manager.GetElementMargin("Left", Left), 0);
    AddTopLevel(new CTextured(m_quads, m_texture));
    EXPECT_EQ(FreshPicture().At(110, 110), Lime);
    EXPECT_EQ(GfxTest::CountLogs("loading now"), 1);
}

TEST_F(TextureManagerTest, BadNodesCostThemselvesAndAMessageAndTheRestIsRead)
{
    WriteImage("page.png", 64, 32);
    struct SCase
    {
        const char* attributes;
        const char* log;
    };
    const std::array cases{
        SCase{R"(name="NoLeft" top="0" width="1" height="1")",
              "Invalid dimensions were provided for element NoLeft. Dimensions were left: -1, top: 0, width: 1, "
              "height: 1"},
        SCase{R"(left="0" top="0" width="1" height="1")", "A name was not provided for an element node within the file "
                                                          "page.png"},
        SCase{R"(name="Beyond" left="60" top="0" width="5" height="1")", "for element Beyond."},
        SCase{R"(name="Edge" left="60" top="0" width="4" height="32")", nullptr},
        SCase{R"(name="Overflow" left="60" top="0" width="2147483647" height="1")", "for element Overflow."},
        SCase{R"(name="Thick" left="0" top="0" width="3" height="9" border="3")",
              "Invalid border size 3 was provided for Thick"},
        SCase{R"(name="Inward" left="0" top="0" width="3" height="9" border="-3")", nullptr},
        SCase{R"(name="Broad" left="0" top="0" width="3" height="9" border-left="99")", nullptr},
        SCase{R"(name="Fancy" left="0" top="0" width="3" height="9" style="fancy")", ""},
        SCase{R"(name="Negative" left="5" top="0" width="-3" height="9")",
              "Invalid border size 0 was provided for Negative"},
    };
    std::string elements;
    for (const SCase& row : cases)
    {
        elements += std::string("<Element ") + row.attributes + "/>";
        if (row.log != nullptr && *row.log != '\0')
        {
            ExpectLog(row.log);
        }
    }
    ExpectLog("3 (CTextureManager) : The filename () supplied for the image node is invalid");
    ExpectLog("The width (0) or height (5) of the image node flat.png was invalid");
    ReadTable(R"(<Image width="1" height="1"/><Image file="flat.png" height="5"/><Other/>)"
              R"(<Image file="page.png" width="64" height="32"><Other/>)" +
              elements + "</Image>");
    ExpectLog("loading now");
    for (const SCase& row : cases)
    {
        const std::string attributes = row.attributes;
        const std::size_t start = attributes.find("name=\"");
        if (start != std::string::npos)
        {
            const std::string name = attributes.substr(start + 6, attributes.find('"', start + 6) - start - 6);
            EXPECT_EQ(Retrieve(name), row.log == nullptr) << name;
        }
    }
}

TEST_F(TextureManagerTest, TheLaterElementOfAPageAndTheEarlierPageWin)
{
    WriteImage("a.png", 64, 32);
    WriteImage("b.png", 64, 32);
    ReadTable(R"(<Image file="a.png" width="64" height="32">
          <Element name="x" left="0" top="0" width="9" height="9" border="1"/>
          <Element name="x" left="0" top="0" width="9" height="9" border="2"/></Image>
        <Image file="b.png" width="64" height="32">
          <Element name="x" left="0" top="0" width="9" height="9" border="3"/></Image>)");
    EXPECT_EQ(m_manager.GetElementMargin("x", Left), 2);
}

TEST(TexturePageTest, AnElementThatIsReplacedIsNotDeleted)
{
    class CElement : public Gfx::Managers::CSimpleElement
    {
    public:
        CElement(int& a_alive, int a_border) : CSimpleElement(0, 0, 9, 9, 64, 32, a_border), m_alive(a_alive)
        {
            ++m_alive;
        }
        ~CElement() override { --m_alive; }

    private:
        int& m_alive;
    };
    int alive = 0;
    const auto replaced = std::make_unique<CElement>(alive, 1);
    {
        Gfx::Managers::CTexturePage page("page.png", 64, 32);
        page.AddElement("x", replaced.get());
        auto* const element = new CElement(alive, 2);
        page.AddElement("x", element);
        page.AddElement("x", element);
        page.AddElement("y", new CElement(alive, 3));
        EXPECT_EQ(alive, 3);
        EXPECT_EQ(page.GetElementMargin("x", Left), 2);
        page.TakeElement("y").reset();
        EXPECT_EQ(alive, 2);
        EXPECT_FALSE(page.HasElement("y"));
        EXPECT_EQ(page.TakeElement("y"), nullptr);
    }
    EXPECT_EQ(alive, 1);
}

TEST_F(TextureManagerTest, AFailedPageIsTriedOnceAndAnUnknownNameChangesNoQuads)
{
    m_directory.Write("TextureMaps/junk.png", "no image at all");
    WriteImage("whole.png", 200, 200);
    ReadTable(
        R"(<Image file="junk.png" width="64" height="32"><Element name="junk" left="0" top="0" width="9" height="9"/>
        </Image><Image file="missing.png" width="64" height="32">
        <Element name="missing" left="0" top="0" width="9" height="9"/></Image>)");
    ExpectLog("loading now");
    ExpectLog("3 (CTexturePage) : Error loading texture " + m_directory.Path() + "TextureMaps/junk.png. Error was ");
    ExpectLog("3 (CTexturePage) : Error loading texture " + m_directory.Path() + "TextureMaps/missing.png. Error was ");
    m_quads.resize(2);
    for (const char* name : {"junk", "missing", "unknown", "junk", "missing"})
    {
        m_texture = this;
        EXPECT_FALSE(Retrieve(name)) << name;
        EXPECT_EQ(m_texture, nullptr) << name;
    }
    EXPECT_EQ(m_quads.size(), 2U);
    EXPECT_EQ(GfxTest::CountLogs("Error loading"), 2);
    m_manager.LoadTextures();
}

TEST_F(TextureManagerTest, DataBecomesATextureByItsBytesPerPixel)
{
    const std::vector<unsigned char> data(8193, 255);
    for (const int bytes : {1, 3, 4})
    {
        EXPECT_TRUE(m_manager.LoadDataAsTexture(data.data(), 4, 3, bytes, m_quads, m_texture)) << bytes;
        EXPECT_NE(m_texture, nullptr);
        ASSERT_EQ(m_quads.size(), 1U);
        EXPECT_TRUE((m_quads[0] == STexturedQuad{0, 0, 4 << 16, 3 << 16, 0, 0, 65536, 65536}));
        cogl_object_unref(m_texture);
    }
    EXPECT_FALSE(m_manager.LoadDataAsTexture(data.data(), 4, 3, 2, m_quads, m_texture));
    EXPECT_FALSE(m_manager.LoadDataAsTexture(nullptr, 4, 3, 4, m_quads, m_texture));
    ExpectLog("3 (CTextureManager::LoadDataAsTexture) : Error loading texture from data.");
    EXPECT_FALSE(m_manager.LoadDataAsTexture(data.data(), -4, 3, 4, m_quads, m_texture));
    EXPECT_FALSE(m_manager.LoadDataAsTexture(data.data(), 8193, 1, 1, m_quads, m_texture));
    EXPECT_FALSE(m_manager.LoadDataAsTexture(data.data(), 1, 8193, 1, m_quads, m_texture));
    EXPECT_EQ(GfxTest::CountLogs("from data"), 3);
}

TEST_F(TextureManagerTest, FilesBecomeTexturesAndBadOnesALine)
{
    const std::string path = WriteImage("image.png", 8, 8);
    ASSERT_TRUE(m_manager.LoadFileAsTexture(path, 2, 3, 10, 20, m_quads, m_texture));
    EXPECT_TRUE((m_quads[0] == STexturedQuad{2 << 16, 3 << 16, 12 << 16, 23 << 16, 0, 0, 65536, 65536}));
    cogl_object_unref(m_texture);

    // A picture of a few bytes that claims to be of 100,000 by 1.
    const std::string huge = m_directory.Write("huge.pbm", "P4\n100000 1\n");
    ExpectLog("3 (CTextureManager) : Error loading texture " + huge + ". Error was ");
    EXPECT_FALSE(m_manager.LoadFileAsTexture(huge, 0, 0, 1, 1, m_quads, m_texture));
    EXPECT_EQ(m_texture, nullptr);
    // And one that has more than a chip takes.
    const std::string wide =
        m_directory.Write("wide.png", GfxTest::EncodePng(8193, 1, 0, 1, std::vector<std::uint8_t>(8193)));
    ExpectLog("3 (CTextureManager) : Error loading texture " + wide + ". Error was The image is too large (8193 by 1)");
    EXPECT_FALSE(m_manager.LoadFileAsTexture(wide, 0, 0, 1, 1, m_quads, m_texture));
}

} // namespace
