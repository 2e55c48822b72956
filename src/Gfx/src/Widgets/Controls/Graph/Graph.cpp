#include "Widgets/Controls/Graph/Graph.h"

#include "Gfx/Common/Drawing.h"
#include "Managers/Config/StyleKeys.h"
#include "Managers/Gfx/GfxManager.h"
#include "Managers/Themes/ThemeManager.h"
#include "Platform/Clutter/Lines.h"
#include "Platform/Clutter/Scissor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

namespace Gfx
{

namespace
{

struct SModeName
{
    EAutoScaleMode mode;
    const char* name;
};

constexpr std::array s_modeNames{
    SModeName{easmScale, "Scale"},
    SModeName{easmSlide, "Slide"},
};

} // namespace

std::string StringFromAutoScaleMode(EAutoScaleMode a_mode)
{
    const auto* const found = std::find_if(s_modeNames.begin(), s_modeNames.end(),
                                           [a_mode](const SModeName& a_row) { return a_row.mode == a_mode; });
    return found != s_modeNames.end() ? found->name : "Off";
}

EAutoScaleMode AutoScaleModeFromString(const std::string& a_text)
{
    const auto* const found = std::find_if(s_modeNames.begin(), s_modeNames.end(),
                                           [&a_text](const SModeName& a_row) { return a_row.name == a_text; });
    return found != s_modeNames.end() ? found->mode : easmOff;
}

} // namespace Gfx

namespace Gfx::Widgets
{

using Core::Patterns::StaticSingleton;

namespace
{

struct SStyle
{
    std::string background = "Yellow";
    std::string lines = "Blue";
};

constexpr std::array s_styleKeys{
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Graph/Colours/Background", &SStyle::background},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Graph/Colours/Lines", &SStyle::lines},
};

constexpr std::array s_properties{
    SProperty<CGraph>{"AutoScaleX", [](const CGraph& a_graph) { return StringFromAutoScaleMode(a_graph.AutoScaleX()); },
                      [](CGraph& a_graph, const std::string& a_value)
                      { a_graph.AutoScaleX(AutoScaleModeFromString(a_value)); }},
    SProperty<CGraph>{"AutoScaleY", [](const CGraph& a_graph) { return StringFromAutoScaleMode(a_graph.AutoScaleY()); },
                      [](CGraph& a_graph, const std::string& a_value)
                      { a_graph.AutoScaleY(AutoScaleModeFromString(a_value)); }},
    SProperty<CGraph>{"ShowX", [](const CGraph& a_graph) { return TextFromBool(a_graph.ShowXAxis()); },
                      [](CGraph& a_graph, const std::string& a_value) { a_graph.ShowXAxis(IsTrue(a_value)); }},
    SProperty<CGraph>{"ShowY", [](const CGraph& a_graph) { return TextFromBool(a_graph.ShowYAxis()); },
                      [](CGraph& a_graph, const std::string& a_value) { a_graph.ShowYAxis(IsTrue(a_value)); }},
};

constexpr double k_defaultRange = 100.0;

/// Lines go through the middles of pixels, and a little beside: where an edge of a line meets a middle, drivers differ
/// in which pixels they draw.
constexpr double k_middle = 0.5 + 1.0 / 64;

/// Lines are cut off this far from the widget's corner: single precision still tells the pixels there.
constexpr double k_furthest = 1 << 20;

/// As far as a point may be from the corner: what an integer holds, and what can be calculated with.
constexpr double k_beyond = 1e15;

using Position = Core::Maths::Vector2<double>;

constexpr double k_notANumber = std::numeric_limits<double>::quiet_NaN();

/// Where a point is that isn't drawn.
constexpr Position k_nowhere{k_notANumber, k_notANumber};

bool IsFinite(const Position& a_position)
{
    return std::isfinite(a_position.x) && std::isfinite(a_position.y);
}

/// Cuts a line off at both ends of one dimension. False if nothing of it is left.
bool Cut(Position& a_from, Position& a_to, double Position::*a_along, double Position::*a_across)
{
    if (a_from.*a_along > a_to.*a_along)
    {
        return Cut(a_to, a_from, a_along, a_across);
    }
    if (a_to.*a_along < -k_furthest || a_from.*a_along > k_furthest)
    {
        return false;
    }
    const double slope = (a_to.*a_across - a_from.*a_across) / (a_to.*a_along - a_from.*a_along);
    if (a_from.*a_along < -k_furthest)
    {
        a_from.*a_across += (-k_furthest - a_from.*a_along) * slope;
        a_from.*a_along = -k_furthest;
    }
    if (a_to.*a_along > k_furthest)
    {
        a_to.*a_across += (k_furthest - a_to.*a_along) * slope;
        a_to.*a_along = k_furthest;
    }
    return true;
}

bool IsNear(const Position& a_position)
{
    return std::abs(a_position.x) <= k_furthest && std::abs(a_position.y) <= k_furthest;
}

/// Adds a line between two pixels, if both are somewhere.
void AddLine(std::vector<Platform::CLines::SPosition>& a_ends, Position a_from, Position a_to)
{
    if (!IsFinite(a_from) || !IsFinite(a_to))
    {
        return;
    }
    if ((!IsNear(a_from) || !IsNear(a_to)) &&
        (!Cut(a_from, a_to, &Position::x, &Position::y) || !Cut(a_from, a_to, &Position::y, &Position::x)))
    {
        return;
    }
    const auto middle = [](const Position& a_position)
    {
        return Platform::CLines::SPosition{static_cast<float>(a_position.x + k_middle),
                                           static_cast<float>(a_position.y + k_middle)};
    };
    a_ends.push_back(middle(a_from));
    a_ends.push_back(middle(a_to));
}

} // namespace

