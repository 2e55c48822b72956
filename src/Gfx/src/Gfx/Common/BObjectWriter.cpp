#include "Gfx/Common/BObjectWriter.h"

#include "Core/Logging/Logger.h"
#include "Core/StaticSingleton.h"
#include "Gfx/Common/BObjectFormat.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <map>
#include <span>
#include <vector>

namespace Gfx
{

namespace
{

using namespace BObjectFormat;

/// Items of N floats, each kept once. Floats are told apart by their bits.
template <std::size_t N>
class CItems
{
public:
    using Item = std::array<std::uint32_t, N>;

    /// The item's number, from 1.
    std::uint32_t NumberOf(const std::array<float, N>& a_numbers)
    {
        const auto item = std::bit_cast<Item>(a_numbers);
        const auto [found, isNew] = m_numbers.try_emplace(item, static_cast<std::uint32_t>(m_numbers.size()) + 1);
        if (isNew)
        {
            m_pending.push_back(item);
        }
        return found->second;
    }

    /// The items that are new since the last call.
    std::vector<Item> TakePending() { return std::exchange(m_pending, {}); }

private:
    std::map<Item, std::uint32_t> m_numbers;
    std::vector<Item> m_pending;
};

/// A model as the bytes of its file.
class CFile
{
public:
    CFile()
    {
        AddRecords(etNormal, std::vector<std::array<std::uint32_t, 3>>{{0, 0, std::bit_cast<std::uint32_t>(1.0F)}});
    }

    void Add(const SGeometry& a_group)
    {
        constexpr std::uint32_t normal = 1;
        std::vector<std::array<std::uint32_t, k_triangleNumbers>> triangles(a_group.vertices.size() / 3);
        for (std::size_t i = 0; i < triangles.size() * 3; ++i)
        {
            const auto& vertex = a_group.vertices[i];
            const auto texCoord = i < a_group.texCoords.size() ? a_group.texCoords[i] : Core::Maths::Vector2<float>();
            std::uint32_t* const corner = triangles[i / 3].data() + i % 3 * 3;
            corner[0] = m_positions.NumberOf({vertex.x, vertex.y, vertex.z});
            corner[1] = m_texCoords.NumberOf({texCoord.x, texCoord.y});
            corner[2] = normal;
            Raise(vertex.x);
            Raise(vertex.y);
            Raise(vertex.z);
        }
        if (a_group.extent > m_extent)
        {
            // The group's extent comes from positions that no triangle of it uses.
            m_positions.NumberOf({a_group.extent, 0, 0});
            Raise(a_group.extent);
        }
        if (triangles.empty())
        {
            // A record has one item at least: one that the loader drops.
            triangles.emplace_back();
        }
        AddRecords(etPosition, m_positions.TakePending());
        AddRecords(etTexCoord, m_texCoords.TakePending());
        AddRecords(etTriangle, triangles);
    }

    [[nodiscard]] const std::vector<std::uint8_t>& Bytes() const { return m_bytes; }

private:
    template <std::size_t N>
    void AddRecords(ETag a_tag, std::span<const std::array<std::uint32_t, N>> a_items)
    {
        while (!a_items.empty())
        {
            const auto items = a_items.first(std::min<std::size_t>(a_items.size(), k_largestCount));
            m_bytes.push_back(a_tag);
            Add(static_cast<std::uint32_t>(items.size()));
            for (const auto& item : items)
            {
                std::for_each(item.begin(), item.end(), [this](std::uint32_t a_number) { Add(a_number); });
            }
            a_items = a_items.subspan(items.size());
        }
    }

    template <std::size_t N>
    void AddRecords(ETag a_tag, const std::vector<std::array<std::uint32_t, N>>& a_items)
    {
        AddRecords(a_tag, std::span<const std::array<std::uint32_t, N>>(a_items));
    }

    void Add(std::uint32_t a_number)
    {
        for (std::size_t i = 0; i < k_numberSize; ++i)
        {
            const std::size_t significance = k_endianness == Core::IO::CDataBuffer::eeLittle ? i : k_numberSize - 1 - i;
            m_bytes.push_back(static_cast<std::uint8_t>(a_number >> (8 * significance)));
        }
    }

    void Raise(float a_coordinate) { m_extent = std::max(m_extent, std::abs(a_coordinate)); }

    CItems<k_positionNumbers> m_positions;
    CItems<k_texCoordNumbers> m_texCoords;
    /// As the loader reckons it.
    float m_extent = std::numeric_limits<float>::min();
    std::vector<std::uint8_t> m_bytes;
};

bool Fail(const std::string& a_path, const char* a_reason)
{
    Core::Patterns::StaticSingleton<Core::Logging::CLogger>::ref().Log(
        Core::Logging::elMessage, "Gfx", "The model can't be written to %s: %s", a_path.c_str(), a_reason);
    return false;
}

} // namespace

bool WriteBObjectFile(const std::string& a_path, const GeometryPtrList& a_groups)
{
    if (a_groups.size() > k_mostModelGroups)
    {
        return Fail(a_path, "it has too many groups");
    }
    CFile file;
    for (const auto& group : a_groups)
    {
        if (!group || group->type != egtTriangles)
        {
            return Fail(a_path, "it has a group that isn't of triangles");
        }
        if (group->vertices.size() / 3 > k_largestCount)
        {
            return Fail(a_path, "it has a group of too many triangles");
        }
        file.Add(*group);
        if (file.Bytes().size() > k_largestModelFile)
        {
            return Fail(a_path, "it is too large");
        }
    }
    std::FILE* const out = std::fopen(a_path.c_str(), "wb");
    if (out == nullptr)
    {
        return Fail(a_path, "the file can't be opened");
    }
    const bool isWritten = std::fwrite(file.Bytes().data(), 1, file.Bytes().size(), out) == file.Bytes().size();
    if (std::fclose(out) != 0 || !isWritten)
    {
        std::remove(a_path.c_str());
        return Fail(a_path, "the file can't be written");
    }
    return true;
}

} // namespace Gfx
