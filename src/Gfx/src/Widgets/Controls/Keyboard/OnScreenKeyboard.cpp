#include "Widgets/Controls/Keyboard/OnScreenKeyboard.h"

#include "Core/Assert.h"
#include "Gfx/Common/Alignment.h"
#include "Managers/Config/StyleKeys.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string_view>
#include <utility>

namespace Gfx::Widgets
{

namespace
{

constexpr unsigned int k_backspaceSymbol = 0xFF08;

constexpr std::string_view k_shiftKey = "ShiftKey";
constexpr std::string_view k_backspace = "Backspace";
constexpr std::string_view k_nextPage = "NextPage";
constexpr std::string_view k_cancel = "Cancel";
constexpr std::string_view k_done = "Done";
constexpr std::string_view k_spacebar = "Spacebar";
constexpr std::string_view k_emptyFill = "EmptyFill";
constexpr std::string_view k_sign = "-";

constexpr const char* k_defaultMode = "Default";
constexpr const char* k_imagePrefix = "OnScreenKeyboard_";
constexpr int k_imageSize = 48;

/// About as many characters as a layout has.
constexpr std::size_t k_usualCharacters = 200;

struct SStyle
{
    int left = 10;
    int top = 10;
    int right = 10;
    int bottom = 10;
    int editBoxHeight = 25;
    std::string hover = "ControlHover";
    std::string upInactive = "ControlInactive_Up";
    std::string upActive = "ControlActive_Up";
    std::string downInactive = "ControlInactive_Down";
    std::string downActive = "ControlActive_Down";
};

constexpr std::array s_styleKeys{
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/OnScreenKeyboard/Margins/Left", &SStyle::left},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/OnScreenKeyboard/Margins/Top", &SStyle::top},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/OnScreenKeyboard/Margins/Right", &SStyle::right},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/OnScreenKeyboard/Margins/Bottom", &SStyle::bottom},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/OnScreenKeyboard/EditBox/Height", &SStyle::editBoxHeight},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/OnScreenKeyboard/ShiftButton/Textures/Hover", &SStyle::hover},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/OnScreenKeyboard/ShiftButton/Textures/UpInactive", &SStyle::upInactive},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/OnScreenKeyboard/ShiftButton/Textures/UpActive", &SStyle::upActive},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/OnScreenKeyboard/ShiftButton/Textures/DownInactive",
                                &SStyle::downInactive},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/OnScreenKeyboard/ShiftButton/Textures/DownActive", &SStyle::downActive},
};

constexpr std::array s_properties{
    SProperty<COnScreenKeyboard>{"Text", [](const COnScreenKeyboard& a_keyboard) { return a_keyboard.Text(); },
                                 [](COnScreenKeyboard& a_keyboard, const std::string& a_value)
                                 { a_keyboard.Text(a_value); }},
    SProperty<COnScreenKeyboard>{"Mode", [](const COnScreenKeyboard& a_keyboard) { return a_keyboard.Mode(); },
                                 [](COnScreenKeyboard& a_keyboard, const std::string& a_value)
                                 { a_keyboard.Mode(a_value); }},
    SProperty<COnScreenKeyboard>{"Layout", [](const COnScreenKeyboard& a_keyboard) { return a_keyboard.LayoutId(); },
                                 [](COnScreenKeyboard& a_keyboard, const std::string& a_value)
                                 { a_keyboard.SelectLayout(a_value); }},
};

/// A key with an image, which types nothing.
bool IsCommand(const std::string& a_id)
{
    return a_id == k_shiftKey || a_id == k_backspace || a_id == k_nextPage || a_id == k_cancel || a_id == k_done;
}

/// What no text has in it, if it isn't a character.
unsigned int FirstCharacter(const std::string& a_text)
{
    return g_utf8_get_char_validated(a_text.c_str(), -1);
}

int ScaledSide(int a_side, float a_scale)
{
    return static_cast<int>(a_side * static_cast<double>(a_scale));
}

std::int64_t RowWidth(const COnScreenKeyboard::SKeyboardRow& a_row, const COnScreenKeyboard::SKeyboardLayout& a_layout)
{
    std::int64_t width = 0;
    for (const COnScreenKeyboard::SKey& key : a_row.keys)
    {
        width += (width > 0 ? a_layout.keyBorder : 0) + ScaledSide(a_layout.keyWidth, key.widthScale);
    }
    return width;
}

} // namespace

std::map<std::string, COnScreenKeyboard::SKeyboardLayout> COnScreenKeyboard::Keyboards;

std::span<const SProperty<COnScreenKeyboard>> COnScreenKeyboard::PropertyTable()
{
    return s_properties;
}

