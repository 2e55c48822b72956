#pragma once

#include "Core/Api.h"
#include "Core/Functor.h"
#include "Core/SharedPtr.h"
#include "Gfx/Common/Margins.h"
#include "Gfx/Common/MouseEvent.h"
#include "Gfx/Text/FontSettings.h"
#include "Widgets/Controls/Button/Button.h"
#include "Widgets/Controls/NumericEditBox/NumericEditBox.h"
#include "Widgets/Controls/Window/Window.h"
#include "Widgets/Property.h"

#include <map>
#include <span>
#include <string>
#include <vector>

namespace Gfx::Widgets
{

/// A modal window with keys below an edit box. It is made hidden, lives on when it is closed, and keeps its text. The
/// keys come from Configuration/OSK.xml: layouts, each with pages of rows of keys, and with modes, which are the fields
/// of the edit box.
///
/// A key types the first character of its code, or with shift that of its shifted code; shift stays until the next
/// touch. The keys "ShiftKey", "Backspace", "NextPage", "Cancel", "Done" and "Spacebar" do what they are called,
/// "EmptyFill" is a hole, and in a numeric layout "-" changes the sign. The first character that is typed after Show()
/// replaces the text, unless something else, or a touch of a field, has come before.
///
/// The text is also printed on standard output whenever it is asked for, be it by a key.
///
/// Properties: "Text", "Mode", "Layout" (one that doesn't exist ends the process), beside those of CWindow.
///
/// Configuration, below `/Gfx/Controls/OnScreenKeyboard/`: `Margins/Left`, `Top`, `Right` and `Bottom` (10),
/// `EditBox/Height` (25), for the shift key `ShiftButton/Textures/Hover` ("ControlHover"), `UpInactive`
/// ("ControlInactive_Up") and `UpActive` ("ControlActive_Up"), and with shift `DownInactive` ("ControlInactive_Down")
/// and `DownActive` ("ControlActive_Down"), and the font of the edit box. Images of keys are the elements
/// "OnScreenKeyboard_" with the key's id behind it, of 48 by 48 pixels.
class GFX_API COnScreenKeyboard : public CWithProperties<COnScreenKeyboard, CWindow>
{
public:
    /// True means that the text is taken, false that it is not.
    using ClosedHandler = Core::Functor<void, CWidget*, bool, const std::string&>::Signature;
    using ClosingHandler = Core::Functor<bool, CWidget*, bool, const std::string&>::Signature;

    /// A key, as the file describes it; docs/keyboards.md has the form.
    struct SKey
    {
        /// The button's name, too.
        std::string id;
        std::string code;
        std::string shiftedCode;
        /// In key widths and heights of the layout.
        float widthScale = 1.0F;
        float heightScale = 1.0F;
    };

    /// A row of keys, from left to right.
    struct SKeyboardRow
    {
        std::vector<SKey> keys;
        /// In the window, or else at its left.
        bool centred = true;
    };

    /// A page of rows, from the top down.
    struct SKeyboardPage
    {
        std::string id;
        bool shiftPressedByDefault = false;
        std::vector<SKeyboardRow> rows;
    };

    /// Sizes are pixels.
    struct SKeyboardLayout
    {
        int keyWidth = 70;
        /// Of a key, and of a row whatever its keys' heights are.
        int keyHeight = 70;
        /// Between keys and between rows.
        int keyBorder = 10;
        int width = 800;
        int height = 480;
        std::vector<SKeyboardPage> pages;
        std::map<std::string, std::vector<CNumericEditBox::SField>> modes{{"Default", {}}};
        /// A sum of ELayoutFlag.
        unsigned int flags = 0;
    };

    /// What a layout does beside typing: a numeric one changes the sign by its key "-".
    enum ELayoutFlag : unsigned int
    {
        elfNumeric = 1
    };

    static constexpr int k_longestText = CEditBox::k_longestText;

    /// All layouts by their ids, from the first keyboard on. They stay as they are while there are keyboards.
    // NOLINTNEXTLINE(readability-identifier-naming): a name that applications know.
    static std::map<std::string, SKeyboardLayout> Keyboards;

    [[nodiscard]] static std::span<const SProperty<COnScreenKeyboard>> PropertyTable();

    /// The size is the layout's. A mode that the layout doesn't have is "Default"; a layout that doesn't exist ends the
    /// process.
    COnScreenKeyboard(const std::string& a_name, int a_x, int a_y, const std::string& a_layout,
                      const std::string& a_mode, const std::string& a_title);
    ~COnScreenKeyboard() override;

    /// Reads Configuration/OSK.xml, unless there are layouts already. A fault in it ends the process.
    static void ParseConfiguration();

