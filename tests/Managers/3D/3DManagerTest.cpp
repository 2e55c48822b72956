#include "Managers/3D/3DManager.h"

#include "Core/IO/XMLDocument.h"
#include "Gfx/3D/TexturedEntity.h"
#include "Widgets/Controls/3DFrame/3DFrame.h"
#include "support/LogGuard.h"
#include "support/Png.h"
#include "support/SceneTest.h"
#include "support/TemporaryDirectory.h"

#include <GL/gl.h>

#include <array>
#include <filesystem>
#include <functional>
#include <limits>
#include <memory>
#include <random>

namespace
{

using namespace Gfx::Colours;
using Gfx::CColour;
using Gfx::CTexturedEntity;
using Gfx::Managers::C3DManager;
using GfxTest::CountLogs;
using GfxTest::CPicture;
using GfxTest::EncodePng;
using GfxTest::ExpectLog;
using Pixels = std::vector<std::uint8_t>;
using EntityPtr = C3DManager::EntityPtr;

constexpr int k_rgb = 2;
constexpr int k_rgba = 6;

/// A square of ten units a side, in two groups: its lower left and its upper right triangle.
constexpr const char* k_square = "v -5 -5 0\nv 5 -5 0\nv 5 5 0\nv -5 5 0\nvt 0 0\nvt 1 0\nvt 1 1\nvt 0 1\nvn 0 0 1\n"
                                 "g lower\nf 1/1/1 2/2/1 4/4/1\ng upper\nf 2/2/1 3/3/1 4/4/1\n";

const std::string& RedPng()
{
    static const std::string s_file = EncodePng(1, 1, k_rgb, 8, {255, 0, 0});
    return s_file;
}

class Manager3DTest : public GfxTest::CStageTest
{
protected:
    /// Draws an entity in a frame of 300 by 300 pixels, in which ten pixels are a unit, over black. The frame is half
    /// transparent, which makes no difference.
    static CPicture Draw(const EntityPtr& a_entity)
    {
        auto* const frame = new Gfx::Widgets::C3DFrame("view", 0, 0, 300, 300, false);
        frame->SetTransparency(50, false);
        const Core::SharedPtr<Gfx::Widgets::CWidget> widget(frame);
        Widgets().AddWidget(widget);
        frame->AddEntity(a_entity);
        const CPicture picture = FreshPicture();
        Widgets().DestroyWidget(frame);
        return picture;
    }

    /// The colours in the lower left and the upper right of the square.
    static std::array<CColour, 2> Colours(const EntityPtr& a_entity)
    {
        const CPicture picture = Draw(a_entity);
        return {picture.At(125, 175), picture.At(175, 125)};
    }

    /// The colours of a texture's lower left, lower right, upper left and upper right quarters.
    static std::array<CColour, 4> Quarters(const C3DManager::TexturePtr& a_texture)
    {
        const CPicture picture = Draw(EntityPtr(new CTexturedEntity("e", a_texture, GfxTest::Rectangle(5, 5))));
        return {picture.At(105, 195), picture.At(195, 195), picture.At(105, 105), picture.At(195, 105)};
    }

    /// Reads a table of models.
    void Read(const std::string& a_models)
    {
        data.Write("Models/Models.xml", a_models);
        manager.Initialise(data.Path());
    }

