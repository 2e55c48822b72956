#pragma once

#include "Core/Api.h"
#include "Core/Maths/Vector2.h"
#include "Gfx/Common/Colour.h"
#include "Widgets/Property.h"
#include "Widgets/Widget.h"

#include <limits>
#include <map>
#include <memory>
#include <span>
#include <string>

namespace Gfx
{

/// How a range of a graph follows the data.
enum EAutoScaleMode
{
    easmOff = 0,
    /// From the least to the greatest value.
    easmScale = 1,
    /// Of constant span, from the least value on.
    easmSlide = 2
};

/// "Off", "Scale" or "Slide".
[[nodiscard]] GFX_API std::string StringFromAutoScaleMode(EAutoScaleMode a_mode);

/// Off for every other text.
[[nodiscard]] GFX_API EAutoScaleMode AutoScaleModeFromString(const std::string& a_text);

} // namespace Gfx

namespace Gfx::Widgets
{

/// Named series of points, as lines over a plain background. Each series keeps its newest points, up to a number of its
/// own, and shows those that lie within the ranges of the two axes. Both ranges are -100 to 100 at first.
///
/// A range that can't be drawn is not taken, and the last good one stays: one that isn't finite, or whose ends are as
/// good as equal. So does the range of an axis that follows the data while there are none. A point that isn't finite
/// leaves a gap. A range from a greater to a lesser value runs backwards.
///
/// Resize() keeps the scale of the old size until a range changes. The horizontal axis lies at 0 if the vertical range
/// is symmetric, otherwise at the mirror image of that.
///
/// Properties: "AutoScaleX", "AutoScaleY" ("Off", "Scale", "Slide"), "ShowX", "ShowY".
///
/// Configuration: `/Gfx/Controls/Graph/Colours/Background` ("Yellow") and `Lines` ("Blue"), of border and axes: colours
/// of the theme, or named ones.
///
/// \code
/// graph->AddSeries("inside", Gfx::Colours::FireBrick, 2.0F, 1000);
/// graph->AddPoint("inside", seconds, celsius, false);
/// \endcode
class GFX_API CGraph : public CWithProperties<CGraph, CWidget>
{
public:
    [[nodiscard]] static std::span<const SProperty<CGraph>> PropertyTable();

    CGraph(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, EAutoScaleMode a_modeX,
           EAutoScaleMode a_modeY, bool a_showXAxis, bool a_showYAxis);
    ~CGraph() override;

    /// a_width is in pixels; when there are more than a_maximumPoints, the oldest ones go. False, and nothing happens,
    /// if there is a series of that name.
    bool AddSeries(const std::string& a_name, const CColour& a_colour, float a_width, unsigned int a_maximumPoints);

    /// False if there is no such series. What is removed is seen to be gone when the graph is next painted; nothing
    /// asks for that here.
    bool RemoveSeries(const std::string& a_name);
    void RemoveAllSeries();

    /// Adds a point, in the units of the axes; with a_breakBefore no line leads to it. False if there is no such
    /// series. The point is seen when the graph is next painted, which only a change of a range asks for.
    bool AddPoint(const std::string& a_series, double a_x, double a_y, bool a_breakBefore);

    /// In the units of the points; see above for what isn't taken.
    void SetXRange(double a_minimum, double a_maximum);
    void SetYRange(double a_minimum, double a_maximum);

    [[nodiscard]] EAutoScaleMode AutoScaleX() const { return m_x.mode; }
    void AutoScaleX(EAutoScaleMode a_mode);

    [[nodiscard]] EAutoScaleMode AutoScaleY() const { return m_y.mode; }
    void AutoScaleY(EAutoScaleMode a_mode);

    [[nodiscard]] bool ShowXAxis() const { return m_showXAxis; }
    void ShowXAxis(bool a_show);

    [[nodiscard]] bool ShowYAxis() const { return m_showYAxis; }
    void ShowYAxis(bool a_show);

    void DrawSelf() const override;
    void Resize(int a_width, int a_height) override;
    void UpdateStyle() override;
    void UpdateCustomInfo() override;

private:
    struct SSeries;

    /// What values lie between; the wrong way round if there are none.
    struct SExtremes
    {
        double minimum = std::numeric_limits<double>::max();
        double maximum = -std::numeric_limits<double>::max();
    };

    struct SAxis
    {
        EAutoScaleMode mode;
        double minimum = 0;
        double maximum = 0;
        /// That of the range as it was set: a range that slides must not lose any to rounding.
        double span = 0;
        /// In pixels per unit.
        double scale = 0;
        /// The pixel of the other axis' line.
        double linePosition = 0;
    };

    void ReadStyle();
    /// a_span is the range's, a_length the widget's in the direction of the axis.
    void SetRange(SAxis& a_axis, double a_minimum, double a_maximum, double a_span, int a_length);
    void FollowExtremes(SAxis& a_axis, const SExtremes& a_extremes, int a_length);
    void SetMode(SAxis& a_axis, EAutoScaleMode a_mode);
    void AutoScale();
    void ReconvertAll();
    /// The pixel of the widget where a point lies.
    [[nodiscard]] Core::Maths::Vector2<double> ToScreen(const Core::Maths::Vector2<double>& a_data) const;
    void Convert(SSeries& a_series) const;
    void DrawSeries(SSeries& a_series) const;

    CColour m_backgroundColour = Colours::Yellow;
    CColour m_lineColour = Colours::Blue;
    SAxis m_x;
    SAxis m_y;
    bool m_showXAxis;
    bool m_showYAxis;
    std::map<std::string, std::unique_ptr<SSeries>> m_series;
};

} // namespace Gfx::Widgets
