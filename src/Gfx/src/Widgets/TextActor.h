#pragma once

#include "Core/Api.h"
#include "Gfx/Common/AABB.h"
#include "Gfx/Common/Margins.h"
#include "Gfx/Common/Point.h"
#include "Gfx/Text/FontSettings.h"

#include <string>

typedef struct _ClutterActor ClutterActor;

namespace Gfx::Widgets
{

/// How the room that a text leaves is halved when it is centred.
enum class ECentring
{
    /// Towards zero: a text that is too large sticks out at both sides.
    Truncating,
    /// As an unsigned number: a text that is too large lands far outside the widget, and isn't seen.
    Unsigned
};

/// Pixels.
struct STextSize
{
    int width = 0;
    int height = 0;

    bool operator==(const STextSize&) const = default;
};

/// Where a text of a_text lies in a box of a_box, by a packed alignment. A text at the bottom keeps the right margin's
/// distance from the edge, not the bottom one's: layouts are made for it.
[[nodiscard]] GFX_API Common::CPoint PlaceText(const STextSize& a_box, const STextSize& a_text,
                                               const Common::SMargins& a_margins, int a_alignment,
                                               ECentring a_centring);

/// The text of a control: an actor in the control's group.
class GFX_API CTextActor
{
public:
    CTextActor() = default;
    ~CTextActor();
    CTextActor(const CTextActor&) = delete;
    CTextActor& operator=(const CTextActor&) = delete;

    /// Makes the actor in a_group, which is a widget's. The font's alignment is without effect here.
    void Create(ClutterActor* a_group, const Text::CFontSettings& a_font, const std::string& a_text);

    /// Takes the text off the screen.
    void Destroy();

    [[nodiscard]] bool Exists() const { return m_actor != nullptr; }
    [[nodiscard]] ClutterActor* Actor() const { return m_actor; }

    void SetText(const std::string& a_text);
    void SetFont(const Text::CFontSettings& a_font);
    /// a_description is a Pango font description.
    void SetFontName(const std::string& a_description);

    void SetColour(const CColour& a_colour);
    /// Whether the text is Pango markup.
    void UseMarkup(bool a_use);
    /// Whether lines are broken at the width that was set.
    void WrapLines(bool a_wrap);
    /// A value outside the enumeration is the nearest of it.
    void SetEllipsisMode(Text::EEllipsisMode a_mode);
    [[nodiscard]] Text::EEllipsisMode EllipsisMode() const;

    /// Lines beside one another as the horizontal part of a packed alignment says; anything but left, centre and right
    /// is justified.
    void AlignLines(int a_alignment);

    /// A width or height of -1 is the text's own.
    void SetWidth(int a_width);
    void SetSize(int a_width, int a_height);
    /// The size that was set, or else the text's own.
    [[nodiscard]] STextSize Size() const;
    /// The same as the actor's preference, in whole pixels.
    [[nodiscard]] STextSize PreferredSize() const;
    /// What the text needs on one line, whatever size was set.
    [[nodiscard]] STextSize NaturalSize() const;

    /// What lies outside this rectangle of the text isn't shown.
    void Clip(const Common::CAABB& a_rectangle);

    /// A text that has been placed out of sight (ECentring::Unsigned) isn't drawn.
    void MoveTo(const Common::CPoint& a_position);
    [[nodiscard]] Common::CPoint Position() const;

private:
    static constexpr STextSize k_ownSize{-1, -1};

    /// A reference, so that it is valid even if the group has been destroyed under it.
    ClutterActor* m_actor = nullptr;
    /// As it was set.
    STextSize m_size = k_ownSize;
};

} // namespace Gfx::Widgets
