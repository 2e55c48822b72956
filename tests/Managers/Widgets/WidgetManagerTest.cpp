#include "Managers/Gfx/GfxManager.h"
#include "Managers/Widgets/RecordingWidget.h"

#include <clutter/clutter.h>
#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

namespace
{

using namespace Gfx::Colours;
using GfxTest::CBlock;
using GfxTest::CRecordingWidget;
using GfxTest::RecorderPtr;
using GfxTest::WidgetPtr;
using testing::ElementsAre;

class WidgetManagerTest : public GfxTest::CRecordingTest
{
protected:
    /// The log of an operation, and of a key press after it, which shows who has the keyboard.
    static std::string LogOf(const std::function<void()>& a_operation)
    {
        CRecordingWidget::TakeLog();
        a_operation();
        Widgets().KeyboardEvent(7);
        return CRecordingWidget::TakeLog();
    }

    static int CountActors()
    {
        auto& gfx = Core::Patterns::StaticSingleton<Gfx::Managers::CGfxManager>::ref();
        return clutter_actor_get_n_children(gfx.GetStage());
    }
};

TEST_F(WidgetManagerTest, ANewWidgetIsSelectedWhetherEnabledOrNotAndIsAddedOnce)
{
    const auto first = Top("a");
    const RecorderPtr second(new CRecordingWidget("b", 0, 0, 10, 10));
    Child(second, "c");
    second->Disable();
    EXPECT_EQ(LogOf([&] { Widgets().AddWidget(second); }), "a:Deselect b:UpdateStyle c:UpdateStyle b:Select b:Key(7) ");
    EXPECT_EQ(LogOf([&] { Widgets().AddWidget(first); }), "b:Key(7) ");
    EXPECT_FALSE(first->Selected());
    EXPECT_EQ(CountActors(), 2);
}

TEST_F(WidgetManagerTest, SelectMovesTheKeyboardToEnabledWidgets)
{
    const auto first = Top("a");
    const auto child = Child(first, "c");
    const auto second = Top("b");
    EXPECT_EQ(LogOf([&] { Widgets().Select(second); }), "b:Key(7) ");
    EXPECT_EQ(LogOf([&] { Widgets().Select(child); }), "b:Deselect c:Select a:Select c:Key(7) ");
    second->Disable();
    EXPECT_EQ(LogOf([&] { Widgets().Select(second); }), "c:Key(7) ");
    second->Enable();
    CRecordingWidget::s_hook = [&](CRecordingWidget&, const std::string&) { second->Disable(); };
    EXPECT_EQ(LogOf([&] { Widgets().Select(second); }), "c:Deselect a:Deselect c:Key(7) ") << "disabled meanwhile";
    second->Enable();
    CRecordingWidget::s_hook = [&](CRecordingWidget& a_widget, const std::string&)
    {
        second->Disable();
        first->DestroyChild(&a_widget);
    };
    EXPECT_EQ(LogOf([&] { Widgets().Select(second); }), "c:Deselect ") << "and the other one destroyed";
}

TEST_F(WidgetManagerTest, ADestructionSelectsTheTopmostOnlyIfTheWidgetWasSelected)
{
    const auto a = Top("a");
    const auto b = Top("b");
    const auto c = Top("c");
    const auto child = Child(b, "d");
    EXPECT_EQ(LogOf([&] { Widgets().DestroyWidget(a.Get()); }), "") << "the keyboard goes nowhere";
    EXPECT_TRUE(c->Selected());
    EXPECT_EQ(LogOf([&] { Widgets().DestroyWidget(c.Get()); }), "b:Select b:Key(7) ");
    EXPECT_EQ(LogOf([&] { Widgets().DestroyWidget(child.Get()); }), "") << "any destruction takes it away";
    EXPECT_EQ(LogOf([&] { Widgets().DestroyWidget(b.Get()); }), "");
}

TEST_F(WidgetManagerTest, ADestructionAnywhereEndsPressHoverAndDragSilently)
{
    using namespace Gfx::Events;
    const auto a = Top("a", 100, 100, 50, 50);
    const auto other = Child(a, "b", 40, 40);
    a->draggable = true;
    Play({{FirstDown, 110, 110}, {ThirdDown, 110, 110}});
    EXPECT_TRUE(Widgets().DraggingInProgress());
    EXPECT_EQ(LogOf([&] { a->DestroyChild(other); }), "");
    EXPECT_FALSE(Widgets().DraggingInProgress());
    EXPECT_EQ(Play({{Move, 10, 10}, {Move, 110, 110}, {FirstUp, 110, 110}, {ThirdUp, 110, 110}}),
              "a:Move(1;10,10) a:FirstUp(1;10,10) a:ThirdUp(1;10,10) ");
}

TEST_F(WidgetManagerTest, WidgetsAreFoundByPathBelowAParentFirst)
{
    const auto a = Top("a");
    const auto b = Top("b");
    const auto otherA = Top("a");
    const auto inA = Child(a, "b");
    const auto otherInA = Child(a, "b");
    const auto deep = Child(inA, "c");
    const auto unnamed = Child(b, "");
    const struct
    {
        const char* path;
        RecorderPtr parent;
        RecorderPtr found;
    } cases[] = {
        {"a", {}, a},    {"b", {}, b},        {"a:b", {}, inA}, {"a:b:c", {}, deep}, {"b:", {}, unnamed},
        {"x", {}, {}},   {"A", {}, {}},       {"", {}, {}},     {"c", {}, {}},       {"a:c", {}, {}},
        {"x:b", {}, {}}, {"a:b:c:d", {}, {}}, {":b", {}, {}},   {"b", a, inA},       {"b:c", a, deep},
        {"a", a, a},     {"a:b", a, inA},     {"b", inA, b},    {"a:b:c", b, deep},  {"b", otherA, b},
        {"b:b", a, {}},  {"c", otherInA, {}},
    };
    for (const auto& [path, parent, found] : cases)
    {
        EXPECT_EQ(Widgets().FindWidget(path, parent.Get()), found) << path << " in " << (parent ? parent->Name() : "");
    }
    EXPECT_EQ(Widgets().FindWidget(deep->GetName(), nullptr), deep);
    EXPECT_EQ(Widgets().FindWidget(a.Get(), std::vector<std::string>{"b", "c"}), deep);
    EXPECT_EQ(Widgets().FindWidget(inA.Get(), std::vector<std::string>{"b"}), nullptr) << "no way up from here";
}

TEST_F(WidgetManagerTest, TheStackingOrderIsTheSameForTheEyeAndForTheFinger)
{
    // All of them meet at 25, 25, and no top-level widget covers another one.
    const WidgetPtr a = AddTopLevel(new CBlock("a", 0, 0, 50, 50, Red));
    const WidgetPtr b = AddTopLevel(new CBlock("b", 10, 10, 50, 50, Lime));
    const WidgetPtr c = AddTopLevel(new CBlock("c", 20, 20, 50, 50, Blue));
    const WidgetPtr d = AddChild(*a, new CBlock("d", 0, 0, 50, 50, Aqua));
    const WidgetPtr e = AddChild(*a, new CBlock("e", 0, 0, 50, 50, White));
    const auto expectOnTop = [&](const WidgetPtr& a_widget, const Gfx::CColour& a_colour)
    {
        EXPECT_EQ(FreshPicture().At(25, 25), a_colour);
        Click(25, 25);
        for (const WidgetPtr& widget : {a, b, c, d, e})
        {
            EXPECT_EQ(widget->Selected(), widget == a_widget || widget->HasChild(a_widget.Get())) << widget->Name();
        }
    };
    expectOnTop(c, Blue);
    Widgets().BringToFront(b.Get());
    expectOnTop(b, Lime);
    Widgets().SendToBack(b.Get());
    expectOnTop(c, Blue);
    a->BringToFront();
    expectOnTop(e, White);
    Widgets().BringToFront(d.Get());
    expectOnTop(d, Aqua);
    Widgets().SendToBack(d.Get());
    expectOnTop(e, White);
    a->SendToBack();
    b->BringToFront();
    Widgets().BringToFront(nullptr);
    Widgets().SendToBack(nullptr);
    expectOnTop(b, Lime);
    EXPECT_THAT(Widgets().VisibleWidgetNames(), ElementsAre("a", "c", "b"));
}

TEST_F(WidgetManagerTest, TheModalWidgetIsTheTopmostThatIsVisibleAndEnabled)
{
    const auto lower = Top("a");
    const auto upper = Top("b");
    Child(upper, "c")->Modal(true);
    EXPECT_EQ(Widgets().GetModalWidget(), nullptr) << "children don't count";
    lower->Modal(true);
    upper->Modal(true);
    EXPECT_EQ(Widgets().GetModalWidget(), upper);
    Widgets().SendToBack(upper.Get());
    EXPECT_EQ(Widgets().GetModalWidget(), lower);
    lower->Disable();
    EXPECT_EQ(Widgets().GetModalWidget(), upper);
    upper->Hide();
    EXPECT_EQ(Widgets().GetModalWidget(), nullptr);
}

TEST_F(WidgetManagerTest, TheKeyboardCallbackSeesKeysFirstAndIsOwned)
{
    struct SCallback : Core::Functor<bool, unsigned int>::Signature
    {
        explicit SCallback(int& a_dead) : dead(a_dead) {}
        ~SCallback() override { ++dead; }
        bool Execute(unsigned int a_key) override { return a_key != 7; }
        int& dead;
    };
    Top("a");
    int dead = 0;
    auto* callback = new SCallback(dead);
    Widgets().SetKeyboardEventCallback(callback);
    Widgets().SetKeyboardEventCallback(callback);
    EXPECT_EQ(dead, 0);
    EXPECT_EQ(LogOf([] { Widgets().KeyboardEvent(0xFFFFFFFF); }), "a:Key(4294967295) ");
    Widgets().SetKeyboardEventCallback(nullptr);
    EXPECT_EQ(dead, 1);
    EXPECT_EQ(LogOf([] {}), "a:Key(7) ");
}

TEST_F(WidgetManagerTest, OnlyACompleteCoverOfTheTopLevelWidgetHidesIt)
{
    const auto lower = Top("a", 10, 10, 50, 50);
    const auto child = Child(lower, "c", 45, 45);
    const auto isVisible = [&]
    {
        EXPECT_EQ(Widgets().IsVisible(child.Get()), Widgets().IsVisible(lower.Get()));
        return Widgets().IsVisible(lower.Get());
    };
    EXPECT_TRUE(isVisible());
    const auto upper = Top("b", 10, 10, 50, 50);
    EXPECT_FALSE(isVisible()) << "covered exactly";
    EXPECT_THAT(Widgets().VisibleWidgetNames(), ElementsAre("b"));
    upper->Resize(50, 49);
    EXPECT_TRUE(isVisible());
    upper->Move({9, 9});
    upper->Resize(51, 51);
    EXPECT_FALSE(isVisible());
    upper->StartDragging({0, 0});
    EXPECT_FALSE(isVisible());
    upper->transparentOnDrag = true;
    EXPECT_TRUE(isVisible()) << "one sees through what is dragged";
    upper->EndDragging();
    EXPECT_FALSE(isVisible());
    upper->Hide();
    EXPECT_THAT(Widgets().VisibleWidgetNames(), ElementsAre("a"));
    upper->Show();
    upper->SendToBack();
    EXPECT_THAT(Widgets().VisibleWidgetNames(), ElementsAre("b", "a"));
    lower->Hide();
    EXPECT_FALSE(isVisible());
    const RecorderPtr elsewhere(new CRecordingWidget("d", 20, 20, 5, 5));
    EXPECT_TRUE(Widgets().IsVisible(elsewhere.Get())) << "not on the stage: nothing is above it";
}

TEST_F(WidgetManagerTest, WalksGoFromTheBackToTheFront)
{
    const auto a = Top("a");
    Child(a, "c");
    Child(a, "d")->Hide();
    Child(a, "e")->Disable();
    Top("b");
    Top("f")->Hide();
    Top("g")->Disable();
    Widgets().BringToFront(a.Get());
    EXPECT_EQ(LogOf([] { Widgets().Idle(); }), "b:Idle a:Idle e:Idle c:Idle g:Key(7) ");
    EXPECT_EQ(LogOf([] { Widgets().UpdateStyle(); }),
              "b:UpdateStyle f:UpdateStyle g:UpdateStyle a:UpdateStyle c:UpdateStyle d:UpdateStyle e:UpdateStyle "
              "g:Key(7) ");
    EXPECT_EQ(LogOf([] { Widgets().UpdateLocalisation(); }),
              "b:UpdateLocalisedText f:UpdateLocalisedText g:UpdateLocalisedText a:UpdateLocalisedText "
              "c:UpdateLocalisedText d:UpdateLocalisedText e:UpdateLocalisedText g:Key(7) ");
}

TEST_F(WidgetManagerTest, ADestroyedWidgetThatIsKeptComesBackWithItsChildren)
{
    const auto panel = AddTopLevel(new CBlock("a", 0, 0, 40, 40, Red));
    const auto child = AddChild(*panel, new CBlock("b", 10, 10, 10, 10, Lime));
    AddChild(*panel, new CBlock("c", 20, 20, 10, 10, Blue))->Hide();
    const GfxTest::CPicture before = FreshPicture();
    EXPECT_EQ(before.At(15, 15), Lime);
    EXPECT_EQ(before.At(25, 25), Red);
    for (const bool isCollected : {false, true, true})
    {
        Widgets().DestroyWidget(panel.Get());
        EXPECT_EQ(FreshPicture().At(15, 15), Black) << "gone at once";
        if (isCollected)
        {
            Widgets().GarbageCollect();
        }
        Widgets().AddWidget(panel);
        Widgets().GarbageCollect();
        EXPECT_EQ(FreshPicture().CountDifferences(before), 0) << isCollected;
        EXPECT_THAT(Widgets().VisibleWidgetNames(), ElementsAre("a"));
        EXPECT_EQ(CountActors(), 1);
    }
    panel->Hide();
    Widgets().DestroyWidget(panel.Get());
    Widgets().AddWidget(panel);
    EXPECT_FALSE(clutter_actor_is_visible(panel->GetActor())) << "as hidden as it was";
    panel->Show();
    panel->DestroyChild(child.Get());
    EXPECT_EQ(FreshPicture().At(15, 15), Red);
    panel->AddChild(child);
    EXPECT_EQ(FreshPicture().CountDifferences(before), 0);
}

TEST_F(WidgetManagerTest, TheActorsOfDeadWidgetsAreFreedByTheCollection)
{
    RecorderPtr top = Top("a");
    gpointer actors[] = {top->GetActor(), Child(top, "b")->GetActor(), Child(top, "c")->GetActor()};
    for (gpointer& actor : actors)
    {
        g_object_add_weak_pointer(G_OBJECT(actor), &actor);
    }
    top->DestroyChild(Widgets().FindWidget("a:c", nullptr));
    EXPECT_EQ(CRecordingWidget::Living().size(), 2U);
    EXPECT_THAT(actors, testing::Each(testing::NotNull()));
    Widgets().GarbageCollect();
    EXPECT_THAT(actors, ElementsAre(testing::NotNull(), testing::NotNull(), testing::IsNull()));
    Widgets().DestroyWidget(top.Get());
    top.Reset();
    EXPECT_EQ(CRecordingWidget::Living().size(), 0U);
    EXPECT_THAT(actors, ElementsAre(testing::NotNull(), testing::NotNull(), testing::IsNull()));
    Widgets().GarbageCollect();
    EXPECT_THAT(actors, testing::Each(testing::IsNull()));
    EXPECT_EQ(CountActors(), 0);
}

} // namespace
