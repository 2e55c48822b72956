#include "Widgets/Controls/Label/Label.h"

#include "Gfx/Common/Alignment.h"
#include "Managers/Config/StyleKeys.h"

#include <algorithm>
#include <array>

namespace Gfx::Widgets
{

namespace
{

/// However wide a background's borders are, text is kept no further from the edge.
constexpr int k_widestMargin = 8;

/// A resize handler that sets another text has the label fitted again, and so on; there is an end to it.
constexpr int k_mostFits = 8;

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

std::span<const SProperty<CLabel>> CLabel::PropertyTable()
{
    return s_properties;
}

CLabel::CLabel(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_wrap, bool a_autoSize,
               bool a_parseMarkup, const std::string& a_text, bool a_raised)
    : CWithProperties(a_name, "Label", a_x, a_y, a_width, a_height, false)
    , m_text("Label")
    , m_wrap(a_wrap)
    , m_autoSize(a_autoSize)
{
    InitialiseClutterGroup();
    const SStyle& style = Managers::ReadStyle(s_styleKeys);
    m_background.Element(a_raised ? style.raised : style.lowered);
    m_hasBackground = style.hasBackground == "Yes";
    LoadTextures();
    m_text.ParseMarkup(a_parseMarkup);
    m_text.Create(GetActor(), a_text);
    if (m_autoSize)
    {
        m_text.Font().alignment = eaDefault;
    }
    if (m_wrap)
    {
        m_text.Actor().SetWidth(Width());
    }
    m_text.Actor().WrapLines(m_wrap);
    UpdateLabelPosition();
    Text(a_text);
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
    const CLife life(Children());
    m_text.SetRaw(a_text);
    // Places the text, too. Once: with autoSize, each placement asks the resize handler.
    UpdateLocalisedText();
    if (!life.IsOver())
    {
        UpdateCustomInfo();
    }
}

void CLabel::Font(const Text::CFontSettings& a_font)
{
    Text::CFontSettings font = a_font;
    if (m_autoSize)
    {
        font.alignment = eaDefault;
    }
    m_text.Font(font);
    UpdateLabelPosition();
}

void CLabel::ParseMarkup(bool a_parse)
{
    if (m_text.ParseMarkup(a_parse))
    {
        UpdateLabelPosition();
    }
}

void CLabel::Background(bool a_background)
{
    if (a_background != m_hasBackground)
    {
        m_hasBackground = a_background;
        LoadTextures();
        KeepClearOfBorders();
    }
}

void CLabel::BackgroundTexture(const std::string& a_element)
{
    m_background.Element(a_element);
    LoadTextures();
    KeepClearOfBorders();
}

void CLabel::KeepClearOfBorders()
{
    Invalidate(false);
    UpdateLabelPosition();
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
    if (!ResizeSelf(a_width, a_height))
    {
        return;
    }
    if (m_wrap && m_autoSize)
    {
        m_text.Actor().SetWidth(a_width);
    }
    else if (m_wrap)
    {
        m_text.Actor().SetSize(a_width, a_height);
    }
    LoadTextures();
    UpdateLabelPosition();
}

void CLabel::UpdateLocalisedText()
{
    const CLife life(Children());
    m_text.Refresh();
    m_text.UpdateDebugLabel(Width());
    // A text that has changed needs placing in either mode, not only to put the debug label over it.
    UpdateLabelPosition();
    if (!life.IsOver())
    {
        Invalidate(false);
        CWidget::UpdateLocalisedText();
    }
}

void CLabel::UpdateStyle()
{
    if (!UpdateStyleSelf())
    {
        return;
    }
    m_text.UpdateStyle();
    LoadTextures();
    QueueRedraw();
    UpdateLabelPosition();
}

void CLabel::UpdateCustomInfo()
{
    SetCustomInfo("Text", m_text.Display());
}

void CLabel::UpdateLabelPosition()
{
    if (!m_text.Exists() || m_fits == k_mostFits)
    {
        return;
    }
    Common::SMargins margins;
    if (m_hasBackground)
    {
        margins = m_background.Margins();
        for (int* margin : {&margins.left, &margins.top, &margins.right, &margins.bottom})
        {
            *margin = std::min(*margin, k_widestMargin);
        }
    }
    const STextSize textSize = m_text.Actor().PreferredSize();
    m_text.Place({Width(), Height()}, textSize, margins, ECentring::Truncating);
    if (m_autoSize && (Width() != textSize.width || Height() != textSize.height))
    {
        // The widget grows by the whole borders, whether or not the background is on.
        margins = m_background.Margins();
        ++m_fits;
        if (!ResizeSelf(textSize.width + margins.Horizontal(), textSize.height + margins.Vertical()))
        {
            return;
        }
        --m_fits;
        LoadTextures();
    }
    m_text.PlaceDebugLabel(margins, textSize);
}

} // namespace Gfx::Widgets
