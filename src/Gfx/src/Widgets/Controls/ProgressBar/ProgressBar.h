#pragma once

#include "Core/Api.h"
#include "Widgets/Property.h"
#include "Widgets/TextureLayer.h"
#include "Widgets/Widget.h"

#include <span>
#include <string>

namespace Gfx::Widgets
{

/// A value between two bounds, as a bar that grows inside a background.
///
/// Bounds that leave the value out end the process: to shift a range, move the value first.
///
/// Properties: "Minimum", "Maximum", "Current", in decimal.
///
/// Configuration: `/Gfx/Controls/ProgressBar/Textures/Background` ("Panel_Down") and `Bar` ("Indicator_Up").
class GFX_API CProgressBar : public CWithProperties<CProgressBar, CWidget>
{
public:
    [[nodiscard]] static std::span<const SProperty<CProgressBar>> PropertyTable();

    /// With a_leftToRight the bar grows from the left edge, otherwise from the right one.
    CProgressBar(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, int a_minimum, int a_maximum,
                 int a_current, bool a_leftToRight);

    /// Makes the quads anew, for the elements, the theme and the size that hold now. Happens by itself.
    void LoadTextures();

    /// The same for the bar alone, for the value that holds now.
    void UpdateBar();

    [[nodiscard]] int Minimum() const { return m_min; }
    void Minimum(int a_minimum);

    [[nodiscard]] int Maximum() const { return m_max; }
    void Maximum(int a_maximum);

    /// Kept within the bounds. Below 1 no bar is drawn, whatever the bounds are.
    [[nodiscard]] int Current() const { return m_current; }
    void Current(int a_current);

    void DrawSelf() const override;
    void Resize(int a_width, int a_height) override;
    void UpdateStyle() override;
    void UpdateCustomInfo() override;

private:
    void CheckRange() const;

    int m_min;
    int m_max;
    int m_current;
    bool m_leftToRight;
    /// The borders of the background.
    Common::SMargins m_margins;
    int m_barAreaWidth = 0;
    int m_barAreaHeight = 0;
    int m_minimumBarWidth = 0;
    CTextureLayer m_background;
    CTextureLayer m_bar;
};

} // namespace Gfx::Widgets
