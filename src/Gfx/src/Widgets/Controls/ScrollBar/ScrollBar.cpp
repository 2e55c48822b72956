#include "Widgets/Controls/ScrollBar/ScrollBar.h"

#include "Managers/Config/StyleKeys.h"
#include "Platform/Clutter/Clutter.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace Gfx::Widgets
{

using Common::detail::Saturated;
using Common::detail::Share;

namespace
{

constexpr int k_mousePriority = 10000;

/// How many steps a press beside the slider is worth.
constexpr int k_pageSteps = 10;

/// How much of the way between square steppers the slider takes at most.
constexpr double k_largestSlider = 0.66;

struct SStyle
{
    std::string background = "Panel_Down";
    std::string sliderInactive = "ControlInactive_Up";
    std::string sliderActive = "ControlActive_Up";
    std::string stepperInactive = "ControlInactive_Up";
    std::string stepperActive = "ControlActive_Up";
    int stepperSize = 40;
    int imageInset = 8;
    int sliderSize = 60;
};

constexpr std::array s_styleKeys{
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/ScrollBar/Textures/BarBackground", &SStyle::background},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/ScrollBar/Textures/SliderInactive", &SStyle::sliderInactive},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/ScrollBar/Textures/SliderActive", &SStyle::sliderActive},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/ScrollBar/Textures/StepperInactive", &SStyle::stepperInactive},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/ScrollBar/Textures/StepperActive", &SStyle::stepperActive},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/ScrollBar/Steppers/Size", &SStyle::stepperSize},
    // Without a leading slash, unlike every other key: that is how the key is looked up.
    Managers::SStyleKey<SStyle>{"Gfx/Controls/ScrollBar/Steppers/ImageInset", &SStyle::imageInset},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/ScrollBar/Slider/Size", &SStyle::sliderSize},
};

constexpr std::array s_properties{
    SProperty<CScrollBar>{"Minimum", [](const CScrollBar& a_bar) { return std::to_string(a_bar.Minimum()); },
                          [](CScrollBar& a_bar, const std::string& a_value)
                          { a_bar.Minimum(NumberFromText(a_value)); }},
    SProperty<CScrollBar>{"Maximum", [](const CScrollBar& a_bar) { return std::to_string(a_bar.Maximum()); },
                          [](CScrollBar& a_bar, const std::string& a_value)
                          { a_bar.Maximum(NumberFromText(a_value)); }},
    SProperty<CScrollBar>{"Current", [](const CScrollBar& a_bar) { return std::to_string(a_bar.Current()); },
                          [](CScrollBar& a_bar, const std::string& a_value)
                          { a_bar.Current(NumberFromText(a_value)); }},
    SProperty<CScrollBar>{"Step", [](const CScrollBar& a_bar) { return std::to_string(a_bar.StepSize()); },
                          [](CScrollBar& a_bar, const std::string& a_value)
                          { a_bar.StepSize(NumberFromText(a_value)); }},
};

void SetElement(CTextureLayer& a_layer, const std::string& a_element)
{
    if (!a_element.empty())
    {
        a_layer.Element(a_element);
    }
}

} // namespace

std::span<const SProperty<CScrollBar>> CScrollBar::PropertyTable()
{
    return s_properties;
}

CScrollBar::CScrollBar(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_horizontal,
                       int a_minimum, int a_maximum, int a_current, int a_stepSize)
    : CWithProperties(a_name, "ScrollBar", a_x, a_y, a_width, a_height, false)
    , m_horizontal(a_horizontal)
    , m_minimum(a_minimum)
    , m_maximum(a_maximum)
    , m_current(a_current)
    , m_stepSize(a_stepSize)
{
    InitialiseClutterGroup();
    const auto& style = Managers::ReadStyle(s_styleKeys);
    m_stepperSize = style.stepperSize;
    m_sliderSize = style.sliderSize;
    m_imageInset = style.imageInset;
    m_images[0].Element(a_horizontal ? "Arrow_Left" : "Arrow_Up");
    m_images[1].Element(a_horizontal ? "Arrow_Right" : "Arrow_Down");
    MousePriority(k_mousePriority);
    // Whatever the configured size of the steppers, they count as square here.
    const int track = a_horizontal ? Width() - 2 * Height() : Height() - 2 * Width();
    if (track * k_largestSlider < m_sliderSize)
    {
        m_sliderSize = static_cast<int>(track * k_largestSlider);
    }
    SetTextures(style.background, style.sliderInactive, style.sliderActive, style.stepperInactive, style.stepperActive);
}

