#pragma once

#include "Core/Api.h"
#include "Gfx/Common/Geometry.h"

#include <string>

namespace Gfx
{

/// Writes a model in the binary format that Managers::CBObjectLoader reads; docs/models.md describes it. What is read
/// back has the same groups, triangles and extents; a vertex without a texture coordinate gets (0, 0).
///
/// Fails: false, no file, one log line, for a group that isn't of triangles or has more than 200,000 of them, for a
/// model that the loader would refuse, and when the file can't be written.
[[nodiscard]] GFX_API bool WriteBObjectFile(const std::string& a_path, const GeometryPtrList& a_groups);

} // namespace Gfx
