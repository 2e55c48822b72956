#include "Widgets/Controls/CheckBox/CheckBox.h"

#include "Core/Functor.h"
#include "support/StageTest.h"

#include <clutter/clutter.h>

namespace
{

using Gfx::CColour;
using Gfx::Common::CPoint;
using Gfx::Widgets::CCheckBox;
using Gfx::Widgets::CWidget;

constexpr CColour k_mark{90, 90, 90, 255};

class CheckBoxTest : public GfxTest::CControlTest
{
protected:
    static void SetUpTestSuite()
    {
        // An indicator whose borders are 4, 6, 2 and 10 from the left on.
        SetUpConfiguredStage("<General><ClipText>Yes</ClipText></General><Controls><CheckBox>"
                             "<Textures><Background>Uneven</Background><Checked>Panel_Up</Checked></Textures>"
                             "<Image><Width>40</Width><Height>50</Height><Buffer>7</Buffer></Image>"
                             "<Font><Colour>Ink</Colour></Font></CheckBox></Controls>");
    }

    static Core::SharedPtr<CCheckBox> Add(int a_height = 100, const std::string& a_text = "Text")
    {
        return AddTopLevel(new CCheckBox("box", 100, 100, 200, a_height, a_text));
    }

    static ClutterActor* TextOf(CCheckBox& a_box) { return clutter_actor_get_child_at_index(a_box.GetActor(), 0); }
};

TEST_F(CheckBoxTest, IndicatorMarkAndTextLieAsTheBordersSay)
{
    const auto box = Add();
    EXPECT_EQ(box->Height(), 50) << "as high as the indicator, whatever was asked for";
    EXPECT_EQ(ShownExtent(CColour(10, 200, 100, 255)), "100,100 40 x 50");
    EXPECT_EQ(ShownExtent(k_mark), "none");
    box->Checked(true);
    EXPECT_EQ(ShownExtent(k_mark), "104,104 34 x 34") << "the left border counts at the top, too";
    box->Resize(300, 80);
    EXPECT_EQ(ShownExtent(k_mark), "104,104 34 x 34");
    EXPECT_EQ(box->Height(), 80);

    ClutterActor* const text = TextOf(*Add());
    EXPECT_EQ(static_cast<int>(clutter_actor_get_x(text)), 47);
    EXPECT_EQ(static_cast<int>(clutter_actor_get_width(text)), 153);
    const int height = static_cast<int>(clutter_actor_get_height(text));
    EXPECT_EQ(static_cast<int>(clutter_actor_get_y(text)), (50 - height) / 2);
    const auto full = Add(10, "more words than all the lines that lie beside so low an indicator have any room for");
    const int lines = static_cast<int>(clutter_actor_get_height(TextOf(*full)));
    EXPECT_GT(lines, 50) << "lines are broken";
    EXPECT_EQ(static_cast<int>(clutter_actor_get_y(TextOf(*full))), -(lines - 50) / 2);
    float clipWidth = 0;
    clutter_actor_get_clip(full->GetActor(), nullptr, nullptr, &clipWidth, nullptr);
    EXPECT_EQ(clipWidth, 153) << "the text's width, though from the box's left edge on";
}

TEST_F(CheckBoxTest, TextAndLookFollowLanguageAndTheme)
{
    const auto box = Add();
    box->Checked(true);
    box->Text("Localised:key");
    EXPECT_EQ(GfxTest::ShownText(TextOf(*box)), "key");
    EXPECT_EQ(box->GetCustomInfo().at("Text"), "key");
    SetTheme("Swapped");
    EXPECT_EQ(GfxTest::TextColour(TextOf(*box)), Gfx::Colours::Lime);
    EXPECT_EQ(ShownExtent(CColour(255, 128, 64, 255)), "104,104 34 x 34");
}

TEST_F(CheckBoxTest, AClickTogglesBeforeItsHandlerRunsUnlessReadOnly)
{
    const auto box = Add();
    std::string log;
    Core::Functor<void, CWidget*, int, const CPoint&, bool>::Callable handler(
        [&](CWidget* a_widget, int, const CPoint&, bool)
        { log += static_cast<CCheckBox*>(a_widget)->Checked() ? "on " : "off "; });
    box->SetClickEventHandler(&handler);
    Click(150, 120);
    Click(150, 120);
    EXPECT_EQ(log, "on off ");
    EXPECT_EQ(box->GetCustomInfo().at("Checked"), "False");
    box->SetProperty("ReadOnly", "True");
    Click(150, 120);
    EXPECT_EQ(log, "on off ") << "dead to the pointer, handlers included";
    box->SetProperty("Checked", "True");
    EXPECT_EQ(box->GetProperty("Checked", ""), "True") << "the application can still change it";
    box->SetProperty("Checked", "true");
    EXPECT_FALSE(box->Checked());
    box->SetProperty("ReadOnly", "yes");
    EXPECT_EQ(box->GetProperty("ReadOnly", ""), "False");
    box->SetProperty("Visible", "False");
    EXPECT_FALSE(box->Visible());
    box->SetClickEventHandler(nullptr);
}

} // namespace
