#include "Widgets/Controls/CheckBox/CheckBox.h"

#include "Gfx/Common/Alignment.h"
#include "Managers/Config/ConfigManager.h"
#include "Platform/Clutter/Clutter.h"
#include "Widgets/Property.h"

#include <array>

namespace Gfx::Widgets
{

namespace
{

constexpr std::array s_properties{
    SProperty<CCheckBox>{"Checked", [](const CCheckBox& a_box) { return TextFromBool(a_box.Checked()); },
                         [](CCheckBox& a_box, const std::string& a_value) { a_box.Checked(IsTrue(a_value)); }},
    SProperty<CCheckBox>{"ReadOnly", [](const CCheckBox& a_box) { return TextFromBool(a_box.ReadOnly()); },
                         [](CCheckBox& a_box, const std::string& a_value) { a_box.ReadOnly(IsTrue(a_value)); }},
};

} // namespace

CCheckBox::CCheckBox(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, const std::string& a_text)
    : CCheckBox(a_name, "CheckBox", a_x, a_y, a_width, a_height, a_text)
{
}

CCheckBox::CCheckBox(const std::string& a_name, const std::string& a_type, int a_x, int a_y, int a_width, int a_height,
                     const std::string& a_text)
    : CWidget(a_name, a_type, a_x, a_y, a_width, a_height, false), m_font(a_type)
{
    InitialiseClutterGroup();
    // The kinds of check box have the same keys, each below its own word.
    const Managers::CConfigManager& config = Core::Patterns::StaticSingleton<Managers::CConfigManager>::ref();
    const std::string keys = "/Gfx/Controls/" + a_type;
    m_background.Element(config.Get<std::string>(keys + "/Textures/Background", "Panel_Down"));
    m_mark.Element(config.Get<std::string>(keys + "/Textures/Checked", "Indicator_Up"));
    m_imageWidth = config.Get<int>(keys + "/Image/Width", 20);
    m_imageHeight = config.Get<int>(keys + "/Image/Height", 20);
    m_imageBuffer = config.Get<int>(keys + "/Image/Buffer", 5);
    CCheckBox::Resize(a_width, m_imageHeight);
    m_label.Create(GetActor(), m_font, "");
    m_label.SetWidth(Width() - m_imageWidth - m_imageBuffer);
    m_label.WrapLines(true);
    m_text.SetRaw(a_text);
    CCheckBox::UpdateLocalisedText();
    UpdateLabelPosition();
    CCheckBox::UpdateCustomInfo();
}

void CCheckBox::Checked(bool a_checked)
{
    StoreChecked(a_checked);
    UpdateCustomInfo();
}

void CCheckBox::StoreChecked(bool a_checked)
{
    m_checked = a_checked;
    Invalidate(false);
}

void CCheckBox::Text(const std::string& a_text)
{
    m_text.SetRaw(a_text);
    UpdateLocalisedText();
    UpdateLabelPosition();
    UpdateCustomInfo();
}

void CCheckBox::Font(const Text::CFontSettings& a_font)
{
    m_font = a_font;
    m_label.SetFont(m_font);
    UpdateLabelPosition();
}

void CCheckBox::LoadTextures()
{
    const int left = m_background.Margin(Margins::Left);
    const int top = m_background.Margin(Margins::Top);
    const int right = m_background.Margin(Margins::Right);
    const int bottom = m_background.Margin(Margins::Bottom);
    m_background.Retrieve({0, 0, m_imageWidth, m_imageHeight});
    // The left margin stands for the top one in the mark's place, though not in its height.
    m_mark.Retrieve({left, left, m_imageWidth - left - right, m_imageHeight - top - bottom});
}

void CCheckBox::UpdateLabelPosition()
{
    if (!m_label.Exists())
    {
        return;
    }
    const STextMargins margins{.left = m_imageWidth + m_imageBuffer};
    const STextSize textSize = m_label.PreferredSize();
    m_label.AlignLines(eaLeft);
    m_label.MoveTo(PlaceText({Width(), Height()}, textSize, margins, eaLeft | eaMiddle, ECentring::Truncating));
    if (Core::Patterns::StaticSingleton<Managers::CConfigManager>::ref().ClipText())
    {
        clutter_actor_set_clip(GetActor(), 0, 0, static_cast<float>(Width() - m_imageWidth - m_imageBuffer),
                               static_cast<float>(Height()));
    }
    m_debugLabel.Place(GetActor(), m_label, {}, textSize);
}

void CCheckBox::DrawSelf() const
{
    m_background.Draw();
    if (m_checked)
    {
        m_mark.Draw();
    }
}

void CCheckBox::Resize(int a_width, int a_height)
{
    CWidget::Resize(a_width, a_height);
    LoadTextures();
}

void CCheckBox::MouseEvent(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point, bool a_remote)
{
    if (ReadOnly())
    {
        return;
    }
    // First, so that a click handler sees the new state.
    if (a_event == Events::FirstClick)
    {
        StoreChecked(!m_checked);
        UpdateCustomInfo();
    }
    CWidget::MouseEvent(a_event, a_buttons, a_point, a_remote);
}

void CCheckBox::SetProperty(const std::string& a_name, const std::string& a_value)
{
    if (!WriteProperty(s_properties, *this, a_name, a_value))
    {
        CWidget::SetProperty(a_name, a_value);
    }
}

std::string CCheckBox::GetProperty(const std::string& a_name, const std::string& a_default)
{
    std::string value;
    return ReadProperty(s_properties, *this, a_name, value) ? value : CWidget::GetProperty(a_name, a_default);
}

void CCheckBox::UpdateLocalisedText()
{
    m_text.Refresh();
    m_label.SetText(m_text.Display());
    m_debugLabel.Update(GetActor(), m_text, false, Width());
    UpdateLabelPosition();
    Invalidate(false);
    CWidget::UpdateLocalisedText();
}

void CCheckBox::UpdateStyle()
{
    CWidget::UpdateStyle();
    m_font.UpdateStyle();
    LoadTextures();
    const Text::CFontSettings font = m_font;
    Font(font);
    QueueRedraw();
}

void CCheckBox::UpdateCustomInfo()
{
    SetCustomInfo("Text", m_text.Display());
    SetCustomInfo("Checked", TextFromBool(m_checked));
}

} // namespace Gfx::Widgets