COnScreenKeyboard::COnScreenKeyboard(const std::string& a_name, int a_x, int a_y, const std::string& a_layout,
                                     const std::string& a_mode, const std::string& a_title)
    : CWithProperties(a_name, a_x, a_y, 50, 50, false, a_title, ewfModal)
    , m_layoutId(a_layout)
    , m_modeId(a_mode)
    , m_font("OnScreenKeyboard")
{
    const SStyle& style = Managers::ReadStyle(s_styleKeys);
    m_margins = {style.left, style.top, style.right, style.bottom};
    m_editBoxHeight = style.editBoxHeight;
    m_shiftTextureHover = style.hover;
    m_shiftTextureUpInactive = style.upInactive;
    m_shiftTextureUpActive = style.upActive;
    m_shiftTextureDownInactive = style.downInactive;
    m_shiftTextureDownActive = style.downActive;
    ParseConfiguration();
    SelectLayout(a_layout);
    CWindow::Resize(m_layout->width, m_layout->height);
    m_editBox = Core::SharedPtr<CNumericEditBox>(new CNumericEditBox("KeyboardEditBox", m_margins.left, m_margins.top,
                                                                     Width() - m_margins.right - m_margins.left,
                                                                     m_editBoxHeight, m_fields));
    m_editBox->Font(m_font);
    m_editBox->SetMouseEditBoxListEventHandler(&m_editBoxHandler);
    AddChild(m_editBox);
    SelectPage("");
    Modal(true);
    Hide();
}

COnScreenKeyboard::~COnScreenKeyboard()
{
    // An event in progress may hold a key, or the edit box, for longer.
    for (const SButton& key : m_keys)
    {
        key.button->SetClickEventHandler(nullptr);
    }
    m_editBox->SetMouseEditBoxListEventHandler(nullptr);
}

void COnScreenKeyboard::SelectLayout(const std::string& a_id)
{
    m_layoutId = a_id;
    const auto layoutIter = Keyboards.find(m_layoutId);
    GFX_ASSERT_TEXT(layoutIter != Keyboards.end(), "layoutIter != COnScreenKeyboard::Keyboards.end()");
    m_layout = &layoutIter->second;
    auto mode = m_layout->modes.find(m_modeId);
    if (mode == m_layout->modes.end())
    {
        m_modeId = k_defaultMode;
        mode = m_layout->modes.find(m_modeId);
    }
    m_fields = mode != m_layout->modes.end() ? mode->second : std::vector<CNumericEditBox::SField>();

    m_validCharacters.clear();
    m_validCharacters.reserve(k_usualCharacters);
    for (const SKeyboardPage& page : m_layout->pages)
    {
        for (const SKeyboardRow& row : page.rows)
        {
            for (const SKey& key : row.keys)
            {
                if (key.id == k_spacebar)
                {
                    m_validCharacters.push_back(' ');
                }
                else if (!IsCommand(key.id))
                {
                    m_validCharacters.push_back(FirstCharacter(key.code));
                    m_validCharacters.push_back(FirstCharacter(key.shiftedCode));
                }
            }
        }
    }
    for (const CNumericEditBox::SField& field : m_fields)
    {
        for (const char byte : field.label)
        {
            m_validCharacters.push_back(FirstCharacter(std::string(1, byte)));
        }
    }
}

void COnScreenKeyboard::SelectPage(const std::string& a_id)
{
    if (m_layout == nullptr || m_layout->pages.empty() ||
        (m_page != nullptr && !m_page->id.empty() && m_page->id == a_id))
    {
        return;
    }
    const SKeyboardPage* const old = m_page;
    const auto page = std::find_if(m_layout->pages.begin(), m_layout->pages.end(),
                                   [&a_id](const SKeyboardPage& a_page) { return a_page.id == a_id; });
    m_page = page != m_layout->pages.end() ? &*page : &m_layout->pages.front();
    if (m_page != old)
    {
        const CLife life(Children());
        Cleanup();
        if (life.IsOver())
        {
            return;
        }
    }
    m_shift = m_page->shiftPressedByDefault;
    Buildup();
}

void COnScreenKeyboard::NextPage()
{
    if (m_layout == nullptr || m_layout->pages.empty())
    {
        return;
    }
    const std::vector<SKeyboardPage>& pages = m_layout->pages;
    auto page =
        std::find_if(pages.begin(), pages.end(),
                     [this](const SKeyboardPage& a_page) { return m_page != nullptr && a_page.id == m_page->id; });
    // The page on show may be of another layout.
    if (page == pages.end() || ++page == pages.end())
    {
        page = pages.begin();
    }
    SelectPage(page->id);
}

