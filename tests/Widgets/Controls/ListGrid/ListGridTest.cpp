#include "Widgets/Controls/ListGrid/ListGrid.h"

#include "Gfx/Common/Alignment.h"
#include "Widgets/Controls/ItemList/ShownList.h"

#include <clutter/clutter.h>

#include <limits>
#include <string>

namespace
{

using Gfx::Widgets::CListGrid;
using Gfx::Widgets::CWidget;
using CGrid = GfxTest::CShownList<CListGrid>;
using Selection = Core::Functor<void, CWidget*>;

class ListGridTest : public GfxTest::CControlTest
{
protected:
    static void SetUpTestSuite()
    {
        SetUpConfiguredStage("<Controls><ListGrid><ImageWidth>40</ImageWidth><ImageHeight>30</ImageHeight><Buttons>"
                             "<Textures><DownInactive>Panel_Up</DownInactive></Textures></Buttons></ListGrid>"
                             "</Controls>");
    }

    /// Three columns and two rows of 96 with gaps of 10, unless the size is another.
    static Core::SharedPtr<CGrid> Add(const std::string& a_ids, int a_width = 400, int a_height = 220)
    {
        const auto grid = AddTopLevel(new CGrid("grid", 100, 50, a_width, a_height, true));
        for (const char id : a_ids)
        {
            grid->AddItem({std::string(1, id), "", ""});
        }
        return grid;
    }

