#pragma once

#include "Core/Api.h"
#include "Core/Maths/Vector2.h"
#include "Core/Maths/Vector3.h"
#include "Core/SharedPtr.h"

#include <cstddef>
#include <list>
#include <vector>

namespace Gfx
{

/// What the vertices of a geometry make up.
enum EGeometryType : int
{
    egtTriangles = 0,
    egtTriangleStrip = 1,
    egtLines = 2,
    egtLineStrip = 3
};

/// One group of a model, ready to be drawn: vertices in a row, without indices.
struct SGeometry
{
    /// One pair for each vertex; or none at all.
    std::vector<Core::Maths::Vector2<float>> texCoords;
    std::vector<Core::Maths::Vector3<float>> vertices;
    /// The largest absolute coordinate of the model, up to this group.
    float extent = 0;
    EGeometryType type = egtTriangles;
};

using GeometryPtrList = std::list<Core::SharedPtr<SGeometry, Core::SimpleReferenceCounter>>;

/// What the loaders of models refuse, so that no file can take the memory of the machine: a larger file, and one of
/// more groups.
inline constexpr std::size_t k_largestModelFile = std::size_t{64} << 20U;
inline constexpr std::size_t k_mostModelGroups = 65'536;

/// A group of what is given, as it is.
[[nodiscard]] GFX_API Core::SharedPtr<SGeometry> MakeGeometry(std::vector<Core::Maths::Vector2<float>> a_texCoords,
                                                              std::vector<Core::Maths::Vector3<float>> a_vertices,
                                                              float a_extent, EGeometryType a_type);

/// What Summarise() tells of a model.
struct SGeometrySummary
{
    std::size_t groups = 0;
    /// Those of the groups that are of triangles.
    std::size_t triangles = 0;
    /// The largest extent of a group; 0 without groups.
    float extent = 0;
};

/// What a model holds. Null pointers count as groups without triangles.
[[nodiscard]] GFX_API SGeometrySummary Summarise(const GeometryPtrList& a_groups);

} // namespace Gfx
