#pragma once

#include "Gfx/Common/Geometry.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace Gfx::detail
{

/// Turns indexed triangles into a group of flat arrays.
class CGroupBuilder
{
public:
    using Vector2f = Core::Maths::Vector2<float>;
    using Vector3f = Core::Maths::Vector3<float>;

    explicit CGroupBuilder(std::size_t a_triangles) : m_texCoords(3 * a_triangles), m_vertices(3 * a_triangles) {}

    /// Adds a triangle, one of those that were announced, or drops it: a_position(index, result) and
    /// a_texCoord(index, result) say false for an index that they don't have.
    template <typename Position, typename TexCoord>
    void Add(const std::array<int, 3>& a_vertex, const std::array<int, 3>& a_texCoordIndex, Position&& a_position,
             TexCoord&& a_texCoord)
    {
        Vector3f* const vertex = m_vertices.data() + m_size;
        Vector2f* const texCoord = m_texCoords.data() + m_size;
        // Written out: indices that a loop takes from their arrays would go through memory.
        if (a_position(a_vertex[0], vertex[0]) && a_position(a_vertex[1], vertex[1]) &&
            a_position(a_vertex[2], vertex[2]) && a_texCoord(a_texCoordIndex[0], texCoord[0]) &&
            a_texCoord(a_texCoordIndex[1], texCoord[1]) && a_texCoord(a_texCoordIndex[2], texCoord[2]))
        {
            m_size += 3;
        }
    }

    /// Ends the group.
    void AppendTo(GeometryPtrList& a_groups, float a_extent);

private:
    std::vector<Vector2f> m_texCoords;
    std::vector<Vector3f> m_vertices;
    std::size_t m_size = 0;
};

/// Logs that a loader has refused a file for its size.
void ReportTooLarge(const char* a_loader, const std::string& a_path);

} // namespace Gfx::detail
