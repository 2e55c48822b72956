#include "Widgets/TextActor.h"

#include "Gfx/Common/Alignment.h"
#include "Platform/Clutter/Actor.h"
#include "Platform/Clutter/Label.h"

#include <algorithm>
#include <cstdint>

namespace Gfx::Widgets
{

namespace
{

/// Far outside any display, and yet near enough for the scene graph's own arithmetic.
constexpr int k_farAway = 1'000'000;
constexpr int k_outOfSight = k_farAway / 2;

/// Half of what a text leaves of the room for it, from a_start on.
int Centred(int a_start, std::int64_t a_spare, ECentring a_centring)
{
    const std::int64_t half = a_centring == ECentring::Truncating
                                  ? a_spare / 2
                                  : std::min(static_cast<std::uint32_t>(a_spare) >> 1U, std::uint32_t{k_farAway});
    return Common::detail::Saturated(half + a_start);
}

ClutterLabel* Label(ClutterActor* a_actor)
{
    return CLUTTER_LABEL(a_actor);
}

int WholePixels(float a_length)
{
    constexpr float furthest = 1 << 24;
    return static_cast<int>(std::clamp(a_length, -furthest, furthest));
}

} // namespace

Common::CPoint PlaceText(const STextSize& a_box, const STextSize& a_text, const Common::SMargins& a_margins,
                         int a_alignment, ECentring a_centring)
{
    const std::int64_t spareWidth = std::int64_t{a_box.width} - a_text.width;
    const std::int64_t spareHeight = std::int64_t{a_box.height} - a_text.height;
    Common::CPoint place;
    switch (a_alignment & eaHorizontalMask)
    {
    case eaLeft: place.X(a_margins.left); break;
    case eaRight: place.X(Common::detail::Saturated(spareWidth - a_margins.right)); break;
    default: place.X(Centred(a_margins.left, spareWidth - a_margins.right - a_margins.left, a_centring)); break;
    }
    switch (a_alignment & eaVerticalMask)
    {
    case eaTop: place.Y(a_margins.top); break;
    case eaBottom: place.Y(Common::detail::Saturated(spareHeight - a_margins.right)); break;
    default: place.Y(Centred(a_margins.top, spareHeight - a_margins.top - a_margins.bottom, a_centring)); break;
    }
    return place;
}

CTextActor::~CTextActor()
{
    Destroy();
}

void CTextActor::Create(ClutterActor* a_group, const Text::CFontSettings& a_font, const std::string& a_text)
{
    Destroy();
    m_size = k_ownSize;
    const ClutterColor colour = a_font.colour.AsClutterColour();
    m_actor =
        CLUTTER_ACTOR(g_object_ref_sink(clutter_label_new_full(a_font.AsString().c_str(), a_text.c_str(), &colour)));
    clutter_container_add_on_top(a_group, m_actor);
}

void CTextActor::Destroy()
{
    if (m_actor != nullptr)
    {
        clutter_actor_destroy(m_actor);
        g_object_unref(m_actor);
        m_actor = nullptr;
    }
}

void CTextActor::SetText(const std::string& a_text)
{
    clutter_label_set_text(Label(m_actor), a_text.c_str());
}

void CTextActor::SetFont(const Text::CFontSettings& a_font)
{
    SetFontName(a_font.AsString());
    SetColour(a_font.colour);
}

void CTextActor::SetFontName(const std::string& a_description)
{
    clutter_label_set_font_name(Label(m_actor), a_description.c_str());
}

void CTextActor::SetColour(const CColour& a_colour)
{
    const ClutterColor colour = a_colour.AsClutterColour();
    clutter_label_set_color(Label(m_actor), &colour);
}

void CTextActor::UseMarkup(bool a_use)
{
    clutter_label_set_use_markup(Label(m_actor), a_use ? TRUE : FALSE);
}

void CTextActor::WrapLines(bool a_wrap)
{
    clutter_label_set_line_wrap(Label(m_actor), a_wrap ? TRUE : FALSE);
}

void CTextActor::SetEllipsisMode(Text::EEllipsisMode a_mode)
{
    static_assert(static_cast<int>(Text::eemEnd) == static_cast<int>(PANGO_ELLIPSIZE_END));
    const auto mode = std::clamp(a_mode, Text::eemNone, Text::eemEnd);
    clutter_label_set_ellipsize(Label(m_actor), static_cast<PangoEllipsizeMode>(mode));
}

Text::EEllipsisMode CTextActor::EllipsisMode() const
{
    return static_cast<Text::EEllipsisMode>(clutter_label_get_ellipsize(Label(m_actor)));
}

void CTextActor::AlignLines(int a_alignment)
{
    PangoAlignment alignment = PANGO_ALIGN_LEFT;
    bool justify = false;
    switch (a_alignment & eaHorizontalMask)
    {
    case eaLeft: break;
    case eaCentre: alignment = PANGO_ALIGN_CENTER; break;
    case eaRight: alignment = PANGO_ALIGN_RIGHT; break;
    default: justify = true; break;
    }
    clutter_label_set_justify(Label(m_actor), justify ? TRUE : FALSE);
    clutter_label_set_alignment(Label(m_actor), alignment);
}

void CTextActor::SetWidth(int a_width)
{
    SetSize(a_width, m_size.height);
}

void CTextActor::SetSize(int a_width, int a_height)
{
    if (const STextSize size{a_width, a_height}; size != m_size)
    {
        clutter_actor_set_size(m_actor, static_cast<float>(a_width), static_cast<float>(a_height));
        m_size = size;
    }
}

STextSize CTextActor::Size() const
{
    float width = 0;
    float height = 0;
    clutter_actor_get_size(m_actor, &width, &height);
    return {WholePixels(width), WholePixels(height)};
}

STextSize CTextActor::PreferredSize() const
{
    float width = 0;
    float height = 0;
    clutter_actor_get_preferred_size(m_actor, &width, &height, nullptr, nullptr);
    return {WholePixels(width), WholePixels(height)};
}

STextSize CTextActor::NaturalSize() const
{
    float width = 0;
    float height = 0;
    clutter_label_get_natural_size(Label(m_actor), &width, &height);
    return {WholePixels(width), WholePixels(height)};
}

void CTextActor::Clip(const Common::CAABB& a_rectangle)
{
    clutter_actor_set_clip(m_actor, static_cast<float>(a_rectangle.Left()), static_cast<float>(a_rectangle.Top()),
                           static_cast<float>(a_rectangle.Width()), static_cast<float>(a_rectangle.Height()));
}

void CTextActor::MoveTo(const Common::CPoint& a_position)
{
    if (clutter_actor_get_fixed_position_set(m_actor) == FALSE || Position() != a_position)
    {
        Platform::MoveActor(m_actor, static_cast<float>(a_position.X()), static_cast<float>(a_position.Y()));
    }
    // Its group's area to paint would reach there.
    if (std::max(a_position.X(), a_position.Y()) >= k_outOfSight)
    {
        clutter_actor_hide(m_actor);
    }
    else
    {
        clutter_actor_show(m_actor);
    }
}

Common::CPoint CTextActor::Position() const
{
    float x = 0;
    float y = 0;
    clutter_actor_get_position(m_actor, &x, &y);
    return {WholePixels(x), WholePixels(y)};
}

} // namespace Gfx::Widgets
