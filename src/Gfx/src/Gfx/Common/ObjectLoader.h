#pragma once

#include "Core/Api.h"
#include "Core/Maths/Vector2.h"
#include "Core/Maths/Vector3.h"
#include "Gfx/Common/Geometry.h"

#include <array>
#include <string>
#include <vector>

namespace Gfx::Managers
{

/// Reads models from a small subset of the text format OBJ; docs/models.md describes it.
///
/// A triangle with an index that no vertex or texture coordinate has is dropped. A face of fewer than three corners
/// ends the process by an assertion.
class GFX_API CObjectLoader
{
public:
    /// A triangle, as indices from 0.
    struct STriFace
    {
        std::array<int, 3> vertex{};
        std::array<int, 3> texCoord{};
        std::array<int, 3> normal{};
    };

    CObjectLoader() = delete;

    /// The model's groups, one at least. Empty, without a word, if the file can't be opened; empty, with a line in the
    /// log, if it exceeds k_largestModelFile or k_mostModelGroups.
    [[nodiscard]] static GeometryPtrList LoadObjectFile(const std::string& a_path);

    /// The first face that LoadObjectFile would leave out for how it is written, or end the process for: the number of
    /// its line and a reason, as "12: a face of fewer than three corners". Empty if all are well, or if the file can't
    /// be opened.
    [[nodiscard]] static std::string FirstBadFace(const std::string& a_path);

    /// Appends a group of triangles, which may be none. Normals aren't used.
    static void AddNewGroup(GeometryPtrList& a_groups, const std::vector<STriFace>& a_faces,
                            const std::vector<Core::Maths::Vector3<float>>& a_vertices,
                            const std::vector<Core::Maths::Vector2<float>>& a_texCoords, float a_extent);
};

} // namespace Gfx::Managers
