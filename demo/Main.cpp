// A stage with tiles that can be dragged about, each of which reports what happens to it.

#include <Gfx/Gfx.h>
#include <clutter/clutter.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>

namespace
{

using Core::Patterns::StaticSingleton;
using Gfx::CColour;
using Gfx::Common::CAABB;
using Gfx::Common::CPoint;
using Gfx::Managers::CGfxManager;
using Gfx::Managers::CInputManager;
using Gfx::Managers::CWidgetManager;
using Gfx::Widgets::CWidget;
using WidgetPtr = Core::SharedPtr<CWidget>;

constexpr int k_stageWidth = 800;
constexpr int k_stageHeight = 480;
constexpr int k_border = 3;

/// A coloured rectangle that follows the finger, is half transparent while it does, and gets a light border while it
/// is pressed or has the keyboard.
class CTile : public CWidget
{
public:
    CTile(const std::string& a_name, const CAABB& a_box, const CColour& a_colour, bool a_scissor)
        : CWidget(a_name, "Tile", a_box.Left(), a_box.Top(), a_box.Width(), a_box.Height(), a_scissor)
        , m_colour(a_colour)
    {
        InitialiseClutterGroup();
    }

    void DrawSelf() const override
    {
        const CColour edge = m_pressed || Selected() ? Gfx::Colours::White : m_colour.Darken(0.7F);
        const int innerHeight = Height() - 2 * k_border;
        // Side by side: what lies one over the other would show through where the tile is transparent.
        Gfx::Utilities::FillRectangle({0, 0, Width(), k_border}, edge);
        Gfx::Utilities::FillRectangle({0, Height() - k_border, Width(), k_border}, edge);
        Gfx::Utilities::FillRectangle({0, k_border, k_border, innerHeight}, edge);
        Gfx::Utilities::FillRectangle({Width() - k_border, k_border, k_border, innerHeight}, edge);
        Gfx::Utilities::FillRectangle({k_border, k_border, Width() - 2 * k_border, innerHeight}, m_colour);
    }

    bool Draggable() const override { return true; }
    bool StartDragging(const CPoint&) override
    {
        m_origin = TopLeft();
        m_dragging = true;
        BringToFront();
        return true;
    }
    void UpdateDragging(const CPoint& a_displacement) override
    {
        const CPoint target = m_origin + a_displacement;
        const int parentWidth = Parent() != nullptr ? Parent()->Width() : k_stageWidth;
        const int parentHeight = Parent() != nullptr ? Parent()->Height() : k_stageHeight;
        Move({std::clamp(target.X(), 0, std::max(parentWidth - Width(), 0)),
              std::clamp(target.Y(), 0, std::max(parentHeight - Height(), 0))});
    }
    void EndDragging() override { m_dragging = false; }
    bool IsDragging() const override { return m_dragging || CWidget::IsDragging(); }
    bool TransparentOnDrag() const override { return true; }

    void MouseEvent(Gfx::Events::EMouseEvent a_event, int a_buttons, const CPoint& a_point, bool a_remote) override
    {
        if (a_event == Gfx::Events::FirstDown || a_event == Gfx::Events::FirstUp || a_event == Gfx::Events::Leave ||
            a_event == Gfx::Events::Enter)
        {
            m_pressed = a_event == Gfx::Events::FirstDown || a_event == Gfx::Events::Enter;
            Invalidate(false);
        }
        CWidget::MouseEvent(a_event, a_buttons, a_point, a_remote);
    }

    void Select() override
    {
        CWidget::Select();
        Invalidate(false);
    }
    void Deselect() override
    {
        CWidget::Deselect();
        Invalidate(false);
    }

private:
    CColour m_colour;
    CPoint m_origin;
    bool m_dragging = false;
    bool m_pressed = false;
};

void ReportClick(CWidget* a_widget, int, const CPoint& a_point, bool)
{
    std::printf("%s was clicked at %d,%d\n", a_widget->GetName().c_str(), a_point.X(), a_point.Y());
    std::fflush(stdout);
}

using ClickFunction = Core::Functor<void, CWidget*, int, const CPoint&, bool>::Function;

WidgetPtr MakeTile(ClickFunction& a_click, const std::string& a_name, const CAABB& a_box, const CColour& a_colour,
                   bool a_scissor = false)
{
    WidgetPtr tile(new CTile(a_name, a_box, a_colour, a_scissor));
    tile->SetClickEventHandler(&a_click);
    return tile;
}

void BuildScreen(ClickFunction& a_click)
{
    CWidgetManager& widgets = StaticSingleton<CWidgetManager>::ref();
    const WidgetPtr tray = MakeTile(a_click, "tray", {60, 60, 360, 260}, Gfx::Colours::DarkSlateGray);
    tray->AddChild(MakeTile(a_click, "moss", {30, 30, 110, 90}, Gfx::Colours::OliveDrab));
    tray->AddChild(MakeTile(a_click, "clay", {110, 90, 120, 90}, Gfx::Colours::Sienna));
    tray->AddChild(MakeTile(a_click, "edge", {290, 180, 120, 60}, Gfx::Colours::Peru));
    widgets.AddWidget(tray);

    const WidgetPtr glass = MakeTile(a_click, "glass", {360, 220, 260, 180}, Gfx::Colours::SteelBlue);
    glass->SetTransparency(60, false);
    glass->AddChild(MakeTile(a_click, "drop", {40, 40, 80, 80}, Gfx::Colours::LightSteelBlue));
    widgets.AddWidget(glass);

    widgets.AddWidget(MakeTile(a_click, "coin", {620, 70, 100, 100}, Gfx::Colours::GoldenRod));
}

/// Paints, writes a picture and ends the main loop.
gboolean WriteScreenShot(gpointer a_path)
{
    const std::string png = StaticSingleton<CGfxManager>::ref().TrueScreenShot();
    std::ofstream file(static_cast<const char*>(a_path), std::ios::binary);
    file << png;
    if (png.empty() || !file.flush())
    {
        std::fprintf(stderr, "gfx-demo: can't write %s\n", static_cast<const char*>(a_path));
    }
    clutter_main_quit();
    return G_SOURCE_REMOVE;
}

} // namespace

int main(int a_argc, char** a_argv)
{
    std::string screenShotPath;
    if (a_argc == 3 && std::strcmp(a_argv[1], "--screenshot") == 0)
    {
        screenShotPath = a_argv[2];
        a_argc = 1;
    }
    else if (a_argc > 1)
    {
        std::fprintf(stderr, "usage: %s [--screenshot FILE]\n", a_argv[0]);
        return 2;
    }

    CGfxManager& gfx = StaticSingleton<CGfxManager>::ref();
    if (!gfx.Setup("data/", "libGfx", {0, 0}, k_stageWidth, k_stageHeight, a_argc, a_argv, Gfx::Colours::MidnightBlue))
    {
        return 1;
    }
    // The pointer of a desktop reports pixels of the stage.
    StaticSingleton<CInputManager>::ref().UseCalibration(CInputManager::k_identity);
    ClickFunction click(ReportClick);
    BuildScreen(click);
    if (!screenShotPath.empty())
    {
        clutter_threads_add_timeout(1, WriteScreenShot, screenShotPath.data());
    }
    gfx.StartMainLoop();
    return 0;
}