void CScrollBar::LoadTextures()
{
    const Common::SMargins along = m_horizontal ? Common::SMargins{.left = m_stepperSize, .right = m_stepperSize}
                                                : Common::SMargins{.top = m_stepperSize, .bottom = m_stepperSize};
    const int barWidth = Width() - along.Horizontal();
    const int barHeight = Height() - along.Vertical();
    m_background.Retrieve({along.left, along.top, barWidth, barHeight});

    const Common::SMargins margins = m_background.Margins();
    const int innerWidth = barWidth - margins.Horizontal();
    const int innerHeight = barHeight - margins.Vertical();
    m_sliderOrigin = {along.left + margins.left, along.top + margins.top};
    m_travel = (m_horizontal ? innerWidth : innerHeight) - m_sliderSize;
    m_slider.Retrieve({m_sliderOrigin.X(), m_sliderOrigin.Y(), m_horizontal ? m_sliderSize : innerWidth,
                       m_horizontal ? innerHeight : m_sliderSize});

    const int cellWidth = m_horizontal ? m_stepperSize : Width();
    const int cellHeight = m_horizontal ? Height() : m_stepperSize;
    const Common::CPoint second(Width() - cellWidth, Height() - cellHeight);
    m_steppers[0].Retrieve({0, 0, cellWidth, cellHeight});
    m_steppers[1].Retrieve({second.X(), second.Y(), cellWidth, cellHeight});
    if (!UpdateSliderPosition(m_current, false))
    {
        return;
    }
    const Common::CAABB image(m_imageInset, m_imageInset, cellWidth - 2 * m_imageInset, cellHeight - 2 * m_imageInset);
    m_images[0].Retrieve(image);
    m_images[1].Retrieve({second.X() + image.Left(), second.Y() + image.Top(), image.Width(), image.Height()});
    QueueRedraw();
}

void CScrollBar::SPart::Retrieve(const Common::CAABB& a_box)
{
    box = a_box;
    for (CTextureLayer& look : looks)
    {
        look.Retrieve(a_box);
    }
}

int CScrollBar::Along(const Common::CPoint& a_point) const
{
    return m_horizontal ? a_point.X() : a_point.Y();
}

bool CScrollBar::UpdateSliderPosition(int a_value, bool a_silent)
{
    const int old = std::exchange(m_current, std::min(std::max(a_value, m_minimum), m_maximum));
    const auto offset =
        static_cast<int>(Share(m_travel, std::int64_t{m_current} - m_minimum, std::int64_t{m_maximum} - m_minimum));
    m_sliderOffset = m_horizontal ? Common::CPoint(offset, 0) : Common::CPoint(0, offset);
    const Common::CPoint slider = m_sliderOrigin + m_sliderOffset;
    m_slider.box.Left(slider.X());
    m_slider.box.Top(slider.Y());
    if (m_current == old)
    {
        return true;
    }
    const CLife life(Children());
    if (!a_silent && m_scrollEventHandler != nullptr)
    {
        m_scrollEventHandler->Execute(this, m_current);
        if (life.IsOver())
        {
            return false;
        }
    }
    Invalidate(false);
    UpdateCustomInfo();
    return true;
}

bool CScrollBar::MoveBySteps(int a_steps)
{
    return UpdateSliderPosition(Saturated(m_current + std::int64_t{a_steps} * m_stepSize), false);
}

void CScrollBar::Minimum(int a_minimum)
{
    m_minimum = a_minimum;
    UpdateSliderPosition(m_current, true);
    Invalidate(false);
}

void CScrollBar::Maximum(int a_maximum)
{
    m_maximum = a_maximum;
    UpdateSliderPosition(m_current, true);
    Invalidate(false);
}

void CScrollBar::Current(int a_current)
{
    m_current = a_current;
    UpdateSliderPosition(m_current, true);
    Invalidate(false);
}

void CScrollBar::StepSize(int a_stepSize)
{
    m_stepSize = a_stepSize;
    UpdateCustomInfo();
}

void CScrollBar::SetImages(const std::string& a_first, const std::string& a_second)
{
    SetElement(m_images[0], a_first);
    SetElement(m_images[1], a_second);
    LoadTextures();
}