    /// The keys change with the next page that is selected; the window keeps its size, and the edit box its fields.
    /// The first page of another layout needs an id of its own, or else it is taken for the one on show.
    void SelectLayout(const std::string& a_id);
    [[nodiscard]] const std::string& LayoutId() const { return m_layoutId; }

    /// An unknown page is the first one; if that is on show already, it gets its keys once more.
    void SelectPage(const std::string& a_id);
    /// From the last page to the first.
    void NextPage();

    /// Adds the keys of the current page to those that there are.
    void Buildup();
    /// Takes all keys off.
    void Cleanup();
    /// Gives the keys what goes with shift and with SetNoCancel.
    void UpdateButtons();

    /// Marks the text, unless it is as empty as can be: what is typed next in a row of fields replaces it.
    void HighlightExistingValue();

    /// Empties the edit box.
    void ClearValue();

    /// a_text without the characters that neither a key nor a label has. What isn't UTF-8 comes back as it is.
    [[nodiscard]] std::string ValidateTextAgainstLayout(const std::string& a_text) const;

    /// For the keys.
    void KeyPressed(CWidget* a_widget, int a_buttons, const Common::CPoint& a_point, bool a_remote);
    /// For the edit box: the text is no longer replaced by what is typed.
    void EditBoxMouseEvent(CWidget* a_widget, Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point,
                           bool a_remote);

    [[nodiscard]] std::string Text() const;
    /// Only what ValidateTextAgainstLayout leaves.
    void Text(const std::string& a_text);

    /// The edit box gets new, empty fields.
    [[nodiscard]] const std::string& Mode() const { return m_modeId; }
    void Mode(const std::string& a_mode);

    /// In characters, from 1 to k_longestText; a key types no more. The sign isn't counted, nor what Text() sets.
    [[nodiscard]] int MaximumLength() const { return m_maximumLength; }
    void MaximumLength(int a_length);

    /// Disables the Cancel key.
    void SetNoCancel(bool a_noCancel);

    /// Told that the keyboard is about to be hidden by Done or Cancel.
    void SetKeyboardClosedEventHandler(ClosedHandler* a_handler) { m_keyboardClosedHandler = a_handler; }
    /// Asked before that: with false, the keyboard stays.
    void SetKeyboardClosingEventHandler(ClosingHandler* a_handler) { m_keyboardClosingHandler = a_handler; }

    /// On the first page, with shift, in front of all others.
    void Show() override;
    /// All keys are placed once more, over those that there are.
    void UpdateStyle() override;
    void UpdateCustomInfo() override;

private:
    struct SButton
    {
        Core::SharedPtr<CButton> button;
        /// Of the layout.
        const SKey* key;
    };

    void AddKey(const SKey& a_key, int a_x, int a_y, int a_width, int a_height);
    void UpdateShiftKey(CButton& a_button) const;
    [[nodiscard]] const std::string& CodeOf(const SKey& a_key) const
    {
        return m_shift ? a_key.shiftedCode : a_key.code;
    }
    [[nodiscard]] std::string Labels() const;
    void Type(const std::string& a_code);
    void ChangeSign();
    void Close(bool a_done);

    ClosedHandler* m_keyboardClosedHandler = nullptr;
    ClosingHandler* m_keyboardClosingHandler = nullptr;
    Common::SMargins m_margins;
    int m_editBoxHeight = 0;
    std::string m_shiftTextureHover;
    std::string m_shiftTextureUpInactive;
    std::string m_shiftTextureUpActive;
    std::string m_shiftTextureDownInactive;
    std::string m_shiftTextureDownActive;
    Core::SharedPtr<CNumericEditBox> m_editBox;
    const SKeyboardLayout* m_layout = nullptr;
    const SKeyboardPage* m_page = nullptr;
    std::string m_layoutId;
    std::string m_modeId;
    std::vector<SButton> m_keys;
    std::vector<unsigned int> m_validCharacters;
    bool m_shift = false;
    std::vector<CNumericEditBox::SField> m_fields;
    Text::CFontSettings m_font;
    int m_maximumLength = k_longestText;
    /// The text is the old one, which the next character replaces.
    bool m_valueUntouched = false;
    bool m_noCancel = false;
    Core::Functor<void, CWidget*, int, const Common::CPoint&, bool>::Method<COnScreenKeyboard> m_keyHandler{
        this, &COnScreenKeyboard::KeyPressed};
    Core::Functor<void, CWidget*, Events::EMouseEvent, int, const Common::CPoint&, bool>::Method<COnScreenKeyboard>
        m_editBoxHandler{this, &COnScreenKeyboard::EditBoxMouseEvent};
};

} // namespace Gfx::Widgets
