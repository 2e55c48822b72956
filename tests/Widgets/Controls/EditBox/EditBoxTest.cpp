#include "Widgets/Controls/EditBox/EditBox.h"

#include "support/StageTest.h"

#include <clutter/clutter.h>

#include <functional>
#include <limits>
#include <string>

namespace
{

using Gfx::CColour;
using Gfx::Common::CPoint;
using Gfx::Widgets::CEditBox;
using Gfx::Widgets::CWidget;
using GfxTest::Notify;
using GfxTest::WidgetPtr;

constexpr unsigned int k_backspace = 0xFF08;
constexpr CColour k_inactive{10, 200, 100, 255};
constexpr CColour k_active{90, 90, 90, 255};
constexpr int k_most = std::numeric_limits<int>::max();
/// Characters of two bytes between others.
constexpr const char* k_mixed = "a\xC3\xA9\xC3\xA9\xC3\xA9z";

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
    const struct
    {
        int width;
        int height;
        float entryWidth;
        float entryHeight;
    } cases[] = {{206, 50, 200, 34}, {306, 60, 300, 44}, {3, 5, 0, 0}, {0, 0, 0, 0}, {-40, -1, 0, 0}};
    for (const auto& row : cases)
    {
        CEditBox made("box", 0, 0, row.width, row.height, true, "text");
        box->Resize(row.width, row.height);
        for (CEditBox* sized : {&made, box.Get()})
        {
            ClutterActor* const entry = EntryOf(*sized);
            EXPECT_EQ(clutter_actor_get_x(entry), 4);
            EXPECT_EQ(clutter_actor_get_y(entry), 6);
            EXPECT_EQ(clutter_actor_get_width(entry), row.entryWidth);
            EXPECT_EQ(clutter_actor_get_height(entry), row.entryHeight);
        }
        Settle();
    }
}

TEST_F(EditBoxTest, TextIsClippedToTheFieldWhereverItIs)
{
    const auto parent = AddTopLevel(new GfxTest::CBlock("parent", 0, 0, 800, 480, Gfx::Colours::Black));
    const auto box = AddChild(*parent, new CEditBox("box", 10, 10, 206, 26, false, std::string(100, 'M')));
    const auto ink = [] { return FreshPicture().Count(Gfx::Colours::White); };
    const int before = ink();
    EXPECT_GT(before, 0);
    parent->Move({200, 200});
    EXPECT_EQ(ink(), 0) << "a move alone doesn't take the clipping along";
    box->Invalidate(false);
    EXPECT_EQ(ink(), before);
    parent->Move({200, 300});
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
    for (const unsigned int key : {unsigned{'a'}, unsigned{'W'}, k_backspace})
    {
        beside->draws = 0;
        box->KeyboardEvent(key);
        EXPECT_EQ(Settle(), 1);
        EXPECT_EQ(beside->draws, 0);
        const auto shown = ShownPicture();
        EXPECT_EQ(shown.CountDifferences(FreshPicture()), 0);
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
    box->KeyboardEvent(0x010020AC);
    EXPECT_EQ(box->TextLength(), 3) << "what is no character isn't";
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
        const char* expected;
    } cases[] = {{"-5", "1"}, {"0", "1"}, {"3000", "2048"}, {"99999999999", "2048"}, {"none", "1"}, {"4", "4"}};
    for (const auto& row : cases)
    {
        box->SetProperty("MaximumLength", row.value);
        EXPECT_EQ(box->GetProperty("MaximumLength", ""), row.expected) << row.value;
    }
    EXPECT_EQ(box->Text(), "a");
    Type(*box, U"\u00E9\u00E9\u00E9\u00E9");
    EXPECT_EQ(box->Text(), "a\xC3\xA9\xC3\xA9\xC3\xA9");
    box->Text(std::string("a\0b", 3));
    EXPECT_EQ(box->Text(), "a");
}

