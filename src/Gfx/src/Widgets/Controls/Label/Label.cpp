#include "Widgets/Controls/Label/Label.h"

#include "Gfx/Common/Alignment.h"
#include "Managers/Config/StyleKeys.h"
#include "Widgets/Property.h"

#include <algorithm>
#include <array>

namespace Gfx::Widgets
{

namespace
{

/// However wide a background's borders are, text is kept no further from the edge.
constexpr int k_widestMargin = 8;

struct SStyle
{
    std::string raised = "Panel_Up";
    std::string lowered = "Panel_Down";
    std::string hasBackground = "No";
};

constexpr std::array s_styleKeys{
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Label/Textures/Background/Raised", &SStyle::raised},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Label/Textures/Background/Lowered", &SStyle::lowered},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Label/Style/HasBackground", &SStyle::hasBackground},
};

constexpr std::array s_properties{
    SProperty<CLabel>{"Text", [](const CLabel& a_label) { return a_label.Text(); },
                      [](CLabel& a_label, const std::string& a_value) { a_label.Text(a_value); }},
    SProperty<CLabel>{"Background", [](const CLabel& a_label) { return TextFromBool(a_label.Background()); },
                      [](CLabel& a_label, const std::string& a_value) { a_label.Background(IsTrue(a_value)); }},
    SProperty<CLabel>{"ParseMarkup", [](const CLabel& a_label) { return TextFromBool(a_label.ParseMarkup()); },
                      [](CLabel& a_label, const std::string& a_value) { a_label.ParseMarkup(IsTrue(a_value)); }},
    SProperty<CLabel>{"BackgroundTexture", [](const CLabel& a_label) { return a_label.BackgroundTexture(); },
                      [](CLabel& a_label, const std::string& a_value) { a_label.BackgroundTexture(a_value); }},
};

} // namespace

CLabel::CLabel(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_wrap, bool a_autoSize,
               bool a_parseMarkup, const std::string& a_text, bool a_raised)
    : CWidget(a_name, "Label", a_x, a_y, a_width, a_height, false)
    , m_font("Label")
    , m_wrap(a_wrap)
    , m_autoSize(a_autoSize)
    , m_parseMarkup(a_parseMarkup)
{
    InitialiseClutterGroup();
    const auto style = Managers::ReadStyle(s_styleKeys);
    m_background.Element(a_raised ? style.raised : style.lowered);
    m_hasBackground = style.hasBackground == "Yes";
    LoadTextures();
    m_label.Create(GetActor(), m_font, a_text);
    m_label.UseMarkup(m_parseMarkup);
    if (m_autoSize)
    {
        m_font.alignment = eaDefault;
    }
    if (m_wrap)
    {
        m_label.SetWidth(a_width);
    }
    m_label.WrapLines(m_wrap);
    UpdateLabelPosition();
    Text(a_text);
    CLabel::UpdateCustomInfo();
}

void CLabel::LoadTextures()
{
    if (m_hasBackground)
    {
        m_background.Retrieve({0, 0, Width(), Height()});
    }
}

void CLabel::Text(const std::string& a_text)
{
    if (a_text == m_text.Raw())
    {
        return;
    }
    m_text.SetRaw(a_text);
    UpdateLocalisedText();
    UpdateLabelPosition();
    UpdateCustomInfo();
}

void CLabel::Font(const Text::CFontSettings& a_font)
{
    m_font = a_font;
    if (m_autoSize)
    {
        m_font.alignment = eaDefault;
    }
    m_label.SetFont(m_font);
    UpdateLabelPosition();
}

void CLabel::ParseMarkup(bool a_parse)
{
    if (a_parse != m_parseMarkup)
    {
        m_parseMarkup = a_parse;
        m_label.UseMarkup(a_parse);
        UpdateLabelPosition();
    }
}

void CLabel::Background(bool a_background)
{
    if (a_background != m_hasBackground)
    {
        m_hasBackground = a_background;
        LoadTextures();
        Invalidate(false);
    }
}

void CLabel::BackgroundTexture(const std::string& a_element)
{
    m_background.Element(a_element);
    LoadTextures();
    Invalidate(false);
}

void CLabel::DrawSelf() const
{
    if (m_hasBackground)
    {
        m_background.Draw();
    }
}

void CLabel::Resize(int a_width, int a_height)
{
    CWidget::Resize(a_width, a_height);
    if (m_wrap && m_autoSize)
    {
        m_label.SetWidth(a_width);
    }
    else if (m_wrap)
    {
        m_label.SetSize(a_width, a_height);
    }
    LoadTextures();
    UpdateLabelPosition();
}

void CLabel::SetProperty(const std::string& a_name, const std::string& a_value)
{
    if (!WriteProperty(s_properties, *this, a_name, a_value))
    {
        CWidget::SetProperty(a_name, a_value);
    }
}

std::string CLabel::GetProperty(const std::string& a_name, const std::string& a_default)
{
    std::string value;
    return ReadProperty(s_properties, *this, a_name, value) ? value : CWidget::GetProperty(a_name, a_default);
}

void CLabel::UpdateLocalisedText()
{
    m_text.Refresh();
    m_label.SetText(m_text.Display());
    m_debugLabel.Update(GetActor(), m_text, m_parseMarkup, Width());
    // A text that has changed needs placing in either mode, not only to put the debug label over it.
    UpdateLabelPosition();
    Invalidate(false);
    CWidget::UpdateLocalisedText();
}

void CLabel::UpdateStyle()
{
    CWidget::UpdateStyle();
    m_font.UpdateStyle();
    LoadTextures();
    const Text::CFontSettings font = m_font;
    Font(font);
    QueueRedraw();
}

void CLabel::UpdateCustomInfo()
{
    SetCustomInfo("Text", m_text.Display());
}

STextMargins CLabel::BackgroundMargins() const
{
    return {m_background.Margin(Margins::Left), m_background.Margin(Margins::Top), m_background.Margin(Margins::Right),
            m_background.Margin(Margins::Bottom)};
}

void CLabel::UpdateLabelPosition()
{
    if (!m_label.Exists())
    {
        return;
    }
    STextMargins margins;
    if (m_hasBackground)
    {
        margins = BackgroundMargins();
        for (int* margin : {&margins.left, &margins.top, &margins.right, &margins.bottom})
        {
            *margin = std::min(*margin, k_widestMargin);
        }
    }
    const STextSize textSize = m_label.PreferredSize();
    m_label.AlignLines(m_font.alignment);
    m_label.MoveTo(PlaceText({Width(), Height()}, textSize, margins, m_font.alignment, ECentring::Truncating));
    if (m_autoSize && (Width() != textSize.width || Height() != textSize.height))
    {
        // The widget grows by the whole borders, whether or not the background is on.
        margins = BackgroundMargins();
        CWidget::Resize(textSize.width + margins.left + margins.right, textSize.height + margins.top + margins.bottom);
        LoadTextures();
    }
    m_debugLabel.Place(GetActor(), m_label, margins, textSize);
}

} // namespace Gfx::Widgets
