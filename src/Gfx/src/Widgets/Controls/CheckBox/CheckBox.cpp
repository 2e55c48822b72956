#include "Widgets/Controls/CheckBox/CheckBox.h"

#include "Gfx/Common/Alignment.h"
#include "Managers/Config/StyleKeys.h"
#include "Platform/Clutter/Clutter.h"

#include <array>

namespace Gfx::Widgets
{

namespace
{

struct SStyle
{
    std::string background = "Panel_Down";
    std::string checked = "Indicator_Up";
    int imageWidth = 20;
    int imageHeight = 20;
    int imageBuffer = 5;
};

/// The kinds of check box have the same keys, each below its own word.
constexpr std::array s_styleKeys{
    Managers::SStyleKey<SStyle>{"/Textures/Background", &SStyle::background},
    Managers::SStyleKey<SStyle>{"/Textures/Checked", &SStyle::checked},
    Managers::SStyleKey<SStyle>{"/Image/Width", &SStyle::imageWidth},
    Managers::SStyleKey<SStyle>{"/Image/Height", &SStyle::imageHeight},
    Managers::SStyleKey<SStyle>{"/Image/Buffer", &SStyle::imageBuffer},
};

constexpr std::array s_properties{
    SProperty<CCheckBox>{"Checked", [](const CCheckBox& a_box) { return TextFromBool(a_box.Checked()); },
                         [](CCheckBox& a_box, const std::string& a_value) { a_box.Checked(IsTrue(a_value)); }},
    SProperty<CCheckBox>{"ReadOnly", [](const CCheckBox& a_box) { return TextFromBool(a_box.ReadOnly()); },
                         [](CCheckBox& a_box, const std::string& a_value) { a_box.ReadOnly(IsTrue(a_value)); }},
};

} // namespace

std::span<const SProperty<CCheckBox>> CCheckBox::PropertyTable()
{
    return s_properties;
}

CCheckBox::CCheckBox(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, const std::string& a_text)
    : CCheckBox(a_name, "CheckBox", a_x, a_y, a_width, a_height, a_text)
{
}

CCheckBox::CCheckBox(const std::string& a_name, const std::string& a_type, int a_x, int a_y, int a_width, int a_height,
                     const std::string& a_text)
    : CWithProperties(a_name, a_type, a_x, a_y, a_width, a_height, false), m_text(a_type)
{
    InitialiseClutterGroup();
    const auto style = Managers::ReadStyle(s_styleKeys, "/Gfx/Controls/" + a_type);
    m_background.Element(style.background);
    m_mark.Element(style.checked);
    m_imageWidth = style.imageWidth;
    m_imageHeight = style.imageHeight;
    m_imageBuffer = style.imageBuffer;
    CCheckBox::Resize(a_width, m_imageHeight);
    m_text.Create(GetActor());
    // Lines of every kind are broken where those of a check box would be: layouts are made for it.
    const auto checkBox = Managers::ReadStyle(s_styleKeys, "/Gfx/Controls/CheckBox");
    m_text.Actor().SetWidth(Width() - checkBox.imageWidth - checkBox.imageBuffer);
    m_text.Actor().WrapLines(true);
    m_text.SetRaw(a_text);
    CCheckBox::UpdateLocalisedText();
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
    const CLife life(Children());
    m_text.SetRaw(a_text);
    UpdateLocalisedText();
    // A child's text that was made anew may have run a handler that ends this widget.
    if (!life.IsOver())
    {
        UpdateLabelPosition();
        UpdateCustomInfo();
    }
}

void CCheckBox::Font(const Text::CFontSettings& a_font)
{
    m_text.Font(a_font);
    UpdateLabelPosition();
}

void CCheckBox::LoadTextures()
{
    const Common::SMargins margins = m_background.Margins();
    m_background.Retrieve({0, 0, m_imageWidth, m_imageHeight});
    // The left margin stands for the top one in the mark's place, though not in its height.
    m_mark.Retrieve(
        {margins.left, margins.left, m_imageWidth - margins.Horizontal(), m_imageHeight - margins.Vertical()});
}

int CCheckBox::TextLeft() const
{
    return m_imageWidth + m_imageBuffer;
}

void CCheckBox::UpdateLabelPosition()
{
    const STextSize textSize = m_text.Actor().PreferredSize();
    m_text.Place({Width(), Height()}, textSize, {.left = TextLeft()}, eaLeft | eaMiddle, ECentring::Truncating);
    if (Core::Patterns::StaticSingleton<Managers::CConfigManager>::ref().ClipText())
    {
        clutter_actor_set_clip(GetActor(), 0, 0, static_cast<float>(Width() - TextLeft()),
                               static_cast<float>(Height()));
    }
    m_text.PlaceDebugLabel({}, textSize);
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
    if (ResizeSelf(a_width, a_height))
    {
        LoadTextures();
    }
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

void CCheckBox::UpdateLocalisedText()
{
    m_text.Refresh();
    m_text.UpdateDebugLabel(Width());
    UpdateLabelPosition();
    Invalidate(false);
    CWidget::UpdateLocalisedText();
}

void CCheckBox::UpdateStyle()
{
    if (!UpdateStyleSelf())
    {
        return;
    }
    m_text.UpdateStyle();
    LoadTextures();
    UpdateLabelPosition();
    QueueRedraw();
}

void CCheckBox::UpdateCustomInfo()
{
    SetCustomInfo("Text", m_text.Display());
    SetCustomInfo("Checked", TextFromBool(m_checked));
}

} // namespace Gfx::Widgets
