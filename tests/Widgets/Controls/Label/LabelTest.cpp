#include "Widgets/Controls/Label/Label.h"

#include "Core/Localisation/Manager.h"
#include "Gfx/Common/Alignment.h"
#include "Managers/Textures/TextureManager.h"
#include "Widgets/Controls/Button/Button.h"
#include "Widgets/Controls/CheckBox/CheckBox.h"
#include "support/StageTest.h"
#include "support/TemporaryDirectory.h"

#include <clutter/clutter.h>

#include <functional>
#include <string>

namespace
{

using Core::Patterns::StaticSingleton;
using Gfx::CColour;
using Gfx::Widgets::CLabel;
using Gfx::Widgets::CWidget;

/// A label of which a test can say just what it is about.
struct SLabel
{
    int width = 200;
    int height = 60;
    bool wrap = false;
    bool autoSize = false;
    bool parseMarkup = false;
    std::string text = "Text";
    bool raised = true;
};

class LabelTest : public GfxTest::CStageTest
{
protected:
    static void SetUpTestSuite()
    {
        Core::Localisation::CManager::Instance(&s_localisation);
        CStageTest::SetUpTestSuite();
        StaticSingleton<Gfx::Managers::CTextureManager>::ref().LoadTextures();
        s_directory.Write("Localisation/de.xml", R"(<Localisation><Text id="greeting">Hallo</Text></Localisation>)");
        s_directory.Write("Localisation/fr.xml",
                          R"(<Localisation><Text id="greeting">Bonjour a tous</Text></Localisation>)");
        s_localisation.AddUpdateCompletedCallback(Core::Functor<void>::Make([] { Widgets().UpdateLocalisation(); }));
        ASSERT_TRUE(s_localisation.SetLanguage("de"));
    }

    void SetUp() override
    {
        CStageTest::SetUp();
        SetTheme("Plain");
    }

    static Core::SharedPtr<CLabel> Add(const SLabel& a_label)
    {
        return AddTopLevel(new CLabel("label", 100, 100, a_label.width, a_label.height, a_label.wrap, a_label.autoSize,
                                      a_label.parseMarkup, a_label.text, a_label.raised));
    }

    static ClutterActor* TextOf(CLabel& a_label) { return clutter_actor_get_child_at_index(a_label.GetActor(), 0); }
    static std::string ShownText(CLabel& a_label) { return GfxTest::ShownText(TextOf(a_label)); }
    static int X(CLabel& a_label) { return static_cast<int>(clutter_actor_get_x(TextOf(a_label))); }
    static int Y(CLabel& a_label) { return static_cast<int>(clutter_actor_get_y(TextOf(a_label))); }
    static int TextWidth(CLabel& a_label) { return static_cast<int>(clutter_actor_get_width(TextOf(a_label))); }
    static int TextHeight(CLabel& a_label) { return static_cast<int>(clutter_actor_get_height(TextOf(a_label))); }
    static void Align(CLabel& a_label, int a_alignment)
    {
        Gfx::Text::CFontSettings font = a_label.Font();
        font.alignment = a_alignment;
        a_label.Font(font);
    }

