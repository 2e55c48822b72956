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

class CheckBoxTest : public GfxTest::CControlTest
{
protected:
    static void SetUpTestSuite()
    {
        // An indicator whose borders are 4, 6, 2 and 10 from the left on.
        SetUpConfiguredStage("<Controls><CheckBox><Textures><Background>Uneven</Background></Textures>"
                             "<Image><Width>40</Width><Height>50</Height><Buffer>7</Buffer></Image></CheckBox>"
                             "</Controls>");
    }

    static Core::SharedPtr<CCheckBox> Add(int a_height = 100, const std::string& a_text = "Text")
    {
        return AddTopLevel(new CCheckBox("box", 100, 100, 200, a_height, a_text));
    }
};

TEST_F(CheckBoxTest, IndicatorMarkAndTextLieAsTheBordersSay)
{
    const auto box = Add();
    EXPECT_EQ(box->Height(), 50) << "as high as the indicator, whatever was asked for";
    EXPECT_EQ(ShownExtent(CColour(10, 200, 100, 255)), "100,100 40 x 50");
    EXPECT_EQ(ShownExtent(Gfx::Colours::Lime), "none");
    box->Checked(true);
    EXPECT_EQ(ShownExtent(Gfx::Colours::Lime), "104,104 34 x 34") << "the left border counts at the top, too";
    box->Resize(300, 80);
    EXPECT_EQ(ShownExtent(Gfx::Colours::Lime), "104,104 34 x 34");
    EXPECT_EQ(box->Height(), 80);

    ClutterActor* const text = clutter_actor_get_child_at_index(Add()->GetActor(), 0);
    EXPECT_EQ(static_cast<int>(clutter_actor_get_x(text)), 47);
    EXPECT_EQ(static_cast<int>(clutter_actor_get_width(text)), 153);
    const int height = static_cast<int>(clutter_actor_get_height(text));
    EXPECT_EQ(static_cast<int>(clutter_actor_get_y(text)), (50 - height) / 2);
    ClutterActor* const lines =
        clutter_actor_get_child_at_index(Add(10, "more words than one line has room for")->GetActor(), 0);
    EXPECT_GT(static_cast<int>(clutter_actor_get_height(lines)), height);
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

TEST_F(CheckBoxTest, AHandlerMayDestroyTheBox)
{
    auto box = Add();
    CWidget* const raw = box.Get();
    ForgetTopLevels();
    box.Reset();
    Core::Functor<void, CWidget*, int, const CPoint&, bool>::Callable handler(
        [](CWidget* a_widget, int, const CPoint&, bool) { Widgets().DestroyWidget(a_widget); });
    raw->SetClickEventHandler(&handler);
    Click(150, 120);
    EXPECT_FALSE(Widgets().FindWidget("box", nullptr));
    EXPECT_EQ(ShownExtent(CColour(10, 200, 100, 255)), "none");
}

} // namespace
