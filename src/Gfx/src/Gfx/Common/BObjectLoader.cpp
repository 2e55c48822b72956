#include "Gfx/Common/BObjectLoader.h"

#include "Core/IO/DataBuffer.h"
#include "Gfx/Common/BObjectFormat.h"
#include "Gfx/Common/GroupBuilder.h"

#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <limits>
#include <memory>
#include <span>
#include <utility>

namespace Gfx::Managers
{

namespace
{

using namespace BObjectFormat;

using Core::IO::CDataBuffer;
using Core::Maths::Vector2;
using Core::Maths::Vector3;

using Bytes = std::span<const std::uint8_t>;

static_assert(sizeof(Vector3<float>) == k_positionNumbers * k_numberSize);
static_assert(sizeof(Vector2<float>) == k_texCoordNumbers * k_numberSize);

/// The items of one kind, where they lie in the file: copies would add a sixth to the memory of a load.
template <typename Item>
class CItems
{
public:
    /// Adds the whole items of a record.
    void Add(Bytes a_items)
    {
        const auto count = static_cast<std::uint32_t>(a_items.size() / sizeof(Item));
        m_runs.push_back({m_size, count, a_items.data()});
        m_size += count;
    }

    /// Gives the item of a number, which counts from 1; false if there is none.
    [[nodiscard]] bool operator()(std::int32_t a_number, Item& a_item)
    {
        const std::uint32_t index = static_cast<std::uint32_t>(a_number) - 1;
        if (index - m_current.first >= m_current.count && !FindRun(index))
        {
            return false;
        }
        a_item = Decoded<Item>(m_current.items + std::size_t{index - m_current.first} * sizeof(Item));
        return true;
    }

private:
    struct SRun
    {
        std::uint32_t first = 0;
        std::uint32_t count = 0;
        const std::uint8_t* items = nullptr;
    };

    [[gnu::noinline]] bool FindRun(std::uint32_t a_index)
    {
        if (a_index >= m_size)
        {
            return false;
        }
        const auto isBefore = [](std::uint32_t a_wanted, const SRun& a_run) { return a_wanted < a_run.first; };
        m_current = *std::prev(std::upper_bound(m_runs.begin(), m_runs.end(), a_index, isBefore));
        return true;
    }

    std::vector<SRun> m_runs;
    std::uint32_t m_size = 0;
    /// The run that was used last.
    SRun m_current;
};

class CModel
{
public:
    explicit CModel(CDataBuffer& a_data) : m_data(a_data) {}

    /// False if the model has too many groups.
    [[nodiscard]] bool Read()
    {
        while (m_data.Tell() < m_data.Size())
        {
            const std::uint8_t tag = m_data.GetUInt8();
            const std::int32_t count = m_data.GetInt32();
            const std::size_t itemSize = ItemSize(tag);
            if (count < 1 || count > k_largestCount || itemSize == 0)
            {
                continue;
            }
            const std::size_t offset = m_data.Tell();
            const std::size_t rest = m_data.Size() - offset;
            const std::size_t size = std::min(itemSize * static_cast<std::size_t>(count), rest);
            ReadItems(tag, m_data.Bytes(offset, size - size % itemSize));
            m_data.Seek(offset + size);
            if (m_groups.size() > k_mostModelGroups)
            {
                return false;
            }
        }
        return true;
    }

    [[nodiscard]] GeometryPtrList& Groups() { return m_groups; }

private:
    /// 0 for what isn't a tag.
    static std::size_t ItemSize(std::uint8_t a_tag)
    {
        switch (a_tag)
        {
        case etPosition: return k_positionNumbers * k_numberSize;
        case etNormal: return k_normalNumbers * k_numberSize;
        case etTexCoord: return k_texCoordNumbers * k_numberSize;
        case etTriangle: return k_triangleNumbers * k_numberSize;
        default: return 0;
        }
    }

