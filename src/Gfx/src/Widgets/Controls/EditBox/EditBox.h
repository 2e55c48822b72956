#pragma once

#include "Core/Api.h"
#include "Gfx/Text/FontSettings.h"
#include "Widgets/Property.h"
#include "Widgets/TextureLayer.h"
#include "Widgets/Widget.h"

#include <span>
#include <string>

typedef struct _ClutterActor ClutterActor;

namespace Gfx::Widgets
{

/// A field for one line of text, which is typed at a cursor that isn't shown. It looks active while it is selected, or
/// locked in that look.
///
/// Lengths count characters. The text lies at the top left, within the borders of the inactive background; one that is
/// too wide is moved so that the cursor is within the field.
///
/// Properties: "Text", "MaximumLength", "IsPassword".
///
/// Configuration: `/Gfx/Controls/EditBox/Textures/Inactive` ("Panel_Down") and `Active` ("ControlActive_Down"), and the
/// font's keys.
class GFX_API CEditBox : public CWithProperties<CEditBox, CWidget>
{
public:
    using TextChangedHandler = NotifyHandler;

    /// Where a press puts the cursor.
    enum ECursorPlacement : unsigned int
    {
        ecpStart = 0,
        ecpEnd = 1,
        ecpAtPoint = 2,
        ecpNum = 3
    };

    static constexpr int k_longestText = 2048;

    [[nodiscard]] static std::span<const SProperty<CEditBox>> PropertyTable();

    /// With a_password, the characters are masked.
    CEditBox(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_password,
             const std::string& a_text);
    ~CEditBox() override;

    /// Makes the quads anew, for the elements, the theme and the size that hold now. Happens by itself.
    void LoadTextures();

    /// Clips the text to the inside of the field, wherever that is on the screen now.
    void UpdatePosition();

    /// The text, and not its mask. What was set and isn't UTF-8 comes back as replacement characters, and what was too
    /// long as its beginning.
    [[nodiscard]] std::string Text() const;
    void Text(const std::string& a_text);

    /// In characters.
    [[nodiscard]] int TextLength() const;

    /// In characters, from 1 to k_longestText. A text that is longer is shortened.
    [[nodiscard]] int MaximumLength() const;
    void MaximumLength(int a_length);

    [[nodiscard]] bool Password() const;
    void Password(bool a_password);

    /// The Unicode character of the mask, "*" at first; with 0 nothing is shown.
    [[nodiscard]] unsigned int PasswordCharacter() const;
    void PasswordCharacter(unsigned int a_character);

    /// A value beyond the enumeration ends the process.
    [[nodiscard]] ECursorPlacement CursorPlacement() const { return m_cursorPlacement; }
    void CursorPlacement(ECursorPlacement a_cursorPlacement);

    /// Where a press at a point of the widget puts the cursor with ecpAtPoint: the index of a byte of what is shown,
    /// counted from the left border and not from where a text that has been moved begins. It is taken for a number of
    /// characters.
    [[nodiscard]] int CursorPositionFromXY(const Common::CPoint& a_point);

    /// The alignment becomes top and left.
    [[nodiscard]] const Text::CFontSettings& Font() const { return m_font; }
    void Font(const Text::CFontSettings& a_font);

    /// Told of every change of the text; null for none. A handler that changes the text itself is called again, a few
    /// times deep at most.
    void SetTextChangedEventHandler(TextChangedHandler* a_handler) { m_textChangedHandler = a_handler; }
    void TextChanged();

    void Select() override;
    void Deselect() override;
    /// The children aren't invalidated.
    void Invalidate(bool a_recursive) override;
    void DrawSelf() const override;
    void NotifyPositionChanged() override;
    void Resize(int a_width, int a_height) override;
    void MouseEvent(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point, bool a_remote) override;
    /// Backspace deletes the character before the cursor. Any other symbol is taken for a Unicode character and
    /// inserted, those of function keys included; what is no character isn't.
    void KeyboardEvent(unsigned int a_key) override;
    void UpdateStyle() override;
    void UpdateCustomInfo() override;

    /// Keeps the active look, selected or not. The second form is for a field that would show no cursor.
    virtual void LockActive(bool a_lock);
    virtual void LockActiveNoCursor(bool a_lock);
    [[nodiscard]] virtual bool LockActive() const { return m_lockActive; }

private:
    void PlaceEntry();

    /// A reference, so that it is valid even if the group has been destroyed under it.
    ClutterActor* m_entry = nullptr;
    unsigned long m_textChangedSignal = 0;
    Common::SMargins m_margins;
    Text::CFontSettings m_font;
    TextChangedHandler* m_textChangedHandler = nullptr;
    CTextureLayer m_inactive;
    CTextureLayer m_active;
    ECursorPlacement m_cursorPlacement = ecpEnd;
    bool m_lockActive = false;
    /// How many notifications are under way, each from a handler of the one before.
    int m_notifications = 0;
};

} // namespace Gfx::Widgets
