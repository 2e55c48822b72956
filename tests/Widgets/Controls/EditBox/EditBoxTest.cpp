#include "Widgets/Controls/EditBox/EditBox.h"

#include "Core/Functor.h"
#include "support/StageTest.h"

#include <clutter/clutter.h>

#include <array>
#include <functional>
#include <limits>
#include <string>

namespace
{

using Gfx::CColour;
using Gfx::Common::CPoint;
using Gfx::Widgets::CEditBox;
using Gfx::Widgets::CWidget;
using GfxTest::WidgetPtr;

constexpr unsigned int k_backspace = 0xFF08;
constexpr CColour k_inactive{10, 200, 100, 255};
constexpr CColour k_active{90, 90, 90, 255};

using Notify = Core::Functor<void, CWidget*>;
using Toggle = Core::Functor<void, CWidget*, bool>;
using Mouse = Core::Functor<void, CWidget*, Gfx::Events::EMouseEvent, int, const CPoint&, bool>;

class EditBoxTest : public GfxTest::CControlTest
{
protected:
    static void SetUpTestSuite()
    {
        // Fields with borders of 4, 6, 2 and 10 from the left on.
        SetUpConfiguredStage(
            "<Controls><EditBox><Textures><Inactive>Uneven</Inactive><Active>Panel_Up</Active></Textures>"
            "<Font><Colour>Ink</Colour></Font></EditBox></Controls>");
        WaitForClippedRedraws();
    }

    static Core::SharedPtr<CEditBox> Add(const std::string& a_text = "", bool a_password = false)
    {
        return AddTopLevel(new CEditBox("box", 100, 100, 206, 50, a_password, a_text));
    }

    static ClutterActor* EntryOf(CEditBox& a_box) { return clutter_actor_get_child_at_index(a_box.GetActor(), 0); }

