#include "Widgets/Controls/EditBox/EditBox.h"

#include "Core/Assert.h"
#include "Gfx/Common/Alignment.h"
#include "Managers/Config/StyleKeys.h"
#include "Platform/Clutter/Entry.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace Gfx::Widgets
{

namespace
{

constexpr unsigned int k_backspace = 0xFF08;

/// A handler that changes the text is told of that, and so on; there is an end to it.
constexpr int k_mostNotifications = 8;

struct SStyle
{
    std::string inactive = "Panel_Down";
    std::string active = "ControlActive_Down";
};

constexpr std::array s_styleKeys{
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/EditBox/Textures/Inactive", &SStyle::inactive},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/EditBox/Textures/Active", &SStyle::active},
};

constexpr std::array s_properties{
    SProperty<CEditBox>{"Text", [](const CEditBox& a_box) { return a_box.Text(); },
                        [](CEditBox& a_box, const std::string& a_value) { a_box.Text(a_value); }},
    SProperty<CEditBox>{"MaximumLength", [](const CEditBox& a_box) { return std::to_string(a_box.MaximumLength()); },
                        [](CEditBox& a_box, const std::string& a_value)
                        { a_box.MaximumLength(NumberFromText(a_value)); }},
    SProperty<CEditBox>{"IsPassword", [](const CEditBox& a_box) { return TextFromBool(a_box.Password()); },
                        [](CEditBox& a_box, const std::string& a_value) { a_box.Password(IsTrue(a_value)); }},
};

ClutterEntry* Entry(ClutterActor* a_actor)
{
    return CLUTTER_ENTRY(a_actor);
}

void OnTextChanged(ClutterEntry*, gpointer a_box)
{
    static_cast<CEditBox*>(a_box)->TextChanged();
}

} // namespace

std::span<const SProperty<CEditBox>> CEditBox::PropertyTable()
{
    return s_properties;
}

CEditBox::CEditBox(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_password,
                   const std::string& a_text)
    : CWithProperties(a_name, "EditBox", a_x, a_y, a_width, a_height, true), m_font("EditBox")
{
    InitialiseClutterGroup();
    const SStyle& style = Managers::ReadStyle(s_styleKeys);
    m_inactive.Element(style.inactive);
    m_active.Element(style.active);
    LoadTextures();
    const ClutterColor colour = m_font.colour.AsClutterColour();
    m_entry =
        CLUTTER_ACTOR(g_object_ref_sink(clutter_entry_new_full(m_font.AsString().c_str(), a_text.c_str(), &colour)));
    clutter_container_add_on_top(GetActor(), m_entry);
    m_margins = m_inactive.Margins();
    MaximumLength(k_longestText);
    PlaceEntry();
    clutter_entry_set_visible_cursor(Entry(m_entry), FALSE);
    Password(a_password);
    m_textChangedSignal = g_signal_connect(m_entry, "text-changed", G_CALLBACK(OnTextChanged), this);
}

CEditBox::~CEditBox()
{
    g_signal_handler_disconnect(m_entry, m_textChangedSignal);
    clutter_actor_destroy(m_entry);
    g_object_unref(m_entry);
}

void CEditBox::LoadTextures()
{
    m_inactive.Retrieve({0, 0, Width(), Height()});
    m_active.Retrieve({0, 0, Width(), Height()});
}

void CEditBox::PlaceEntry()
{
    // To the scene graph, a negative size would be none at all.
    clutter_actor_set_size(m_entry, static_cast<float>(std::max(Width() - m_margins.Horizontal(), 0)),
                           static_cast<float>(std::max(Height() - m_margins.Vertical(), 0)));
    clutter_actor_set_position(m_entry, static_cast<float>(m_margins.left), static_cast<float>(m_margins.top));
}

void CEditBox::UpdatePosition()
{
    UpdateScissor(m_margins);
}

std::string CEditBox::Text() const
{
    return clutter_entry_get_text(Entry(m_entry));
}

void CEditBox::Text(const std::string& a_text)
{
    const CLife life(Children());
    clutter_entry_set_text(Entry(m_entry), a_text.c_str());
    if (!life.IsOver())
    {
        UpdateCustomInfo();
    }
}

int CEditBox::TextLength() const
{
    return clutter_entry_get_length(Entry(m_entry));
}

int CEditBox::MaximumLength() const
{
    return clutter_entry_get_max_length(Entry(m_entry));
}

void CEditBox::MaximumLength(int a_length)
{
    clutter_entry_set_max_length(Entry(m_entry), std::clamp(a_length, 1, k_longestText));
}

