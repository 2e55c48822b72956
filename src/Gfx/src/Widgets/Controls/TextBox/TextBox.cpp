#include "Widgets/Controls/TextBox/TextBox.h"

#include "Managers/Config/StyleKeys.h"

#include <algorithm>
#include <array>

namespace Gfx::Widgets
{

namespace
{

struct SStyle
{
    std::string background = "Panel_Down";
};

constexpr std::array s_styleKeys{
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/TextBox/Textures/Background", &SStyle::background},
};

constexpr std::array s_properties{
    SProperty<CTextBox>{"Text", [](const CTextBox& a_box) { return a_box.Text(); },
                        [](CTextBox& a_box, const std::string& a_value) { a_box.Text(a_value); }},
    SProperty<CTextBox>{"ParseMarkup", [](const CTextBox& a_box) { return TextFromBool(a_box.ParseMarkup()); },
                        [](CTextBox& a_box, const std::string& a_value) { a_box.ParseMarkup(IsTrue(a_value)); }},
};

} // namespace

std::span<const SProperty<CTextBox>> CTextBox::PropertyTable()
{
    return s_properties;
}

CTextBox::CTextBox(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_scrollable)
    : CWithProperties(a_name, a_x, a_y, a_width, a_height, a_scrollable, true), m_font("TextBox")
{
    SetType("TextBox");
    BackgroundTexture(Managers::ReadStyle(s_styleKeys).background);
    const Common::SMargins margins = BackgroundMargins();
    const STextSize size = LabelSize(Width(), Height());
    m_label = Core::SharedPtr<CLabel>(new CLabel("TextboxLabel", 2 * margins.left, 2 * margins.top, size.width,
                                                 size.height, true, true, false, "", false));
    m_label->Font(m_font);
    m_label->Background(false);
    CPanel::AddChild(m_label);
}

STextSize CTextBox::LabelSize(int a_width, int a_height) const
{
    const auto side = [](int a_length) { return std::clamp(a_length, -k_longestSide, k_longestSide); };
    const Common::SMargins margins = BackgroundMargins();
    return {side(a_width) - 2 * margins.Horizontal() - (HasScissor() ? ScrollBarSize() : 0),
            side(a_height) - 2 * margins.Vertical()};
}

void CTextBox::Text(const std::string& a_text)
{
    const CLife life(Children());
    m_label->Text(a_text);
    if (!life.IsOver())
    {
        UpdateForScrollBars();
    }
    if (!life.IsOver())
    {
        UpdateCustomInfo();
    }
}

void CTextBox::ParseMarkup(bool a_parse)
{
    const CLife life(Children());
    m_label->ParseMarkup(a_parse);
    if (!life.IsOver())
    {
        UpdateForScrollBars();
    }
}

void CTextBox::Font(const Text::CFontSettings& a_font)
{
    m_font = a_font;
    m_label->Font(m_font);
}

void CTextBox::Resize(int a_width, int a_height)
{
    const CLife life(Children());
    // The label first, so that its new height counts for the scroll bar.
    const STextSize size = LabelSize(a_width, a_height);
    m_label->Resize(size.width, size.height);
    if (!life.IsOver())
    {
        CPanel::Resize(a_width, a_height);
    }
}

void CTextBox::UpdateStyle()
{
    const CLife life(Children());
    CPanel::UpdateStyle();
    if (!life.IsOver())
    {
        m_font.UpdateStyle();
        LoadTextures();
        Font(m_font);
    }
}

void CTextBox::UpdateCustomInfo()
{
    SetCustomInfo("Text", Text());
}

} // namespace Gfx::Widgets
