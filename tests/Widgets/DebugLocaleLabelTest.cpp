#include "Widgets/DebugLocaleLabel.h"

#include "Widgets/Controls/Button/Button.h"
#include "Widgets/Controls/CheckBox/CheckBox.h"
#include "Widgets/Controls/Label/Label.h"
#include "support/StageTest.h"

#include <clutter/clutter.h>

#include <string>

namespace
{

using Gfx::Widgets::CButton;
using Gfx::Widgets::CCheckBox;
using Gfx::Widgets::CLabel;
using Gfx::Widgets::CWidget;

class DebugLocaleLabelTest : public GfxTest::CControlTest
{
protected:
    static void SetUpTestSuite()
    {
        SetUpConfiguredStage("<General><DebugLocaleLabels>Yes</DebugLocaleLabels></General><Debug><LocaleLabel>"
                             "<TopOffset>12</TopOffset><BorderColour>Red</BorderColour>"
                             "<Font><Colour>Lime</Colour></Font></LocaleLabel></Debug>");
    }

    static Core::SharedPtr<CLabel> Add(const std::string& a_text, bool a_autoSize = false, bool a_parseMarkup = false)
    {
        return AddTopLevel(new CLabel("label", 100, 100, 200, 60, false, a_autoSize, a_parseMarkup, a_text, true));
    }

    // The actors of a control's text.
    static ClutterActor* Child(CWidget& a_widget, int a_index)
    {
        return clutter_actor_get_child_at_index(a_widget.GetActor(), a_index);
    }
    static ClutterActor* TextOf(CWidget& a_widget) { return Child(a_widget, 0); }
    static ClutterActor* MarkOf(CWidget& a_widget) { return Child(a_widget, 1); }

    /// Where the frame is, and by how much it is larger than the text.
    static std::string Frame(CWidget& a_widget)
    {
        ClutterActor* const frame = Child(a_widget, 2);
        const auto round = [](float a_length) { return std::to_string(static_cast<int>(a_length)); };
        return round(clutter_actor_get_x(frame)) + ',' + round(clutter_actor_get_y(frame)) + " + " +
               round(clutter_actor_get_width(frame) - clutter_actor_get_width(TextOf(a_widget))) + " x " +
               round(clutter_actor_get_height(frame) - clutter_actor_get_height(TextOf(a_widget)));
    }
};

TEST_F(DebugLocaleLabelTest, ALiteralBearsAMarkAboveAndAFrameRoundIt)
{
    const auto label = Add("Text");
    EXPECT_EQ(GfxTest::ShownText(MarkOf(*label)), "[-]");
    EXPECT_EQ(GfxTest::TextColour(MarkOf(*label)), Gfx::Colours::Lime);
    EXPECT_EQ(clutter_actor_get_width(MarkOf(*label)), 200);
    EXPECT_EQ(clutter_actor_get_y(MarkOf(*label)), -12);
    EXPECT_EQ(Frame(*label), "0,0 + 0 x 0");
    const std::string size = std::to_string(static_cast<int>(clutter_actor_get_width(TextOf(*label)))) + " x " +
                             std::to_string(static_cast<int>(clutter_actor_get_height(TextOf(*label))));
    EXPECT_EQ(ShownExtent(Gfx::Colours::Red), "holes in 100,100 " + size) << "the former frames are gone";
    label->BackgroundTexture("Uneven");
    label->Background(true);
    EXPECT_EQ(Frame(*label), "4,6 + 6 x 14") << "a border of 10 counts as 8";
    EXPECT_EQ(clutter_actor_get_x(MarkOf(*label)), 4);
    EXPECT_EQ(clutter_actor_get_y(MarkOf(*label)), -6);
    EXPECT_EQ(clutter_actor_get_n_children(label->GetActor()), 3);
    Widgets().DestroyWidget(label.Get());
    EXPECT_EQ(ShownExtent(Gfx::Colours::Red), "none");
}

TEST_F(DebugLocaleLabelTest, TheFirstTextsKeyIsShownForGood)
{
    const auto label = Add("");
    EXPECT_EQ(clutter_actor_get_n_children(label->GetActor()), 1);
    label->Text("Localised:first");
    EXPECT_EQ(GfxTest::ShownText(MarkOf(*label)), "[first]");
    label->Text("Localised:second");
    EXPECT_EQ(GfxTest::ShownText(TextOf(*label)), "second");
    EXPECT_EQ(GfxTest::ShownText(MarkOf(*label)), "[first]");
    EXPECT_EQ(GfxTest::ShownText(MarkOf(*Add("Localised:<b>key</b>", false, true))), "[key]");
}

TEST_F(DebugLocaleLabelTest, FramesReachOverTheControlsOwnMargins)
{
    const auto fitted = Add("Text", true);
    EXPECT_EQ(Frame(*fitted), "0,0 + 8 x 8") << "the borders by which it has grown";
    const auto button = AddTopLevel(new CButton("button", 100, 100, 120, 60, false));
    button->Text("Localised:key");
    EXPECT_EQ(Frame(*button), "3,3 + 6 x 6");
    const auto box = AddTopLevel(new CCheckBox("box", 100, 100, 200, 20, "Localised:key"));
    EXPECT_EQ(GfxTest::ShownText(MarkOf(*box)), "[key]");
    EXPECT_EQ(Frame(*box).substr(0, 3), "25,");
    EXPECT_EQ(clutter_actor_get_x(MarkOf(*box)), 25);
}

} // namespace
