#pragma once

#include "Core/Api.h"
#include "Gfx/Common/Colour.h"

#include <string>

namespace Gfx::Text
{

/// Where a text that doesn't fit is shortened.
enum EEllipsisMode : int
{
    eemNone = 0,
    eemStart = 1,
    eemMiddle = 2,
    eemEnd = 3
};

/// How a control's text looks: the one description of text style.
///
/// A control's settings come from the keys `/Gfx/Controls/<control>/Font/Name`, `Size`, `Colour` and `Alignment` of
/// the configuration, with those of `/Gfx/Font/` as defaults, and these default to Sans, 16, White and "Top,Left".
/// A colour may be the name of a theme's element or of a named colour.
class GFX_API CFontSettings
{
public:
    /// The settings of one kind of control, such as "Button".
    explicit CFontSettings(const std::string& a_controlName);

    /// A colour of the table of named colours stays bound to its name.
    CFontSettings(const std::string& a_fontName, const CColour& a_colour, int a_size, int a_alignment);

    /// The Pango font description, such as "Sans 16px".
    [[nodiscard]] std::string AsString() const;

    /// Looks the colour up again by its name, in the theme that is current now. Without a name it stays.
    void UpdateStyle();

    /// The font family.
    std::string name;
    CColour colour;
    /// The height in pixels; nothing checks its range.
    int size;
    /// Packed, as EAlignment tells.
    int alignment;
    /// An element of the theme, or a named colour; empty for a colour that follows nothing.
    std::string colourName;
};

} // namespace Gfx::Text