/// The points lie together, and the oldest drop out by moving a mark, so that neither a walk nor an addition follows
/// links or allocates.
struct CGraph::SSeries
{
    struct SPoint
    {
        Position data;
        /// Pixels of the widget; not finite for a point that isn't drawn.
        Position screen;
        bool breakBefore;
    };

    SSeries(const CColour& a_colour, float a_width, unsigned int a_maximumPoints)
        : colour(a_colour), width(a_width), maximumPoints(a_maximumPoints)
    {
    }

    [[nodiscard]] std::span<SPoint> Points() { return std::span(storage).subspan(firstPoint); }

    void Add(const SPoint& a_point)
    {
        storage.push_back(a_point);
        Extend(a_point.data);
        if (storage.size() - firstPoint > maximumPoints)
        {
            DropOldest();
        }
        areLinesStale = true;
    }

    /// Brings the extremes up to date, by a walk if one of them has dropped out.
    void UpdateExtremes()
    {
        if (areExtremesStale)
        {
            x = y = SExtremes();
            for (const SPoint& point : Points())
            {
                Extend(point.data);
            }
            areExtremesStale = false;
        }
    }

    CColour colour;
    float width;
    unsigned int maximumPoints;
    SExtremes x;
    SExtremes y;
    bool areExtremesStale = false;
    /// The range has changed since the points were converted.
    bool isScreenStale = false;
    bool areLinesStale = true;
    Platform::CLines lines;
    std::vector<SPoint> storage;
    std::size_t firstPoint = 0;

    void Extend(const Position& a_data)
    {
        if (IsFinite(a_data))
        {
            x.minimum = std::min(x.minimum, a_data.x);
            x.maximum = std::max(x.maximum, a_data.x);
            y.minimum = std::min(y.minimum, a_data.y);
            y.maximum = std::max(y.maximum, a_data.y);
        }
    }

    void DropOldest()
    {
        const Position& data = storage[firstPoint].data;
        areExtremesStale |= data.x == x.minimum || data.x == x.maximum || data.y == y.minimum || data.y == y.maximum;
        ++firstPoint;
        // As many steps as points are moved then.
        if (firstPoint > maximumPoints)
        {
            storage.erase(storage.begin(), storage.begin() + static_cast<std::ptrdiff_t>(firstPoint));
            firstPoint = 0;
        }
    }
};

std::span<const SProperty<CGraph>> CGraph::PropertyTable()
{
    return s_properties;
}

CGraph::CGraph(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, EAutoScaleMode a_modeX,
               EAutoScaleMode a_modeY, bool a_showXAxis, bool a_showYAxis)
    : CWithProperties(a_name, "Graph", a_x, a_y, a_width, a_height, false)
    , m_x{a_modeX}
    , m_y{a_modeY}
    , m_showXAxis(a_showXAxis)
    , m_showYAxis(a_showYAxis)
{
    InitialiseClutterGroup();
    ReadStyle();
    SetXRange(-k_defaultRange, k_defaultRange);
    SetYRange(-k_defaultRange, k_defaultRange);
}

