#pragma once

#include "Core/Api.h"
#include "Core/Maths/Vector2.h"
#include "Core/Maths/Vector3.h"
#include "Gfx/Common/Geometry.h"
#include "Gfx/Common/ObjectLoader.h"

#include <string>
#include <vector>

namespace Gfx::Managers
{

/// Reads models from the compact binary format .bobj; docs/models.md describes it.
///
/// A triangle with an index that no vertex or texture coordinate has is dropped. A record that is cut
/// short by the end of the file has the items that are there as a whole.
class GFX_API CBObjectLoader
{
public:
    using STriFace = CObjectLoader::STriFace;

    CBObjectLoader() = delete;

    /// The model's groups; and the number of bytes that were read, on standard error. Empty, without a word, if the
    /// file can't be opened; empty, with a line in the log, if it exceeds k_largestModelFile or k_mostModelGroups.
    [[nodiscard]] static GeometryPtrList LoadObjectFile(const std::string& a_path);

    /// Appends a group of triangles, which may be none. Normals aren't used.
    static void AddNewGroup(GeometryPtrList& a_groups, const std::vector<STriFace>& a_faces,
                            const std::vector<Core::Maths::Vector3<float>>& a_vertices,
                            const std::vector<Core::Maths::Vector2<float>>& a_texCoords, float a_extent);
};

} // namespace Gfx::Managers
