#pragma once

#include "Core/Api.h"

#include <string>

namespace Gfx
{

/// Where a text or image lies in its control. An alignment is kept and passed as a plain int that holds one horizontal
/// and one vertical value; 0 in either part means that it isn't set.
enum EAlignment : int
{
    eaLeft = 0x01,
    eaCentre = 0x02,
    eaRight = 0x03,
    eaJustified = 0x04,
    eaHorizontalMask = 0x0F,

    eaTop = 0x10,
    eaMiddle = 0x20,
    eaBottom = 0x30,
    eaVerticalMask = 0xF0,

    eaDefault = eaTop | eaLeft
};

/// The alignment whose words occur anywhere in a_text, as in "Top,Left"; 0 for a part without a word. With two words
/// for one part the first in the order Left, Centre, Right, Justified or Top, Middle, Bottom wins, wherever they stand.
/// Case-sensitive.
[[nodiscard]] GFX_API int AlignmentFromString(const std::string& a_text);

} // namespace Gfx