bool CEditBox::Password() const
{
    return clutter_entry_get_visibility(Entry(m_entry)) == FALSE;
}

void CEditBox::Password(bool a_password)
{
    clutter_entry_set_visibility(Entry(m_entry), a_password ? FALSE : TRUE);
}

unsigned int CEditBox::PasswordCharacter() const
{
    return clutter_entry_get_invisible_char(Entry(m_entry));
}

void CEditBox::PasswordCharacter(unsigned int a_character)
{
    clutter_entry_set_invisible_char(Entry(m_entry), a_character);
}

void CEditBox::CursorPlacement(ECursorPlacement a_cursorPlacement)
{
    GFX_ASSERT(a_cursorPlacement < ecpNum);
    m_cursorPlacement = a_cursorPlacement;
}

int CEditBox::CursorPositionFromXY(const Common::CPoint& a_point)
{
    const auto units = [](int a_coordinate, int a_start)
    { return Common::detail::Saturated((std::int64_t{a_coordinate} - a_start) * PANGO_SCALE); };
    int index = 0;
    int trailing = 0;
    const gboolean isInside =
        pango_layout_xy_to_index(clutter_entry_get_layout(Entry(m_entry)), units(a_point.X(), m_margins.left),
                                 units(a_point.Y(), m_margins.top), &index, &trailing);
    return isInside != FALSE ? index : index + trailing;
}

void CEditBox::Font(const Text::CFontSettings& a_font)
{
    m_font = a_font;
    m_font.alignment = eaDefault;
    clutter_entry_set_font_name(Entry(m_entry), m_font.AsString().c_str());
    const ClutterColor colour = m_font.colour.AsClutterColour();
    clutter_entry_set_color(Entry(m_entry), &colour);
}

void CEditBox::TextChanged()
{
    if (m_textChangedHandler == nullptr || m_notifications == k_mostNotifications)
    {
        return;
    }
    const CLife life(Children());
    ++m_notifications;
    m_textChangedHandler->Execute(this);
    if (!life.IsOver())
    {
        --m_notifications;
    }
}

void CEditBox::Select()
{
    QueueRedraw();
    CWidget::Select();
}

void CEditBox::Deselect()
{
    QueueRedraw();
    CWidget::Deselect();
}

void CEditBox::Invalidate(bool)
{
    UpdatePosition();
    CWidget::Invalidate(false);
}

void CEditBox::DrawSelf() const
{
    (LockActive() || Selected() ? m_active : m_inactive).Draw();
}

void CEditBox::NotifyPositionChanged()
{
    UpdatePosition();
    CWidget::NotifyPositionChanged();
}

void CEditBox::Resize(int a_width, int a_height)
{
    if (!ResizeSelf(a_width, a_height))
    {
        return;
    }
    LoadTextures();
    PlaceEntry();
}

void CEditBox::MouseEvent(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point, bool a_remote)
{
    const CLife life(Children());
    // A handler may change what the argument refers to.
    const Common::CPoint point = a_point;
    CWidget::MouseEvent(a_event, a_buttons, a_point, a_remote);
    if (life.IsOver() || a_event != Events::FirstDown)
    {
        return;
    }
    int position = 0;
    switch (m_cursorPlacement)
    {
    case ecpAtPoint: position = CursorPositionFromXY(point); break;
    case ecpEnd: position = static_cast<int>(Text().size()); break;
    default: break;
    }
    clutter_entry_set_cursor_position(Entry(m_entry), position);
}

void CEditBox::KeyboardEvent(unsigned int a_key)
{
    const CLife life(Children());
    if (a_key != k_backspace)
    {
        clutter_entry_insert_unichar(Entry(m_entry), a_key);
    }
    else if (clutter_entry_get_cursor_position(Entry(m_entry)) != 0)
    {
        clutter_entry_delete_chars(Entry(m_entry), 1);
    }
    if (!life.IsOver())
    {
        UpdateCustomInfo();
    }
}

void CEditBox::UpdateStyle()
{
    if (!UpdateStyleSelf())
    {
        return;
    }
    m_font.UpdateStyle();
    LoadTextures();
    Font(m_font);
    QueueRedraw();
}

void CEditBox::UpdateCustomInfo()
{
    SetCustomInfo("Text", Text());
}

void CEditBox::LockActive(bool a_lock)
{
    if (a_lock != m_lockActive)
    {
        m_lockActive = a_lock;
        Invalidate(false);
    }
}

void CEditBox::LockActiveNoCursor(bool a_lock)
{
    CEditBox::LockActive(a_lock);
}

} // namespace Gfx::Widgets