CGraph::~CGraph() = default;

void CGraph::ReadStyle()
{
    const SStyle& style = Managers::ReadStyle(s_styleKeys);
    const auto& themes = StaticSingleton<Managers::CThemeManager>::ref();
    m_backgroundColour = themes.Colour(style.background);
    m_lineColour = themes.Colour(style.lines);
}

bool CGraph::AddSeries(const std::string& a_name, const CColour& a_colour, float a_width, unsigned int a_maximumPoints)
{
    if (m_series.find(a_name) != m_series.end())
    {
        return false;
    }
    m_series[a_name] = std::make_unique<SSeries>(a_colour, a_width, a_maximumPoints);
    return true;
}

bool CGraph::RemoveSeries(const std::string& a_name)
{
    return m_series.erase(a_name) > 0;
}

void CGraph::RemoveAllSeries()
{
    m_series.clear();
}

bool CGraph::AddPoint(const std::string& a_series, double a_x, double a_y, bool a_breakBefore)
{
    const auto series = m_series.find(a_series);
    if (series == m_series.end())
    {
        return false;
    }
    series->second->Add({{a_x, a_y}, ToScreen({a_x, a_y}), a_breakBefore});
    if (m_x.mode != easmOff || m_y.mode != easmOff)
    {
        AutoScale();
        ReconvertAll();
    }
    return true;
}

void CGraph::SetXRange(double a_minimum, double a_maximum)
{
    SetRange(m_x, a_minimum, a_maximum, a_maximum - a_minimum, Width());
}

void CGraph::SetYRange(double a_minimum, double a_maximum)
{
    SetRange(m_y, a_minimum, a_maximum, a_maximum - a_minimum, Height());
}

void CGraph::SetRange(SAxis& a_axis, double a_minimum, double a_maximum, double a_span, int a_length)
{
    if (a_minimum == a_axis.minimum && a_maximum == a_axis.maximum)
    {
        return;
    }
    // A pixel is left for the border at each end. Of ends that aren't finite, or too close, nothing finite comes.
    const double scale = (a_length - 2) / (a_maximum - a_minimum);
    const double linePosition = std::trunc(1.0 - scale * a_minimum);
    if (!std::isfinite(a_maximum - a_minimum) || !std::isfinite(scale) || !std::isfinite(linePosition))
    {
        return;
    }
    a_axis.minimum = a_minimum;
    a_axis.maximum = a_maximum;
    a_axis.span = a_span;
    a_axis.scale = scale;
    a_axis.linePosition = linePosition;
    ReconvertAll();
    Invalidate(false);
}

void CGraph::FollowExtremes(SAxis& a_axis, const SExtremes& a_extremes, int a_length)
{
    if (a_extremes.minimum > a_extremes.maximum)
    {
        return;
    }
    if (a_axis.mode == easmScale)
    {
        SetRange(a_axis, a_extremes.minimum, a_extremes.maximum, a_extremes.maximum - a_extremes.minimum, a_length);
    }
    else if (a_axis.mode == easmSlide)
    {
        SetRange(a_axis, a_extremes.minimum, a_extremes.minimum + a_axis.span, a_axis.span, a_length);
    }
}

void CGraph::AutoScale()
{
    SExtremes x;
    SExtremes y;
    const auto unite = [](SExtremes& a_all, const SExtremes& a_own)
    {
        a_all.minimum = std::min(a_all.minimum, a_own.minimum);
        a_all.maximum = std::max(a_all.maximum, a_own.maximum);
    };
    for (const auto& [name, series] : m_series)
    {
        series->UpdateExtremes();
        unite(x, series->x);
        unite(y, series->y);
    }
    FollowExtremes(m_x, x, Width());
    FollowExtremes(m_y, y, Height());
}

void CGraph::ReconvertAll()
{
    for (const auto& [name, series] : m_series)
    {
        series->isScreenStale = true;
    }
}

void CGraph::SetMode(SAxis& a_axis, EAutoScaleMode a_mode)
{
    if (std::exchange(a_axis.mode, a_mode) != a_mode && a_mode != easmOff)
    {
        AutoScale();
        ReconvertAll();
        Invalidate(false);
    }
}

void CGraph::AutoScaleX(EAutoScaleMode a_mode)
{
    SetMode(m_x, a_mode);
}

void CGraph::AutoScaleY(EAutoScaleMode a_mode)
{
    SetMode(m_y, a_mode);
}

