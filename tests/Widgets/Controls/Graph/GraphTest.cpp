#include "Widgets/Controls/Graph/Graph.h"

#include "support/StageTest.h"

#include <limits>
#include <map>
#include <string>
#include <vector>

namespace
{

using namespace Gfx::Colours;
using Gfx::CColour;
using Gfx::easmOff;
using Gfx::easmScale;
using Gfx::easmSlide;
using Gfx::EAutoScaleMode;
using Gfx::Widgets::CGraph;

constexpr double k_infinity = std::numeric_limits<double>::infinity();
constexpr double k_notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double k_most = std::numeric_limits<double>::max();
constexpr double k_least = std::numeric_limits<double>::denorm_min();

struct SPoint
{
    double x;
    double y;
    bool breakBefore = false;
};

class GraphTest : public GfxTest::CControlTest
{
protected:
    static void SetUpTestSuite()
    {
        SetUpConfiguredStage("<Controls><Graph><Colours><Lines>Ink</Lines></Colours></Graph></Controls>");
    }

    /// At 100,100, with 200 pixels between the borders, so one for each unit at first; and with a red series "s".
    static Core::SharedPtr<CGraph> Add(EAutoScaleMode a_modeX = easmOff, EAutoScaleMode a_modeY = easmOff,
                                       bool a_showAxes = false, unsigned int a_maximumPoints = 9)
    {
        const auto graph =
            AddTopLevel(new CGraph("graph", 100, 100, 202, 202, a_modeX, a_modeY, a_showAxes, a_showAxes));
        EXPECT_TRUE(graph->AddSeries("s", Red, 1.0F, a_maximumPoints));
        return graph;
    }

    static void AddPoints(CGraph& a_graph, const std::vector<SPoint>& a_points, const std::string& a_series = "s")
    {
        for (const SPoint& point : a_points)
        {
            EXPECT_TRUE(a_graph.AddPoint(a_series, point.x, point.y, point.breakBefore));
        }
    }