    GfxTest::CTemporaryDirectory data;
    C3DManager manager;
};

TEST_F(Manager3DTest, ModelsComeInTheirColoursOrWithATexture)
{
    data.Write("Models/Shapes/Square.obj", k_square);
    data.Write("Models/Shapes/Red.png", RedPng());
    data.Write("Models/Shapes/Lime.png", EncodePng(1, 1, k_rgba, 8, {0, 255, 0, 255}));
    Read(R"(<Models>
              <Ignored id="a" path="b"><Model id="c" file="d"/></Ignored>
              <Category id="Flat" path="Shapes">
                <Model id="Square" file="Square.obj">
                  <Variant id="first" file="Red.png"/>
                  <Whatever id="second" file="Lime.png" default="True" colour="Blue"/>
                  <Variant id="third" file="Red.png" default="true"/>
                  <Colour id="other" colour="Gold"/>
                  <Colour colour="Red"/>
                </Model>
                <Model id="Again" file="Square.obj"><Variant id="first" file="Red.png"/></Model>
                <Ignored id="Plain" file="Square.obj"><Colour id="c" colour="Red"/></Ignored>
              </Category>
            </Models>)");
    EXPECT_EQ(Colours(manager.GetModelColoured("Flat", "Square", "")), (std::array{Blue, Gold}));
    EXPECT_EQ(Colours(manager.GetModelColoured("Flat", "Square", Red, "")), (std::array{Red, Red}));
    EXPECT_EQ(Colours(manager.GetModelVariant("Flat", "Square", "first", "")), (std::array{Red, Red}));
    EXPECT_EQ(Colours(manager.GetModelVariant("Flat", "Square", "second", "")), (std::array{Lime, Lime}));
    EXPECT_EQ(Colours(manager.GetModelVariant("Flat", "Square", "no such", "")), (std::array{Lime, Lime}));
    EXPECT_EQ(Colours(manager.GetModelVariant("Flat", "Again", "", "")), (std::array{Red, Red}));
    EXPECT_EQ(Colours(manager.GetModelColoured("Flat", "Again", "")), (std::array{White, White}))
        << "it has no colours";
    EXPECT_EQ(manager.GetModelColoured("Flat", "Square", "")->Name(), "Flat:Square");
    EXPECT_EQ(manager.GetModelVariant("Flat", "Square", "", "mine")->Name(), "mine");
    EXPECT_NE(manager.GetModelVariant("Flat", "Square", "", ""), manager.GetModelVariant("Flat", "Square", "", ""));
    for (const char* category : {"Flat", "Square", ""})
    {
        EXPECT_EQ(manager.GetModelColoured(category, "Plain", ""), EntityPtr()) << category;
        EXPECT_EQ(manager.GetModelColoured(category, "Plain", Red, ""), EntityPtr()) << category;
        EXPECT_EQ(manager.GetModelVariant(category, "Plain", "", ""), EntityPtr()) << category;
    }
    // The model outlives the texture.
    const EntityPtr shown = manager.GetModelVariant("Flat", "Square", "", "");
    EXPECT_TRUE(manager.DeleteTexture("Flat:Square:second"));
    Draw(shown);
    EXPECT_DEATH(manager.GetModelVariant("Flat", "Square", "", "")->DrawObject(), "m_texturePtr");
}

TEST_F(Manager3DTest, TheModelsOfTheDataDirectoryAreComplete)
{
    manager.Initialise(GFX_TEST_DATA "../../data/");
    Core::IO::XMLDocument table;
    ASSERT_TRUE(table.Parse(GFX_TEST_DATA "../../data/Models/Models.xml"));
    for (const Core::IO::XMLNode& category : table.Section("Models")->Children())
    {
        const std::string id = category.Attribute("id", "");
        for (const Core::IO::XMLNode& model : category.Children())
        {
            SCOPED_TRACE(model.Attribute("id", ""));
            const EntityPtr entity = manager.GetModelColoured(id, model.Attribute("id", ""), Red, "");
            ASSERT_NE(entity, EntityPtr());
            entity->SetRotationDegrees({1, 0, 0}, 30);
            entity->SetScale(3);
            EXPECT_GT(Draw(entity).Count(Red), 100);
            for (const Core::IO::XMLNode& variant : model.Children())
            {
                const std::string key = id + ":" + model.Attribute("id", "") + ":" + variant.Attribute("id", "");
                EXPECT_EQ(manager.GetTexture(key) != C3DManager::TexturePtr(), variant.Name() == "Variant") << key;
            }
        }
    }
}

TEST_F(Manager3DTest, WhatCantBeUsedIsLoggedAndLeftOut)
{
    data.Write("Models/S/Square.obj", k_square);
    data.Write("Models/S/Red.png", RedPng());
    // The name alone says that this is binary: an empty file isn't a model.
    data.Write("Models/S/Square.bobj.obj", k_square);
    data.Write("Models/S/Damaged.png", RedPng().substr(0, 40));
    const auto in = [](const std::string& a_model)
    { return "<Models><Category id='C' path='S'>" + a_model + "</Category></Models>"; };
    const struct
    {
        std::string models;
        std::vector<const char*> lines;
    } rows[] = {
        {"<Models><Category id='' path='S'/></Models>",
         {"The id () or path (S) supplied for the category node is invalid"}},
        {"<Models><Category id='C'/></Models>", {"The id (C) or path () supplied for the category node is invalid"}},
        {in("<Model id='M'/>"), {"The id (M) or file () supplied for the model node is invalid"}},
        {in("<Model file='F'/>"), {"The id () or file (F) supplied for the model node is invalid"}},
        {in("<Model id='M' file='No.obj'><V id='v' file='Red.png'/></Model>"),
         {"An error occurred loading the model file ", "Models/S/No.obj"}},
        {in("<Model id='M' file='Square.bobj.obj'><V id='v' file='Red.png'/></Model>"),
         {"An error occurred loading the model file "}},
        {in("<Model id='M' file='Square.obj'/>"),
         {"The model M in category C has no texture variants or colours. It will not be loaded."}},
        {in("<Model id='M' file='Square.obj'><V id='v' file='No.png'/></Model>"),
         {"Failed to register texture ", "Models/S/No.png for C:M:v.", "The model M in category C has no"}},
        {in("<Model id='M' file='Square.obj'><V id='v' file='Damaged.png'/></Model>"),
         {"Damaged.png is damaged: ", "Damaged.png for C:M:v.", "The model M in category C has no"}},
        {in("<Model id='M' file='Square.obj'><V file='Red.png'/><V id='v'/></Model>"), {"has no texture variants"}},
        {"<Models><Category id='C' path='S'>", {"Models.xml"}},
        {"<Other/>", {}},
    };
    for (const auto& row : rows)
    {
        Read(row.models);
        for (const char* line : row.lines)
        {
            ExpectLog(line);
            EXPECT_GT(CountLogs(line), 0) << row.models;
        }
        EXPECT_EQ(manager.GetModelVariant("C", "M", "", ""), EntityPtr()) << row.models;
    }
    manager.Initialise("no such folder/");
    ExpectLog("no such folder/Models/Models.xml");
}

TEST_F(Manager3DTest, AReloadRenewsTexturesAndLeavesEntitiesTheirGeometry)
{
    std::string error;
    EXPECT_TRUE(manager.Reload(error)) << "nothing has been read";
    const auto table = [](const std::string& a_models)
    { return "<Models><Category id='C' path='S'>" + a_models + "</Category></Models>"; };
    const std::string variant = "<V id='v' file='V.png'/>";
    const std::string square = table("<Model id='M' file='M.obj'>" + variant + "<C id='c' colour='Gold'/></Model>");
    const auto paint = [this](int a_red, int a_green)
    {
        const Pixels pixel{static_cast<std::uint8_t>(a_red), static_cast<std::uint8_t>(a_green), 0};
        data.Write("Models/S/V.png", EncodePng(1, 1, k_rgb, 8, pixel));
    };
    data.Write("Models/S/M.obj", k_square);
    paint(255, 0);
    Read(square);
    const EntityPtr shown = manager.GetModelVariant("C", "M", "", "");
    EXPECT_EQ(Colours(shown), (std::array{Red, Red}));
    const Pixels blue{0, 0, 255};
    ASSERT_TRUE(manager.RegisterTextureBuffer(blue.data(), 1, 1, 3, "mine", 0, 0));

    // Only the lower left triangle.
    data.Write("Models/S/M.obj", std::string(k_square, std::string(k_square).find("g upper")));
    paint(0, 255);
    EXPECT_TRUE(manager.Reload(error)) << error;
    EXPECT_EQ(Colours(shown), (std::array{Lime, Lime}));
    EXPECT_EQ(Colours(manager.GetModelVariant("C", "M", "", "")), (std::array{Lime, Black}));
    EXPECT_EQ(Colours(manager.GetModelColoured("C", "M", "")), (std::array{Gold, Black}));
    EXPECT_EQ(Quarters(manager.GetTexture("mine"))[0], Blue);

    // A fault in the table leaves everything, one in a file that file's variant; entities keep what they have.
    data.Write("Models/Models.xml", "<Models>");
    EXPECT_FALSE(manager.Reload(error));
    EXPECT_NE(error.find("Models.xml"), std::string::npos) << error;
    ExpectLog("Models.xml");
    EXPECT_EQ(Colours(manager.GetModelVariant("C", "M", "v", "")), (std::array{Lime, Black}));
    data.Write("Models/Models.xml", square);
    data.Write("Models/S/M.obj", "v 0 0 0\nf 1/1/1 1/");
    EXPECT_FALSE(manager.Reload(error)) << "a face that would end the process";
    EXPECT_NE(error.find("M.obj:2:"), std::string::npos) << error;
    EXPECT_EQ(Colours(manager.GetModelVariant("C", "M", "v", "")), (std::array{Lime, Black}));
    data.Write("Models/S/M.obj", k_square);
    data.Write("Models/S/V.png", "");
    EXPECT_TRUE(manager.Reload(error));
    ExpectLog("V.png is damaged");
    ExpectLog("V.png for C:M:v.");
    EXPECT_EQ(manager.GetTexture("C:M:v"), C3DManager::TexturePtr());
    EXPECT_EQ(Colours(shown), (std::array{Lime, Lime}));
    paint(255, 255);
    EXPECT_TRUE(manager.Reload(error));
    EXPECT_EQ(Colours(shown), (std::array{Yellow, Yellow}));
    EXPECT_EQ(shown.StaticCast<CTexturedEntity>()->GetTexturePtr(), manager.GetTexture("C:M:v"));

    // Nothing is left behind of models that are gone, whether entities have them or not.
    const unsigned int id = manager.GetTexture("C:M:v")->id;
    data.Write("Models/Models.xml", table(""));
    EXPECT_TRUE(manager.Reload(error));
    EXPECT_EQ(manager.GetModelColoured("C", "M", ""), EntityPtr());
    EXPECT_EQ(Colours(shown), (std::array{Yellow, Yellow}));
    shown.StaticCast<CTexturedEntity>()->SetTexturePtr({});
    EXPECT_EQ(glIsTexture(id), GL_TRUE);
    EXPECT_TRUE(manager.Reload(error));
    EXPECT_EQ(glIsTexture(id), GL_FALSE);
}

TEST_F(Manager3DTest, PngFilesAreReadFromTheBottomUp)
{
    struct SCase
    {
        const char* name;
        std::string file;
        int result;
        bool alpha;
    };
    // Red and green above, blue and half of white below.
    const Pixels rgba{255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 255, 255, 255, 128};
    const Pixels rgb{255, 0, 0, 0, 255, 0, 0, 0, 255, 255, 255, 255};
    const SCase rows[] = {
        {"rgb", EncodePng(2, 2, k_rgb, 8, rgb), 0, false},
        {"rgba", EncodePng(2, 2, k_rgba, 8, rgba), 0, true},
        {"interlaced", EncodePng(2, 2, k_rgba, 8, rgba, true), 0, true},
        {"grey", EncodePng(2, 2, 0, 8, rgb), -1, false},
        {"16 bits", EncodePng(1, 2, k_rgb, 16, rgb), -1, false},
        {"empty", "", -1, false},
    };
    ExpectLog("empty is damaged");
    for (const SCase& row : rows)
    {
        const std::string path = data.Write(row.name, row.file);
        unsigned int id = 0;
        bool alpha = false;
        ASSERT_EQ(manager.LoadTextureFromFile(path.c_str(), &id, alpha, 0, 1), row.result) << row.name;
        EXPECT_EQ(id != 0, row.result == 0) << row.name;
        EXPECT_EQ(alpha, row.alpha) << row.name;
        ASSERT_EQ(manager.RegisterTexture(path, row.name), row.result == 0) << row.name;
        if (row.result == 0)
        {
            const CColour last = row.alpha ? CColour(128, 128, 128, 255) : White;
            EXPECT_EQ(Quarters(C3DManager::TexturePtr(new Gfx::STexture{id, alpha})),
                      (std::array{Blue, last, Red, Lime}))
                << row.name;
            EXPECT_FALSE(manager.RegisterTexture(path, row.name)) << "the key is taken";
        }
    }
    EXPECT_EQ(manager.GetTexture("grey"), C3DManager::TexturePtr());
    // Rows of nine bytes.
    const std::string odd = data.Write(
        "odd.png", EncodePng(3, 2, k_rgb, 8, {255, 0, 0, 0, 0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255, 255, 255}));
    unsigned int id = 0;
    bool alpha = false;
    ASSERT_EQ(manager.LoadTextureFromFile(odd.c_str(), &id, alpha, 0, 0), 0);
    EXPECT_EQ(Quarters(C3DManager::TexturePtr(new Gfx::STexture{id, alpha})), (std::array{Blue, White, Red, Lime}));
}

TEST_F(Manager3DTest, DamagedPngFilesLeaveNothingBehind)
{
    const auto openFiles = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator());
    };
    Pixels pixels(16 * 16 * 4);
    std::mt19937 engine(84);
    std::generate(pixels.begin(), pixels.end(), [&] { return static_cast<std::uint8_t>(engine()); });
    const std::string whole = EncodePng(16, 16, k_rgba, 8, pixels);
    std::vector<std::string> files;
    for (std::size_t size = 0; size < whole.size(); size += 9)
    {
        files.push_back(whole.substr(0, size));
    }
    for (int i = 0; i < 300; ++i)
    {
        files.push_back(whole);
        for (unsigned int flips = engine() % 4 + 1; flips > 0; --flips)
        {
            files.back()[engine() % whole.size()] ^= static_cast<char>(1U << engine() % 8);
        }
        files.emplace_back(engine() % 200, '\0');
        std::generate(files.back().begin(), files.back().end(), [&] { return static_cast<char>(engine()); });
        files.back().replace(0, std::min<std::size_t>(8, files.back().size()), whole, 0, 8 * (i % 2));
    }
    // A claim of eight thousand pixels a side, and of a million.
    for (const char* size : {"\0\0\x20\0", "\0\x0F\x42\x40"})
    {
        files.push_back(whole);
        files.back().replace(16, 8, std::string(size, 4) + std::string(size, 4));
    }
    ExpectLog("is damaged");
    const auto before = openFiles();
    for (const std::string& file : files)
    {
        const std::string path = data.Write("damaged" + std::to_string(&file - files.data()), file);
        const int lines = CountLogs("is damaged");
        unsigned int id = 0;
        bool alpha = false;
        const int result = manager.LoadTextureFromFile(path.c_str(), &id, alpha, 0, 0);
        EXPECT_TRUE(result == 0 || result == -1);
        EXPECT_LE(CountLogs("is damaged"), lines + (result == 0 ? 0 : 1));
        EXPECT_EQ(id != 0, result == 0);
    }
    bool alpha = false;
    unsigned int id = 0;
    EXPECT_EQ(manager.LoadTextureFromFile(data.Path().c_str(), &id, alpha, 0, 0), -1);
    EXPECT_EQ(manager.LoadTextureFromFile("no such file", &id, alpha, 0, 0), -1);
    EXPECT_EQ(manager.LoadTextureFromFile(nullptr, &id, alpha, 0, 0), -1);
    EXPECT_EQ(openFiles(), before);
}

