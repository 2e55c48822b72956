#pragma once

#include "Core/Api.h"

#include <string>
#include <vector>

namespace Gfx::Layout
{

/// What the layout files of a data directory (with a separator at its end) say in vain: attributes, events, actions and
/// nodes that no element knows, numbers that are none, missing ids and places, layouts that don't exist. The toolkit
/// passes over most of that in silence; whoever writes a screen wants to hear of it.
///
/// One text for each finding, "file:line:column: what is wrong", in the order of the files' names, and of files over
/// what stands in them. The line is that of the element. Of elements that the application has registered only the name
/// is known.
[[nodiscard]] GFX_API std::vector<std::string> CheckLayouts(const std::string& a_dataPath);

} // namespace Gfx::Layout
