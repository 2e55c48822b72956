#include "Widgets/Controls/Button/Button.h"

#include "Core/Functor.h"
#include "Managers/Textures/TextureManager.h"
#include "Managers/Themes/ThemeManager.h"
#include "support/LogGuard.h"
#include "support/StageTest.h"

#include <clutter/clutter.h>

#include <array>
#include <memory>
#include <string>

namespace
{

using Core::Patterns::StaticSingleton;
using Gfx::CColour;
using Gfx::Common::CPoint;
using Gfx::Widgets::CButton;
using Gfx::Widgets::CWidget;

// What the elements of the test's page look like.
constexpr CColour k_inactive{0, 0, 160, 255};
constexpr CColour k_hover{0, 160, 160, 255};
constexpr CColour k_active{160, 160, 0, 255};
constexpr CColour k_alternate{255, 128, 64, 255};
constexpr CColour k_icon{255, 255, 0, 255};

class ButtonTest : public GfxTest::CStageTest
{
protected:
    static void SetUpTestSuite()
    {
        CStageTest::SetUpTestSuite();
        StaticSingleton<Gfx::Managers::CTextureManager>::ref().LoadTextures();
    }

    void SetUp() override
    {
        CStageTest::SetUp();
        StaticSingleton<Gfx::Managers::CThemeManager>::ref().SetTheme("Plain");
        AddTopLevel(new GfxTest::CBlock("ground", 0, 0, 800, 480, Gfx::Colours::Black));
    }

    static Core::SharedPtr<CButton> Add(bool a_allowHover = false)
    {
        return AddTopLevel(new CButton("button", 100, 100, 120, 60, a_allowHover));
    }

    /// The button's look, in a corner that no text and no image covers.
    static CColour Look()
    {
        Settle();
        return ShownPicture().At(217, 157);
    }

