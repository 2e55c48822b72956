#include "Widgets/Controls/TextBox/TextBox.h"

#include "support/StageTest.h"

#include <clutter/clutter.h>

#include <string>

namespace
{

using Gfx::Common::CPoint;
using Gfx::Widgets::CTextBox;
using GfxTest::WidgetPtr;

class TextBoxTest : public GfxTest::CControlTest
{
protected:
    static Core::SharedPtr<CTextBox> Add(bool a_scrollable)
    {
        return AddTopLevel(new CTextBox("box", 100, 100, 200, 100, a_scrollable));
    }

    static WidgetPtr ChildOf(CTextBox& a_box, const char* a_name) { return Widgets().FindWidget(a_name, &a_box); }
    static WidgetPtr LabelOf(CTextBox& a_box) { return ChildOf(a_box, "TextboxLabel"); }
    static bool HasBar(CTextBox& a_box) { return ChildOf(a_box, "PanelScrollBar")->Visible(); }

    /// The width at which the lines are broken.
    static int LineWidth(CTextBox& a_box)
    {
        return static_cast<int>(
            clutter_actor_get_width(clutter_actor_get_child_at_index(LabelOf(a_box)->GetActor(), 0)));
    }
};

TEST_F(TextBoxTest, LinesAreBrokenInsideTwiceTheBordersAndBesideTheBar)
{
    const auto plain = Add(false);
    EXPECT_EQ(plain->Type(), "TextBox");
    EXPECT_EQ(LabelOf(*plain)->TopLeft(), CPoint(8, 8));
    EXPECT_EQ(LineWidth(*plain), 184);
    EXPECT_FALSE(ChildOf(*plain, "PanelScrollBar"));
    const auto box = Add(true);
    EXPECT_EQ(LineWidth(*box), 104);
    EXPECT_FALSE(HasBar(*box));
    box->Text("many words that need more than one line beside the bar and none");
    EXPECT_TRUE(HasBar(*box));
    box->Resize(780, 100);
    EXPECT_EQ(LineWidth(*box), 684);
    EXPECT_FALSE(HasBar(*box));
    box->Resize(150, 100);
    EXPECT_TRUE(HasBar(*box)) << "the label's new height counts";
}

TEST_F(TextBoxTest, ATextThatIsTooLongIsScrolled)
{
    const auto box = Add(true);
    int bottom = 0;
    for (std::string text = "1"; bottom <= 100; text += "\n1")
    {
        box->SetProperty("Text", text);
        bottom = LabelOf(*box)->TopLeft().Y() + LabelOf(*box)->Height();
        EXPECT_EQ(HasBar(*box), bottom > 100) << bottom;
    }
    Press(230, 190);
    for (int i = 0; i < 100; ++i)
    {
        Widgets().Idle();
    }
    Release(230, 190);
    EXPECT_EQ(LabelOf(*box)->TopLeft(), CPoint(8, 8 - (bottom + 10 - 100)));
    box->Text("short");
    EXPECT_FALSE(HasBar(*box));
    EXPECT_EQ(LabelOf(*box)->TopLeft(), CPoint(8, 8));

    auto font = box->Font();
    font.size = 90;
    font.alignment = 0x33;
    box->Font(font);
    EXPECT_EQ(box->Font().alignment, 0x11);
    EXPECT_FALSE(HasBar(*box)) << "a larger font alone doesn't have the text measured";
    box->Text("other");
    EXPECT_TRUE(HasBar(*box));
}

TEST_F(TextBoxTest, PropertiesAndThemesReachTheLabel)
{
    const auto box = Add(true);
    box->SetProperty("ParseMarkup", "True");
    EXPECT_EQ(box->GetProperty("ParseMarkup", ""), "True");
    box->SetProperty("Text", "<b>bold</b>");
    EXPECT_EQ(box->GetProperty("Text", ""), "<b>bold</b>");
    EXPECT_EQ(box->GetCustomInfo().at("Text"), "<b>bold</b>");
    auto font = box->Font();
    font.colourName = "Ink";
    box->Font(font);
    SetTheme("Swapped");
    EXPECT_EQ(box->Font().colour, Gfx::Colours::Lime);
}

} // namespace
