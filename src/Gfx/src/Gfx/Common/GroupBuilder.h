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
    void Add(const std::array<int, 3>& a_vertex, const std::array<int, 3>& a_texCoordIndex, const Position& a_position,
             const TexCoord& a_texCoord)
    {
        for (std::size_t corner = 0; corner < 3; ++corner)
        {
            if (!a_position(a_vertex[corner], m_vertices[m_size + corner]) ||
                !a_texCoord(a_texCoordIndex[corner], m_texCoords[m_size + corner]))
            {
                return;
            }
        }
        m_size += 3;
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