    static ClutterActor* LabelOf(CButton& a_button) { return clutter_actor_get_child_at_index(a_button.GetActor(), 0); }
    static int LabelX(CButton& a_button) { return static_cast<int>(clutter_actor_get_x(LabelOf(a_button))); }
    static int LabelWidth(CButton& a_button) { return static_cast<int>(clutter_actor_get_width(LabelOf(a_button))); }
};

TEST_F(ButtonTest, ThePointerLeadsItThroughItsStates)
{
    const auto button = Add();
    EXPECT_EQ(Look(), k_inactive);
    Press(110, 110);
    EXPECT_EQ(Look(), k_active);
    MoveTo(10, 10);
    EXPECT_EQ(button->State(), CButton::ebsInactive);
    EXPECT_EQ(Look(), k_inactive);
    MoveTo(110, 110);
    EXPECT_EQ(button->State(), CButton::ebsInactive) << "Enter comes with no button held, by the injected mask";
    Widgets().MouseEvent(Gfx::Events::Move, 1, {10, 10}, false);
    Widgets().MouseEvent(Gfx::Events::Move, 1, {110, 110}, false);
    EXPECT_EQ(Look(), k_active);
    Release(110, 110);
    EXPECT_EQ(Look(), k_inactive);
    MoveTo(112, 112);
    EXPECT_EQ(Look(), k_inactive) << "hover isn't allowed";
}

TEST_F(ButtonTest, HoverIsShownWhereItIsAllowed)
{
    const auto button = Add(true);
    MoveTo(110, 110);
    EXPECT_EQ(Look(), k_hover);
    Press(110, 110);
    Widgets().MouseEvent(Gfx::Events::Move, 1, {112, 112}, false);
    EXPECT_EQ(Look(), k_active);
    Release(112, 112);
    EXPECT_EQ(Look(), k_hover) << "the click leaves it hovered";
    MoveTo(10, 10);
    EXPECT_EQ(Look(), k_inactive);
    // Without a hover element there is nothing to draw.
    button->SetTextures("ControlInactive_Up", "unknown", "ControlActive_Down", "Default");
    MoveTo(110, 110);
    EXPECT_EQ(Look(), Gfx::Colours::Black);
}

TEST_F(ButtonTest, ADisabledButtonIsGreyAndDeaf)
{
    const auto button = Add();
    int clicks = 0;
    const std::unique_ptr<CWidget::ClickHandler> handler(Core::Functor<void, CWidget*, int, const CPoint&, bool>::Make(
        [&clicks](CWidget*, int, const CPoint&, bool) { ++clicks; }));
    button->SetClickEventHandler(handler.get());
    Click(110, 110);
    EXPECT_EQ(clicks, 1);
    Press(110, 110);
    button->SetProperty("Enabled", "False");
    EXPECT_EQ(button->State(), CButton::ebsInactive);
    EXPECT_TRUE(button->Disabled());
    EXPECT_TRUE(button->Enabled()) << "it is still there for the dispatch";
    Release(110, 110);
    Click(110, 110);
    EXPECT_EQ(clicks, 1);
    EXPECT_NEAR(Look().Blue(), 80, 1);
    EXPECT_EQ(GfxTest::TextColour(LabelOf(*button)).Red(), 127);
    StaticSingleton<Gfx::Managers::CThemeManager>::ref().SetTheme("Swapped");
    EXPECT_EQ(GfxTest::TextColour(LabelOf(*button)).Green(), 127) << "a theme switch keeps the text dim";
    button->SetProperty("Enabled", "anything else");
    Click(110, 110);
    EXPECT_EQ(clicks, 2);

    button->RemoteLockout(true);
    button->MouseEvent(Gfx::Events::FirstDown, 1, {5, 5}, true);
    EXPECT_EQ(button->State(), CButton::ebsInactive);
    button->SetClickEventHandler(nullptr);
}

TEST_F(ButtonTest, OneThatItsHandlerDisablesIsInactiveAtOnce)
{
    const auto button = Add(true);
    const std::unique_ptr<CWidget::ClickHandler> handler(Core::Functor<void, CWidget*, int, const CPoint&, bool>::Make(
        [&button](CWidget*, int, const CPoint&, bool) { button->Disabled(true); }));
    button->SetClickEventHandler(handler.get());
    Click(110, 110);
    EXPECT_EQ(button->State(), CButton::ebsInactive);
    button->SetClickEventHandler(nullptr);
}

TEST_F(ButtonTest, TextureSetsAreSwitchedAsAWhole)
{
    const auto button = Add();
    button->ChangeTextureSet("none");
    EXPECT_EQ(button->GetProperty("TextureSet", ""), "Default");
    button->SetTextures("Alternate_Up", "unknown", "unknown", "Alarm");
    EXPECT_EQ(Look(), k_inactive);
    button->SetProperty("TextureSet", "Alarm");
    EXPECT_EQ(Look(), k_alternate);
    Press(110, 110);
    EXPECT_EQ(Look(), Gfx::Colours::Black) << "there is no fallback to another state's element";
    button->ChangeTextureSet("Default");
    EXPECT_EQ(Look(), k_active) << "what the other set lacks is none of this set's concern";
    Release(110, 110);
    button->Resize(200, 100);
    Settle();
    EXPECT_EQ(ShownPicture().At(290, 190), k_inactive);
    StaticSingleton<Gfx::Managers::CThemeManager>::ref().SetTheme("Swapped");
    EXPECT_EQ(Look(), k_alternate);
}

TEST_F(ButtonTest, ImagesLieByTheirAlignmentWithTheMarginTwiceAtTheEdges)
{
    struct SCase
    {
        int alignment;
        CPoint corner;
    };
    for (const SCase& row :
         {SCase{Gfx::eaLeft | Gfx::eaTop, {106, 106}}, SCase{Gfx::eaRight | Gfx::eaBottom, {194, 134}},
          SCase{Gfx::eaCentre | Gfx::eaMiddle, {150, 120}}})
    {
        const auto button = Add();
        button->SetImage("Icon", row.alignment, 20, 20);
        const GfxTest::CPicture picture = FreshPicture();
        EXPECT_EQ(picture.At(row.corner.X(), row.corner.Y()), k_icon) << row.alignment;
        EXPECT_EQ(picture.At(row.corner.X() + 19, row.corner.Y() + 19), k_icon);
        EXPECT_EQ(picture.At(row.corner.X() - 1, row.corner.Y()), k_inactive);
        EXPECT_EQ(picture.At(row.corner.X(), row.corner.Y() + 20), k_inactive);
        EXPECT_EQ(button->GetCustomInfo().at("Image"), "Icon");
        button->ClearImage();
        EXPECT_EQ(FreshPicture().At(row.corner.X(), row.corner.Y()), k_inactive);
        EXPECT_EQ(button->GetCustomInfo().at("Image"), "");
    }
    const auto button = Add();
    const std::string file = std::string(GFX_TEST_DATA) + "TextureMaps/Solid.png";
    button->SetImage(file, Gfx::eaCentre | Gfx::eaMiddle, 40, 40);
    EXPECT_EQ(FreshPicture().At(174, 115), CColour(90, 90, 90, 255)) << "the page's fifth element";
    button->SetImage("neither a file nor an element");
    EXPECT_EQ(FreshPicture().At(160, 130), k_inactive);
}

TEST_F(ButtonTest, ATextThatIsTooLongIsShortenedOrVanishes)
{
    const auto button = Add();
    button->Text("OK");
    EXPECT_EQ(LabelX(*button), 3 + (120 - 6 - LabelWidth(*button)) / 2);
    const std::string text = "much too long a text for so small a button";
    button->Text(text);
    EXPECT_GT(LabelX(*button), 10000);
    button->SetEllipsisMode(Gfx::Text::eemEnd);
    EXPECT_EQ(LabelX(*button), 3);
    EXPECT_EQ(LabelWidth(*button), 114);
    EXPECT_EQ(button->GetCustomInfo().at("Text"), text);
    button->Text("OK");
    EXPECT_LT(LabelWidth(*button), 60) << "it has its own size again";
}

TEST_F(ButtonTest, ATextSetBeforeTheButtonIsOnTheStageIsPlacedWithTheFirstInvalidate)
{
    const Core::SharedPtr<CButton> button(new CButton("button", 100, 100, 120, 60, false));
    button->Text("OK");
    EXPECT_EQ(LabelX(*button), 0);
    AddToStage(button);
    EXPECT_GT(LabelX(*button), 3);
}

TEST_F(ButtonTest, FlashingFadesTheOverlayInAndOut)
{
    const auto button = Add();
    button->SetFlashPeriod(4);
    button->SetProperty("Flashing", "True");
    EXPECT_EQ(button->GetCustomInfo().at("Flashing"), "Yes");
    // The first round turns the counter back from below 0.
    const std::array<int, 11> rounds{0, 1, 2, 3, 4, 4, 3, 2, 1, 0, 0};
    for (const int counter : rounds)
    {
        button->Idle();
        EXPECT_NEAR(Look().Red(), counter * 255 / 4, 2) << counter;
    }
    button->Idle();
    button->SetFlashPeriod(0);
    EXPECT_EQ(Look().Red(), 255) << "a period of 0 is no reason to fail";
    button->SetFlashPeriod(-7);
    Look();
    button->Flashing(false);
    EXPECT_EQ(Look(), k_inactive);
}

TEST_F(ButtonTest, AFlashingButtonRepaintsAndAnUnflashingOneRests)
{
    const auto button = Add();
    Settle();
    Widgets().Idle();
    EXPECT_EQ(Settle(), 0);
    button->Flashing(true);
    Settle();
    Widgets().Idle();
    EXPECT_EQ(Settle(), 1);
}

TEST_F(ButtonTest, AHandlerMayDestroyItsButtonWhateverItIsTold)
{
    for (const int event : {Gfx::Events::FirstDown, Gfx::Events::FirstUp, Gfx::Events::FirstClick, Gfx::Events::Leave})
    {
        bool destroyed = false;
        const std::unique_ptr<CWidget::MouseHandler> handler(
            Core::Functor<void, CWidget*, Gfx::Events::EMouseEvent, int, const CPoint&, bool>::Make(
                [&](CWidget* a_widget, Gfx::Events::EMouseEvent a_event, int, const CPoint&, bool)
                {
                    if (a_event == event && !destroyed)
                    {
                        destroyed = true;
                        Widgets().DestroyWidget(a_widget);
                    }
                }));
        {
            const Core::SharedPtr<CButton> button(new CButton("button", 100, 100, 120, 60, false));
            button->SetMouseEventHandler(handler.get());
            Widgets().AddWidget(button);
        }
        Press(110, 110);
        MoveTo(10, 10);
        MoveTo(110, 110);
        Release(110, 110);
        Widgets().GarbageCollect();
        Settle();
        // The press that was stored after the destruction ends with another release.
        Release(1, 1);
        EXPECT_TRUE(destroyed) << event;
    }
}

} // namespace
