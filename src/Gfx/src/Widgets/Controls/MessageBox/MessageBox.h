#pragma once

#include "Core/Api.h"
#include "Core/Functor.h"
#include "Core/SharedPtr.h"
#include "Gfx/Text/FontSettings.h"
#include "Widgets/Controls/Button/Button.h"
#include "Widgets/Controls/TextBox/TextBox.h"
#include "Widgets/Controls/Window/Window.h"

#include <array>
#include <cstddef>
#include <string>

namespace Gfx::Widgets
{

/// A modal window with a text and up to three buttons, each of which closes it.
/// Managers::CWidgetManager::ShowMessageBox shows one in the middle of the display. A box without buttons stays until
/// Close().
///
/// A caption that contains "Image:" is an image: the name of a file or an element is what lies behind that many
/// characters from the caption's start, without the spaces around it.
///
/// A single button stands at the right; buttons 1 and another at the left and the right; three from left to right.
/// Buttons 2 and 3 without button 1 lie on one another.
///
/// Configuration, below `/Gfx/Controls/MessageBox/`: `Buttons/Width` (100) and `Height` (80), `Margins/Left` (10),
/// `Top` (10), `Right` (10) and `Bottom` (20), `Buttons/Image/Width` and `Height` (100), `Buttons/Opacity` and
/// `Opacity` (100, percent), `TextBox/Scrollable` and `TextBox/ParseMarkup` ("True"; anything else is false), and the
/// text's font.
class GFX_API CMessageBox : public CWindow
{
public:
    using OptionHandler = Core::Functor<void, int>::Signature;

    /// An empty caption means no button, an empty message no text area.
    CMessageBox(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, const std::string& a_title,
                const std::string& a_message, const std::string& a_btn1, const std::string& a_btn2,
                const std::string& a_btn3);
    ~CMessageBox() override;

    /// The box keeps its size.
    void Resize(int a_width, int a_height) override;
    void UpdateStyle() override;
    void UpdateCustomInfo() override;

    /// Takes the box off the screen; no handler hears of it.
    virtual void Close();

    /// a_handler gets the number of the button, from 1, after the box has gone from the screen. It stays the caller's.
    /// A click of another button than the first closes the box unheard.
    void SetOptionSelectedEventHandler(OptionHandler* a_handler) { m_optionHandler = a_handler; }

    /// For the buttons.
    void Btn1Click(CWidget* a_widget, int a_button, const Common::CPoint& a_point, bool a_remote);
    void Btn2Click(CWidget* a_widget, int a_button, const Common::CPoint& a_point, bool a_remote);
    void Btn3Click(CWidget* a_widget, int a_button, const Common::CPoint& a_point, bool a_remote);

private:
    static constexpr std::size_t k_buttons = 3;

    struct SButton
    {
        std::string caption;
        Core::Functor<void, CWidget*, int, const Common::CPoint&, bool>::Method<CMessageBox> clickHandler;
        /// Empty if the caption is.
        Core::SharedPtr<CButton> button;
    };

    void CloseAndReport(int a_option, int a_button);

    OptionHandler* m_optionHandler = nullptr;
    std::string m_message;
    std::array<SButton, k_buttons> m_buttons;
    Text::CFontSettings m_font;
    /// Empty if the message is.
    Core::SharedPtr<CTextBox> m_textBox;
};

} // namespace Gfx::Widgets