TEST_F(Manager3DTest, TexturesAreMadeOfPixelsAndChangedByThem)
{
    // Exactly as large as their rows are, of nine bytes each; from the bottom up.
    const auto pixels = std::make_unique<unsigned char[]>(18);
    std::generate_n(pixels.get(), 18, [i = 0]() mutable { return i++ % 3 == 0 ? 255 : 0; });
    ASSERT_TRUE(manager.RegisterTextureBuffer(pixels.get(), 3, 2, 3, "a", 0, 1));
    EXPECT_EQ(Quarters(manager.GetTexture("a")), (std::array{Red, Red, Red, Red}));
    const auto texture = manager.GetTexture("a");
    EXPECT_FALSE(texture->alpha);
    const std::array<unsigned char, 8> two{0, 255, 0, 255, 0, 0, 255, 255};
    EXPECT_TRUE(manager.UpdateTextureBuffer(two.data(), 2, 0, 1, 2, 4, "a"));
    EXPECT_EQ(Quarters(manager.GetTexture("a")), (std::array{Red, Lime, Red, Blue}));
    EXPECT_TRUE(manager.RegisterTextureBuffer(two.data(), 1, 2, 4, "a", 0, 1));
    EXPECT_EQ(Quarters(manager.GetTexture("a")), (std::array{Lime, Lime, Blue, Blue}));
    EXPECT_EQ(manager.GetTexture("a"), texture) << "it is the same as before";
    EXPECT_TRUE(texture->alpha);

    // Nothing of this changes anything.
    EXPECT_TRUE(manager.UpdateTextureBuffer(two.data(), 2, 1, 2, 1, 4, "a"));
    EXPECT_TRUE(manager.UpdateTextureBuffer(two.data(), -1, 0, 2, 1, 4, "a"));
    EXPECT_TRUE(manager.UpdateTextureBuffer(two.data(), 0, 0, -1, 1, 4, "a"));
    constexpr int limit = std::numeric_limits<int>::max();
    EXPECT_TRUE(manager.UpdateTextureBuffer(two.data(), limit, 0, 1, 1, 4, "a"));
    EXPECT_TRUE(manager.UpdateTextureBuffer(two.data(), 0, limit, 1, 1, 4, "a"));
    EXPECT_FALSE(manager.UpdateTextureBuffer(two.data(), 0, 0, 1, 2, 2, "a"));
    EXPECT_FALSE(manager.UpdateTextureBuffer(nullptr, 0, 0, 1, 2, 4, "a"));
    EXPECT_FALSE(manager.UpdateTextureBuffer(two.data(), 0, 0, 1, 2, 4, "b"));
    EXPECT_FALSE(manager.RegisterTextureBuffer(two.data(), 2, 2, 2, "a", 0, 1));
    EXPECT_FALSE(manager.RegisterTextureBuffer(two.data(), 2, 2, 2, "b", 0, 1));
    EXPECT_FALSE(manager.RegisterTextureBuffer(nullptr, 2, 2, 4, "a", 0, 1));
    EXPECT_EQ(manager.GetTexture("b"), C3DManager::TexturePtr());
    EXPECT_EQ(Quarters(manager.GetTexture("a")), (std::array{Lime, Lime, Blue, Blue}));

    // Of alpha alone it takes the entity's colour.
    const std::array<unsigned char, 4> alphas{255, 0, 128, 255};
    ASSERT_TRUE(manager.RegisterTextureBuffer(alphas.data(), 2, 2, 1, "alpha", 0, 1));
    EXPECT_EQ(Quarters(manager.GetTexture("alpha")), (std::array{White, Black, CColour(128, 128, 128, 255), White}));

    C3DManager::TexturePtr deleted = texture;
    EXPECT_TRUE(manager.DeleteTexture(deleted));
    EXPECT_FALSE(manager.DeleteTexture(deleted));
    deleted.Reset();
    EXPECT_FALSE(manager.DeleteTexture(deleted));
    EXPECT_TRUE(manager.DeleteTexture("a"));
    EXPECT_EQ(manager.GetTexture("a"), C3DManager::TexturePtr());
    EXPECT_TRUE(manager.RegisterTextureBuffer(pixels.get(), 3, 2, 3, "a", 1, 0));
}

TEST_F(Manager3DTest, GeometryIsCopied)
{
    const auto square = GfxTest::Rectangle(3, 2);
    const auto copy = manager.ConvertGeometry(square->texCoords, square->vertices, 7, Gfx::egtLines);
    EXPECT_EQ(copy->texCoords, square->texCoords);
    EXPECT_EQ(copy->vertices, square->vertices);
    EXPECT_EQ(copy->extent, 7);
    EXPECT_EQ(copy->type, Gfx::egtLines);
    EXPECT_TRUE(manager.ConvertGeometry(square->vertices, 7, Gfx::egtLines)->texCoords.empty());
}

} // namespace