    static void Type(CWidget& a_box, const std::u32string& a_keys)
    {
        for (const char32_t key : a_keys)
        {
            a_box.KeyboardEvent(key);
        }
    }
};

TEST_F(EditBoxTest, TheTextLiesWithinTheBordersWhateverTheSizeIs)
{
    const auto box = Add("text");
    EXPECT_EQ(box->Type(), "EditBox");
    const struct
    {
        int width;
        int height;
        int entryWidth;
        int entryHeight;
    } cases[] = {{206, 50, 200, 34}, {306, 60, 300, 44}, {3, 5, 0, 0}, {0, 0, 0, 0}, {-40, -1, 0, 0}};
    for (const auto& row : cases)
    {
        box->Resize(row.width, row.height);
        ClutterActor* const entry = EntryOf(*box);
        EXPECT_EQ(clutter_actor_get_x(entry), 4);
        EXPECT_EQ(clutter_actor_get_y(entry), 6);
        EXPECT_EQ(clutter_actor_get_width(entry), static_cast<float>(row.entryWidth));
        EXPECT_EQ(clutter_actor_get_height(entry), static_cast<float>(row.entryHeight));
        Settle();
    }
    CEditBox negative("box", 0, 0, -5, -5, true, "text");
    EXPECT_EQ(clutter_actor_get_width(EntryOf(negative)), 0);
}

TEST_F(EditBoxTest, TextIsClippedToTheFieldWhereverItIs)
{
    const auto parent = AddTopLevel(new GfxTest::CBlock("parent", 0, 0, 800, 480, Gfx::Colours::Black));
    AddChild(*parent, new CEditBox("box", 10, 10, 206, 26, false, std::string(100, 'M')));
    const auto ink = [] { return FreshPicture().Count(Gfx::Colours::White); };
    const int before = ink();
    EXPECT_GT(before, 0);
    parent->Move({200, 300});
    EXPECT_EQ(ink(), 0) << "a move alone doesn't take the clipping along";
    parent->NotifyPositionChanged();
    EXPECT_EQ(ink(), before);
    const auto picture = FreshPicture();
    for (int y = 326; y < 336; ++y)
    {
        EXPECT_FALSE(picture.At(260, y) == Gfx::Colours::White) << "in the border, row " << y;
    }
}

TEST_F(EditBoxTest, ItLooksActiveWhileItIsSelectedOrLocked)
{
    const auto box = Add();
    EXPECT_EQ(ShownExtent(k_active), "100,100 206 x 50") << "what is added is selected";
    const auto other = AddTopLevel(new GfxTest::CBlock("other", 400, 100, 50, 50, Gfx::Colours::Red));
    EXPECT_EQ(ShownExtent(k_inactive), "100,100 206 x 50");
    other->draws = 0;
    box->LockActive(true);
    EXPECT_EQ(ShownExtent(k_active), "100,100 206 x 50");
    EXPECT_TRUE(box->LockActive());
    box->LockActive(true);
    box->LockActiveNoCursor(true);
    EXPECT_EQ(Settle(), 0) << "no change";
    box->LockActiveNoCursor(false);
    EXPECT_EQ(ShownExtent(k_inactive), "100,100 206 x 50");
    Press(110, 110);
    EXPECT_EQ(ShownExtent(k_active), "100,100 206 x 50");
    Release(110, 110);
    Press(420, 300);
    EXPECT_EQ(ShownExtent(k_inactive), "100,100 206 x 50") << "deselected by a press on empty ground";
    EXPECT_EQ(other->draws, 0) << "only the box was painted";
}

TEST_F(EditBoxTest, AKeyRepaintsTheBoxAlone)
{
    const auto panel = AddTopLevel(new GfxTest::CBlock("panel", 0, 0, 800, 480, Gfx::Colours::Black));
    const auto box = AddChild(*panel, new CEditBox("box", 100, 100, 206, 50, false, ""));
    const auto beside = AddChild(*panel, new GfxTest::CBlock("beside", 310, 100, 50, 50, Gfx::Colours::Red));
    Settle();
    beside->draws = 0;
    for (const unsigned int key : {unsigned{'a'}, unsigned{'W'}, k_backspace})
    {
        box->KeyboardEvent(key);
        EXPECT_EQ(Settle(), 1);
        const auto shown = ShownPicture();
        EXPECT_EQ(beside->draws, 0);
        EXPECT_EQ(shown.CountDifferences(FreshPicture()), 0);
        beside->draws = 0;
    }
}

TEST_F(EditBoxTest, KeysAreCharactersExceptForBackspace)
{
    const auto box = Add();
    int changes = 0;
    Notify::Callable handler([&](CWidget* a_widget) { changes += a_widget == box.Get() ? 1 : 100; });
    box->SetTextChangedEventHandler(&handler);
    box->KeyboardEvent(k_backspace);
    EXPECT_EQ(changes, 0);
    Type(*box, U"a\u20ACb");
    box->KeyboardEvent(k_backspace);
    EXPECT_EQ(box->Text(), "a\xE2\x82\xAC");
    EXPECT_EQ(box->TextLength(), 2);
    EXPECT_EQ(changes, 4);
    box->KeyboardEvent(0xFFC0);
    EXPECT_EQ(box->Text(), "a\xE2\x82\xAC\xEF\xBF\x80") << "a function key's symbol is taken as it is";
    for (const unsigned int key : {0U, 0xDC00U, 0x110000U, 0x010020ACU, 0xFFFFFFFFU})
    {
        box->KeyboardEvent(key);
    }
    EXPECT_EQ(box->TextLength(), 3);
    box->CursorPlacement(CEditBox::ecpStart);
    Press(290, 110);
    box->KeyboardEvent(k_backspace);
    Type(*box, U"xy");
    EXPECT_EQ(box->Text(), "xya\xE2\x82\xAC\xEF\xBF\x80");
    EXPECT_EQ(box->GetCustomInfo().at("Text"), box->Text());
    EXPECT_EQ(changes, 7);
}

TEST_F(EditBoxTest, LengthsAreLimitedAndCountCharacters)
{
    const auto box = Add(std::string(3000, 'a'));
    EXPECT_EQ(box->MaximumLength(), 2048);
    EXPECT_EQ(box->Text().size(), 2048U);
    const struct
    {
        const char* value;
        int expected;
    } cases[] = {{"-5", 1}, {"0", 1}, {"3000", 2048}, {"99999999999", 2048}, {"none", 1}, {"4", 4}};
    for (const auto& row : cases)
    {
        box->SetProperty("MaximumLength", row.value);
        EXPECT_EQ(box->GetProperty("MaximumLength", ""), std::to_string(row.expected)) << row.value;
    }
    EXPECT_EQ(box->Text(), "a");
    Type(*box, U"\u00E9\u00E9\u00E9\u00E9");
    EXPECT_EQ(box->Text(), "a\xC3\xA9\xC3\xA9\xC3\xA9");
    box->Text("\xFF\xC3");
    EXPECT_EQ(box->Text(), "\xEF\xBF\xBD\xEF\xBF\xBD");
    box->Text(std::string("a\0b", 3));
    EXPECT_EQ(box->Text(), "a");
    auto font = box->Font();
    font.name = "\xFF\xC3";
    font.size = -3;
    box->Font(font);
    Settle();
}

TEST_F(EditBoxTest, APressPlacesTheCursor)
{
    const auto box = Add("a\xC3\xA9\xC3\xA9\xC3\xA9z");
    const auto typed = [&](CEditBox::ECursorPlacement a_placement, int a_x)
    {
        box->Text("a\xC3\xA9\xC3\xA9\xC3\xA9z");
        box->CursorPlacement(a_placement);
        Press(a_x, 110);
        Release(a_x, 110);
        box->KeyboardEvent('|');
        return box->Text().substr(0, box->Text().find('|'));
    };
    EXPECT_EQ(typed(CEditBox::ecpStart, 290), "");
    EXPECT_EQ(typed(CEditBox::ecpEnd, 105), "a\xC3\xA9\xC3\xA9\xC3\xA9z");
    EXPECT_EQ(typed(CEditBox::ecpAtPoint, 101), "") << "left of the text";
    EXPECT_EQ(typed(CEditBox::ecpAtPoint, 300), "a\xC3\xA9\xC3\xA9\xC3\xA9z") << "right of it";

    // The second of the accented letters begins at byte 3, and so the cursor goes behind the third character.
    box->Text("a\xC3\xA9\xC3\xA9\xC3\xA9z");
    int x = 4;
    while (x < 100 && box->CursorPositionFromXY({x, 10}) != 3)
    {
        ++x;
    }
    EXPECT_EQ(typed(CEditBox::ecpAtPoint, 100 + x), "a\xC3\xA9\xC3\xA9");
    box->Text("abc");
    constexpr int far = std::numeric_limits<int>::max();
    EXPECT_EQ(box->CursorPositionFromXY({far, far}), 3);
    EXPECT_EQ(box->CursorPositionFromXY({-far, -far}), 0);
    EXPECT_DEATH(box->CursorPlacement(CEditBox::ecpNum), "a_cursorPlacement < ecpNum");
}

TEST_F(EditBoxTest, PasswordsAreMasked)
{
    const auto box = Add("a\xC3\xA9", true);
    EXPECT_EQ(GfxTest::ShownText(EntryOf(*box)), "**");
    EXPECT_EQ(box->Text(), "a\xC3\xA9");
    box->PasswordCharacter(0x25CF);
    EXPECT_EQ(box->PasswordCharacter(), 0x25CFU);
    EXPECT_EQ(GfxTest::ShownText(EntryOf(*box)), "\xE2\x97\x8F\xE2\x97\x8F");
    box->SetProperty("IsPassword", "true");
    EXPECT_EQ(box->GetProperty("IsPassword", ""), "False");
    EXPECT_EQ(GfxTest::ShownText(EntryOf(*box)), "a\xC3\xA9");
}

TEST_F(EditBoxTest, FontAndSkinFollowTheTheme)
{
    const auto box = Add();
    auto font = box->Font();
    font.alignment = 0x33;
    box->Font(font);
    EXPECT_EQ(box->Font().alignment, 0x11);
    SetTheme("Swapped");
    EXPECT_EQ(GfxTest::TextColour(EntryOf(*box)), Gfx::Colours::Lime);
    EXPECT_EQ(ShownExtent(CColour(255, 128, 64, 255)), "100,100 206 x 50");
}

TEST_F(EditBoxTest, AHandlerThatChangesTheTextComesToAnEnd)
{
    const auto box = Add();
    int calls = 0;
    Notify::Callable handler(
        [&](CWidget*)
        {
            ++calls;
            box->Text(box->Text() + "x");
        });
    box->SetTextChangedEventHandler(&handler);
    box->KeyboardEvent('a');
    EXPECT_EQ(box->Text(), "axxxxxxxx");
    EXPECT_EQ(calls, 8);
    box->SetTextChangedEventHandler(nullptr);
}

TEST_F(EditBoxTest, HandlersMayDestroyTheBoxItsParentOrEverything)
{
    const std::array<std::function<void(CEditBox&)>, 8> acts{
        [](CEditBox& a_box) { a_box.KeyboardEvent('a'); },
        [](CEditBox& a_box) { a_box.KeyboardEvent(k_backspace); },
        [](CEditBox& a_box) { a_box.Text("other"); },
        [](CEditBox& a_box) { a_box.SetProperty("MaximumLength", "1"); },
        [](CEditBox&) { Widgets().KeyboardEvent('a'); },
        [](CEditBox&) { Press(110, 110); },
        [](CEditBox&) { Click(110, 110); },
        [](CEditBox& a_box) { a_box.Deselect(); },
    };
    WidgetPtr parent;
    CEditBox* box = nullptr;
    const std::array<std::function<void()>, 3> ends{
        [&] { parent->DestroyChild(box); },
        [&] { Widgets().DestroyWidget(parent.Get()), parent.Reset(); },
        [&]
        {
            Widgets().DestroyWidget(parent.Get()), parent.Reset();
            for (const std::string& name : Widgets().VisibleWidgetNames())
            {
                Widgets().DestroyWidget(Widgets().FindWidget(name, nullptr).Get());
            }
            Widgets().GarbageCollect();
        },
    };
    for (const auto& act : acts)
    {
        for (const auto& end : ends)
        {
            int calls = 0;
            const auto once = [&] { ++calls == 1 ? end() : void(); };
            Notify::Callable notify([&](CWidget*) { once(); });
            Mouse::Callable mouse([&](CWidget*, Gfx::Events::EMouseEvent, int, const CPoint&, bool) { once(); });
            Toggle::Callable toggle([&](CWidget*, bool) { once(); });
            parent = WidgetPtr(new GfxTest::CBlock("parent", 100, 100, 300, 100, Gfx::Colours::Blue));
            box = new CEditBox("box", 0, 0, 200, 50, false, "text");
            parent->AddChild(WidgetPtr(box));
            Widgets().AddWidget(parent);
            Widgets().Select(Widgets().FindWidget("parent:box", nullptr));
            box->SetTextChangedEventHandler(&notify);
            box->SetMouseEventHandler(&mouse);
            box->SetSelectedChangedEventHandler(&toggle);
            act(*box);
            EXPECT_GE(calls, 1);
            Release(110, 110);
            EXPECT_FALSE(Widgets().FindWidget("parent:box", nullptr));
            if (parent)
            {
                Widgets().DestroyWidget(parent.Get());
                parent.Reset();
            }
            Settle();
        }
    }
}

} // namespace
