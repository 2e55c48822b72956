// Whole screens of controls, drawn with the default data directory and the tests' own font, against the pictures in
// tests/data/Golden. A picture changes only on purpose: run this with GFX_WRITE_GOLDEN set, and look at what it wrote.

#include "Gfx/Gfx.h"
#include "support/Png.h"
#include "support/SceneTest.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace
{

using Core::Patterns::StaticSingleton;
using namespace Gfx::Widgets;

const std::string k_folder = GFX_TEST_DATA "Golden/";

/// A pixel may be off by that much in each colour, as another version of the renderer rounds otherwise...
constexpr int k_tolerance = 24;
/// ...and so many of a screen's 384,000 by more: what a line of text moved by a pixel would exceed.
constexpr int k_strayPixels = 200;

int CountStrays(const GfxTest::CPicture& a_one, const GfxTest::CPicture& a_other)
{
    const auto isStray = [&](int a_x, int a_y)
    {
        const Gfx::CColour one = a_one.At(a_x, a_y);
        const Gfx::CColour other = a_other.At(a_x, a_y);
        return std::abs(one.Red() - other.Red()) > k_tolerance || std::abs(one.Green() - other.Green()) > k_tolerance ||
               std::abs(one.Blue() - other.Blue()) > k_tolerance;
    };
    return a_one.CountIf(isStray);
}

class GoldenTest : public GfxTest::CStageTest, public testing::WithParamInterface<const char*>
{
protected:
    static void SetUpTestSuite()
    {
        SetUpStage(GFX_TEST_DATA "../../data/");
        StaticSingleton<Gfx::Managers::CTextureManager>::ref().LoadTextures();
    }

    void SetUp() override
    {
        CStageTest::SetUp();
        SetTheme(GetParam());
        m_screen = AddTopLevel(new CImage("screen", 0, 0, 800, 480, "Screen"));
    }

    template <typename WidgetT, typename... ArgumentTs>
    WidgetT& Add(CWidget& a_parent, ArgumentTs&&... a_arguments)
    {
        return *AddChild(a_parent, new WidgetT(std::forward<ArgumentTs>(a_arguments)...));
    }

    CButton& AddButton(CWidget& a_parent, int a_x, int a_y, const std::string& a_text)
    {
        auto& button = Add<CButton>(a_parent, "button", a_x, a_y, 140, 48, true);
        button.Text(a_text);
        return button;
    }

    void ExpectPicture(const std::string& a_name)
    {
        const std::string path = k_folder + a_name + '-' + GetParam() + ".png";
        const std::string png = StaticSingleton<Gfx::Managers::CGfxManager>::ref().TrueScreenShot();
        if (std::getenv("GFX_WRITE_GOLDEN") != nullptr)
        {
            std::ofstream(path, std::ios::binary) << png;
        }
        std::ostringstream golden;
        golden << std::ifstream(path, std::ios::binary).rdbuf();
        ASSERT_FALSE(golden.str().empty()) << path;
        const GfxTest::CPicture expected = GfxTest::DecodePng(golden.str());
        const GfxTest::CPicture shown = GfxTest::DecodePng(png);
        ASSERT_EQ(expected.Width(), shown.Width());
        ASSERT_EQ(expected.Height(), shown.Height());
        const int strays = CountStrays(expected, shown);
        if (strays > k_strayPixels)
        {
            const std::string actual = testing::TempDir() + a_name + '-' + GetParam() + ".png";
            std::ofstream(actual, std::ios::binary) << png;
            ADD_FAILURE() << strays << " pixels differ from " << path << "; what was drawn: " << actual;
        }
        ExpectTheSameAroundAScene(shown);
    }

    /// A scene in a corner changes nothing beside it, be it drawn or covered.
    void ExpectTheSameAroundAScene(const GfxTest::CPicture& a_without)
    {
        constexpr int side = 40;
        const int left = a_without.Width() - side;
        const int top = a_without.Height() - side;
        const auto frame = AddChild(*m_screen, new C3DFrame("scene", left, top, side, side, true));
        frame->AddEntity(GfxTest::RectangleEntity(Gfx::Colours::Fuchsia, 100, 100));
        const GfxTest::CPicture with =
            GfxTest::DecodePng(StaticSingleton<Gfx::Managers::CGfxManager>::ref().TrueScreenShot());
        const int strays = with.CountIf(
            [&](int a_x, int a_y) { return (a_x < left || a_y < top) && with.At(a_x, a_y) != a_without.At(a_x, a_y); });
        EXPECT_EQ(strays, 0) << "beside a scene";
        const bool isCovered = with.At(left + 20, top + 20) == a_without.At(left + 20, top + 20);
        EXPECT_TRUE(isCovered || with.At(left + 20, top + 20) == Gfx::Colours::Fuchsia);
        m_screen->DestroyChild(frame.Get());
    }

    Core::SharedPtr<CImage> m_screen;
};

TEST_P(GoldenTest, SmallControlsInAllTheirStates)
{
    auto& panel = Add<CPanel>(*m_screen, "panel", 20, 20, 760, 440, false, true);
    AddButton(panel, 20, 20, "Inactive");
    CButton& hover = AddButton(panel, 170, 20, "Hover");
    hover.MouseEvent(Gfx::Events::Move, 0, {5, 5}, false);
    CButton& active = AddButton(panel, 320, 20, "Active");
    active.MouseEvent(Gfx::Events::FirstDown, 1, {5, 5}, false);
    AddButton(panel, 470, 20, "Disabled").Disabled(true);
    CButton& flashing = AddButton(panel, 20, 80, "Flashing");
    flashing.Flashing(true);
    for (int i = 0; i < 9; ++i)
    {
        flashing.Idle();
    }
    AddButton(panel, 170, 80, "Too long to be shown whole").SetEllipsisMode(Gfx::Text::eemEnd);
    AddButton(panel, 320, 80, "").SetImage("Icon_Home", Gfx::eaCentre | Gfx::eaMiddle, 40, 40);
    AddButton(panel, 470, 80, "Half").SetTransparency(50, true);

    Add<CCheckBox>(panel, "check", 20, 150, 200, 44, "Checked").Checked(true);
    Add<CCheckBox>(panel, "check", 240, 150, 200, 44, "Not checked");
    Add<CRadioButton>(panel, "radio", 20, 200, 200, 44, "Chosen").Checked(true);
    Add<CRadioButton>(panel, "radio", 240, 200, 200, 44, "Not chosen");

    int y = 260;
    for (const int value : {0, 1, 60, 100})
    {
        Add<CProgressBar>(panel, "bar", 20, y, 400, 32, 0, 100, value, value != 60);
        y += 42;
    }
    auto& label = Add<CLabel>(panel, "label", 460, 150, 280, 80, true, false, true,
                              "A label with <b>bold</b> and <i>slanted</i> words, broken into lines", true);
    label.Background(true);
    auto& lowered = Add<CLabel>(panel, "label", 460, 240, 280, 40, false, false, false, "Lowered", false);
    lowered.Background(true);
    int x = 460;
    for (const char* image : {"Lamp_Red", "Lamp_Amber", "Lamp_Green", "Lamp_Off", "Icon_Warning"})
    {
        Add<CImage>(panel, "image", x, 300, 40, 40, image);
        x += 56;
    }
    ExpectPicture("Small");
}

TEST_P(GoldenTest, ContainersAndWindows)
{
    auto& list = Add<CPanel>(*m_screen, "list", 20, 20, 240, 240, true, false);
    for (int i = 0; i < 8; ++i)
    {
        AddButton(list, 12, 12 + i * 56, "Row " + std::to_string(i));
    }
    auto* const bar = dynamic_cast<CScrollBar*>(Widgets().FindWidget("screen:list:PanelScrollBar", nullptr).Get());
    ASSERT_NE(bar, nullptr);
    // Down by some steps, the stepper still pressed.
    for (int i = 0; i < 20; ++i)
    {
        bar->MouseEvent(Gfx::Events::FirstDown, 1, {20, bar->Height() - 10}, false);
    }
    Add<CScrollBar>(*m_screen, "scroll", 20, 280, 240, 52, true, 0, 100, 70, 1);
    auto& text = Add<CTextBox>(*m_screen, "text", 20, 344, 260, 120, false);
    text.Text("A text box breaks its text into lines, and scrolls it if it may.");

    const int withTitle = CWindow::ewfTitleBar | CWindow::ewfDraggable;
    const auto inactive = AddTopLevel(new CWindow("inactive", 290, 20, 300, 160, false, "Inactive", withTitle));
    AddButton(*inactive, 20, 30, "In a window");
    const auto active = AddTopLevel(new CWindow("active", 450, 90, 330, 160, false, "Active", withTitle));
    AddButton(*active, 20, 30, "In a window");
    auto* box = Widgets().ShowMessageBox(330, 200, "", "A <b>message</b>", nullptr, "Yes", "", "Image:Icon_Cancel");
    box->Move({450, 266});
    // A move leaves the clipping of what is inside to whoever moves.
    box->Invalidate(true);
    active->Select();
    ExpectPicture("Containers");
    box->Close();
}

TEST_P(GoldenTest, Fields)
{
    auto& panel = Add<CPanel>(*m_screen, "panel", 20, 20, 760, 440, false, true);
    Add<CEditBox>(panel, "field", 20, 20, 340, 48, false, "Plain");
    Add<CEditBox>(panel, "field", 380, 20, 340, 48, false, "Active").LockActive(true);
    Add<CEditBox>(panel, "field", 20, 80, 340, 48, true, "password");
    Add<CEditBox>(panel, "field", 380, 80, 340, 48, false, "Too long to be shown whole, so this is its end");
    Add<CEditBox>(panel, "field", 20, 140, 340, 80, false, "At the top");
    Add<CEditBox>(panel, "field", 380, 140, 340, 30, false, "Too low");
    auto& address = Add<CNumericEditBox>(panel, "address", 20, 240, 460, 48,
                                         std::vector<CNumericEditBox::SField>{{".", 3}, {".", 3}, {".", 3}, {"", 3}});
    address.Text("10.0.128.");
    address.KeyboardEvent('7');
    Add<CNumericEditBox>(panel, "single", 20, 300, 460, 48, std::vector<CNumericEditBox::SField>{}).Text("No fields");
    ExpectPicture("Fields");
}

TEST_P(GoldenTest, ListsOfItems)
{
    auto& list = Add<CListBox>(*m_screen, "list", 20, 20, 300, 328, true);
    auto& grid = Add<CListGrid>(*m_screen, "grid", 340, 20, 440, 434, true);
    for (int i = 0; i < 40; ++i)
    {
        const std::string id = std::to_string(i);
        list.AddItem({id,
                      i == 3   ? "A text that is too long for its row"
                      : i == 5 ? ""
                               : "Row " + id,
                      i == 5 ? "Icon_Bell" : ""},
                     true);
        grid.AddItem({id, i == 12 ? "" : "Icon_Home", i == 11 ? "" : "Tile " + id});
    }
    list.SelectItem("6,3", true);
    list.ScrollTo("6");
    grid.SelectItem("7,12", false);
    grid.ScrollTo("20");
    for (const char* row : {"list:4", "list:6", "list:ScrollBackward", "grid:8", "grid:7"})
    {
        Widgets()
            .FindWidget(std::string("screen:") + row, nullptr)
            ->MouseEvent(Gfx::Events::FirstDown, 1, {5, 5}, false);
    }
    ExpectPicture("Lists");
}

TEST_P(GoldenTest, Keyboard)
{
    const auto keyboard = AddTopLevel(new COnScreenKeyboard("keyboard", 0, 0, "Greek", "", ""));
    keyboard->Text("\u0395\u03BB\u03BB\u03AC\u03B4\u03B1");
    keyboard->SetNoCancel(true);
    keyboard->Show();
    ExpectPicture("Keyboard");
}

INSTANTIATE_TEST_SUITE_P(Themes, GoldenTest, testing::Values("Day", "Night", "Contrast"),
                         [](const testing::TestParamInfo<const char*>& a_info) { return std::string(a_info.param); });

} // namespace
