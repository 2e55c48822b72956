#include "Gfx/Common/BObjectLoader.h"

#include "Gfx/Common/BObjectWriter.h"
#include "support/LogGuard.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace
{

using Core::Maths::Vector2;
using Core::Maths::Vector3;
using Gfx::GeometryPtrList;
using Gfx::Managers::CBObjectLoader;
using Gfx::Managers::CObjectLoader;

/// The lowest byte first.
template <typename T = float>
std::string Numbers(const std::vector<T>& a_numbers)
{
    std::string bytes;
    for (const T number : a_numbers)
    {
        for (int shift = 0; shift < 32; shift += 8)
        {
            bytes += static_cast<char>(std::bit_cast<std::uint32_t>(number) >> shift);
        }
    }
    return bytes;
}

std::string Header(char a_tag, std::int32_t a_count)
{
    return a_tag + Numbers<int>({a_count});
}

/// Triangles of three corners with the same number for vertex, texture coordinate and normal.
std::string Triangles(const std::vector<std::int32_t>& a_corners)
{
    std::string bytes;
    for (const std::int32_t corner : a_corners)
    {
        bytes += Numbers(std::vector{corner, corner, corner});
    }
    return bytes;
}

/// Three of each, with x from 1 to 3.
const std::string k_points = Header('v', 3) + Numbers({1, 0, 0, 2, 0, 0, 3, 0, -4}) + Header('t', 3) +
                             Numbers({0.1F, 0, 0.2F, 0, 0.3F, 0}) + Header('n', 1) + Numbers({0, 0, 1});

class BObjectLoaderTest : public testing::Test
{
protected:
    GeometryPtrList Load(const std::string& a_bytes) const
    {
        return CBObjectLoader::LoadObjectFile(m_folder.Write("model.bobj", a_bytes));
    }

    /// The x of all vertices, with a bar before each group.
    std::string Loaded(const std::string& a_bytes) const
    {
        std::string loaded;
        for (const auto& group : Load(a_bytes))
        {
            loaded += '|';
            for (const auto& vertex : group->vertices)
            {
                loaded += std::to_string(static_cast<int>(vertex.x));
            }
            EXPECT_EQ(group->texCoords.size(), group->vertices.size());
        }
        return loaded;
    }

    GfxTest::CTemporaryDirectory m_folder;
};

TEST_F(BObjectLoaderTest, RecordsMakeGroups)
{
    const std::string more = Header('v', 1) + Numbers({6, 0, -9}) + Header('t', 1) + Numbers({0.6F, 0});
    const struct
    {
        std::string bytes;
        const char* groups;
    } cases[] = {
        {"", ""},
        {k_points, ""},
        {k_points + Header('f', 2) + Triangles({1, 2, 3, 3, 2, 1}), "|123321"},
        {k_points + Header('f', 1) + Triangles({1, 2, 3}) + more + Header('f', 1) + Triangles({4, 1, 3}), "|123|613"},
        // Later items are no part of an earlier group.
        {k_points + Header('f', 2) + Triangles({4, 1, 3, 2, 2, 3}) + more, "|223"},
        {k_points + Header('f', 3) + Triangles({1, 2, 0, 3, 3, 3, -7, 1, 1}), "|333"},
        {k_points + Header('f', 1) + Triangles({std::numeric_limits<std::int32_t>::min(), 1, 1}), "|"},
        {k_points + Header('f', 1) + Triangles({std::numeric_limits<std::int32_t>::max(), 1, 1}), "|"},
        // Vertex, texture coordinate and normal; normals need only be above 0.
        {k_points + Header('f', 1) + Numbers<int>({1, 3, 99}) + Triangles({2, 3}), "|123"},
        {k_points + Header('f', 1) + Numbers<int>({1, 4, 1}) + Triangles({2, 3}), "|"},
        {k_points + Header('f', 1) + Numbers<int>({1, 1, 0}) + Triangles({2, 3}), "|"},
        // Headers that are passed over alone, so that what follows is a record again.
        {Header('v', 0) + Header('f', -1) + Header('t', 200'001) + k_points + Header('x', 5) + Header('f', 1) +
             Triangles({1, 2, 3}),
         "|123"},
        {k_points + Header('x', 1) + Header('f', 1) + Triangles({1, 1, 1}) + Header('f', 1).substr(0, 4), "|111"},
        // Claims beyond the end of the file.
        {k_points + Header('f', 3) + Triangles({1, 1, 1, 2, 2, 2, 3, 3}), "|111222"},
        {k_points + Header('f', 1), "|"},
        {k_points + Header('f', 1) + Triangles({1, 1, 1}) + Header('v', 200'000) + Header('f', 1), "|111"},
    };
    for (const auto& example : cases)
    {
        EXPECT_EQ(Loaded(example.bytes), example.groups) << (&example - cases);
    }
}

TEST_F(BObjectLoaderTest, ALargestRecordIsReadAndExtentsGrow)
{
    std::vector<float> numbers(std::size_t{3} * 200'000, 0.5F);
    numbers.back() = -7;
    const auto groups = Load(k_points + Header('f', 1) + Triangles({1, 2, 3}) + Header('v', 200'000) +
                             Numbers(numbers) + Header('f', 1) + Numbers<int>({200'003, 1, 1}) + Triangles({1, 1}));
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_EQ(groups.front()->extent, 4);
    EXPECT_EQ(groups.back()->extent, 7);
    ASSERT_EQ(groups.back()->vertices.size(), 3U);
    EXPECT_EQ(groups.back()->vertices[0], Vector3<float>(0.5F, 0.5F, -7));
    EXPECT_EQ(groups.back()->texCoords[0], Vector2<float>(0.1F, 0));
    EXPECT_EQ(Load(Header('f', 1) + Triangles({1, 1, 1})).front()->extent, std::numeric_limits<float>::min());
}

TEST_F(BObjectLoaderTest, AnyBytesAreSafe)
{
    const std::string model = k_points + Header('f', 1) + Triangles({1, 2, 3}) + Header('v', 1) + Numbers({5, 0, 0}) +
                              Header('f', 1) + Triangles({3, 2, 1});
    for (std::size_t size = 0; size < model.size(); ++size)
    {
        const std::size_t groups = size < k_points.size() + 5 ? 0 : size < model.size() - 36 ? 1 : 2;
        EXPECT_EQ(Load(model.substr(0, size)).size(), groups) << size;
    }
    std::mt19937 random(83);
    for (int i = 0; i < 500; ++i)
    {
        std::string bytes = model;
        for (std::size_t changes = i % 2 == 0 ? 1 + random() % 5 : bytes.size() * 2; changes > 0; --changes)
        {
            bytes[random() % bytes.size()] = "vntf\0\0\0\1\2\3\x7F\x80\xFF"[random() % 13];
        }
        for (const auto& group : Load(bytes))
        {
            EXPECT_EQ(group->vertices.size() % 3, 0U);
        }
    }
}

TEST_F(BObjectLoaderTest, FilesThatAreNoModels)
{
    EXPECT_TRUE(CBObjectLoader::LoadObjectFile(m_folder.Path() + "missing").empty());
    EXPECT_TRUE(CBObjectLoader::LoadObjectFile(m_folder.Path()).empty());
    GfxTest::ExpectLog("larger than models may be");
    const std::string path = m_folder.Write("large.bobj", "");
    std::filesystem::resize_file(path, Gfx::k_largestModelFile + 1);
    EXPECT_TRUE(CBObjectLoader::LoadObjectFile(path).empty());
    EXPECT_EQ(GfxTest::CountLogs("larger than models may be"), 1);
}

/// What makes two models the same.
std::vector<float> NumbersOf(const GeometryPtrList& a_groups)
{
    std::vector<float> numbers;
    for (const auto& group : a_groups)
    {
        numbers.insert(numbers.end(), {group->extent, static_cast<float>(group->vertices.size())});
        for (std::size_t i = 0; i < group->vertices.size(); ++i)
        {
            const auto& vertex = group->vertices[i];
            numbers.insert(numbers.end(), {vertex.x, vertex.y, vertex.z, group->texCoords[i].x, group->texCoords[i].y});
        }
    }
    return numbers;
}

TEST_F(BObjectLoaderTest, WhatIsWrittenIsReadBack)
{
    // With an empty group, extents that no triangle accounts for, and points that several triangles share.
    const std::string text = "v -1 0 0\nv 2 -0 0.125\nv 3 1e-30 0\nv 70 0 0\nvt 0 0.5\nvt 1 2\nf 1/1/1 2/2/2 3/1/1\n"
                             "f 3/2/1 2/2/2 1/2/1\ng a\ng b\nv 0 -80 0\ng c\nf 5/1/1 2/1/1 1/2/2 3/2/2\n";
    const auto groups = CObjectLoader::LoadObjectFile(m_folder.Write("model.obj", text));
    const std::string path = m_folder.Path() + "written.bobj";
    ASSERT_TRUE(Gfx::WriteBObjectFile(path, groups));
    const auto readBack = CBObjectLoader::LoadObjectFile(path);
    EXPECT_EQ(NumbersOf(readBack), NumbersOf(groups));
    EXPECT_EQ(readBack.front()->extent, 70);
    const Gfx::SGeometrySummary summary = Gfx::Summarise(readBack);
    EXPECT_EQ(summary.groups, 3U);
    EXPECT_EQ(summary.triangles, 4U);
    EXPECT_EQ(summary.extent, 80);
    // Five bytes a record: 1 normal, 5 positions and 2 texture coordinates in all, 2, 1 (dropped) and 2 triangles.
    EXPECT_LE(std::filesystem::file_size(path), 8U * 5 + 12 + 6 * 12 + 2 * 8 + 5 * 36);

    const GeometryPtrList plain{Gfx::MakeGeometry({}, {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}, 9, Gfx::egtTriangles)};
    ASSERT_TRUE(Gfx::WriteBObjectFile(path, plain));
    EXPECT_EQ(CBObjectLoader::LoadObjectFile(path).front()->texCoords, std::vector<Vector2<float>>(3));
    std::ifstream file(path, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}),
              Header('n', 1) + Numbers({0, 0, 1}) + Header('v', 3) + Numbers({1, 2, 3, 4, 5, 6, 7, 8, 9}) +
                  Header('t', 1) + Numbers({0, 0}) + Header('f', 1) + Numbers<int>({1, 1, 1, 2, 1, 1, 3, 1, 1}));
}

TEST_F(BObjectLoaderTest, WhatTheFormatCannotHoldIsNotWritten)
{
    GfxTest::ExpectLog("The model can't be written to ");
    const std::string path = m_folder.Path() + "none.bobj";
    const std::vector<Vector3<float>> tooMany(std::size_t{3} * 200'001);
    EXPECT_FALSE(Gfx::WriteBObjectFile(path, {Gfx::MakeGeometry({}, tooMany, 1, Gfx::egtTriangles)}));
    EXPECT_FALSE(Gfx::WriteBObjectFile(path, {Gfx::MakeGeometry({}, {}, 1, Gfx::egtLines)}));
    EXPECT_FALSE(Gfx::WriteBObjectFile(path, {{}}));
    EXPECT_FALSE(Gfx::WriteBObjectFile(m_folder.Path() + "no/such/folder", {}));
    EXPECT_EQ(GfxTest::CountLogs("The model can't be written to "), 4);
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(AddNewGroupTest, IndicesOutsideTheArraysDropTheirTriangle)
{
    const std::vector<Vector3<float>> vertices{{1, 0, 0}, {2, 0, 0}, {3, 0, 0}};
    const std::vector<Vector2<float>> texCoords{{4, 5}};
    const std::vector<CBObjectLoader::STriFace> faces{
        {{0, 1, 3}, {}, {}}, {{0, -1, 2}, {}, {}}, {{0, 1, 2}, {0, 0, 1}, {}}, {{2, 1, 0}, {}, {9, 9, 9}}};
    GeometryPtrList groups;
    CBObjectLoader::AddNewGroup(groups, faces, vertices, texCoords, 3);
    CObjectLoader::AddNewGroup(groups, {}, vertices, texCoords, 4);
    EXPECT_EQ(NumbersOf(groups), (std::vector<float>{3, 3, 3, 0, 0, 4, 5, 2, 0, 0, 4, 5, 1, 0, 0, 4, 5, 4, 0}));
}

} // namespace