    static std::string Extent(const CColour& a_colour) { return FreshPicture().Extent(a_colour); }
};

TEST_F(GraphTest, PointsLieWhereTheRangesSay)
{
    // The last pixel of a line is not drawn.
    const struct
    {
        const char* what;
        const char* extent;
        EAutoScaleMode modeX;
        EAutoScaleMode modeY;
        unsigned int maximumPoints;
        std::vector<SPoint> points;
    } cases[] = {
        {"fixed", "151,200 100 x 1", easmOff, easmOff, 9, {{-50, 0}, {50, 0}}},
        {"truncated", "151,200 100 x 1", easmOff, easmOff, 9, {{-49.1, 0.9}, {50.9, 0.1}}},
        {"one point", "none", easmOff, easmOff, 9, {{0, 0}}},
        {"oldest dropped", "201,200 80 x 1", easmOff, easmOff, 3, {{-80, 0}, {-40, 0}, {0, 0}, {40, 0}, {80, 0}}},
        {"none kept", "none", easmOff, easmOff, 0, {{-50, 0}, {50, 0}}},
        {"break", "201,200 50 x 1", easmOff, easmOff, 9, {{-50, 0}, {0, 0, true}, {50, 0}}},
        {"gap", "210,200 41 x 1", easmOff, easmOff, 9, {{-50, 0}, {0, k_notANumber}, {9, 0}, {50, 0}}},
        {"infinite", "201,200 9 x 1", easmOff, easmOff, 9, {{-k_infinity, 0}, {0, k_infinity}, {0, 0}, {9, 0}}},
        {"from far", "100,200 101 x 1", easmOff, easmOff, 9, {{-k_most, 0}, {0, 0}}},
        {"through", "100,201 202 x 1", easmOff, easmOff, 9, {{-1e9, -1}, {1e9, -1}}},
        {"outside", "none", easmOff, easmOff, 9, {{-1e9, 150}, {1e9, 150}}},
        {"scaled", "101,200 200 x 1", easmScale, easmOff, 9, {{50, 0}, {60, 0}, {70, 0}}},
        {"slid", "101,200 70 x 1", easmSlide, easmOff, 9, {{50, 0}, {60, 0}, {120, 0}}},
        {"both", "101,300 200 x 1", easmScale, easmSlide, 9, {{7, 7}, {9, 7}}},
        {"least x dropped", "holes in 101,199 200 x 3", easmScale, easmOff, 2, {{-7, 0}, {0, -1}, {1, 1}}},
        {"greatest x dropped", "holes in 101,199 200 x 3", easmScale, easmOff, 2, {{7, 0}, {0, -1}, {1, 1}}},
        {"least y dropped", "holes in 200,101 3 x 200", easmOff, easmScale, 2, {{0, -7}, {-1, 0}, {1, 1}}},
        {"greatest y dropped", "holes in 200,101 3 x 200", easmOff, easmScale, 2, {{0, 7}, {-1, 0}, {1, 1}}},
        {"no numbers",
         "101,300 200 x 1",
         easmScale,
         easmSlide,
         9,
         {{k_infinity, 0}, {5, k_notANumber}, {50, 0}, {70, 0}}},
        {"too far apart", "100,200 202 x 1", easmScale, easmOff, 9, {{-k_most, 0}, {k_most, 0}}},
        {"all the same", "251,181 1 x 20", easmScale, easmOff, 9, {{50, 0}, {50, 20}}},
        {"slid out of sight", "none", easmSlide, easmOff, 9, {{1e300, 0}}},
    };
    for (const auto& row : cases)
    {
        const auto graph = Add(row.modeX, row.modeY, false, row.maximumPoints);
        AddPoints(*graph, row.points);
        EXPECT_EQ(Extent(Red), row.extent) << row.what;
        Widgets().DestroyWidget(graph.Get());
    }
}

TEST_F(GraphTest, LinesToPointsFarAwayKeepTheirDirection)
{
    AddPoints(*Add(), {{-4e12, -2e12}, {0, 0}, {4e12, 2e12}});
    const auto picture = FreshPicture();
    EXPECT_EQ(picture.At(201 - 80, 200 + 40), Red);
    EXPECT_EQ(picture.At(201 + 80, 200 - 40), Red);
    EXPECT_EQ(picture.Count(Red), 202);
}

TEST_F(GraphTest, SeriesAreKnownByName)
{
    const auto graph = Add();
    EXPECT_FALSE(graph->AddPoint("t", 0, 0, false));
    EXPECT_FALSE(graph->AddSeries("s", Green, 5.0F, 1));
    EXPECT_TRUE(graph->AddSeries("t", Green, 3.0F, 9));
    EXPECT_TRUE(graph->AddSeries("thin", Fuchsia, -k_infinity, 9));
    AddPoints(*graph, {{-50, 0}, {50, 0}});
    AddPoints(*graph, {{-50, 50}, {50, 50}}, "t");
    AddPoints(*graph, {{-50, -50}, {50, -50}}, "thin");
    EXPECT_EQ(Extent(Red), "151,200 100 x 1");
    EXPECT_EQ(Extent(Green), "151,149 100 x 3");
    EXPECT_EQ(Extent(Fuchsia), "151,250 100 x 1");
    EXPECT_FALSE(graph->RemoveSeries("u"));
    EXPECT_TRUE(graph->RemoveSeries("s"));
    EXPECT_EQ(Settle(), 0) << "seen when something else asks for a frame";
    EXPECT_EQ(Extent(Red), "none");
    graph->RemoveAllSeries();
    EXPECT_EQ(Extent(Green), "none");
    EXPECT_FALSE(graph->RemoveSeries("t"));
}

TEST_F(GraphTest, OnlyAChangeOfARangeOrAnAxisAsksForAFrame)
{
    const auto graph = Add();
    Settle();
    AddPoints(*graph, {{50, 50}, {120, 50}});
    graph->SetXRange(-100, 100);
    graph->AutoScaleX(easmOff);
    EXPECT_EQ(Settle(), 0);
    graph->AutoScaleX(easmSlide);
    EXPECT_EQ(Settle(), 1);
    graph->AddPoint("s", 125, 50, false);
    EXPECT_EQ(Settle(), 0);
    graph->AddPoint("s", 45, 50, false);
    EXPECT_EQ(Settle(), 1);
    graph->AutoScaleX(easmOff);
    EXPECT_EQ(Settle(), 0) << "the range stays";
    EXPECT_EQ(Extent(Red), "102,150 80 x 1");
    graph->ShowYAxis(true);
    EXPECT_EQ(Settle(), 1);
}

TEST_F(GraphTest, ARangeThatCannotBeDrawnLeavesTheLastGoodOne)
{
    const auto graph = Add();
    AddPoints(*graph, {{-50, 0}, {50, 0}});
    graph->SetXRange(-50, 50);
    graph->SetYRange(0, 200);
    Settle();
    const struct
    {
        double minimum;
        double maximum;
    } ranges[] = {{7, 7},          {0, k_notANumber},        {k_notANumber, 0}, {-k_infinity, 0},
                  {0, k_infinity}, {k_infinity, k_infinity}, {k_most, -k_most}, {0, k_least}};
    for (const auto& range : ranges)
    {
        graph->SetXRange(range.minimum, range.maximum);
        graph->SetYRange(range.minimum, range.maximum);
    }
    EXPECT_EQ(Settle(), 0);
    EXPECT_EQ(Extent(Red), "101,300 200 x 1");
    // Nor do modes change one while there are no points.
    graph->RemoveAllSeries();
    graph->AutoScaleX(easmScale);
    graph->AutoScaleY(easmSlide);
    graph->AddSeries("s", Green, 1.0F, 9);
    graph->AutoScaleX(easmOff);
    graph->AutoScaleY(easmOff);
    AddPoints(*graph, {{-50, 0}, {50, 0}});
    EXPECT_EQ(Extent(Green), "101,300 200 x 1");

    graph->SetXRange(50, -50);
    AddPoints(*graph, {{0, 100, true}, {50, 100}});
    EXPECT_EQ(FreshPicture().At(110, 200), Green) << "backwards";
    EXPECT_EQ(FreshPicture().At(290, 200), Yellow);
}

TEST_F(GraphTest, TheVerticalRangesMirrorImagePlacesTheHorizontalAxis)
{
    const auto graph = Add(easmOff, easmOff, true);
    const auto expectAxesAt = [](int a_offset)
    {
        const auto picture = FreshPicture();
        EXPECT_EQ(picture.At(150, 100 + a_offset), White);
        EXPECT_EQ(picture.At(100 + a_offset, 250), White);
        EXPECT_EQ(picture.Count(White), 4 * 201 + 2 * 200 - 1);
        EXPECT_EQ(picture.Extent(White), "holes in 100,100 202 x 202");
    };
    expectAxesAt(101);
    graph->SetYRange(-20, 180);
    graph->SetXRange(-20, 180);
    expectAxesAt(21);
    graph->SetProperty("ShowX", "true");
    EXPECT_EQ(FreshPicture().At(150, 121), Yellow) << "exactly \"True\" shows it";
    graph->ShowYAxis(false);
    EXPECT_EQ(FreshPicture().At(121, 150), Yellow);
    graph->SetProperty("AutoScaleX", "scale");
    graph->SetProperty("AutoScaleY", "Slide");
    EXPECT_EQ(graph->GetCustomInfo(),
              (std::map<std::string, std::string>{
                  {"AutoScaleX", "Off"}, {"AutoScaleY", "Slide"}, {"ShowX", "False"}, {"ShowY", "False"}}));
}

TEST_F(GraphTest, TheScaleIsThatOfTheSizeAtTheLastRange)
{
    const auto graph = Add();
    AddPoints(*graph, {{-50, 0}, {50, 0}});
    graph->SetXRange(-50, 50);
    graph->Resize(402, 102);
    EXPECT_EQ(Extent(Red), "101,200 200 x 1");
    AddPoints(*graph, {{-50, 50, true}, {50, 50}});
    EXPECT_EQ(FreshPicture().At(150, 100 + 102 - 150 - 2 + 100), Yellow) << "above the widget";
    graph->SetXRange(-50, 150);
    graph->SetYRange(-50, 150);
    EXPECT_EQ(FreshPicture().At(150, 100 + 102 - 25 - 2), Red);
    EXPECT_EQ(FreshPicture().At(150, 100 + 102 - 50 - 2), Red);
}

TEST_F(GraphTest, NothingIsDrawnOutsideAndAFrameOfAPartIsLikeAWholeOne)
{
    WaitForClippedRedraws();
    const auto parent = AddTopLevel(new GfxTest::CBlock("parent", 50, 50, 600, 400, Navy));
    const auto graph = AddChild(*parent, new CGraph("graph", 50, 50, 202, 202, easmOff, easmOff, true, true));
    graph->AddSeries("s", Red, 30.0F, 9);
    AddPoints(*graph, {{-1000, -1000}, {1000, 1000}, {-99, 1000}, {-99, -1000}, {1000, -99}});
    const auto expectInside = [](int a_left, int a_top)
    {
        const auto picture = FreshPicture();
        EXPECT_EQ(picture.Count(Navy), 600 * 400 - 202 * 202);
        EXPECT_EQ(picture.At(a_left, a_top + 150), Red);
        EXPECT_EQ(picture.At(a_left + 201, a_top), White);
        EXPECT_EQ(picture.At(a_left + 201, a_top + 1), Red);
        EXPECT_EQ(picture.At(a_left, a_top + 201), Red);
    };
    expectInside(100, 100);
    parent->Move({150, 70});
    expectInside(200, 120);
    AddPoints(*graph, {{0, 0}, {100, 0}});
    graph->Invalidate(false);
    Settle();
    const auto shown = ShownPicture();
    EXPECT_EQ(shown.CountDifferences(FreshPicture()), 0);

    for (const int size : {0, -1, -1000000, 1, 2, 3, 1 << 24})
    {
        graph->Resize(size, size);
        graph->SetXRange(-size, 7);
        graph->SetYRange(-size, 7);
        AddPoints(*graph, {{0, 0}, {5, 5}});
        EXPECT_EQ(FreshPicture().Count(Navy) == 600 * 400, size <= 0) << size;
    }
}

TEST_F(GraphTest, APanelClipsItAndWhatComesAfterIt)
{
    const auto panel = AddTopLevel(new GfxTest::CBlock("panel", 200, 150, 100, 60, Navy, true));
    const auto graph = AddChild(*panel, new CGraph("graph", -50, -50, 202, 202, easmOff, easmOff, false, false));
    AddChild(*panel, new GfxTest::CBlock("after", 90, 50, 100, 100, Green));
    graph->AddSeries("s", Red, 500.0F, 9);
    AddPoints(*graph, {{-100, 0}, {100, 0}, {0, 100}, {0, -100}});
    const auto picture = FreshPicture();
    EXPECT_EQ(picture.Count(Black), k_width * k_height - 100 * 60);
    EXPECT_EQ(picture.At(200, 150), Red);
    EXPECT_EQ(picture.Extent(Green), "290,200 10 x 10");
}

TEST_F(GraphTest, ColoursAreTheThemesAndAsTransparentAsTheWidget)
{
    const auto graph = Add();
    AddPoints(*graph, {{-50, 0}, {50, 0}});
    SetTheme("Swapped");
    EXPECT_EQ(Extent(Lime), "holes in 100,100 202 x 202");
    SetTheme("Plain");
    graph->SetTransparency(50, false);
    graph->ShowXAxis(true);
    graph->ShowYAxis(true);
    graph->SetYRange(1, 201);
    const auto picture = FreshPicture();
    // The border and the axes, each painted once over the background.
    for (const auto& place : {Gfx::Common::CPoint(100, 100), {150, 100}, {201, 100}, {201, 250}})
    {
        EXPECT_EQ(picture.At(place.X(), place.Y()), CColour(191, 191, 127, 255)) << place.X() << ',' << place.Y();
    }
    EXPECT_EQ(picture.At(150, 150), CColour(127, 127, 0, 255));
    graph->SetYRange(-100, 100);
    EXPECT_NEAR(FreshPicture().At(180, 200).Red(), 191, 1);
}

} // namespace