    void ReadItems(std::uint8_t a_tag, Bytes a_items)
    {
        if (a_tag == etPosition)
        {
            m_positions.Add(a_items);
            RaiseExtent(a_items);
        }
        else if (a_tag == etTexCoord)
        {
            m_texCoords.Add(a_items);
        }
        else if (a_tag == etTriangle)
        {
            AddGroup(a_items);
        }
    }

    void RaiseExtent(Bytes a_positions)
    {
        Vector3<float> largest(m_extent, m_extent, m_extent);
        for (; !a_positions.empty(); a_positions = a_positions.subspan(sizeof(Vector3<float>)))
        {
            const auto position = Decoded<Vector3<float>>(a_positions.data());
            // In this order, what isn't a number makes no difference.
            largest.x = std::max(largest.x, std::abs(position.x));
            largest.y = std::max(largest.y, std::abs(position.y));
            largest.z = std::max(largest.z, std::abs(position.z));
        }
        m_extent = std::max({largest.x, largest.y, largest.z});
    }

    void AddGroup(Bytes a_triangles)
    {
        using Corners = std::array<std::int32_t, k_triangleNumbers>;
        detail::CGroupBuilder builder(a_triangles.size() / sizeof(Corners));
        for (; !a_triangles.empty(); a_triangles = a_triangles.subspan(sizeof(Corners)))
        {
            // Three corners of vertex, texture coordinate and normal. Of the first two, what is below 1 isn't found.
            const auto corners = Decoded<Corners>(a_triangles.data());
            if (std::min({corners[2], corners[5], corners[8]}) > 0)
            {
                builder.Add({corners[0], corners[3], corners[6]}, {corners[1], corners[4], corners[7]}, m_positions,
                            m_texCoords);
            }
        }
        builder.AppendTo(m_groups, m_extent);
    }

    CDataBuffer& m_data;
    CItems<Vector3<float>> m_positions;
    CItems<Vector2<float>> m_texCoords;
    GeometryPtrList m_groups;
    float m_extent = std::numeric_limits<float>::min();
};

/// How many bytes to make room for at once.
std::size_t Capacity(std::FILE* a_file)
{
    constexpr std::size_t atLeast = 256;
    struct stat status = {};
    const bool isKnown = fstat(fileno(a_file), &status) == 0 && status.st_size > 0;
    return isKnown ? std::clamp(static_cast<std::size_t>(status.st_size), atLeast, k_largestModelFile) : atLeast;
}

} // namespace

GeometryPtrList CBObjectLoader::LoadObjectFile(const std::string& a_path)
{
    // Larger than the library's own: system calls would take as long as the rest of reading.
    constexpr std::size_t bufferSize = std::size_t{64} << 10U;
    const std::unique_ptr<char[]> buffer(new char[bufferSize]);
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(a_path.c_str(), "rb"), std::fclose);
    if (!file)
    {
        return {};
    }
    std::setvbuf(file.get(), buffer.get(), _IOFBF, bufferSize);
    CDataBuffer data(k_endianness, Capacity(file.get()));
    std::array<char, 4096> block{};
    while (std::feof(file.get()) == 0 && std::ferror(file.get()) == 0)
    {
        data.Add(block.data(), std::fread(block.data(), 1, block.size(), file.get()));
        if (data.Size() > k_largestModelFile)
        {
            detail::ReportTooLarge("CBObjectLoader", a_path);
            return {};
        }
    }
    file.reset();
    std::fprintf(stderr, "Read %i bytes of data from %s\n", static_cast<int>(data.Size()), a_path.c_str());
    CModel model(data);
    if (!model.Read())
    {
        detail::ReportTooLarge("CBObjectLoader", a_path);
        return {};
    }
    return std::move(model.Groups());
}

void CBObjectLoader::AddNewGroup(GeometryPtrList& a_groups, const std::vector<STriFace>& a_faces,
                                 const std::vector<Vector3<float>>& a_vertices,
                                 const std::vector<Vector2<float>>& a_texCoords, float a_extent)
{
    CObjectLoader::AddNewGroup(a_groups, a_faces, a_vertices, a_texCoords, a_extent);
}

} // namespace Gfx::Managers
