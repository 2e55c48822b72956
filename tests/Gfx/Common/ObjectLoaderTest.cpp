#include "Gfx/Common/ObjectLoader.h"

#include "support/LogGuard.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace
{

using Gfx::Managers::CObjectLoader;

constexpr float k_infinity = std::numeric_limits<float>::infinity();

/// Positions 1 to 5, whose x is their number, and as many texture coordinates with a u of 10 times that.
const std::string k_points = "v 1 0 0\nv 2 0 0\nv 3 0 0\nv 4 0 0\nv 5 0 0\n"
                             "vt 10 0\nvt 20 0\nvt 30 0\nvt 40 0\nvt 50 0\n";

class ObjectLoaderTest : public testing::Test
{
protected:
    Gfx::GeometryPtrList Load(const std::string& a_text) const
    {
        return CObjectLoader::LoadObjectFile(m_folder.Write("model.obj", a_text));
    }

    /// The corners of the triangles as x/u, in brackets for each group.
    std::string Loaded(const std::string& a_text) const
    {
        std::ostringstream out;
        for (const auto& group : Load(a_text))
        {
            EXPECT_EQ(group->vertices.size(), group->texCoords.size());
            EXPECT_EQ(group->type, Gfx::egtTriangles);
            out << '(';
            for (std::size_t i = 0; i < group->vertices.size(); ++i)
            {
                out << (i == 0 ? "" : i % 3 == 0 ? ", " : " ") << group->vertices[i].x << '/' << group->texCoords[i].x;
            }
            out << ')';
        }
        return out.str();
    }

    GfxTest::CTemporaryDirectory m_folder;
};

TEST_F(ObjectLoaderTest, LinesMakeTrianglesAndGroups)
{
    const struct
    {
        const char* lines;
        const char* groups;
    } cases[] = {
        {"", "()"},
        {"f 1/2/9 2/3/9 3/4/9", "(1/20 2/30 3/40)"},
        {"f 1/1/1 2/2/2 3/3/3 4/4/4 5/5/5\n", "(1/10 3/30 4/40, 1/10 2/20 3/30)"},
        // A corner that can't be read takes its triangles along.
        {"f 1/1/1 2/2/2 3/3/3 \n", "(1/10 2/20 3/30)"},
        {"f 1/1/1 2/2/2 3/3/3 4/4\n", "(1/10 2/20 3/30)"},
        {"f 1/1/1 2/2 3/3/3 4/4/4\n", "(1/10 3/30 4/40)"},
        {"f 1/1 2/2 3/3\nf 1 2 3\nf 1//1 2//2 3//3\nf a b c\nf 1 /1/1 2/2/2 3/3/3\n", "()"},
        // A corner begins behind each blank, and numbers may have blanks before them.
        {"f  1/1/1 2/2/2 3/3/3\n", "(1/10 2/20 3/30, 1/10 1/10 2/20)"},
        {"f \t1/+1/1 2/\t2/2 3/3/3\r\n", "(1/10 2/20 3/30)"},
        // Indices that there aren't.
        {"f 0/1/1 2/2/2 3/3/3\nf -1/1/1 2/2/2 3/3/3\nf 6/1/1 2/2/2 3/3/3\nf 1/6/1 2/2/2 3/3/3\n", "()"},
        {"f 99999999999/1/1 2/2/2 3/3/3\nf -2147483648/1/1 2/2/2 3/3/3\nf 2147483647/1/1 2/2/2 3/3/3\n", "()"},
        {"f 1/1/-7 2/2/0 3/3/99999999999\n", "(1/10 2/20 3/30)"},
        // But they may come later, until the group ends.
        {"f 6/1/1 2/2/2 3/3/3\nv 6 0 0\n", "(6/10 2/20 3/30)"},
        {"g a\nf 6/1/1 2/2/2 3/3/3\ng b\nv 6 0 0\n", "()()"},
        // The first group takes the faces before it.
        {"f 1/1/1 2/2/2 3/3/3\ng a\nf 2/2/2 3/3/3 4/4/4\ng b c\ng \nf 5/5/5 4/4/4 3/3/3\n",
         "(1/10 2/20 3/30, 2/20 3/30 4/40)()(5/50 4/40 3/30)"},
        {"g\nf 1/1/1 2/2/2 3/3/3\ngroup\n f\nF 1/1/1 2/2/2 3/3/3\n# f\nvp 1 2 3\nl 1 2\n", "(1/10 2/20 3/30)"},
        {"vn 1 2 3\nv 1 2\nv x 2 3\nv 9 8 7 6 junk\nvt 1\nf 6/1/1 1/1/1 1/1/1\n", "(9/10 1/10 1/10)"},
    };
    for (const auto& example : cases)
    {
        EXPECT_EQ(Loaded(k_points + example.lines), example.groups) << example.lines;
    }
}

TEST_F(ObjectLoaderTest, AFaceOfTwoCornersIsBadDataOfADeveloper)
{
    EXPECT_DEATH((void)Load(k_points + "f 1/1/1 2/2/2\n"), "vertexIndex >= 3");
    EXPECT_DEATH((void)Load(std::string("f 1/1/1 2/2/2\0 3/3/3\n", 22)), "vertexIndex >= 3");
}

TEST_F(ObjectLoaderTest, NumbersAreReadAsTheCLibraryReadsThem)
{
    const struct
    {
        const char* number;
        float value;
    } cases[] = {{"1.5", 1.5F},          {"+.25", 0.25F},       {"-3.", -3},
                 {"12e-1", 1.2F},        {"\t\v7E+2", 700},     {"0.1000000001", 0.1F},
                 {"-1e60", -k_infinity}, {"1e999", k_infinity}, {"1e-60", 0},
                 {"-1e-999", 0},         {"1e-40", 1e-40F},     {"inf", k_infinity},
                 {"16777217", 16777216}, {"-0x1.8p1", -3},      {"+3e", 3}};
    for (const auto& example : cases)
    {
        const auto groups = Load("v 0 " + std::string(example.number) + " 0\nvt 0 0\nf 1/1/1 1/1/1 1/1/1");
        ASSERT_EQ(groups.front()->vertices.size(), 3U) << example.number;
        EXPECT_EQ(groups.front()->vertices[0].y, example.value) << example.number;
        EXPECT_EQ(groups.front()->extent, std::max(std::abs(example.value), std::numeric_limits<float>::min()));
    }
    EXPECT_EQ(Loaded("v nan 0 0\nvt 0 0\nf 1/1/1 1/1/1 1/1/1"), "(nan/0 nan/0 nan/0)");
    EXPECT_EQ(Load("v nan 0 0").front()->extent, std::numeric_limits<float>::min());
    for (const char* number : {"", "-", "+-1", "e5", "--1", ".", "0x", "infi"})
    {
        EXPECT_EQ(Loaded("v " + std::string(number) + "\nv 1 2 3\nvt 0 0\nf 1/1/1 1/1/1 1/1/1"), "(1/0 1/0 1/0)")
            << number;
    }
}

TEST_F(ObjectLoaderTest, FilesThatAreNoModels)
{
    EXPECT_TRUE(CObjectLoader::LoadObjectFile(m_folder.Path() + "missing").empty());
    EXPECT_EQ(CObjectLoader::LoadObjectFile(m_folder.Path()).size(), 1U);

    GfxTest::ExpectLog("larger than models may be");
    const std::string path = m_folder.Write("large.obj", "g ");
    std::filesystem::resize_file(path, Gfx::k_largestModelFile + 1);
    EXPECT_TRUE(CObjectLoader::LoadObjectFile(path).empty());
    std::filesystem::resize_file(path, Gfx::k_largestModelFile);
    EXPECT_EQ(CObjectLoader::LoadObjectFile(path).size(), 1U);

    std::string groups;
    while (groups.size() < Gfx::k_mostModelGroups * 3)
    {
        groups += "g \n";
    }
    EXPECT_EQ(Load(groups).size(), Gfx::k_mostModelGroups);
    EXPECT_TRUE(Load(groups + "g \n").empty());
    EXPECT_EQ(GfxTest::CountLogs("larger than models may be"), 2);
}

TEST_F(ObjectLoaderTest, OfALineBeyondTheLimitTheRestIsLeftOut)
{
    const std::string padding(70'000, '.');
    EXPECT_EQ(Loaded("#" + padding + "\n" + k_points + "f 1/1/1 2/2/2 3/3/3 4/4/4 " + padding + padding +
                     "v 9 9 9\nv 6 0 0\nf 6/1/1 6/1/1 6/1/1"),
              "(1/10 3/30 4/40, 1/10 2/20 3/30, 6/10 6/10 6/10)");
}

TEST_F(ObjectLoaderTest, AnyTextIsSafe)
{
    // Cut so that no face is left with fewer than three corners, which isn't safe, but ends the process.
    const std::string model = k_points + "g a\nf 1/1/1 2/2/2 3/3/3 4/4/4\ng b\nf 5/5/5 4/4/4 3/3/3\n";
    for (std::size_t size = 0; size < model.size(); ++size)
    {
        const std::string text = model.substr(0, size);
        const std::string last = text.substr(text.rfind('\n') + 1);
        if (!last.starts_with("f ") || std::count(last.begin(), last.end(), ' ') >= 3)
        {
            EXPECT_EQ(Load(text).size(), size < model.find("\ng b") + 3 ? 1U : 2U) << size;
        }
    }
    std::mt19937 random(82);
    const std::vector<std::string> lines{"\nf 1/1/1 2/2/2 3", "\nf 4/4/4 5/5/5 4/4/4 ", "\nv 1 2 3", "\nvt 1", "\ng "};
    const std::string characters = "/-+.e \t\rinfanv123999\xFF" + std::string(1, '\0');
    for (int i = 0; i < 500; ++i)
    {
        std::string text = k_points + "#";
        for (std::size_t length = random() % 200; length > 0; --length)
        {
            text += random() % 8 == 0 ? lines[random() % lines.size()]
                                      : std::string(1, characters[random() % characters.size()]);
        }
        for (const auto& group : Load(text))
        {
            EXPECT_EQ(group->vertices.size() % 3, 0U);
        }
    }
}

} // namespace