TEST_F(EditBoxTest, APressPlacesTheCursor)
{
    const auto box = Add();
    const auto before = [&](CEditBox::ECursorPlacement a_placement, int a_x)
    {
        box->Text(k_mixed);
        box->CursorPlacement(a_placement);
        Click(a_x, 110);
        box->KeyboardEvent('|');
        return box->Text().substr(0, box->Text().find('|'));
    };
    EXPECT_EQ(before(CEditBox::ecpStart, 290), "");
    EXPECT_EQ(before(CEditBox::ecpEnd, 105), k_mixed);
    EXPECT_EQ(before(CEditBox::ecpAtPoint, 101), "") << "left of the text";
    EXPECT_EQ(before(CEditBox::ecpAtPoint, 300), k_mixed) << "right of it";

    // Each letter is 10 wide. The second accented one begins at byte 3, and so the cursor goes behind three characters.
    box->Text(k_mixed);
    EXPECT_EQ(box->CursorPositionFromXY({22, 10}), 1);
    EXPECT_EQ(box->CursorPositionFromXY({26, 10}), 3);
    EXPECT_EQ(before(CEditBox::ecpAtPoint, 126), "a\xC3\xA9\xC3\xA9");
    box->Text("abc");
    EXPECT_EQ(box->CursorPositionFromXY({k_most, k_most}), 3);
    EXPECT_EQ(box->CursorPositionFromXY({-k_most, -k_most}), 0);
    EXPECT_DEATH(box->CursorPlacement(CEditBox::ecpNum), "a_cursorPlacement < ecpNum");
}

TEST_F(EditBoxTest, PasswordsAreMasked)
{
    const auto box = Add("a\xC3\xA9", true);
    box->PasswordCharacter(0x25CF);
    EXPECT_EQ(GfxTest::ShownText(EntryOf(*box)), "\xE2\x97\x8F\xE2\x97\x8F");
    EXPECT_EQ(box->Text(), "a\xC3\xA9");
    EXPECT_EQ(box->PasswordCharacter(), 0x25CFU);
    box->SetProperty("IsPassword", "true");
    EXPECT_EQ(GfxTest::ShownText(EntryOf(*box)), "a\xC3\xA9") << "only \"True\" masks";
}

TEST_F(EditBoxTest, FontAndSkinFollowTheTheme)
{
    const auto box = Add();
    auto font = box->Font();
    font.alignment = 0x33;
    font.name = "\xFF\xC3";
    font.size = -3;
    box->Font(font);
    EXPECT_EQ(box->Font().alignment, 0x11);
    SetTheme("Swapped");
    EXPECT_EQ(GfxTest::TextColour(EntryOf(*box)), Gfx::Colours::Lime);
    EXPECT_EQ(ShownExtent(CColour(255, 128, 64, 255)), "100,100 206 x 50");
}

TEST_F(EditBoxTest, AHandlerThatChangesTheTextComesToAnEnd)
{
    const auto box = Add();
    Notify::Callable handler([&](CWidget*) { box->Text(box->Text() + "x"); });
    box->SetTextChangedEventHandler(&handler);
    for (const char* expected : {"axxxxxxxx", "axxxxxxxxaxxxxxxxx"})
    {
        box->KeyboardEvent('a');
        EXPECT_EQ(box->Text(), expected);
    }
    box->SetTextChangedEventHandler(nullptr);
}

TEST_F(EditBoxTest, AHandlerMayDestroyTheBoxOrItsParent)
{
    const std::function<void(CEditBox&)> acts[] = {
        [](CEditBox& a_box) { a_box.KeyboardEvent('a'); },
        [](CEditBox& a_box) { a_box.KeyboardEvent(k_backspace); },
        [](CEditBox& a_box) { a_box.Text("other"); },
        [](CEditBox& a_box) { a_box.SetProperty("MaximumLength", "1"); },
        [](CEditBox&) { Widgets().KeyboardEvent('a'); },
    };
    for (const auto& act : acts)
    {
        for (const bool alone : {true, false})
        {
            WidgetPtr parent(new GfxTest::CBlock("parent", 0, 0, 300, 100, Gfx::Colours::Blue));
            auto* const box = new CEditBox("box", 0, 0, 200, 50, false, "text");
            parent->AddChild(WidgetPtr(box));
            Widgets().AddWidget(parent);
            Widgets().Select(Widgets().FindWidget("parent:box", nullptr));
            int calls = 0;
            Notify::Callable destroy(
                [&](CWidget*)
                {
                    ++calls;
                    alone ? parent->DestroyChild(box) : Widgets().DestroyWidget(parent.Get());
                    parent.Reset();
                });
            box->SetTextChangedEventHandler(&destroy);
            act(*box);
            EXPECT_EQ(calls, 1);
            EXPECT_FALSE(Widgets().FindWidget("parent:box", nullptr));
            Widgets().DestroyWidget(Widgets().FindWidget("parent", nullptr).Get());
            Settle();
        }
    }
}

} // namespace