    static void Touch(const CGrid& a_grid, std::size_t a_index)
    {
        const Gfx::Common::CAABB box = a_grid.Button(a_index)->AABB();
        Click(box.Left() + 5, box.Top() + 5);
    }
};

TEST_F(ListGridTest, TilesStandInRowsAndTheScrollButtonsTakeTheFirstAndTheLastCell)
{
    const auto grid = Add("abcdef");
    EXPECT_EQ(grid->Shown(), "abcdef");
    EXPECT_EQ(grid->Places(), "46,10 152,10 258,10 46,116 152,116 258,116");
    grid->AddItem({"g", "", ""});
    EXPECT_EQ(grid->Shown(), "abcde>");
    EXPECT_EQ(grid->Places(), "46,10 152,10 258,10 46,116 152,116 258,116");
    Touch(*grid, 5);
    EXPECT_EQ(grid->Shown(), "<defg");
    EXPECT_EQ(grid->Places(), "46,10 152,10 258,10 46,116 152,116") << "with an empty cell at the end";
    grid->AddItem({"h", "", ""});
    grid->Resize(430, 220);
    EXPECT_EQ(grid->Shown(), "defgh") << "where all would fit, nothing leads back";
    grid->Resize(400, 220);
    for (const char id : {'i', 'j', 'k'})
    {
        grid->AddItem({std::string(1, id), "", ""});
    }
    for (const auto& [button, shown] : {std::pair(0U, "abcde>"), {5U, "<defg>"}, {5U, "<ghijk"}, {0U, "<defg>"}})
    {
        Touch(*grid, button);
        EXPECT_EQ(grid->Shown(), shown);
    }

    grid->SetItemSize(150, 80, 1, 1);
    EXPECT_EQ(grid->Shown(), "<de>") << "two columns, from the same item on";
    EXPECT_EQ(grid->Places(), "45,10 205,10 45,100 205,100");
    grid->Resize(330, 300);
    EXPECT_EQ(grid->Shown(), "<defg>");
    EXPECT_EQ(grid->Places(), "10,10 170,10 10,100 170,100 10,190 170,190");
    EXPECT_EQ(grid->Button(1)->Height(), 80);
    grid->Resize(159, 300);
    EXPECT_EQ(grid->Shown(), "<>") << "no column at all";
    grid->ClearItems();
    EXPECT_EQ(grid->Shown(), "");
    // The button back is a whole row of a single column.
    const auto column = Add("abcdef", 110, 330);
    Touch(*column, 2);
    EXPECT_EQ(column->Shown(), "<b>");
    EXPECT_EQ(column->Places(), "7,10 7,116 7,222");
}

TEST_F(ListGridTest, ImageAndTextShareATileAndASingleOneHasTheMiddle)
{
    const auto grid = Add("");
    grid->AddItem({"both", "Icon", "word"});
    grid->AddItem({"image", "Arrow_Left", ""});
    grid->AddItem({"text", "", "word"});
    grid->AddItem({"long", "", "a text that is far too long for its tile"});
    EXPECT_EQ(ShownExtent({255, 255, 0, 255}), "174,66 40 x 30") << "at the top, by twice the border";
    EXPECT_EQ(ShownExtent({200, 100, 0, 255}), "280,93 40 x 30");
    constexpr int bottom = Gfx::eaCentre | Gfx::eaBottom;
    constexpr int middle = Gfx::eaCentre | Gfx::eaMiddle;
    for (const auto& [index, alignment] : {std::pair(0U, bottom), {1U, bottom}, {2U, middle}})
    {
        EXPECT_EQ(grid->Button(index)->Font().alignment, alignment) << index;
    }
    ClutterActor* const label = clutter_actor_get_child_at_index(grid->Button(3)->GetActor(), 0);
    EXPECT_EQ(static_cast<int>(clutter_actor_get_width(label)), 90) << "shortened";
}

TEST_F(ListGridTest, AnIdMayStandTwice)
{
    const auto grid = Add("ab");
    grid->AddItems(grid->Items());
    Touch(*grid, 2);
    EXPECT_EQ(grid->Shown(), "a*bab") << "a touch is for the first";
    grid->SelectItem("b", false);
    EXPECT_EQ(grid->Shown(), "a*b*ab*");
    EXPECT_EQ(grid->GetProperty("SelectedItem", ""), "a,b,b");
    grid->DeselectItem("b,a");
    EXPECT_EQ(grid->Shown(), "abab");
    EXPECT_EQ(grid->GetProperty("SelectedText", "none"), "none");

    CListGrid::SListItem item("b", "", "");
    item.selected = true;
    grid->AddItem(item);
    EXPECT_EQ(grid->SelectedItem(), "b");
    grid->Multiselect(false);
    int calls = 0;
    Selection::Callable handler([&](CWidget*) { ++calls; });
    grid->SetSelectionChangedEventHandler(&handler);
    Touch(*grid, 4);
    EXPECT_EQ(grid->Shown(), "ab*abb");
    Touch(*grid, 1);
    EXPECT_EQ(calls, 1);
    grid->SetSelectionChangedEventHandler(nullptr);
}

TEST_F(ListGridTest, ScrollingToAnItemCountsTheTilesThatAreOnShowNow)
{
    const auto grid = Add("abcdefghijklm");
    for (const auto& [id, shown] : {std::pair("e", "abcde>"), {"f", "<bcde>"}, {"f", "<cdef>"}, {"a", "abcde>"}})
    {
        grid->ScrollTo(id);
        EXPECT_EQ(grid->Shown(), shown) << id;
    }
    grid->SetProperty("SelectedItem", "m");
    EXPECT_EQ(grid->Shown(), "<ijklm*");
}

TEST_F(ListGridTest, AnySizeIsTakenInSomeWay)
{
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    for (const int size : {0, -1, -9, -10, -11, -1000, least, most, 1})
    {
        const auto grid = Add("abcdef", 40, 30);
        grid->SetItemSize(size, 10, size, size);
        grid->SetItemSize(10, size, size, size);
        grid->SetItemSize(size, size, size, size);
        grid->AddItem({"ScrollForward", "Icon", "text"});
        grid->AddItem({"ScrollBackward", "Icon", "text"});
        grid->Button(0)->MouseEvent(Gfx::Events::FirstClick, 0, {0, 0}, false);
        grid->ScrollTo("f");
        for (const int side : {size, 200})
        {
            grid->Resize(side, 200);
            grid->Resize(200, side);
        }
        Settle();
        grid->SetItemSize(96, 96, 1, 1);
        grid->ClearItems();
        grid->AddItem({"a", "", ""});
        EXPECT_EQ(grid->Shown(), "a") << size;
    }
    // Of negative size it steps the other way, up to the limit of what an integer holds.
    constexpr int side = -CWidget::k_longestSide;
    const auto turned = Add("", side, -1);
    turned->SetItemSize(-9, -9, 1, 1);
    turned->AddItem({"ScrollBackward", "", ""});
    for (int i = 0; i < 200; ++i)
    {
        turned->Button(0)->MouseEvent(Gfx::Events::FirstClick, 0, {0, 0}, false);
        turned->Resize(side, 0);
        ASSERT_EQ(turned->Shown(), "<") << i;
    }
    // A view that can't go on: one tile that acts as the button forward.
    const auto grid = Add("");
    grid->AddItem({"ScrollForward", "", ""});
    Touch(*grid, 0);
    EXPECT_EQ(grid->Shown(), ">");
}

} // namespace
