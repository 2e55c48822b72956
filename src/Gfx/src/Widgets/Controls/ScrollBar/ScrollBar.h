#pragma once

#include "Core/Api.h"
#include "Core/Functor.h"
#include "Gfx/Common/AABB.h"
#include "Widgets/Property.h"
#include "Widgets/TextureLayer.h"
#include "Widgets/Widget.h"

#include <array>
#include <span>
#include <string>

namespace Gfx::Widgets
{

/// A value between two bounds, as a slider between a stepper at each end; the minimum is at the left or at the top.
///
/// The slider is dragged, a stepper that is held moves it by a step at once and at each idle round, and a press beside
/// the slider moves it by ten steps.
///
/// Properties: "Minimum", "Maximum", "Current", "Step", in decimal.
///
/// Configuration, below `/Gfx/Controls/ScrollBar/`: `Textures/BarBackground` ("Panel_Down"), `SliderInactive`,
/// `SliderActive`, `StepperInactive` and `StepperActive` ("ControlInactive_Up", "ControlActive_Up"), `Steppers/Size`
/// (40, along the bar), `Steppers/ImageInset` (8), `Slider/Size` (60, along the bar).
class GFX_API CScrollBar : public CWithProperties<CScrollBar, CWidget>
{
public:
    [[nodiscard]] static std::span<const SProperty<CScrollBar>> PropertyTable();

    using ScrollEventHandler = Core::Functor<void, CWidget*, int>::Signature;

    CScrollBar(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_horizontal, int a_minimum,
               int a_maximum, int a_current, int a_stepSize);

    /// Makes the quads anew, for the elements, the theme and the size that hold now. Happens by itself.
    void LoadTextures();

    /// The three setters keep the value within the bounds, the lower one first, and don't call the scroll event
    /// handler.
    [[nodiscard]] int Minimum() const { return m_minimum; }
    void Minimum(int a_minimum);

    [[nodiscard]] int Maximum() const { return m_maximum; }
    void Maximum(int a_maximum);

    [[nodiscard]] int Current() const { return m_current; }
    void Current(int a_current);

    [[nodiscard]] int StepSize() const { return m_stepSize; }
    void StepSize(int a_stepSize);

    /// a_handler is told the value when the user has changed it. It stays the caller's; null for none.
    void SetScrollEventHandler(ScrollEventHandler* a_handler) { m_scrollEventHandler = a_handler; }

    /// The elements on the two steppers; an empty name keeps the present one.
    void SetImages(const std::string& a_first, const std::string& a_second);

    /// The elements of the bar itself; an empty name keeps the present one.
    void SetTextures(const std::string& a_background, const std::string& a_sliderInactive,
                     const std::string& a_sliderActive, const std::string& a_stepperInactive,
                     const std::string& a_stepperActive);

    void DrawSelf() const override;
    void Idle() override;
    void Resize(int a_width, int a_height) override;
    [[nodiscard]] bool Draggable() const override;
    bool StartDragging(const Common::CPoint& a_point) override;
    void UpdateDragging(const Common::CPoint& a_displacement) override;
    void EndDragging() override;
    [[nodiscard]] bool IsDragging() const override;
    void MouseEvent(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point, bool a_remote) override;
    void UpdateStyle() override;
    void UpdateCustomInfo() override;

private:
    enum class EPart
    {
        None,
        Slider,
        FirstStepper,
        SecondStepper
    };

    /// What of the bar can be pressed, with its look when it isn't pressed and when it is.
    struct SPart
    {
        std::array<CTextureLayer, 2> looks;
        Common::CAABB box;

        void Retrieve(const Common::CAABB& a_box);
    };

    /// The coordinate along the bar.
    [[nodiscard]] int Along(const Common::CPoint& a_point) const;
    /// False if the scroll event handler has destroyed the bar.
    bool UpdateSliderPosition(int a_value, bool a_silent);
    /// The same, from the present value by a number of steps.
    bool MoveBySteps(int a_steps);
    bool Press(const Common::CPoint& a_point);
    void DrawPart(const SPart& a_part, EPart a_which) const;

    ScrollEventHandler* m_scrollEventHandler = nullptr;
    bool m_horizontal;
    int m_minimum;
    int m_maximum;
    int m_current;
    int m_stepSize;
    CTextureLayer m_background;
    SPart m_slider;
    std::array<SPart, 2> m_steppers;
    std::array<CTextureLayer, 2> m_images;
    int m_stepperSize = 0;
    int m_sliderSize = 0;
    int m_imageInset = 0;
    /// The pixels between the slider's two end positions.
    int m_travel = 0;
    /// The slider's place at the minimum, and how far it is from there.
    Common::CPoint m_sliderOrigin;
    Common::CPoint m_sliderOffset;
    EPart m_pressedPart = EPart::None;
    bool m_dragging = false;
    int m_dragStartValue = 0;
};

} // namespace Gfx::Widgets