void CScrollBar::SetTextures(const std::string& a_background, const std::string& a_sliderInactive,
                             const std::string& a_sliderActive, const std::string& a_stepperInactive,
                             const std::string& a_stepperActive)
{
    SetElement(m_background, a_background);
    SetElement(m_slider.looks[0], a_sliderInactive);
    SetElement(m_slider.looks[1], a_sliderActive);
    for (SPart& stepper : m_steppers)
    {
        SetElement(stepper.looks[0], a_stepperInactive);
        SetElement(stepper.looks[1], a_stepperActive);
    }
    LoadTextures();
}

void CScrollBar::DrawSelf() const
{
    m_background.Draw();
    DrawPart(m_steppers[0], EPart::FirstStepper);
    m_images[0].Draw();
    DrawPart(m_steppers[1], EPart::SecondStepper);
    m_images[1].Draw();
    // To move the slider takes no new quads. Nothing is drawn behind it, and the caller takes the translation back.
    cogl_translate(static_cast<float>(m_sliderOffset.X()), static_cast<float>(m_sliderOffset.Y()), 0);
    DrawPart(m_slider, EPart::Slider);
}

void CScrollBar::DrawPart(const SPart& a_part, EPart a_which) const
{
    a_part.looks[m_pressedPart == a_which ? 1 : 0].Draw();
}

void CScrollBar::Idle()
{
    if (!Selected())
    {
        return;
    }
    const bool isFirst = m_pressedPart == EPart::FirstStepper;
    const bool isHeld = isFirst || m_pressedPart == EPart::SecondStepper;
    if (!isHeld || MoveBySteps(isFirst ? -1 : 1))
    {
        CWidget::Idle();
    }
}

void CScrollBar::Resize(int a_width, int a_height)
{
    if (ResizeSelf(a_width, a_height) && UpdateSliderPosition(m_current, false))
    {
        LoadTextures();
    }
}

bool CScrollBar::Draggable() const
{
    return true;
}

bool CScrollBar::StartDragging(const Common::CPoint& a_point)
{
    if (!m_slider.box.Contains(a_point))
    {
        return false;
    }
    m_pressedPart = EPart::Slider;
    m_dragStartValue = m_current;
    m_dragging = true;
    // The press itself will find the slider pressed already.
    QueueRedraw();
    return true;
}

void CScrollBar::UpdateDragging(const Common::CPoint& a_displacement)
{
    const std::int64_t change = Share(Along(a_displacement), std::int64_t{m_maximum} - m_minimum, m_travel);
    UpdateSliderPosition(Saturated(change + m_dragStartValue), false);
}

void CScrollBar::EndDragging()
{
    m_dragging = false;
    m_pressedPart = EPart::None;
    Invalidate(false);
}

bool CScrollBar::IsDragging() const
{
    return m_dragging;
}

void CScrollBar::MouseEvent(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point, bool a_remote)
{
    const CLife life(Children());
    CWidget::MouseEvent(a_event, a_buttons, a_point, a_remote);
    if (life.IsOver())
    {
        return;
    }
    const EPart old = m_pressedPart;
    if (a_event == Events::FirstUp)
    {
        m_pressedPart = EPart::None;
    }
    else if (a_event == Events::FirstDown && !Press(a_point))
    {
        return;
    }
    if (m_pressedPart != old)
    {
        Invalidate(false);
    }
}

bool CScrollBar::Press(const Common::CPoint& a_point)
{
    if (m_steppers[0].box.Contains(a_point))
    {
        m_pressedPart = EPart::FirstStepper;
        return MoveBySteps(-1);
    }
    if (m_steppers[1].box.Contains(a_point))
    {
        m_pressedPart = EPart::SecondStepper;
        return MoveBySteps(1);
    }
    if (m_slider.box.Contains(a_point))
    {
        m_pressedPart = EPart::Slider;
        return true;
    }
    m_pressedPart = EPart::None;
    const bool isBefore = Along(a_point) < Along(m_sliderOrigin + m_sliderOffset);
    return MoveBySteps(isBefore ? -k_pageSteps : k_pageSteps);
}

void CScrollBar::UpdateStyle()
{
    if (UpdateStyleSelf())
    {
        LoadTextures();
    }
}

void CScrollBar::UpdateCustomInfo()
{
    SetCustomInfo("Minimum", std::to_string(m_minimum));
    SetCustomInfo("Maximum", std::to_string(m_maximum));
    SetCustomInfo("Current", std::to_string(m_current));
    SetCustomInfo("StepSize", std::to_string(m_stepSize));
}

} // namespace Gfx::Widgets
