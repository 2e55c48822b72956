#include "Widgets/Controls/ListBox/ListBox.h"

#include "Gfx/Common/Alignment.h"
#include "Managers/Themes/ThemeManager.h"
#include "Widgets/Controls/Window/Window.h"
#include "support/StageTest.h"

#include <clutter/clutter.h>

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace
{

using Gfx::CColour;
using Gfx::Common::CPoint;
using Gfx::Widgets::CButton;
using Gfx::Widgets::CListBox;
using Gfx::Widgets::CWidget;
using GfxTest::WidgetPtr;
using Selection = Core::Functor<void, CWidget*>;

/// Tells what is on show.
class CList : public CListBox
{
public:
    using CListBox::CListBox;

    /// The names of the buttons, those of selected items with a "*".
    [[nodiscard]] std::string Shown() const
    {
        std::string shown;
        for (const WidgetPtr& child : Children().Widgets())
        {
            const bool isSelected = static_cast<CButton&>(*child).TextureSet() == "Selected";
            shown += (shown.empty() ? "" : " ") + child->Name() + (isSelected ? "*" : "");
        }
        return shown;
    }

    [[nodiscard]] std::string Places() const
    {
        std::string places;
        for (const WidgetPtr& child : Children().Widgets())
        {
            places += (places.empty() ? "" : " ") + std::to_string(child->TopLeft().X()) + ',' +
                      std::to_string(child->TopLeft().Y()) + ':' + std::to_string(child->Width()) + 'x' +
                      std::to_string(child->Height());
        }
        return places;
    }

    [[nodiscard]] Core::SharedPtr<CButton> Button(std::size_t a_index) const
    {
        return Children().Widgets().at(a_index).StaticCast<CButton>();
    }
};

class ListBoxTest : public GfxTest::CControlTest
{
protected:
    static void SetUpTestSuite()
    {
        // A background whose borders are 4, 6, 2 and 10 from the left on.
        SetUpConfiguredStage(
            "<Controls><ListBox><Font><Colour>Ink</Colour></Font><Textures><Background>Uneven</Background></Textures>"
            "<ImageWidth>20</ImageWidth><ImageHeight>30</ImageHeight><Buttons><Textures>"
            "<DownInactive>Panel_Up</DownInactive><DownActive>Red_Up</DownActive></Textures></Buttons></ListBox>"
            "</Controls>");
    }

    /// Room for three rows of 64, unless the height is another.
    static Core::SharedPtr<CList> Add(const std::string& a_ids, bool a_multiselect = false, int a_height = 210)
    {
        const auto list = AddTopLevel(new CList("list", 100, 50, 200, a_height, a_multiselect));
        for (const char id : a_ids)
        {
            list->AddItem({std::string(1, id), std::string("text ") + id}, true);
        }
        return list;
    }

    /// A touch of the button at a place on show.
    static void Touch(const CList& a_list, std::size_t a_index)
    {
        const Gfx::Common::CAABB box = a_list.Button(a_index)->AABB();
        Click(box.Left() + 5, box.Top() + 5);
    }
};

TEST_F(ListBoxTest, RowsFillItFromTheTopAndTheLastGivesWayToTheScrollButtons)
{
    auto list = Add("");
    EXPECT_EQ(list->Places(), "");
    list->AddItem({"b", ""}, true);
    list->AddItem({"c", ""}, true);
    list->AddItem({"a", ""}, false);
    list->AddItem({"b", "another"}, false);
    EXPECT_EQ(list->Shown(), "a b c");
    EXPECT_EQ(list->Places(), "4,6:194x64 4,70:194x64 4,134:194x64");
    list->AddItem({"d", ""}, true);
    EXPECT_EQ(list->Shown(), "a b ScrollBackward ScrollForward");
    EXPECT_EQ(list->Places(), "4,6:194x64 4,70:194x64 4,136:97x64 101,136:97x64");
    list->Resize(301, 400);
    EXPECT_EQ(list->Places(), "4,6:295x64 4,70:295x64 4,326:147x64 151,326:147x64") << "no more rows than at first";
    // Less than two rows are less than one when not all items fit.
    for (const auto& [height, rows] : {std::pair(150, "a ScrollBackward ScrollForward"), {130, ""}, {0, ""}, {-90, ""}})
    {
        list = Add("abc", false, height);
        EXPECT_EQ(list->Shown(), *rows != 0 ? rows : "ScrollBackward ScrollForward") << height;
    }
    EXPECT_EQ(Add("a", false, 80)->Shown(), "a");
}

TEST_F(ListBoxTest, ATouchOfAScrollButtonMovesTheViewByOneItemWithinTheList)
{
    const auto list = Add("abcd");
    const WidgetPtr row = list->Button(0);
    Touch(*list, 2);
    EXPECT_EQ(list->Shown(), "a b ScrollBackward ScrollForward");
    EXPECT_NE(list->Button(0).Get(), row.Get()) << "made anew even where nothing moves";
    for (const char* shown : {"b c", "c d", "c d"})
    {
        Touch(*list, 3);
        EXPECT_EQ(list->Shown(), std::string(shown) + " ScrollBackward ScrollForward");
    }
    // The view stays where it is when the list shrinks from below it.
    list->AddItem({"e", ""}, true);
    Touch(*list, 3);
    list->RemoveItem("a");
    EXPECT_EQ(list->Shown(), "e ScrollBackward ScrollForward");
    list->RemoveItem("b");
    EXPECT_EQ(list->Shown(), "");
    list->RemoveItem("no such item");
    list->ScrollTo("c");
    EXPECT_EQ(list->Shown(), "d e") << "where nothing is on show, it goes one item too far";
    list->ClearItems();
    list->AddItem({"x", ""}, true);
    EXPECT_EQ(list->Shown(), "x");
}

TEST_F(ListBoxTest, ScrollingToAnItemPutsItIntoTheLastRowUnlessItIsOnShow)
{
    const auto list = Add("abcdefgh");
    for (const auto& [id, shown] :
         {std::pair("b", "a b"), {"c", "b c"}, {"h", "g h"}, {"g", "g h"}, {"d", "c d"}, {"a", "a b"}, {"x", "a b"}})
    {
        list->ScrollTo(id);
        EXPECT_EQ(list->Shown(), std::string(shown) + " ScrollBackward ScrollForward") << id;
    }
    list->SetProperty("SelectedItem", "f");
    EXPECT_EQ(list->Shown(), "e f* ScrollBackward ScrollForward");
    list->SelectItem("a,h", true);
    EXPECT_EQ(list->Shown(), "e f ScrollBackward ScrollForward") << "no item has the whole text as its id";
    list->ToggleItem("a", true);
    EXPECT_EQ(list->Shown(), "e f ScrollBackward ScrollForward") << "already selected";
    list->ToggleItem("b", true);
    EXPECT_EQ(list->Shown(), "a b* ScrollBackward ScrollForward");
}

TEST_F(ListBoxTest, TouchesSelectAsOneOrManyAndAreTold)
{
    for (const bool isMultiple : {false, true})
    {
        SCOPED_TRACE(isMultiple);
        const auto list = Add("abc", isMultiple);
        std::string log;
        Selection::Callable handler(
            [&](CWidget* a_list)
            {
                EXPECT_EQ(a_list, list.Get());
                log += list->SelectedItem() + '/' + list->Shown() + ' ';
            });
        list->SetSelectionChangedEventHandler(&handler);
        Touch(*list, 1);
        Touch(*list, 0);
        Touch(*list, 0);
        EXPECT_EQ(log, isMultiple ? "b/a b* c a,b/a* b* c b/a b* c " : "b/a b* c a/a* b c ");

        log.clear();
        list->SelectItem("c,b,none", false);
        EXPECT_EQ(list->SelectedItem(), "b,c") << "in the order of the list, and all of them";
        EXPECT_EQ(list->SelectedText(), "text b,text c");
        EXPECT_EQ(list->GetProperty("SelectedText", ""), "text b,text c");
        list->SelectItem("a", false);
        EXPECT_EQ(list->GetProperty("SelectedItem", ""), isMultiple ? "a,b,c" : "a");
        list->DeselectItem("a,b");
        EXPECT_EQ(list->Shown(), isMultiple ? "a b c*" : "a b c");
        list->SelectItem("", false);
        EXPECT_EQ(list->SelectedItem(), isMultiple ? "c" : "");
        list->DeselectAll();
        list->ToggleItem("none", true);
        EXPECT_EQ(list->Shown(), "a b c");
        EXPECT_EQ(log, "") << "only touches are told";
        list->ToggleItem("b", false);
        list->Multiselect(!isMultiple);
        list->ToggleItem("b", false);
        EXPECT_EQ(list->SelectedItem(), isMultiple ? "b" : "");
        list->SetSelectionChangedEventHandler(nullptr);
    }
}

TEST_F(ListBoxTest, AnUpdatedItemIsAnotherOneAndMayTakeAnyId)
{
    const auto list = Add("abc", true);
    CListBox::SListItem item("c", "new");
    item.selected = true;
    list->UpdateItem("a", item);
    list->UpdateItem("none", item);
    EXPECT_EQ(list->Shown(), "c* b c");
    EXPECT_EQ(list->Button(0)->Text(), "new");
    Touch(*list, 2);
    EXPECT_EQ(list->Shown(), "c b c") << "a touch is for the first item of the id";
    list->SelectItem("c", false);
    EXPECT_EQ(list->SelectedItem(), "c,c");
    list->RemoveItem("c");
    EXPECT_EQ(list->Shown(), "b c*");
    // Ids that the scroll buttons have.
    list->AddItem({"ScrollForward", ""}, false);
    list->AddItem({"ScrollBackward", ""}, false);
    Touch(*list, 1);
    EXPECT_EQ(list->SelectedItem(), "c") << "scrolls";
    list->ClearItems();
    list->AddItem({"ScrollForward", ""}, false);
    Touch(*list, 0);
    EXPECT_EQ(list->Shown(), "ScrollForward") << "not to before the first item";
}

TEST_F(ListBoxTest, FrozenItKeepsItsRowsWhateverBecomesOfTheItems)
{
    const auto list = Add("ab", true);
    list->Freeze();
    for (int i = 0; i < 1000; ++i)
    {
        list->AddItem({std::to_string(i), ""}, i % 2 == 0);
    }
    list->RemoveItem("a");
    list->UpdateItem("b", {"d", ""});
    EXPECT_EQ(list->Shown(), "a b");
    Touch(*list, 0);
    EXPECT_EQ(list->SelectedItem(), "") << "its item is gone";
    Touch(*list, 1);
    EXPECT_EQ(list->SelectedItem(), "d");
    EXPECT_EQ(list->Shown(), "a b*");
    list->ScrollTo("d");
    list->Resize(150, 210);
    EXPECT_EQ(list->Button(0)->Width(), 194);
    list->Thaw();
    EXPECT_EQ(list->Shown(), "1 d* ScrollBackward ScrollForward");
    EXPECT_EQ(list->Button(0)->Width(), 144);
    list->Freeze();
    list->ClearItems();
    EXPECT_EQ(list->Shown(), "");
}

TEST_F(ListBoxTest, RowsAreDrawnByTheirStateAndTheTheme)
{
    const auto list = Add("", true);
    list->AddItem({"a", "<b>A</b>", "Icon"}, true);
    list->AddItem({"b", "Localised:key"}, true);
    EXPECT_EQ(ShownExtent({255, 255, 0, 255}).substr(9), "191,73 20 x 30") << "in the middle, below the text";
    const auto label = [&](std::size_t a_row)
    { return clutter_actor_get_child_at_index(list->Button(a_row)->GetActor(), 0); };
    EXPECT_EQ(GfxTest::ShownText(label(1)), "key");
    EXPECT_EQ(list->Button(1)->Font().alignment, Gfx::eaCentre | Gfx::eaMiddle);
    list->ParseMarkup(true);
    EXPECT_TRUE(list->Button(0)->ParseMarkup());
    list->AddItem({"c", ""}, true);
    EXPECT_TRUE(list->Button(2)->ParseMarkup());

    const auto look = [&] { return ShownPicture().At(110, 125); };
    const std::array<std::pair<bool, CColour>, 4> looks{
        {{false, {0, 0, 160, 255}}, {true, {160, 160, 0, 255}}, {false, {90, 90, 90, 255}}, {true, {255, 0, 0, 255}}}};
    for (const auto& [isPressed, colour] : looks)
    {
        isPressed ? Press(110, 125) : Release(110, 125);
        Settle();
        EXPECT_EQ(look(), colour);
    }
    Release(110, 125);
    list->SelectItem("b", false);
    Core::Patterns::StaticSingleton<Gfx::Managers::CThemeManager>::ref().SetTheme("Swapped");
    EXPECT_EQ(GfxTest::TextColour(label(1)), Gfx::Colours::Lime);
    Settle();
    EXPECT_EQ(look(), CColour(255, 128, 64, 255));
    EXPECT_EQ(ShownPicture().At(101, 51), CColour(10, 200, 100, 255));
    list->Background(false);
    list->Resize(220, 210);
    Settle();
    EXPECT_EQ(ShownPicture().At(101, 51), CColour(0, 0, 0, 255));
    list->Background(true);
    Settle();
    EXPECT_EQ(ShownPicture().At(319, 51), CColour(10, 200, 100, 255)) << "of the new size at once";

    Widgets().GarbageCollect();
    EXPECT_EQ(clutter_actor_get_n_children(list->GetActor()), 3);
    list->ClearItems();
    EXPECT_EQ(clutter_actor_get_n_children(list->GetActor()), 0) << "or refilling would heap up groups";
}

TEST_F(ListBoxTest, OddIdsAreTakenAsTheyAre)
{
    const auto list = Add("ab", true, 600);
    const std::string large(1'000'000, 'x');
    for (const std::string& id : {std::string(), std::string("a,b"), std::string(","), large})
    {
        list->AddItem({id, ""}, true);
        list->AddItem({id, "again"}, true);
    }
    EXPECT_EQ(list->Items().size(), 6U);
    list->SelectItem("a,b", true);
    EXPECT_EQ(list->SelectedItem(), "a,b") << "the two, and not the one";
    list->DeselectAll();
    list->SelectItem(",", false);
    EXPECT_EQ(list->SelectedItem(), "") << "the empty id, once";
    EXPECT_TRUE(list->Items()[2].selected);
    Touch(*list, 3);
    Touch(*list, 5);
    EXPECT_EQ(list->SelectedItem(), ",a,b," + large);
    list->RemoveItem(list->Items()[5].id);
    EXPECT_EQ(list->Items().size(), 5U);
}

TEST_F(ListBoxTest, TheHandlerOfATouchMayDoAnything)
{
    using Gfx::Widgets::CWindow;
    CList* list = nullptr;
    CWindow* window = nullptr;
    const std::array<std::function<void()>, 7> actions{
        [&] { window->DestroyChild(list); },
        [&] { Widgets().DestroyWidget(window); },
        [&] { window->Destroy(); },
        [&] { list->ClearItems(); },
        [&] { list->RemoveItem(list->SelectedItem()); },
        [&] { list->RemoveAllChildren(); },
        [&]
        {
            for (int i = 0; i < 100; ++i)
            {
                list->AddItem({std::to_string(i), ""}, false);
            }
            list->ToggleItem("50", true);
        },
    };
    for (const auto& action : actions)
    {
        for (const bool isTouch : {true, false})
        {
            window = new CWindow("window", 100, 50, 300, 300, false, "", 0);
            list = new CList("list", 0, 0, 200, 210, true);
            Widgets().AddWidget(WidgetPtr(window));
            window->AddChild(WidgetPtr(list));
            for (const char* id : {"a", "b", "c", "d"})
            {
                list->AddItem({id, ""}, true);
            }
            int calls = 0;
            Selection::Callable handler(
                [&](CWidget*)
                {
                    if (++calls == 1)
                    {
                        action();
                    }
                });
            list->SetSelectionChangedEventHandler(&handler);
            isTouch ? Touch(*list, 1) : list->ToggleItem(list->Items()[3].id, true);
            EXPECT_GE(calls, 1);
            Settle();
            if (const WidgetPtr left = Widgets().FindWidget("window:list", nullptr))
            {
                left.StaticCast<CListBox>()->SetSelectionChangedEventHandler(nullptr);
            }
            if (const WidgetPtr left = Widgets().FindWidget("window", nullptr))
            {
                Widgets().DestroyWidget(left.Get());
            }
            Widgets().GarbageCollect();
        }
    }

    // A row that somebody keeps, and that is clicked, when its list is long gone.
    auto last = Add("a");
    ForgetTopLevels();
    const auto row = last->Button(0);
    Widgets().DestroyWidget(last.Get());
    last.Reset();
    row->MouseEvent(Gfx::Events::FirstClick, 0, {5, 5}, false);
    EXPECT_EQ(row->TextureSet(), "Default");
}

} // namespace
