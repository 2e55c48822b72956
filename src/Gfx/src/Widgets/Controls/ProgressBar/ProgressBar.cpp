#include "Widgets/Controls/ProgressBar/ProgressBar.h"

#include "Core/Assert.h"
#include "Managers/Config/StyleKeys.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace Gfx::Widgets
{

namespace
{

struct SStyle
{
    std::string background = "Panel_Down";
    std::string bar = "Indicator_Up";
};

constexpr std::array s_styleKeys{
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/ProgressBar/Textures/Background", &SStyle::background},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/ProgressBar/Textures/Bar", &SStyle::bar},
};

constexpr std::array s_properties{
    SProperty<CProgressBar>{"Minimum", [](const CProgressBar& a_bar) { return std::to_string(a_bar.Minimum()); },
                            [](CProgressBar& a_bar, const std::string& a_value)
                            { a_bar.Minimum(NumberFromText(a_value)); }},
    SProperty<CProgressBar>{"Maximum", [](const CProgressBar& a_bar) { return std::to_string(a_bar.Maximum()); },
                            [](CProgressBar& a_bar, const std::string& a_value)
                            { a_bar.Maximum(NumberFromText(a_value)); }},
    SProperty<CProgressBar>{"Current", [](const CProgressBar& a_bar) { return std::to_string(a_bar.Current()); },
                            [](CProgressBar& a_bar, const std::string& a_value)
                            { a_bar.Current(NumberFromText(a_value)); }},
};

} // namespace

std::span<const SProperty<CProgressBar>> CProgressBar::PropertyTable()
{
    return s_properties;
}

CProgressBar::CProgressBar(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, int a_minimum,
                           int a_maximum, int a_current, bool a_leftToRight)
    : CWithProperties(a_name, "ProgressBar", a_x, a_y, a_width, a_height, false)
    , m_min(a_minimum)
    , m_max(a_maximum)
    , m_current(a_current)
    , m_leftToRight(a_leftToRight)
{
    InitialiseClutterGroup();
    const SStyle& style = Managers::ReadStyle(s_styleKeys);
    m_background.Element(style.background);
    m_bar.Element(style.bar);
    CheckRange();
    LoadTextures();
}

void CProgressBar::CheckRange() const
{
    GFX_ASSERT(m_current >= m_min);
    GFX_ASSERT(m_current <= m_max);
}

void CProgressBar::LoadTextures()
{
    m_background.Retrieve({0, 0, Width(), Height()});
    m_margins = m_background.Margins();
    m_barAreaWidth = Width() - m_margins.Horizontal();
    m_barAreaHeight = Height() - m_margins.Vertical();
    // A bar with borders is never narrower than its two ends.
    m_minimumBarWidth = m_bar.Margins().Horizontal();
    UpdateBar();
}

void CProgressBar::UpdateBar()
{
    // Between bounds that are equal the value is at both of them: the bar is full.
    const std::int64_t range = std::int64_t{m_max} - m_min;
    const std::int64_t part = range != 0 ? std::int64_t{m_current} - m_min : 1;
    const int length = Common::detail::Saturated(part * m_barAreaWidth / (range != 0 ? range : 1));
    const int barLength = std::max(length, m_minimumBarWidth);
    const int x = m_leftToRight ? m_margins.left : Width() - m_margins.right - barLength;
    m_bar.Retrieve({x, m_margins.top, barLength, m_barAreaHeight});
    Invalidate(false);
    UpdateCustomInfo();
}

void CProgressBar::Minimum(int a_minimum)
{
    m_min = a_minimum;
    CheckRange();
    UpdateBar();
}

void CProgressBar::Maximum(int a_maximum)
{
    m_max = a_maximum;
    CheckRange();
    UpdateBar();
}

void CProgressBar::Current(int a_current)
{
    m_current = std::min(std::max(a_current, m_min), m_max);
    UpdateBar();
}

void CProgressBar::DrawSelf() const
{
    m_background.Draw();
    // Against 1, and not against the minimum.
    if (m_current >= 1)
    {
        m_bar.Draw();
    }
}

void CProgressBar::Resize(int a_width, int a_height)
{
    if (ResizeSelf(a_width, a_height))
    {
        LoadTextures();
    }
}

void CProgressBar::UpdateStyle()
{
    if (UpdateStyleSelf())
    {
        LoadTextures();
    }
}

void CProgressBar::UpdateCustomInfo()
{
    SetCustomInfo("Minimum", std::to_string(m_min));
    SetCustomInfo("Maximum", std::to_string(m_max));
    SetCustomInfo("Current", std::to_string(m_current));
}

} // namespace Gfx::Widgets
