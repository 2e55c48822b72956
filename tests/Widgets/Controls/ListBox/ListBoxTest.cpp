#include "Widgets/Controls/ListBox/ListBox.h"

#include "Managers/Config/ConfigManager.h"
#include "Widgets/Controls/ItemList/ShownList.h"
#include "Widgets/Controls/Window/Window.h"

#include <clutter/clutter.h>

#include <array>
#include <fstream>
#include <functional>
#include <string>
#include <utility>

namespace
{

using Core::Patterns::StaticSingleton;
using Gfx::CColour;
using Gfx::Widgets::CListBox;
using Gfx::Widgets::CWidget;
using GfxTest::WidgetPtr;
using CList = GfxTest::CShownList<CListBox>;
using Selection = Core::Functor<void, CWidget*>;

/// A background whose borders are 4, 6, 2 and 10 from the left on.
constexpr const char* k_configuration =
    "<Controls><ListBox><Font><Colour>Ink</Colour></Font><Textures><Background>Uneven</Background></Textures>"
    "<ImageWidth>20</ImageWidth><ImageHeight>30</ImageHeight><Buttons><Textures>"
    "<DownInactive>Panel_Up</DownInactive><DownActive>Red_Up</DownActive></Textures></Buttons></ListBox>"
    "</Controls>";

class ListBoxTest : public GfxTest::CControlTest
{
protected:
    static void SetUpTestSuite() { SetUpConfiguredStage(k_configuration); }

    /// Room for three rows of 64, unless the height is another; each character is an item.
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
    const auto list = Add("bc");
    list->AddItem({"a", ""}, false);
    list->AddItem({"b", "again"}, false);
    EXPECT_EQ(list->Shown(), "abc");
    EXPECT_EQ(list->Places(), "4,6 4,70 4,134");
    EXPECT_EQ(list->Sizes(), "194x64 194x64 194x64");
    list->AddItem({"d", ""}, true);
    EXPECT_EQ(list->Shown(), "ab<>");
    EXPECT_EQ(list->Places(), "4,6 4,70 4,136 101,136");
    list->Resize(301, 400);
    EXPECT_EQ(list->Places(), "4,6 4,70 4,326 151,326") << "no more rows than at first";
    EXPECT_EQ(list->Sizes(), "295x64 295x64 147x64 147x64");
    for (const auto& [height, shown] : {std::pair(150, "a<>"), {130, "<>"}, {0, "<>"}, {-90, "<>"}})
    {
        EXPECT_EQ(Add("abc", false, height)->Shown(), shown) << height;
    }
}

TEST_F(ListBoxTest, RowsMayHaveAnyHeight)
{
    auto& config = StaticSingleton<Gfx::Managers::CConfigManager>::ref();
    const auto reload = [&config](const std::string& a_size)
    {
        std::ofstream(config.BasePath() + "Configuration/GfxConfig.xml")
            << "<Gfx>" << k_configuration << "<Controls><ListBox><ItemSize>" << a_size
            << "</ItemSize></ListBox></Controls></Gfx>";
        std::string error;
        EXPECT_TRUE(config.Reload(error)) << error;
    };
    for (const auto& [size, shown] : {std::pair("0", "<>"), {"-64", "<>"}, {"1", "abcd"}, {"2147483647", "<>"}})
    {
        reload(size);
        const auto list = Add("abcd");
        EXPECT_EQ(list->Shown(), shown) << size;
        list->Button(1)->MouseEvent(Gfx::Events::FirstClick, 0, {0, 0}, false);
        list->ScrollTo("d");
        Settle();
    }
    reload("64");
}

TEST_F(ListBoxTest, ATouchOfAScrollButtonMovesTheViewByOneItemWithinTheList)
{
    const auto list = Add("abcd");
    const WidgetPtr row = list->Button(0);
    Touch(*list, 2);
    EXPECT_NE(list->Button(0).Get(), row.Get()) << "made anew even where nothing moves";
    for (const char* shown : {"bc<>", "cd<>", "cd<>"})
    {
        Touch(*list, 3);
        EXPECT_EQ(list->Shown(), shown);
    }
    // The view stays where it is when the list shrinks from below it.
    list->AddItem({"e", ""}, true);
    Touch(*list, 3);
    for (const auto& [id, shown] : {std::pair("a", "e<>"), {"b", ""}, {"no such item", ""}})
    {
        list->RemoveItem(id);
        EXPECT_EQ(list->Shown(), shown) << id;
    }
    list->ScrollTo("c");
    EXPECT_EQ(list->Shown(), "de") << "where nothing is on show, it goes one item too far";
    list->ClearItems();
    list->AddItem({"x", ""}, true);
    EXPECT_EQ(list->Shown(), "x");
}

TEST_F(ListBoxTest, ScrollingToAnItemPutsItIntoTheLastRowUnlessItIsOnShow)
{
    const auto list = Add("abcdefgh");
    for (const auto& [id, shown] : {std::pair("b", "ab<>"),
                                    {"c", "bc<>"},
                                    {"h", "gh<>"},
                                    {"g", "gh<>"},
                                    {"d", "cd<>"},
                                    {"a", "ab<>"},
                                    {"none", "ab<>"}})
    {
        list->ScrollTo(id);
        EXPECT_EQ(list->Shown(), shown) << id;
    }
    list->SetProperty("SelectedItem", "f");
    EXPECT_EQ(list->Shown(), "ef*<>");
    list->SelectItem("a,h", true);
    EXPECT_EQ(list->Shown(), "ef<>") << "no item has the whole text as its id";
    list->ToggleItem("a", true);
    EXPECT_EQ(list->Shown(), "ef<>") << "already selected";
    list->ToggleItem("b", true);
    EXPECT_EQ(list->Shown(), "ab*<>");
}

TEST_F(ListBoxTest, TouchesSelectOneOrManyAndAreTold)
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
        for (const std::size_t row : {1, 0, 0})
        {
            Touch(*list, row);
        }
        EXPECT_EQ(log, isMultiple ? "b/ab*c a,b/a*b*c b/ab*c " : "b/ab*c a/a*bc ");