    // Outlive every label.
    static inline GfxTest::CTemporaryDirectory s_directory;
    static inline Core::Localisation::CManager s_localisation{s_directory.Path()};
};

TEST_F(LabelTest, ALocalisedTextIsShownAndItsKeyIsTold)
{
    const auto label = Add({.text = "Localised:greeting"});
    EXPECT_EQ(ShownText(*label), "Hallo");
    EXPECT_EQ(label->Text(), "greeting");
    EXPECT_EQ(label->GetCustomInfo().at("Text"), "Hallo");
    Align(*label, Gfx::eaRight | Gfx::eaTop);
    ASSERT_TRUE(s_localisation.SetLanguage("fr"));
    EXPECT_EQ(ShownText(*label), "Bonjour a tous");
    EXPECT_EQ(X(*label), 200 - TextWidth(*label)) << "the longer text is placed anew";
    ASSERT_TRUE(s_localisation.SetLanguage("de"));

    label->Text("Localised:unknown");
    EXPECT_EQ(ShownText(*label), "unknown");
    label->Text("x Localised:greeting");
    EXPECT_EQ(label->Text(), "d:greeting") << "the key is cut at the prefix's length, wherever that stands";
    label->Text("plain");
    EXPECT_EQ(label->Text(), "plain");
    EXPECT_EQ(ShownText(*label), "plain");
}

TEST_F(LabelTest, TheTextLiesByAlignmentWithinAtMostEightPixelsOfTheBackgroundsBorders)
{
    const auto label = Add({});
    label->BackgroundTexture("Uneven");
    Align(*label, Gfx::eaLeft | Gfx::eaTop);
    EXPECT_EQ(X(*label), 0);
    label->Background(true);
    // Borders of 4, 6, 2 and 10 from the left on.
    Align(*label, Gfx::eaLeft | Gfx::eaTop);
    EXPECT_EQ(X(*label), 4);
    EXPECT_EQ(Y(*label), 6);
    Align(*label, Gfx::eaRight | Gfx::eaBottom);
    EXPECT_EQ(X(*label), 200 - TextWidth(*label) - 2);
    EXPECT_EQ(Y(*label), 60 - TextHeight(*label) - 2) << "the right margin counts at the bottom";
    Align(*label, Gfx::eaCentre | Gfx::eaMiddle);
    EXPECT_EQ(X(*label), (200 - 4 - 2 - TextWidth(*label)) / 2 + 4);
    EXPECT_EQ(Y(*label), (60 - 6 - 8 - TextHeight(*label)) / 2 + 6) << "a border of 10 counts as 8";
}

TEST_F(LabelTest, WithAutoSizeTheWidgetFollowsTheTextAndGrowsByTheWholeBorders)
{
    const auto label = Add({.autoSize = true, .text = "A longer text than before"});
    Align(*label, Gfx::eaRight | Gfx::eaBottom);
    EXPECT_EQ(label->Font().alignment, Gfx::eaDefault);
    const int margin = 4;
    EXPECT_EQ(label->Width(), TextWidth(*label) + 2 * margin) << "by the borders, though the background is off";
    EXPECT_EQ(label->Height(), TextHeight(*label) + 2 * margin);
    const int before = label->Width();
    label->Text("Short");
    EXPECT_LT(label->Width(), before);
    EXPECT_EQ(X(*label), 0);
    label->BackgroundTexture("Uneven");
    label->Background(true);
    label->Text("Other");
    EXPECT_EQ(label->Height(), TextHeight(*label) + 6 + 10);
}

TEST_F(LabelTest, LinesAreBrokenAtTheWidthOnlyWithWrap)
{
    const std::string text = "one two three four five six seven eight nine ten";
    const auto straight = Add({.width = 120, .text = text});
    const auto wrapped = Add({.width = 120, .wrap = true, .text = text});
    EXPECT_GT(TextHeight(*wrapped), TextHeight(*straight) * 2);
    EXPECT_EQ(TextWidth(*wrapped), 120);
    EXPECT_GT(TextWidth(*straight), 120);
    const int narrow = TextHeight(*wrapped);
    wrapped->Resize(300, 30);
    EXPECT_EQ(TextWidth(*wrapped), 300);
    EXPECT_EQ(TextHeight(*wrapped), 30);
    const auto growing = Add({.width = 120, .wrap = true, .autoSize = true, .text = text});
    EXPECT_EQ(growing->Height(), narrow + 8);
}

TEST_F(LabelTest, MarkupIsParsedOrShown)
{
    const auto label = Add({.text = "<b>x</b>"});
    EXPECT_EQ(ShownText(*label), "<b>x</b>");
    label->SetProperty("ParseMarkup", "True");
    EXPECT_EQ(ShownText(*label), "x");
    EXPECT_EQ(label->GetProperty("Text", ""), "<b>x</b>");
    label->SetProperty("ParseMarkup", "yes");
    EXPECT_EQ(label->GetProperty("ParseMarkup", ""), "False");
    EXPECT_EQ(ShownText(*label), "<b>x</b>");
}

TEST_F(LabelTest, TheThemeChangesColourAndBackground)
{
    const auto label = Add({.text = ""});
    label->Background(true);
    EXPECT_EQ(FreshPicture().At(200, 130), CColour(90, 90, 90, 255));
    SetTheme("Swapped");
    Settle();
    EXPECT_EQ(ShownPicture().At(200, 130), CColour(255, 128, 64, 255));
    EXPECT_TRUE(label->Font().colour == Gfx::Colours::Lime);
    EXPECT_EQ(GfxTest::TextColour(TextOf(*label)), Gfx::Colours::Lime);
    label->Background(false);
    EXPECT_EQ(FreshPicture().At(200, 130), Gfx::Colours::Black);
    const auto lowered = Add({.text = "", .raised = false});
    lowered->Background(true);
    EXPECT_EQ(FreshPicture().At(200, 130), CColour(40, 40, 40, 255));
}

TEST_F(LabelTest, ATextThatIsNoTextIsShownAsWellAsItCanBe)
{
    const auto label = Add({.parseMarkup = true, .text = "<b>unclosed & broken"});
    EXPECT_EQ(ShownText(*label), "<b>unclosed & broken");
    label->Text("a\xFF\xC3");
    EXPECT_EQ(ShownText(*label), "a\xEF\xBF\xBD\xEF\xBF\xBD");
    label->Text(std::string("a\0b", 3));
    EXPECT_EQ(label->Text(), std::string("a\0b", 3));
    label->Text(std::string(std::size_t{1} << 20U, 'w'));
    FreshPicture();
    label->Text("\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D \xE4\xB8\x96\xE7\x95\x8C");
    FreshPicture();
    EXPECT_GT(TextWidth(*label), 10);
}

TEST_F(LabelTest, AnEqualTextDoesNothing)
{
    class CCounting : public CLabel
    {
    public:
        CCounting() : CLabel("label", 0, 0, 10, 10, false, false, false, "same", true) {}
        void UpdateLocalisedText() override
        {
            ++updates;
            CLabel::UpdateLocalisedText();
        }
        int updates = 0;
    };
    const auto label = AddTopLevel(new CCounting);
    label->updates = 0;
    label->Text("same");
    EXPECT_EQ(label->updates, 0);
    label->Text("other");
    EXPECT_EQ(label->updates, 1);
}

TEST_F(LabelTest, AResizeHandlerIsAskedOnceForEachText)
{
    int calls = 0;
    Core::Functor<bool, CWidget*, int, int>::Callable handler([&calls](CWidget*, int, int) { return ++calls > 0; });
    const auto label = Add({.autoSize = true});
    label->SetResizeEventHandler(&handler);
    label->Text("first");
    EXPECT_EQ(calls, 1);
    label->Text("second");
    EXPECT_EQ(calls, 2);
    label->SetResizeEventHandler(nullptr);
}

TEST_F(LabelTest, AResizeHandlerMaySetAnotherTextEachTime)
{
    int calls = 0;
    Core::Functor<bool, CWidget*, int, int>::Callable handler(
        [&calls](CWidget* a_label, int, int)
        {
            static_cast<CLabel*>(a_label)->Text(std::string(static_cast<std::size_t>(++calls % 50), 'x'));
            return true;
        });
    const auto label = Add({.autoSize = true});
    label->SetResizeEventHandler(&handler);
    label->Text("first");
    EXPECT_GT(calls, 0);
    EXPECT_LT(calls, 1000);
    label->SetResizeEventHandler(nullptr);
    label->Text("last");
    EXPECT_EQ(label->Width(), TextWidth(*label) + 8);
}

TEST_F(LabelTest, AResizeHandlerMayDestroyItsLabel)
{
    Core::Functor<bool, CWidget*, int, int>::Callable handler(
        [](CWidget* a_widget, int, int)
        {
            Widgets().DestroyWidget(a_widget);
            return true;
        });
    const std::function<void(CLabel&)> operations[]{
        [](CLabel& a_label) { a_label.Text("other"); },         [](CLabel& a_label) { a_label.Resize(10, 10); },
        [](CLabel& a_label) { a_label.Background(true); },      [](CLabel& a_label) { a_label.UpdateStyle(); },
        [](CLabel& a_label) { a_label.UpdateLocalisedText(); },
    };
    for (const auto& operation : operations)
    {
        auto* const label = new CLabel("label", 100, 100, 200, 60, false, true, false, "Text", true);
        Widgets().AddWidget(GfxTest::WidgetPtr(label));
        label->SetResizeEventHandler(&handler);
        operation(*label);
        EXPECT_FALSE(Widgets().FindWidget("label", nullptr));
    }
}

TEST_F(LabelTest, AResizeHandlerMayDestroyTheControlThatTheLabelLiesIn)
{
    Core::Functor<bool, CWidget*, int, int>::Callable handler(
        [](CWidget* a_label, int, int)
        {
            Widgets().DestroyWidget(a_label->Parent());
            return true;
        });
    const auto destroysItself = [&handler](auto* a_control)
    {
        const auto label = AddChild(*a_control, new CLabel("label", 0, 0, 200, 60, false, true, false, "Text", true));
        Widgets().AddWidget(GfxTest::WidgetPtr(a_control));
        label->SetResizeEventHandler(&handler);
        a_control->Text("other");
        return !Widgets().FindWidget("control", nullptr);
    };
    EXPECT_TRUE(destroysItself(new Gfx::Widgets::CButton("control", 100, 100, 200, 60, false)));
    EXPECT_TRUE(destroysItself(new Gfx::Widgets::CCheckBox("control", 100, 100, 200, 60, "Text")));
}

} // namespace
