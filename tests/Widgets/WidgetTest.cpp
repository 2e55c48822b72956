#include "Core/Functor.h"
#include "support/LogGuard.h"
#include "support/StageTest.h"

#include <clutter/clutter.h>

#include <cstddef>
#include <cstring>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace
{

using Gfx::Colours::Red;
using Gfx::Common::CPoint;
using Gfx::Widgets::CWidget;
using GfxTest::CBlock;
using GfxTest::WidgetPtr;

class WidgetTest : public GfxTest::CStageTest
{
protected:
    static bool IsActorShown(CWidget& a_widget) { return clutter_actor_is_visible(a_widget.GetActor()) != FALSE; }
};

/// Notes the virtual calls that go from a widget to its neighbours in the tree.
class CNotingBlock : public CBlock
{
public:
    CNotingBlock(const std::string& a_name, std::vector<std::string>& a_notes)
        : CBlock(a_name, 0, 0, 10, 10, Red), m_notes(a_notes)
    {
    }
    void Idle() override
    {
        Note("Idle");
        CWidget::Idle();
    }
    void NotifyPositionChanged() override
    {
        Note("Position");
        CWidget::NotifyPositionChanged();
    }
    void ChildVisibilityChanged() override { Note("ChildVisibility"); }
    void ChildReceivedMouseEvent() override
    {
        Note("ChildMouse");
        CWidget::ChildReceivedMouseEvent();
    }
    void UpdateStyle() override
    {
        Note("Style");
        CWidget::UpdateStyle();
    }
    void UpdateLocalisedText() override
    {
        Note("Text");
        CWidget::UpdateLocalisedText();
    }
    void SetTransparency(int a_opacity, bool a_recursive) override
    {
        Note("Opacity " + std::to_string(a_opacity));
        CWidget::SetTransparency(a_opacity, a_recursive);
    }
    void UpdateCustomInfo() override { SetCustomInfo("Own", "1"); }

private:
    void Note(const std::string& a_call) { m_notes.push_back(Name() + "." + a_call); }

    std::vector<std::string>& m_notes;
};

TEST_F(WidgetTest, HandlersThatRefuseKeepTheStateAndShowAndHideReachTheActorFirst)
{
    const auto widget = AddTopLevel(new CBlock("a", 5, 6, 10, 10, Red));
    std::vector<std::string> calls;
    bool agree = false;
    const std::unique_ptr<CWidget::VetoableToggleHandler> visibility(Core::Functor<bool, CWidget*, bool>::Make(
        [&](CWidget* a_widget, bool a_visible)
        {
            EXPECT_EQ(a_widget, widget.Get());
            EXPECT_EQ(IsActorShown(*a_widget), a_visible);
            calls.push_back(a_visible ? "show" : "hide");
            return agree;
        }));
    widget->SetVisibilityChangedEventHandler(visibility.get());
    widget->Show();
    EXPECT_TRUE(calls.empty()) << "it is visible already";
    widget->Hide();
    EXPECT_TRUE(widget->Visible());
    EXPECT_FALSE(IsActorShown(*widget)) << "a refused Hide leaves the actor hidden";
    agree = true;
    widget->Hide();
    EXPECT_FALSE(widget->Visible());
    agree = false;
    widget->Show();
    EXPECT_FALSE(widget->Visible());
    EXPECT_TRUE(IsActorShown(*widget));
    EXPECT_EQ(calls, (std::vector<std::string>{"hide", "hide", "show"}));
    widget->SetVisibilityChangedEventHandler(nullptr);

    const std::unique_ptr<CWidget::VetoableToggleHandler> enabled(
        Core::Functor<bool, CWidget*, bool>::Make([&](CWidget*, bool) { return agree; }));
    widget->SetEnabledChangedEventHandler(enabled.get());
    widget->Disable();
    EXPECT_TRUE(widget->Enabled());
    agree = true;
    widget->Disable();
    EXPECT_FALSE(widget->Enabled());
    widget->SetEnabledChangedEventHandler(nullptr);

    agree = false;
    const std::unique_ptr<CWidget::MoveHandler> move(Core::Functor<bool, CWidget*, const CPoint&>::Make(
        [&](CWidget*, const CPoint& a_point) { return agree && a_point == CPoint(7, 8); }));
    const std::unique_ptr<CWidget::ResizeHandler> resize(Core::Functor<bool, CWidget*, int, int>::Make(
        [&](CWidget*, int a_width, int a_height) { return agree && a_width == 30 && a_height == 40; }));
    widget->SetMoveEventHandler(move.get());
    widget->SetResizeEventHandler(resize.get());
    for (const bool agrees : {false, true})
    {
        agree = agrees;
        widget->Move({7, 8});
        widget->Resize(30, 40);
        EXPECT_EQ(widget->TopLeft() == CPoint(7, 8), agrees);
        EXPECT_EQ(widget->Width() == 30 && widget->Height() == 40, agrees);
        EXPECT_EQ(clutter_actor_get_x(widget->GetActor()) == 7 && clutter_actor_get_height(widget->GetActor()) == 40,
                  agrees);
    }
    widget->SetMoveEventHandler(nullptr);
    widget->SetResizeEventHandler(nullptr);
}

TEST_F(WidgetTest, PropertiesWorkByNameAndExactText)
{
    const auto widget = AddTopLevel(new CBlock("a", 5, 6, 10, 10, Red));
    const auto get = [&](const char* a_name) { return widget->GetProperty(a_name, "none"); };
    widget->SetProperty("Visible", "true");
    EXPECT_EQ(get("Visible"), "False") << "the comparison is exact";
    widget->SetProperty("Visible", "True");
    EXPECT_EQ(get("Visible"), "True");

    widget->SetProperty("RemoteLockout", "True");
    EXPECT_EQ(get("RemoteLockout"), "False");
    widget->RemoteLockout(true);
    EXPECT_EQ(get("RemoteLockout"), "True");

    EXPECT_EQ(get("Position"), "none");
    struct SPosition
    {
        const char* text;
        CPoint point;
    };
    constexpr int largest = std::numeric_limits<int>::max();
    for (const SPosition& position :
         {SPosition{"12,-34", {12, -34}}, SPosition{" 7, 8 rest", {7, 8}}, SPosition{"12 ,5", {12, 0}},
          SPosition{"12", {12, 0}}, SPosition{"x,3", {0, 0}}, SPosition{",3", {0, 0}}, SPosition{"", {0, 0}},
          SPosition{"99999999999,4,5", {largest, 4}}})
    {
        widget->Move({1, 1});
        widget->SetProperty("Position", position.text);
        EXPECT_TRUE(widget->TopLeft() == position.point) << position.text;
    }

    struct SOpacity
    {
        const char* text;
        const char* result;
    };
    for (const SOpacity& opacity :
         {SOpacity{"40", "40"}, SOpacity{"-5", "0"}, SOpacity{"150", "100"}, SOpacity{"7%", "7"}, SOpacity{"much", "0"},
          SOpacity{"99999999999999999999", "100"}})
    {
        widget->SetProperty("Opacity", opacity.text);
        EXPECT_EQ(get("Opacity"), opacity.result) << opacity.text;
    }

    EXPECT_EQ(get("Colour"), "none");
    widget->SetProperty("Colour", "mauve");
    widget->SetProperty("Colour", "puce");
    EXPECT_EQ(get("Colour"), "puce");
}

TEST_F(WidgetTest, CustomInfoHasThePropertiesAndTheControlsOwnValues)
{
    std::vector<std::string> notes;
    CNotingBlock widget("a", notes);
    widget.SetProperty("Colour", "mauve");
    widget.SetProperty("Own", "replaced by the control's");
    EXPECT_EQ(widget.GetCustomInfo(), (std::map<std::string, std::string>{{"Colour", "mauve"}, {"Own", "1"}}));
}

TEST_F(WidgetTest, CallsGoDownTheTreeInTheirOrderAndUpTheTree)
{
    std::vector<std::string> notes;
    const auto top = AddTopLevel(new CNotingBlock("t", notes));
    const auto first = AddChild(*top, new CNotingBlock("a", notes));
    AddChild(*first, new CNotingBlock("x", notes));
    const auto second = AddChild(*top, new CNotingBlock("b", notes));
    const auto notesOf = [&notes](auto&& a_action)
    {
        notes.clear();
        a_action();
        return notes;
    };
    using Notes = std::vector<std::string>;
    EXPECT_EQ(notesOf([&] { Widgets().Idle(); }), (Notes{"t.Idle", "b.Idle", "a.Idle", "x.Idle"}));
    EXPECT_EQ(notesOf([&] { top->NotifyPositionChanged(); }),
              (Notes{"t.Position", "b.Position", "a.Position", "x.Position"}));
    EXPECT_EQ(notesOf([&] { Widgets().UpdateStyle(); }), (Notes{"t.Style", "a.Style", "x.Style", "b.Style"}));
    EXPECT_EQ(notesOf([&] { Widgets().UpdateLocalisation(); }), (Notes{"t.Text", "a.Text", "x.Text", "b.Text"}));
    EXPECT_EQ(notesOf([&] { top->SetTransparency(150, true); }),
              (Notes{"t.Opacity 150", "a.Opacity 150", "x.Opacity 150", "b.Opacity 150"}))
        << "the children get the argument as it was";
    EXPECT_EQ(first->GetTransparency(), 100);
    EXPECT_EQ(notesOf([&] { second->Hide(); }), (Notes{"t.ChildVisibility"}));
    EXPECT_EQ(notesOf([&] { Widgets().Idle(); }), (Notes{"t.Idle", "a.Idle", "x.Idle"})) << "b is hidden";
    EXPECT_EQ(notesOf(
                  [&] {
                      first->MouseEvent(Gfx::Events::Move, 0, {0, 0}, false);
                  }),
              (Notes{"a.ChildMouse", "t.ChildMouse"}));
    first->RemoteLockout(true);
    EXPECT_TRUE(notesOf([&] { first->MouseEvent(Gfx::Events::Move, 0, {0, 0}, true); }).empty());
    first->Select();
    EXPECT_TRUE(first->Selected() && top->Selected() && !second->Selected());
}

TEST_F(WidgetTest, NamesAndPlacesFollowTheTree)
{
    const auto top = AddTopLevel(new CBlock("a", 100, 50, 200, 200, Red));
    const auto middle = AddChild(*top, new CBlock("b", 10, 20, 100, 100, Red));
    const auto inner = AddChild(*middle, new CBlock("c", 1, 2, 30, 40, Red));
    EXPECT_EQ(inner->GetName(), "a:b:c");
    EXPECT_TRUE(inner->AbsoluteTopLeft() == CPoint(111, 72));
    EXPECT_TRUE(inner->AABB() == Gfx::Common::CAABB(111, 72, 30, 40));
    EXPECT_TRUE(inner->FromAbsoluteToChildCoordinates({111, 73}) == CPoint(0, 1));
    EXPECT_TRUE(inner->AbsolutePointInWidget({140, 112})) << "the bottom edge is inside";
    EXPECT_FALSE(inner->AbsolutePointInWidget({141, 112})) << "the right edge is outside";
    EXPECT_TRUE(top->HasChild(inner.Get()));
    EXPECT_FALSE(inner->HasChild(top.Get()));
    EXPECT_TRUE(inner->Intersects(top));
    EXPECT_FALSE(inner->Intersects(WidgetPtr()));
}

TEST_F(WidgetTest, AWidgetMovesAtOnceUnlessItsActorIsToldToTakeItsTime)
{
    const auto block = AddTopLevel(new CBlock("block", 10, 10, 20, 20, Gfx::Colours::Red));
    ClutterActor* const actor = block->GetActor();
    const auto isUnderWay = [actor] { return clutter_actor_get_transition(actor, "position") != nullptr; };
    block->Move({30, 40});
    EXPECT_EQ(clutter_actor_get_x(actor), 30);
    EXPECT_FALSE(isUnderWay());
    clutter_actor_set_easing_duration(actor, 1000);
    block->Move({50, 60});
    EXPECT_TRUE(isUnderWay());
    clutter_actor_set_easing_duration(actor, 0);
    block->Move({70, 80});
    EXPECT_FALSE(isUnderWay()) << "what is under way ends with the next place";
    EXPECT_EQ(clutter_actor_get_x(actor), 70);
}

TEST_F(WidgetTest, AChildMovesBetweenParentsAndKeepsWhetherItIsHidden)
{
    const auto left = AddTopLevel(new CBlock("left", 0, 0, 100, 100, Red));
    const auto right = AddTopLevel(new CBlock("right", 200, 0, 100, 100, Red));
    const auto child = AddChild(*left, new CBlock("child", 10, 10, 10, 10, Red));
    const auto grandchild = AddChild(*child, new CBlock("grandchild", 0, 0, 5, 5, Red));
    child->Hide();
    right->AddChild(child);
    EXPECT_EQ(child->Parent(), right.Get());
    EXPECT_FALSE(left->HasChild(child.Get()));
    EXPECT_TRUE(right->HasChild(grandchild.Get()));
    EXPECT_EQ(clutter_actor_get_parent(child->GetActor()), right->GetActor());
    EXPECT_FALSE(IsActorShown(*child));

    // A top-level widget becomes a child, and a child a top-level widget.
    right->AddChild(left);
    EXPECT_EQ(Widgets().FindWidget("left", nullptr), WidgetPtr());
    EXPECT_EQ(Widgets().FindWidget("right:left", nullptr), left);
    AddToStage(child);
    EXPECT_EQ(child->Parent(), nullptr);
    EXPECT_EQ(Widgets().FindWidget("child:grandchild", nullptr), grandchild);
    EXPECT_FALSE(right->HasChild(child.Get()));

    // Again to the same parent: once, and on top.
    right->AddChild(child);
    right->AddChild(left);
    right->DestroyChild(left);
    EXPECT_FALSE(right->HasChild(left.Get()));
}

TEST_F(WidgetTest, AWidgetMayBecomeTheChildOfWhatWasAPartOfIt)
{
    const auto top = AddTopLevel(new CBlock("top", 0, 0, 100, 100, Red));
    for (const bool isDestroyed : {false, true})
    {
        const auto outer = AddChild(*top, new CBlock("outer", 0, 0, 80, 80, Red));
        const auto middle = AddChild(*outer, new CBlock("middle", 0, 0, 60, 60, Red));
        const auto inner = AddChild(*middle, new CBlock("inner", 0, 0, 40, 40, Red));
        if (isDestroyed)
        {
            outer->DestroyChild(middle);
        }
        else
        {
            outer->RemoveChild(middle);
        }
        inner->AddChild(outer);
        EXPECT_EQ(outer->GetName(), "middle:inner:outer");
        EXPECT_FALSE(top->HasChild(outer.Get()));
        Widgets().GarbageCollect();
        top->AddChild(middle);
        EXPECT_TRUE(clutter_actor_contains(top->GetActor(), outer->GetActor()));
        EXPECT_TRUE(IsActorShown(*middle));
        top->DestroyChild(middle);
        Widgets().GarbageCollect();
    }
}

TEST_F(WidgetTest, WhatComesToTheInterfaceComesBehindTheLastOfItsSlots)
{
    // In the C++ ABI, the first word of a pointer to a virtual operation is its place in the table; the lowest bit may
    // mark it as virtual.
    void (CWidget::*const last)() = &CWidget::UpdateCustomInfo;
    std::size_t word = 0;
    std::memcpy(&word, &last, sizeof(word));
    EXPECT_EQ((word & ~std::size_t{1}) / sizeof(void*), 43U);
}

TEST_F(WidgetTest, WhatCannotBeAChildIsRefused)
{
    const auto top = AddTopLevel(new CBlock("top", 0, 0, 100, 100, Red));
    const auto child = AddChild(*top, new CBlock("child", 0, 0, 50, 50, Red));
    GfxTest::ExpectLog("Can't add");
    top->AddChild(WidgetPtr());
    top->AddChild(top);
    child->AddChild(top);
    EXPECT_EQ(GfxTest::CountLogs("Can't add"), 3);
    EXPECT_EQ(child->Parent(), top.Get());

    class CLoner : public CBlock
    {
    public:
        using CBlock::CBlock;
        bool CanBeChild() override { return false; }
    };
    const WidgetPtr loner(new CLoner("loner", 0, 0, 10, 10, Red));
    EXPECT_DEATH(top->AddChild(loner), "childPtr->CanBeChild\\(\\)");
}

/// Does what a test wants while widgets move in or out.
class CBusyBlock : public CBlock
{
public:
    explicit CBusyBlock(const std::string& a_name) : CBlock(a_name, 0, 0, 50, 50, Red) {}
    bool CanBeChild() override
    {
        Do();
        return true;
    }
    void RemoveChild(WidgetPtr a_child) override
    {
        CBlock::RemoveChild(a_child);
        Do();
    }
    void Select() override
    {
        CBlock::Select();
        Do();
    }
    /// Done once.
    std::function<void()> work;

private:
    void Do()
    {
        if (const auto todo = std::exchange(work, nullptr))
        {
            todo();
        }
    }
};

TEST_F(WidgetTest, WidgetsThatAreMovedWhileTheyMoveAreInOnePlace)
{
    const auto busy = AddTopLevel(new CBusyBlock("busy"));
    const auto other = AddTopLevel(new CBlock("other", 0, 0, 50, 50, Red));
    const auto child = AddChild(*busy, new CBlock("child", 0, 0, 10, 10, Red));
    auto* const stage = clutter_actor_get_parent(other->GetActor());

    // Destroyed by the parent that it leaves for the stage.
    busy->work = [&] { Widgets().DestroyWidget(child.Get()); };
    AddToStage(child);
    Widgets().GarbageCollect();
    EXPECT_EQ(Widgets().FindWidget("child", nullptr), child);
    EXPECT_EQ(clutter_actor_get_parent(child->GetActor()), stage);

    // Given to another one by the parent that it leaves, and destroyed there.
    busy->AddChild(child);
    busy->work = [&]
    {
        other->AddChild(child);
        Widgets().DestroyWidget(child.Get());
        Widgets().GarbageCollect();
    };
    Widgets().AddWidget(child);
    EXPECT_EQ(Widgets().FindWidget("child", nullptr), WidgetPtr());
    EXPECT_EQ(child->Parent(), other.Get());
    EXPECT_NE(clutter_actor_get_parent(child->GetActor()), stage);

    // Put on the stage by the parent that it leaves for the stage, and destroyed there.
    busy->AddChild(child);
    busy->work = [&]
    {
        Widgets().AddWidget(child);
        Widgets().DestroyWidget(child.Get());
    };
    Widgets().AddWidget(child);
    Widgets().GarbageCollect();
    EXPECT_EQ(Widgets().FindWidget("child", nullptr), WidgetPtr());
    EXPECT_NE(clutter_actor_get_parent(child->GetActor()), stage);

    // Given to another one by the parent that it leaves, and destroyed by the one that it was to go to.
    const auto third = AddTopLevel(new CBlock("third", 0, 0, 50, 50, Red));
    busy->AddChild(child);
    busy->work = [&]
    {
        other->AddChild(child);
        third->DestroyChild(child);
    };
    third->AddChild(child);
    EXPECT_FALSE(other->HasChild(child.Get()));
    EXPECT_FALSE(third->HasChild(child.Get()));

    // Put into another one as it is selected, and forgotten there.
    Widgets().DestroyWidget(busy.Get());
    busy->work = [&]
    {
        other->AddChild(busy);
        other->RemoveChild(busy);
    };
    Widgets().AddWidget(busy);
    EXPECT_EQ(Widgets().FindWidget("busy", nullptr), WidgetPtr());

    // Asked whether it can be a child, it takes the parent as a child of its own.
    busy->work = [&] { busy->AddChild(other); };
    GfxTest::ExpectLog("Can't add busy to busy:other");
    other->AddChild(busy);
    EXPECT_EQ(other->Parent(), busy.Get());
    EXPECT_EQ(busy->Parent(), nullptr);
}

TEST_F(WidgetTest, AChildOutlivesItsParentAndAnActorItsWidget)
{
    auto child = Core::SharedPtr<CBlock>(new CBlock("child", 10, 10, 10, 10, Red));
    AddChild(*child, new CBlock("grandchild", 10, 10, 10, 10, Gfx::Colours::Lime));
    gpointer actor = nullptr;
    {
        const auto top = AddTopLevel(new CBlock("top", 100, 100, 100, 100, Red));
        top->AddChild(child);
        actor = top->GetActor();
        g_object_add_weak_pointer(G_OBJECT(actor), &actor);
        ForgetTopLevels();
        Widgets().DestroyWidget(top.Get());
    }
    EXPECT_EQ(child->Parent(), nullptr);
    EXPECT_TRUE(child->AbsoluteTopLeft() == CPoint(10, 10));
    ASSERT_NE(actor, nullptr) << "it waits for the garbage collection";
    Settle();
    Widgets().GarbageCollect();
    EXPECT_EQ(actor, nullptr);
    child->Move({20, 20});
    child->Invalidate(true);
    AddToStage(child);
    EXPECT_EQ(FreshPicture().At(25, 25), Red);
    EXPECT_EQ(FreshPicture().At(35, 35), Gfx::Colours::Lime) << "its own child is there, too";
}

TEST_F(WidgetTest, AChildIsWholeAfterItsParentsGroupHasDiedWithTheParent)
{
    for (const bool wasOnStage : {false, true})
    {
        auto child = Core::SharedPtr<CBlock>(new CBlock("child", 20, 20, 20, 20, Red));
        AddChild(*child, new CBlock("grandchild", 10, 10, 10, 10, Gfx::Colours::Lime));
        {
            const WidgetPtr top(new CBlock("top", 0, 0, 100, 100, Red));
            AddChild(*top, new CBlock("between", 0, 0, 50, 50, Red))->AddChild(child);
            if (wasOnStage)
            {
                Widgets().AddWidget(top);
                Widgets().DestroyWidget(top.Get());
                Widgets().GarbageCollect();
            }
        }
        Widgets().AddWidget(child);
        EXPECT_EQ(FreshPicture().At(35, 35), Gfx::Colours::Lime);
        Widgets().DestroyWidget(child.Get());
    }
}

TEST_F(WidgetTest, ADestroyedWidgetComesBackOnceAndAsVisibleAsItWas)
{
    const auto top = AddTopLevel(new CBlock("top", 0, 0, 100, 100, Red));
    const auto other = AddTopLevel(new CBlock("other", 200, 0, 100, 100, Red));
    for (const bool collected : {false, true})
    {
        const auto child = AddChild(*top, new CBlock("child", 10, 10, 10, 10, Red));
        child->Hide();
        Widgets().DestroyWidget(child.Get());
        if (collected)
        {
            Widgets().GarbageCollect();
        }
        child->BringToFront();
        top->AddChild(child);
        EXPECT_FALSE(IsActorShown(*child));
        Widgets().DestroyWidget(child.Get());
        if (collected)
        {
            Widgets().GarbageCollect();
        }
        other->AddChild(child);
        EXPECT_FALSE(IsActorShown(*child));
        EXPECT_FALSE(top->HasChild(child.Get()));
        child->Show();
        other->DestroyChild(child);
        EXPECT_FALSE(other->HasChild(child.Get()));
        AddToStage(child);
        EXPECT_TRUE(IsActorShown(*child));
    }
}

/// Moves in its parent's or the stage's list whenever it is idle.
class CRestlessBlock : public CBlock
{
public:
    CRestlessBlock(const std::string& a_name, bool a_raise) : CBlock(a_name, 0, 0, 10, 10, Red), m_raise(a_raise) {}
    void Idle() override
    {
        ++idles;
        if (m_raise)
        {
            BringToFront();
        }
        else
        {
            SendToBack();
        }
        CBlock::Idle();
    }
    int idles = 0;

private:
    bool m_raise;
};

TEST_F(WidgetTest, AWidgetThatMovesInItsListIsVisitedOnceARound)
{
    std::vector<Core::SharedPtr<CRestlessBlock>> blocks;
    for (const bool raise : {true, false, true})
    {
        blocks.push_back(AddTopLevel(new CRestlessBlock("top", raise)));
        for (const bool childRaises : {false, true, false})
        {
            blocks.push_back(AddChild(*blocks.back(), new CRestlessBlock("child", childRaises)));
        }
    }
    // One may be moved to where the round has been already; none is called twice.
    for (int round = 1; round <= 3; ++round)
    {
        Widgets().Idle();
        for (const auto& block : blocks)
        {
            EXPECT_LE(block->idles, round);
        }
        EXPECT_EQ(blocks.front()->idles, round) << "the first was at the front of the round";
    }
}

TEST_F(WidgetTest, HandlersThatSelectEachOtherComeToAnEnd)
{
    const auto first = AddTopLevel(new CBlock("first", 0, 0, 10, 10, Red));
    const auto second = AddTopLevel(new CBlock("second", 20, 0, 10, 10, Red));
    int calls = 0;
    const std::unique_ptr<CWidget::ToggleHandler> handler(Core::Functor<void, CWidget*, bool>::Make(
        [&](CWidget* a_widget, bool a_selected)
        {
            ++calls;
            if (!a_selected)
            {
                Widgets().Select(a_widget == first.Get() ? second : first);
                Widgets().Select(first);
            }
        }));
    first->SetSelectedChangedEventHandler(handler.get());
    second->SetSelectedChangedEventHandler(handler.get());
    Widgets().Select(first);
    Widgets().Select(second);
    Press(500, 300);
    EXPECT_LT(calls, 50);
    first->SetSelectedChangedEventHandler(nullptr);
    second->SetSelectedChangedEventHandler(nullptr);
}

TEST_F(WidgetTest, AWidgetThatForgotItsGroupGetsOne)
{
    const WidgetPtr top(new CWidget("top", "", 0, 0, 50, 50, false));
    const WidgetPtr child(new CWidget("child", "", 0, 0, 50, 50, true));
    top->AddChild(child);
    top->Hide();
    AddToStage(top);
    ASSERT_NE(child->GetActor(), nullptr);
    EXPECT_EQ(clutter_actor_get_parent(child->GetActor()), top->GetActor());
}

TEST_F(WidgetTest, ClicksReachTheClickHandlerAndEverythingTheMouseHandler)
{
    const auto widget = AddTopLevel(new CBlock("a", 100, 100, 50, 50, Red));
    int clicks = 0;
    std::vector<int> events;
    const std::unique_ptr<CWidget::ClickHandler> click(Core::Functor<void, CWidget*, int, const CPoint&, bool>::Make(
        [&](CWidget*, int, const CPoint& a_point, bool) { clicks += a_point == CPoint(5, 6) ? 1 : 100; }));
    const std::unique_ptr<CWidget::MouseHandler> mouse(
        Core::Functor<void, CWidget*, Gfx::Events::EMouseEvent, int, const CPoint&, bool>::Make(
            [&](CWidget*, Gfx::Events::EMouseEvent a_event, int, const CPoint&, bool) { events.push_back(a_event); }));
    widget->SetClickEventHandler(click.get());
    widget->SetMouseEventHandler(mouse.get());
    Click(105, 106);
    Widgets().MouseEvent(Gfx::Events::ThirdDown, 4, {105, 106}, false);
    Widgets().MouseEvent(Gfx::Events::ThirdUp, 4, {105, 106}, false);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(events, (std::vector<int>{4, 5, 6, 10, 11, 12}));
    widget->SetClickEventHandler(nullptr);
    widget->SetMouseEventHandler(nullptr);
}

} // namespace