        log.clear();
        list->SelectItem("c,b,none", false);
        EXPECT_EQ(list->SelectedItem(), "b,c") << "in the order of the list, and all of them";
        EXPECT_EQ(list->GetProperty("SelectedText", ""), "text b,text c");
        list->SelectItem("a", false);
        EXPECT_EQ(list->GetProperty("SelectedItem", ""), isMultiple ? "a,b,c" : "a");
        list->DeselectItem("a,b");
        EXPECT_EQ(list->Shown(), isMultiple ? "abc*" : "abc");
        list->DeselectAll();
        list->ToggleItem("none", true);
        EXPECT_EQ(list->Shown(), "abc");
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
    EXPECT_EQ(list->Shown(), "c*bc");
    EXPECT_EQ(list->Button(0)->Text(), "new");
    Touch(*list, 2);
    EXPECT_EQ(list->Shown(), "cbc") << "a touch is for the first item of the id";
    list->SelectItem("c", false);
    EXPECT_EQ(list->SelectedItem(), "c,c");
    list->RemoveItem("c");
    EXPECT_EQ(list->Shown(), "bc*");
    // What has the id of a scroll button acts as one, and doesn't lead to before the first item.
    list->ClearItems();
    list->AddItem({"ScrollForward", ""}, false);
    Touch(*list, 0);
    EXPECT_EQ(list->Shown(), ">");
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
    Touch(*list, 0);
    EXPECT_EQ(list->SelectedItem(), "") << "its item is gone";
    Touch(*list, 1);
    EXPECT_EQ(list->SelectedItem(), "d");
    list->ScrollTo("d");
    list->Resize(150, 210);
    EXPECT_EQ(list->Shown(), "ab*");
    EXPECT_EQ(list->Sizes(), "194x64 194x64");
    list->Thaw();
    EXPECT_EQ(list->Shown(), "1d*<>");
    EXPECT_EQ(list->Sizes(), "144x64 144x64 72x64 72x64");
    list->Freeze();
    list->ClearItems();
    EXPECT_EQ(list->Shown(), "");
}

TEST_F(ListBoxTest, RowsAreDrawnByTheirStateAndTheTheme)
{
    const auto list = Add("", true);
    list->AddItem({"a", "<b>A</b>", "Icon"}, true);
    list->AddItem({"b", "Localised:key"}, true);
    EXPECT_EQ(ShownExtent({255, 255, 0, 255}), "holes in 191,73 20 x 30") << "in the middle, below the text";
    const auto label = [&] { return clutter_actor_get_child_at_index(list->Button(1)->GetActor(), 0); };
    EXPECT_EQ(GfxTest::ShownText(label()), "key");
    list->ParseMarkup(true);
    EXPECT_TRUE(list->Button(0)->ParseMarkup());
    list->AddItem({"c", ""}, true);
    EXPECT_TRUE(list->Button(2)->ParseMarkup());

    const auto look = [](int a_x, int a_y)
    {
        Settle();
        return ShownPicture().At(a_x, a_y);
    };
    for (const auto& colours : {std::pair(CColour(160, 160, 0, 255), CColour(90, 90, 90, 255)),
                                {CColour(255, 0, 0, 255), CColour(0, 0, 160, 255)}})
    {
        Press(110, 125);
        EXPECT_EQ(look(110, 125), colours.first);
        Release(110, 125);
        EXPECT_EQ(look(110, 125), colours.second);
    }
    SetTheme("Swapped");
    EXPECT_EQ(GfxTest::TextColour(label()), Gfx::Colours::Lime);
    EXPECT_EQ(look(110, 125), CColour(255, 128, 64, 255));
    EXPECT_EQ(look(101, 51), CColour(10, 200, 100, 255));
    list->Background(false);
    list->Resize(220, 210);
    EXPECT_EQ(look(101, 51), CColour(0, 0, 0, 255));
    list->Background(true);
    EXPECT_EQ(look(319, 51), CColour(10, 200, 100, 255)) << "of the new size";

    EXPECT_EQ(clutter_actor_get_n_children(list->GetActor()), 3) << "rows that are gone don't heap up";
    list->ClearItems();
    EXPECT_EQ(clutter_actor_get_n_children(list->GetActor()), 0);
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
    EXPECT_TRUE(list->Items()[2].selected) << "the empty id, twice in the text";
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
    for (std::size_t i = 0; i < 2 * actions.size(); ++i)
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
                    actions[i / 2]();
                }
            });
        list->SetSelectionChangedEventHandler(&handler);
        i % 2 == 0 ? Touch(*list, 1) : list->ToggleItem(list->Items()[3].id, true);
        EXPECT_GE(calls, 1);
        Settle();
        Widgets().DestroyWidget(Widgets().FindWidget("window", nullptr).Get());
        Widgets().GarbageCollect();
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
