#include "Widgets/EnhancedGroup.h"

#include "Gfx/Common/Drawing.h"
#include "support/LogGuard.h"
#include "support/StageTest.h"

#include <limits>

namespace
{

using Gfx::Colours::Blue;
using Gfx::Colours::Lime;
using Gfx::Colours::Red;
using Gfx::Colours::White;
using Gfx::Colours::Yellow;
using GfxTest::CBlock;
using GfxTest::CPicture;

class EnhancedGroupTest : public GfxTest::CStageTest
{
protected:
    /// Clips to a rectangle given from the top left.
    static void Clip(CBlock& a_block, int a_left, int a_top, int a_width, int a_height)
    {
        enhanced_group_set_scissor(CLUTTER_ENHANCEDGROUP(a_block.GetActor()), a_left, k_height - a_top - a_height,
                                   a_width, a_height);
    }

    /// A red block of 100 by 100 at 100,100 that clips its children.
    Core::SharedPtr<CBlock> AddGroup() { return AddTopLevel(new CBlock("group", 100, 100, 100, 100, Red, true)); }

    static ClutterActor* AddRectangle(CBlock& a_block, float a_x, float a_y, float a_size, ClutterColor a_colour)
    {
        ClutterActor* rectangle = clutter_rectangle_new_with_color(&a_colour);
        clutter_actor_set_position(rectangle, a_x, a_y);
        clutter_actor_set_size(rectangle, a_size, a_size);
        clutter_container_add_actor(CLUTTER_CONTAINER(a_block.GetActor()), rectangle);
        return rectangle;
    }
};

TEST_F(EnhancedGroupTest, ChildrenAreClippedToThePixelAndTheOwnDrawingIsNot)
{
    const auto group = AddGroup();
    group->overhang = 50;
    AddChild(*group, new CBlock("child", -60, -60, 300, 300, Lime));
    EXPECT_STREQ(G_OBJECT_TYPE_NAME(group->GetActor()), "EnhancedGroup");
    EXPECT_TRUE(CLUTTER_IS_GROUP(group->GetActor()));
    EXPECT_EQ(FreshPicture().Extent(Lime), "100,100 100 x 100");

    Clip(*group, 103, 95, 1, 40);
    EXPECT_EQ(Settle(), 0) << "setting the rectangle redraws nothing";
    EXPECT_EQ(FreshPicture().Extent(Lime), "103,95 1 x 40");

    Clip(*group, 0, 0, 0, 0);
    EXPECT_EQ(FreshPicture().Extent(Lime), "none");
    EXPECT_EQ(FreshPicture().Extent(Red), "100,100 150 x 150");
}

TEST_F(EnhancedGroupTest, ANewGroupShowsNoChild)
{
    const auto stage = AddTopLevel(new CBlock("stage", 0, 0, k_width, k_height, Blue));
    ClutterActor* group = enhanced_group_new();
    clutter_container_add_actor(CLUTTER_CONTAINER(stage->GetActor()), group);
    const ClutterColor lime{0, 255, 0, 255};
    ClutterActor* child = clutter_rectangle_new_with_color(&lime);
    clutter_actor_set_size(child, 800, 480);
    clutter_container_add_actor(CLUTTER_CONTAINER(group), child);
    EXPECT_EQ(FreshPicture().Extent(Blue), "0,0 800 x 480");
    // The first row from the bottom.
    enhanced_group_set_scissor(CLUTTER_ENHANCEDGROUP(group), 0, 0, 800, 1);
    EXPECT_EQ(FreshPicture().Extent(Lime), "0,479 800 x 1");
}

TEST_F(EnhancedGroupTest, AnySizeAndPositionIsSafe)
{
    constexpr int k_lowest = std::numeric_limits<int>::min();
    constexpr int k_highest = std::numeric_limits<int>::max();
    const struct
    {
        int x;
        int y;
        int width;
        int height;
        const char* extent;
    } cases[] = {
        {10, 10, -5, 20, "none"},
        {10, 10, 20, -5, "none"},
        {10, 10, k_lowest, k_lowest, "none"},
        {-100, -100, 200, 150, "0,430 100 x 50"},
        {790, 470, 50, 50, "790,0 10 x 10"},
        {800, 0, 50, 50, "none"},
        {100, 100, k_highest, k_highest, "100,0 700 x 380"},
        {-2'000'000'000, -2'000'000'000, k_highest, k_highest, "0,0 800 x 480"},
        {k_lowest, k_lowest, k_highest, k_highest, "none"},
        {k_highest, k_highest, k_highest, k_highest, "none"},
    };
    const auto group = AddGroup();
    AddChild(*group, new CBlock("child", -100, -100, k_width, k_height, Lime));
    for (const auto& expected : cases)
    {
        enhanced_group_set_scissor(CLUTTER_ENHANCEDGROUP(group->GetActor()), expected.x, expected.y, expected.width,
                                   expected.height);
        EXPECT_EQ(FreshPicture().Extent(Lime), expected.extent)
            << expected.x << ' ' << expected.y << ' ' << expected.width << ' ' << expected.height;
    }
}

TEST_F(EnhancedGroupTest, AMovedGroupKeepsClippingTheOldPlace)
{
    const auto group = AddGroup();
    AddChild(*group, new CBlock("child", 0, 0, 100, 100, Lime));
    group->Move({160, 170});
    const CPicture picture = FreshPicture();
    EXPECT_EQ(picture.Extent(Lime), "160,170 40 x 30");
    EXPECT_EQ(picture.At(259, 269), Red);
}

TEST_F(EnhancedGroupTest, AnInnerRectangleReplacesTheOuterForTheRestOfItsChildren)
{
    const auto outer = AddGroup();
    AddChild(*outer, new CBlock("before", -20, -20, 60, 60, Lime));
    const auto inner = AddChild(*outer, new CBlock("inner", 50, 50, 60, 60, Yellow, true));
    AddChild(*inner, new CBlock("child", 0, 0, 400, 200, Blue));
    AddChild(*outer, new CBlock("after", 80, -30, 60, 60, White));
    Clip(*inner, 300, 200, 30, 20);
    const CPicture picture = FreshPicture();
    EXPECT_EQ(picture.Extent(Lime), "100,100 40 x 40");
    EXPECT_EQ(picture.Extent(Yellow), "150,150 50 x 50") << "the inner group's own drawing is a child's";
    EXPECT_EQ(picture.Extent(Blue), "300,200 30 x 20");
    EXPECT_EQ(picture.Extent(White), "180,70 60 x 60");

    // What is painted after the two is not clipped by either.
    AddTopLevel(new CBlock("other", 400, 10, 60, 60, Yellow));
    inner->Hide();
    EXPECT_EQ(FreshPicture().Extent(Yellow), "400,10 60 x 60");
}

TEST_F(EnhancedGroupTest, AHiddenChildIsNotPainted)
{
    const auto group = AddGroup();
    ClutterActor* child = AddRectangle(*group, 10, 10, 20, {0, 255, 0, 255});
    AddRectangle(*group, 40, 10, 20, {0, 0, 255, 255});
    clutter_actor_hide(child);
    EXPECT_EQ(FreshPicture().Extent(Lime), "none");
    EXPECT_EQ(FreshPicture().Extent(Blue), "140,110 20 x 20");
    clutter_actor_show(child);
    EXPECT_EQ(FreshPicture().Extent(Lime), "110,110 20 x 20");
}

void PaintWhite(ClutterActor*, gpointer)
{
    Gfx::Utilities::FillRectangle({0, 0, 20, 20}, White);
}

TEST_F(EnhancedGroupTest, TheColourOfTheOwnDrawingDoesNotTintTheChildren)
{
    const auto group = AddGroup();
    group->SetTransparency(50, false);
    g_signal_connect(AddRectangle(*group, 10, 10, 20, {0, 0, 0, 0}), "paint", G_CALLBACK(PaintWhite), nullptr);
    const CPicture picture = FreshPicture();
    EXPECT_EQ(picture.Extent(White), "110,110 20 x 20");
    EXPECT_NEAR(picture.At(100, 100).Red(), 127, 1);
}

TEST_F(EnhancedGroupTest, AnotherTypeIsRefused)
{
    auto* plain = CLUTTER_ACTOR(g_object_ref_sink(clutter_group_new()));
    GTypeQuery query;
    g_type_query(CLUTTER_TYPE_GROUP, &query);
    const auto* bytes = reinterpret_cast<const char*>(plain);
    const std::string before(bytes, query.instance_size);
    GfxTest::ExpectLog("assertion 'CLUTTER_IS_ENHANCEDGROUP(enhancedGroup)' failed");
    enhanced_group_set_scissor(reinterpret_cast<EnhancedGroup*>(plain), 1, 2, 3, 4);
    enhanced_group_set_scissor(nullptr, 1, 2, 3, 4);
    EXPECT_EQ(GfxTest::CountLogs("CLUTTER_IS_ENHANCEDGROUP(enhancedGroup)"), 2);
    EXPECT_EQ(std::string(bytes, query.instance_size), before);
    g_object_unref(plain);
}

TEST_F(EnhancedGroupTest, AClippedRedrawPaintsWhatAFullOneWould)
{
    WaitForClippedRedraws();
    const auto group = AddGroup();
    const auto other = AddTopLevel(new CBlock("other", 600, 400, 50, 50, Yellow));
    const auto child = AddChild(*group, new CBlock("child", 10, 10, 50, 50, Lime));
    const auto inner = AddChild(*child, new CBlock("inner", 20, 20, 60, 60, Blue, true));
    AddChild(*inner, new CBlock("innermost", 30, 30, 60, 60, White));
    Settle();
    const int draws = other->draws;
    constexpr Gfx::Common::CPoint k_positions[] = {{70, 20}, {-30, 80}, {130, 130}, {20, 20}};
    for (const Gfx::Common::CPoint& position : k_positions)
    {
        child->Move(position);
        EXPECT_EQ(Settle(), 1);
        const CPicture clipped = ShownPicture();
        EXPECT_EQ(other->draws, draws) << "the redraw was not clipped";
        EXPECT_EQ(clipped.CountDifferences(FreshPicture()), 0) << position.X() << ',' << position.Y();
        other->draws = draws;
    }
}

TEST_F(EnhancedGroupTest, ActorsAreLookedForInReactiveGroupsOnly)
{
    const auto group = AddGroup();
    Clip(*group, 100, 100, 100, 100);
    ClutterActor* const actor = AddRectangle(*group, 0, 0, 50, {0, 255, 0, 255});
    clutter_actor_set_reactive(actor, TRUE);
    Settle();
    ClutterActor* const stage = clutter_stage_get_default();
    const auto pick = [stage](ClutterPickMode a_mode)
    { return clutter_stage_get_actor_at_pos(CLUTTER_STAGE(stage), a_mode, 120, 120); };
    EXPECT_EQ(pick(CLUTTER_PICK_REACTIVE), stage);
    EXPECT_EQ(pick(CLUTTER_PICK_ALL), actor);

    clutter_actor_set_reactive(group->GetActor(), TRUE);
    // What the last search drew is good until the scene changes.
    FreshPicture();
    EXPECT_EQ(pick(CLUTTER_PICK_REACTIVE), actor);
}

} // namespace
