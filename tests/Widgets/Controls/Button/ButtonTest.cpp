#include "Widgets/Controls/Button/Button.h"

#include "Core/Functor.h"
#include "support/LogGuard.h"
#include "support/StageTest.h"

#include <clutter/clutter.h>
#include <dlfcn.h>
#include <hb.h>

#include <array>
#include <memory>
#include <string>

namespace
{

int s_shapedTexts = 0;

} // namespace

/// Stands before HarfBuzz's own, which Pango calls for each run of a text that it lays out.
extern "C" void hb_shape(hb_font_t* a_font, hb_buffer_t* a_buffer, const hb_feature_t* a_features, unsigned int a_count)
{
    static const auto s_original = reinterpret_cast<decltype(&hb_shape)>(dlsym(RTLD_NEXT, "hb_shape"));
    ++s_shapedTexts;
    s_original(a_font, a_buffer, a_features, a_count);
}

namespace
{

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

class ButtonTest : public GfxTest::CControlTest
{
protected:
    static void SetUpTestSuite()
    {
        SetUpConfiguredStage(
            "<General><ClipText>Yes</ClipText><TouchArea>1</TouchArea></General><Controls><Button>"
            "<Font><Colour>Ink</Colour><Alignment>Middle,Centre</Alignment></Font></Button></Controls>");
    }

    void SetUp() override
    {
        CControlTest::SetUp();
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

    /// In how many columns of pixels from a_left to before a_right a text of the button is.
    static int CountColumns(const GfxTest::CPicture& a_picture, int a_left, int a_right)
    {
        int count = 0;
        for (int x = a_left; x < a_right; ++x)
        {
            bool hasText = false;
            for (int y = 110; y < 150; ++y)
            {
                hasText = hasText || a_picture.At(x, y).Red() > 60;
            }
            count += hasText ? 1 : 0;
        }
        return count;
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
    SetTheme("Swapped");
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
    button->Resize(80, 40);
    EXPECT_EQ(ShownExtent(k_inactive), "100,100 80 x 40");
    SetTheme("Swapped");
    EXPECT_EQ(ShownExtent(k_alternate), "100,100 80 x 40");
}

TEST_F(ButtonTest, ASetThatComesBackAfterAResizeHasItsOldSize)
{
    const auto button = Add();
    button->SetTextures("Alternate_Up", "Alternate_Up", "Alternate_Up", "Alarm");
    button->ChangeTextureSet("Alarm");
    button->ChangeTextureSet("Default");
    button->Resize(80, 40);
    EXPECT_EQ(ShownExtent(k_inactive), "100,100 80 x 40");
    button->ChangeTextureSet("Alarm");
    EXPECT_EQ(FreshPicture().Extent(k_alternate), "100,100 120 x 60");
    button->Resize(80, 40);
    EXPECT_EQ(FreshPicture().Extent(k_alternate), "100,100 80 x 40");
}

TEST_F(ButtonTest, WithClippedTextAButtonIsCutToItsFirstSize)
{
    const auto button = Add();
    button->Resize(200, 100);
    EXPECT_EQ(ShownExtent(k_inactive), "100,100 120 x 60");
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
    EXPECT_FALSE(CLUTTER_ACTOR_IS_VISIBLE(LabelOf(*button))) << "or its group would be as wide";
    // The nearest mode, which shortens the end.
    button->SetEllipsisMode(static_cast<Gfx::Text::EEllipsisMode>(99));
    EXPECT_TRUE(CLUTTER_ACTOR_IS_VISIBLE(LabelOf(*button)));
    EXPECT_EQ(LabelX(*button), 3);
    EXPECT_EQ(LabelWidth(*button), 114);
    EXPECT_EQ(button->GetCustomInfo().at("Text"), text);
    const GfxTest::CPicture picture = FreshPicture();
    EXPECT_EQ(CountColumns(picture, 90, 103), 0);
    EXPECT_GT(CountColumns(picture, 103, 217), 60);
    EXPECT_EQ(CountColumns(picture, 217, 240), 0);
    int layouts = 0;
    g_signal_connect_swapped(LabelOf(*button), "queue-relayout", G_CALLBACK(+[](int* a_count) { ++*a_count; }),
                             &layouts);
    button->Invalidate(false);
    EXPECT_EQ(layouts, 0) << "a change of its look leaves the text alone";
    button->Text("OK");
    EXPECT_GT(layouts, 0);
    EXPECT_LT(LabelWidth(*button), 60) << "it has its own size again";
    Settle();
    layouts = 0;
    button->Invalidate(false);
    EXPECT_EQ(layouts, 0);
}

TEST_F(ButtonTest, ATextSetBeforeTheButtonIsOnTheStageIsPlacedWithTheFirstInvalidate)
{
    const Core::SharedPtr<CButton> button(new CButton("button", 100, 100, 120, 60, false));
    button->Text("OK");
    EXPECT_EQ(LabelX(*button), 0);
    AddToStage(button);
    EXPECT_GT(LabelX(*button), 3);
}

TEST_F(ButtonTest, ATextIsLaidOutOnce)
{
    // For a font's first text Pango lays out some of its own, to measure the font.
    Add()->Text("Text");
    Settle();
    s_shapedTexts = 0;
    const Core::SharedPtr<CButton> button(new CButton("button", 100, 100, 120, 60, false));
    button->Text("Text");
    AddToStage(button);
    Settle();
    EXPECT_EQ(s_shapedTexts, 1);
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

TEST_F(ButtonTest, TheOverlayKeepsTheSizeThatItWasSetAt)
{
    const auto button = Add();
    button->SetFlashPeriod(1);
    button->Flashing(true);
    button->Idle();
    button->Idle();
    EXPECT_EQ(ShownExtent(Gfx::Colours::Red), "100,100 120 x 60");
    button->Resize(80, 40);
    EXPECT_EQ(FreshPicture().Extent(Gfx::Colours::Red), "100,100 120 x 60");
    button->SetFlashTexture("Red_Up");
    EXPECT_EQ(FreshPicture().Extent(Gfx::Colours::Red), "100,100 80 x 40");
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

TEST_F(ButtonTest, AnEqualTextRunsAllStepsAgain)
{
    class CCounting : public CButton
    {
    public:
        CCounting() : CButton("button", 100, 100, 120, 60, false) {}
        void UpdateLocalisedText() override
        {
            ++updates;
            CButton::UpdateLocalisedText();
        }
        int updates = 0;
    };
    const auto button = AddTopLevel(new CCounting);
    button->Text("same");
    button->Text("same");
    EXPECT_EQ(button->updates, 2);
}

} // namespace