void COnScreenKeyboard::Buildup()
{
    if (m_layout == nullptr || m_page == nullptr)
    {
        return;
    }
    const SKeyboardLayout& layout = *m_layout;
    const auto rows = static_cast<std::int64_t>(m_page->rows.size());
    const std::int64_t top = std::int64_t{m_margins.top} + m_editBoxHeight;
    const std::int64_t spare =
        ClientHeight() - top - m_margins.bottom - ((rows - 1) * layout.keyBorder + rows * layout.keyHeight);
    const std::int64_t available = std::int64_t{ClientWidth()} - m_margins.left - m_margins.right;
    std::int64_t y = top + spare / 2;
    for (const SKeyboardRow& row : m_page->rows)
    {
        std::int64_t x = m_margins.left;
        if (row.centred)
        {
            x += (available - RowWidth(row, layout)) / 2;
        }
        for (const SKey& key : row.keys)
        {
            const int width = ScaledSide(layout.keyWidth, key.widthScale);
            if (key.id != k_emptyFill)
            {
                AddKey(key, Common::detail::Saturated(x), Common::detail::Saturated(y), width,
                       ScaledSide(layout.keyHeight, key.heightScale));
            }
            x += std::int64_t{width} + layout.keyBorder;
        }
        y += std::int64_t{layout.keyHeight} + layout.keyBorder;
    }
}

void COnScreenKeyboard::AddKey(const SKey& a_key, int a_x, int a_y, int a_width, int a_height)
{
    const Core::SharedPtr<CButton> button(new CButton(a_key.id, a_x, a_y, a_width, a_height, false));
    AddChild(button);
    if (IsCommand(a_key.id))
    {
        button->SetImage(k_imagePrefix + a_key.id, eaCentre | eaMiddle, k_imageSize, k_imageSize);
        if (a_key.id == k_shiftKey && m_shift)
        {
            UpdateShiftKey(*button);
        }
        else if (a_key.id == k_cancel)
        {
            button->Disabled(m_noCancel);
        }
    }
    else if (a_key.id != k_spacebar)
    {
        button->Text(CodeOf(a_key));
    }
    button->SetClickEventHandler(&m_keyHandler);
    m_keys.push_back({button, &a_key});
}

void COnScreenKeyboard::Cleanup()
{
    // To end a touch of a key may run handlers.
    const CLife life(Children());
    for (const SButton& key : std::exchange(m_keys, {}))
    {
        key.button->SetClickEventHandler(nullptr);
        if (!life.IsOver())
        {
            DestroyChild(key.button.Get());
        }
    }
}

void COnScreenKeyboard::UpdateButtons()
{
    for (const SButton& key : m_keys)
    {
        const std::string& id = key.key->id;
        if (id == k_shiftKey)
        {
            UpdateShiftKey(*key.button);
        }
        else if (id == k_cancel)
        {
            key.button->Disabled(m_noCancel);
        }
        else if (!IsCommand(id) && id != k_spacebar)
        {
            key.button->Text(CodeOf(*key.key));
        }
    }
}

void COnScreenKeyboard::UpdateShiftKey(CButton& a_button) const
{
    a_button.SetTextures(m_shift ? m_shiftTextureDownInactive : m_shiftTextureUpInactive, m_shiftTextureHover,
                         m_shift ? m_shiftTextureDownActive : m_shiftTextureUpActive, "Default");
}

std::string COnScreenKeyboard::Labels() const
{
    std::string labels;
    for (const CNumericEditBox::SField& field : m_fields)
    {
        labels += field.label;
    }
    return labels;
}

void COnScreenKeyboard::HighlightExistingValue()
{
    if (Text() != Labels())
    {
        m_editBox->HighlightFirst();
    }
}

void COnScreenKeyboard::ClearValue()
{
    Text(Labels());
}

std::string COnScreenKeyboard::ValidateTextAgainstLayout(const std::string& a_text) const
{
    glong count = 0;
    const std::unique_ptr<gunichar, decltype(&g_free)> characters(
        g_utf8_to_ucs4(a_text.c_str(), -1, nullptr, &count, nullptr), &g_free);
    if (!characters || count == 0)
    {
        return a_text;
    }
    std::string text;
    for (glong i = 0; i < count; ++i)
    {
        const gunichar character = characters.get()[i];
        if (std::find(m_validCharacters.begin(), m_validCharacters.end(), character) != m_validCharacters.end())
        {
            std::array<char, 6> bytes{};
            text.append(bytes.data(), static_cast<std::size_t>(g_unichar_to_utf8(character, bytes.data())));
        }
    }
    return text;
}

