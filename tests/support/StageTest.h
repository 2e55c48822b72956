#pragma once

#include "Core/Functor.h"
#include "Core/SharedPtr.h"
#include "Gfx/Common/AABB.h"
#include "Gfx/Common/Colour.h"
#include "Gfx/Common/MouseEvent.h"
#include "Gfx/Common/Point.h"
#include "Managers/Widgets/WidgetManager.h"
#include "Widgets/Widget.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace Gfx
{
inline void PrintTo(const CColour& a_colour, std::ostream* a_out)
{
    *a_out << '(' << int{a_colour.Red()} << ',' << int{a_colour.Green()} << ',' << int{a_colour.Blue()} << ','
           << int{a_colour.Alpha()} << ')';
}
} // namespace Gfx

namespace GfxTest
{

using WidgetPtr = Core::SharedPtr<Gfx::Widgets::CWidget>;

// What the handlers of a widget are made of.
using Notify = Core::Functor<void, Gfx::Widgets::CWidget*>;
using Mouse =
    Core::Functor<void, Gfx::Widgets::CWidget*, Gfx::Events::EMouseEvent, int, const Gfx::Common::CPoint&, bool>;

/// A widget of one colour that counts how often it draws.
class CBlock : public Gfx::Widgets::CWidget
{
public:
    CBlock(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, const Gfx::CColour& a_colour,
           bool a_scissor = false);
    void DrawSelf() const override;

    mutable int draws = 0;
    /// How far it draws beyond its right and bottom edge.
    int overhang = 0;

private:
    Gfx::CColour m_colour;
};

/// A widget that draws by a function.
class CDrawing : public Gfx::Widgets::CWidget
{
public:
    CDrawing(int a_x, int a_y, int a_width, int a_height, std::function<void()> a_draw)
        : CWidget("drawing", "Drawing", a_x, a_y, a_width, a_height, false), m_draw(std::move(a_draw))
    {
        InitialiseClutterGroup();
    }
    void DrawSelf() const override { m_draw(); }

private:
    std::function<void()> m_draw;
};

/// What is on the stage, row by row from the top.
class CPicture
{
public:
    CPicture(std::vector<std::uint8_t> a_pixels, int a_width, int a_height)
        : m_pixels(std::move(a_pixels)), m_width(a_width), m_height(a_height)
    {
    }
    [[nodiscard]] int Width() const { return m_width; }
    [[nodiscard]] int Height() const { return m_height; }
    [[nodiscard]] Gfx::CColour At(int a_x, int a_y) const;

    /// What is asked of a pixel.
    using Question = std::function<bool(int a_x, int a_y)>;

    /// How many pixels it is true of, and the least box that they lie in: of no size if there are none.
    [[nodiscard]] int CountIf(const Question& a_is) const;
    [[nodiscard]] Gfx::Common::CAABB BoxOf(const Question& a_is) const;

    /// How many pixels differ: all of them, and at least one, where the sizes do.
    [[nodiscard]] int CountDifferences(const CPicture& a_other) const;

    [[nodiscard]] int Count(const Gfx::CColour& a_colour) const;

    /// Where a colour is: "x,y width x height" if that is a rectangle of nothing else, "holes in ..." if it isn't;
    /// "none" if the colour is nowhere.
    [[nodiscard]] std::string Extent(const Gfx::CColour& a_colour) const;

private:
    std::vector<std::uint8_t> m_pixels;
    int m_width;
    int m_height;
};

/// What a text actor shows, and in which colour.
std::string ShownText(ClutterActor* a_actor);
Gfx::CColour TextColour(ClutterActor* a_actor);

/// A stage of 800 by 480 that is shown, black, with nothing on it; one for all tests of the process. The clock stands
/// until Advance moves it on.
class CStageTest : public testing::Test
{
protected:
    static constexpr int k_width = 800;
    static constexpr int k_height = 480;

    static void SetUpTestSuite();

    /// What SetUpTestSuite does, with a data directory of the test's own.
    static void SetUpStage(const std::string& a_basePath);

    /// What SetUpTestSuite does, with a_configuration in place of what the tests' own GfxConfig.xml has within <Gfx>.
    static void SetUpConfiguredStage(const std::string& a_configuration);

    void SetUp() override;
    void TearDown() override;

    static Gfx::Managers::CWidgetManager& Widgets();
    static void SetTheme(const std::string& a_theme);

    /// Adds a widget and destroys it at the end of the test.
    static void AddToStage(const WidgetPtr& a_widget);

    /// Leaves the widgets that were added so far to the test.
    static void ForgetTopLevels();

    /// Puts a widget on the stage and returns it.
    template <typename T>
    static Core::SharedPtr<T> AddTopLevel(T* a_widget)
    {
        Core::SharedPtr<T> widget(a_widget);
        AddToStage(widget);
        return widget;
    }

    template <typename T>
    static Core::SharedPtr<T> AddChild(Gfx::Widgets::CWidget& a_parent, T* a_widget)
    {
        Core::SharedPtr<T> widget(a_widget);
        a_parent.AddChild(widget);
        return widget;
    }

    static void Press(int a_x, int a_y);
    static void MoveTo(int a_x, int a_y);
    static void Release(int a_x, int a_y);
    static void Click(int a_x, int a_y);

    static void Advance(int a_milliseconds);

    /// Runs the main loop until nothing that is queued is left to paint; returns how many frames that took.
    static int Settle();

    /// Paints until the scene graph keeps to what has changed: for a while after the stage was last resized, every
    /// frame is a whole one.
    static void WaitForClippedRedraws();

    /// What the last frame has left in the buffer, without painting anything.
    static CPicture ShownPicture();

    /// The same after painting the whole stage anew.
    static CPicture FreshPicture();
};

/// The same with the tests' texture page loaded and the theme "Plain", for controls.
class CControlTest : public CStageTest
{
protected:
    static void SetUpTestSuite();
    void SetUp() override;

    /// Where a colour is when what is queued has been painted, as CPicture::Extent says it.
    static std::string ShownExtent(const Gfx::CColour& a_colour);
};

} // namespace GfxTest