void CGraph::ShowXAxis(bool a_show)
{
    if (std::exchange(m_showXAxis, a_show) != a_show)
    {
        Invalidate(false);
    }
}

void CGraph::ShowYAxis(bool a_show)
{
    if (std::exchange(m_showYAxis, a_show) != a_show)
    {
        Invalidate(false);
    }
}

Core::Maths::Vector2<double> CGraph::ToScreen(const Position& a_data) const
{
    if (!IsFinite(a_data))
    {
        return k_nowhere;
    }
    const auto pixel = [](double a_value, const SAxis& a_axis)
    {
        constexpr double most = std::numeric_limits<double>::max();
        const double distance = std::clamp(a_value - a_axis.minimum, -most, most) * a_axis.scale;
        // Much faster than std::trunc.
        return static_cast<double>(static_cast<std::int64_t>(std::clamp(distance, -k_beyond, k_beyond)));
    };
    return {pixel(a_data.x, m_x) + 1, Height() - pixel(a_data.y, m_y) - 2};
}

void CGraph::Convert(SSeries& a_series) const
{
    if (a_series.isScreenStale)
    {
        for (SSeries::SPoint& point : a_series.Points())
        {
            point.screen = ToScreen(point.data);
        }
        a_series.isScreenStale = false;
        a_series.areLinesStale = true;
    }
}

void CGraph::DrawSelf() const
{
    const int width = Width();
    const int height = Height();
    if (width <= 0 || height <= 0)
    {
        return;
    }
    Utilities::FillRectangle({0, 0, width, height}, m_backgroundColour);
    Utilities::FillRectangle({0, 0, width, 1}, m_lineColour);
    Utilities::FillRectangle({0, height - 1, width, 1}, m_lineColour);
    Utilities::FillRectangle({0, 1, 1, height - 2}, m_lineColour);
    Utilities::FillRectangle({width - 1, 1, 1, height - 2}, m_lineColour);
    // Axes and lines have all of the widget but its first row.
    if (m_showXAxis && m_y.linePosition >= 1 && m_y.linePosition < height)
    {
        Utilities::FillRectangle({0, static_cast<int>(m_y.linePosition), width, 1}, m_lineColour);
    }
    if (m_showYAxis && m_x.linePosition >= 0 && m_x.linePosition < width)
    {
        Utilities::FillRectangle({static_cast<int>(m_x.linePosition), 1, 1, height - 1}, m_lineColour);
    }
    if (m_series.empty())
    {
        return;
    }
    const Common::CPoint topLeft = AbsoluteTopLeft();
    const std::int64_t displayHeight = StaticSingleton<Managers::CGfxManager>::ref().DisplayHeight();
    const Platform::CInnerScissor scissor(topLeft.X(), Common::detail::Saturated(displayHeight - topLeft.Y() - height),
                                          width, height - 1);
    for (const auto& [name, series] : m_series)
    {
        DrawSeries(*series);
    }
}

void CGraph::DrawSeries(SSeries& a_series) const
{
    Convert(a_series);
    if (a_series.areLinesStale)
    {
        // Grows to the longest series ever drawn and stays, so that painting doesn't allocate.
        static std::vector<Platform::CLines::SPosition> s_ends;
        s_ends.clear();
        const Position* previous = &k_nowhere;
        for (const SSeries::SPoint& point : a_series.Points())
        {
            if (!point.breakBefore)
            {
                AddLine(s_ends, *previous, point.screen);
            }
            previous = &point.screen;
        }
        a_series.lines.Set(s_ends);
        a_series.areLinesStale = false;
    }
    a_series.lines.Draw(Utilities::Modulated(a_series.colour).AsClutterColour(), a_series.width);
}

void CGraph::Resize(int a_width, int a_height)
{
    // What is still to be converted belongs to the old size.
    for (const auto& [name, series] : m_series)
    {
        Convert(*series);
    }
    if (ResizeSelf(a_width, a_height) && (m_x.mode != easmOff || m_y.mode != easmOff))
    {
        AutoScale();
    }
}

void CGraph::UpdateStyle()
{
    if (UpdateStyleSelf())
    {
        ReadStyle();
        Invalidate(false);
    }
}

void CGraph::UpdateCustomInfo()
{
    for (const SProperty<CGraph>& property : s_properties)
    {
        SetCustomInfo(std::string(property.name), property.get(*this));
    }
}

} // namespace Gfx::Widgets