void COnScreenKeyboard::KeyPressed(CWidget* a_widget, int, const Common::CPoint&, bool)
{
    const auto found = std::find_if(m_keys.begin(), m_keys.end(),
                                    [a_widget](const SButton& a_key) { return a_key.button.Get() == a_widget; });
    if (found == m_keys.end())
    {
        return;
    }
    const SKey& key = *found->key;
    if (key.id == k_shiftKey)
    {
        m_shift = !m_shift;
        UpdateButtons();
    }
    else if (key.id == k_nextPage)
    {
        NextPage();
    }
    else if (key.id == k_spacebar)
    {
        Type(" ");
    }
    else if (key.id == k_backspace)
    {
        const CLife life(Children());
        m_editBox->KeyboardEvent(k_backspaceSymbol);
        if (!life.IsOver())
        {
            m_valueUntouched = false;
        }
    }
    else if (key.id == k_cancel || key.id == k_done)
    {
        Close(key.id == k_done);
    }
    else if (key.id == k_sign && (m_layout->flags & elfNumeric) != 0)
    {
        ChangeSign();
    }
    else
    {
        Type(CodeOf(key));
    }
}

void COnScreenKeyboard::Type(const std::string& a_code)
{
    if (g_utf8_strlen(Text().c_str(), -1) >= m_maximumLength)
    {
        return;
    }
    if (m_valueUntouched)
    {
        const CLife life(Children());
        ClearValue();
        if (life.IsOver())
        {
            return;
        }
        m_valueUntouched = false;
    }
    m_editBox->KeyboardEvent(FirstCharacter(a_code));
}

void COnScreenKeyboard::ChangeSign()
{
    m_valueUntouched = false;
    const std::string text = m_editBox->Text();
    m_editBox->Text(text.size() > 1 && text.front() == k_sign.front() ? text.substr(1) : k_sign.front() + text);
}

void COnScreenKeyboard::Close(bool a_done)
{
    const CLife life(Children());
    if (m_keyboardClosingHandler != nullptr)
    {
        const bool closes = m_keyboardClosingHandler->Execute(this, a_done, m_editBox->Text());
        if (life.IsOver() || !closes)
        {
            return;
        }
    }
    if (m_keyboardClosedHandler != nullptr)
    {
        m_keyboardClosedHandler->Execute(this, a_done, m_editBox->Text());
        if (life.IsOver())
        {
            return;
        }
    }
    Hide();
}

void COnScreenKeyboard::EditBoxMouseEvent(CWidget*, Events::EMouseEvent, int, const Common::CPoint&, bool)
{
    m_valueUntouched = false;
}

std::string COnScreenKeyboard::Text() const
{
    std::string text = m_editBox->Text();
    std::printf("COnScreenKeyboard::Text: %s\n", text.c_str());
    return text;
}

void COnScreenKeyboard::Text(const std::string& a_text)
{
    const CLife life(Children());
    m_editBox->Text(ValidateTextAgainstLayout(a_text));
    if (!life.IsOver() && m_valueUntouched)
    {
        HighlightExistingValue();
    }
}

void COnScreenKeyboard::Mode(const std::string& a_mode)
{
    m_modeId = a_mode;
    SelectLayout(m_layoutId);
    m_editBox->Fields(m_fields);
}

void COnScreenKeyboard::MaximumLength(int a_length)
{
    m_maximumLength = std::clamp(a_length, 1, k_longestText);
}

void COnScreenKeyboard::SetNoCancel(bool a_noCancel)
{
    m_noCancel = a_noCancel;
    UpdateButtons();
}

void COnScreenKeyboard::Show()
{
    const CLife life(Children());
    m_valueUntouched = true;
    SelectPage(m_layout->pages.empty() ? "Default" : m_layout->pages.front().id);
    if (life.IsOver())
    {
        return;
    }
    m_shift = true;
    UpdateButtons();
    m_editBox->SetMouseEditBoxListEventHandler(&m_editBoxHandler);
    HighlightExistingValue();
    BringToFront();
    CWidget::Show();
}

void COnScreenKeyboard::UpdateStyle()
{
    const CLife life(Children());
    CWindow::UpdateStyle();
    if (life.IsOver())
    {
        return;
    }
    m_font.UpdateStyle();
    m_editBox->Font(m_font);
    Buildup();
}

void COnScreenKeyboard::UpdateCustomInfo()
{
    SetCustomInfo("ShiftPressed", std::to_string(m_shift ? 1 : 0));
}

} // namespace Gfx::Widgets
