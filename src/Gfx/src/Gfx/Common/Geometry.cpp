#include "Gfx/Common/Geometry.h"

#include <algorithm>
#include <utility>

namespace Gfx
{

Core::SharedPtr<SGeometry> MakeGeometry(std::vector<Core::Maths::Vector2<float>> a_texCoords,
                                        std::vector<Core::Maths::Vector3<float>> a_vertices, float a_extent,
                                        EGeometryType a_type)
{
    return Core::SharedPtr<SGeometry>(new SGeometry{std::move(a_texCoords), std::move(a_vertices), a_extent, a_type});
}

SGeometrySummary Summarise(const GeometryPtrList& a_groups)
{
    SGeometrySummary summary;
    for (const auto& group : a_groups)
    {
        ++summary.groups;
        if (group)
        {
            summary.triangles += group->type == egtTriangles ? group->vertices.size() / 3 : 0;
            summary.extent = std::max(summary.extent, group->extent);
        }
    }
    return summary;
}

} // namespace Gfx
