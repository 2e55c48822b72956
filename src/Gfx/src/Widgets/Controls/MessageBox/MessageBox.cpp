#include "Widgets/Controls/MessageBox/MessageBox.h"

#include "Core/Utilities.h"
#include "Gfx/Common/Alignment.h"
#include "Managers/Config/StyleKeys.h"
#include "Widgets/Property.h"

#include <algorithm>
#include <string_view>

namespace Gfx::Widgets
{

namespace
{

constexpr std::string_view k_imagePrefix = "Image:";

struct SStyle
{
    int buttonWidth = 100;
    int buttonHeight = 80;
    int left = 10;
    int top = 10;
    int right = 10;
    int bottom = 20;
    int imageWidth = 100;
    int imageHeight = 100;
    int buttonOpacity = 100;
    int opacity = 100;
    std::string scrollable = "True";
    std::string parseMarkup = "True";
};

constexpr std::array s_styleKeys{
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/MessageBox/Buttons/Width", &SStyle::buttonWidth},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/MessageBox/Buttons/Height", &SStyle::buttonHeight},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/MessageBox/Margins/Left", &SStyle::left},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/MessageBox/Margins/Top", &SStyle::top},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/MessageBox/Margins/Right", &SStyle::right},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/MessageBox/Margins/Bottom", &SStyle::bottom},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/MessageBox/Buttons/Image/Width", &SStyle::imageWidth},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/MessageBox/Buttons/Image/Height", &SStyle::imageHeight},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/MessageBox/Buttons/Opacity", &SStyle::buttonOpacity},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/MessageBox/Opacity", &SStyle::opacity},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/MessageBox/TextBox/Scrollable", &SStyle::scrollable},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/MessageBox/TextBox/ParseMarkup", &SStyle::parseMarkup},
};

} // namespace

CMessageBox::CMessageBox(const std::string& a_name, int a_x, int a_y, int a_width, int a_height,
                         const std::string& a_title, const std::string& a_message, const std::string& a_btn1,
                         const std::string& a_btn2, const std::string& a_btn3)
    : CWindow(a_name, a_x, a_y, a_width, a_height, false, a_title, ewfModal)
    , m_message(a_message)
    , m_buttons{{{a_btn1, {this, &CMessageBox::Btn1Click}, {}},
                 {a_btn2, {this, &CMessageBox::Btn2Click}, {}},
                 {a_btn3, {this, &CMessageBox::Btn3Click}, {}}}}
    , m_font("MessageBox")
{
    SetType("MessageBox");
    const auto& style = Managers::ReadStyle(s_styleKeys);
    if (!m_message.empty())
    {
        m_textBox = Core::SharedPtr<CTextBox>(
            new CTextBox("MsgBoxTextArea", style.left, style.top, Width() - style.left - style.right,
                         ClientHeight() - style.top - 2 * style.bottom - style.buttonHeight, IsTrue(style.scrollable)));
        m_textBox->SetProperty("ParseMarkup", style.parseMarkup);
        m_textBox->Text(m_message);
        m_textBox->Font(m_font);
        AddChild(m_textBox);
    }
    SetTransparency(style.opacity, false);

    const auto count = std::count_if(m_buttons.begin(), m_buttons.end(),
                                     [](const SButton& a_button) { return !a_button.caption.empty(); });
    const int atRight = Width() - style.right - style.buttonWidth;
    const int inMiddle = Width() / 2 - style.buttonWidth / 2;
    const std::array<int, k_buttons> lefts{count == 1 ? atRight : style.left, count == 3 ? inMiddle : atRight, atRight};
    const int top = ClientHeight() - style.buttonHeight - style.bottom;
    for (std::size_t i = 0; i < k_buttons; ++i)
    {
        auto& [caption, clickHandler, button] = m_buttons[i];
        if (caption.empty())
        {
            continue;
        }
        button = Core::SharedPtr<CButton>(new CButton("MessageBoxBtn" + std::to_string(i + 1), lefts[i], top,
                                                      style.buttonWidth, style.buttonHeight, false));
        AddChild(button);
        if (caption.find(k_imagePrefix) != std::string::npos)
        {
            button->SetImage(Core::Utilities::trim(caption.substr(k_imagePrefix.size())), eaCentre | eaMiddle,
                             style.imageWidth, style.imageHeight);
        }
        else
        {
            button->Text(caption);
        }
        button->SetClickEventHandler(&clickHandler);
        button->SetTransparency(style.buttonOpacity, true);
    }
}

CMessageBox::~CMessageBox()
{
    // The click in progress may hold a button for longer.
    for (const SButton& button : m_buttons)
    {
        if (button.button)
        {
            button.button->SetClickEventHandler(nullptr);
        }
    }
}

void CMessageBox::Resize(int, int) {}

void CMessageBox::UpdateStyle()
{
    const CLife life(Children());
    CWindow::UpdateStyle();
    if (life.IsOver())
    {
        return;
    }
    m_font.UpdateStyle();
    if (const Core::SharedPtr<CTextBox> textBox = m_textBox)
    {
        textBox->Font(m_font);
    }
}

void CMessageBox::UpdateCustomInfo()
{
    SetCustomInfo("Message", m_message);
    for (std::size_t i = 0; i < k_buttons; ++i)
    {
        SetCustomInfo("Button" + std::to_string(i + 1), m_buttons[i].caption);
    }
}

void CMessageBox::Close()
{
    Destroy();
}

void CMessageBox::Btn1Click(CWidget*, int a_button, const Common::CPoint&, bool)
{
    CloseAndReport(1, a_button);
}

void CMessageBox::Btn2Click(CWidget*, int a_button, const Common::CPoint&, bool)
{
    CloseAndReport(2, a_button);
}

void CMessageBox::Btn3Click(CWidget*, int a_button, const Common::CPoint&, bool)
{
    CloseAndReport(3, a_button);
}

void CMessageBox::CloseAndReport(int a_option, int a_button)
{
    // Destroy() gives up the pointer that the manager has; the handler may still look at the box.
    const WidgetPtr self = Self();
    const CLife life(Children());
    OptionHandler* handler = m_optionHandler;
    Destroy();
    if (!life.IsOver())
    {
        handler = m_optionHandler;
    }
    if (handler != nullptr && (a_button & Events::embFirst) != 0)
    {
        handler->Execute(a_option);
    }
}

} // namespace Gfx::Widgets
