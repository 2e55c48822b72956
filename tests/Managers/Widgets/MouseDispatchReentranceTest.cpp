#include "Managers/Widgets/RecordingWidget.h"

#include <clutter/clutter.h>

#include <functional>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace
{

using namespace Gfx::Events;
using Gfx::Widgets::CWidget;
using GfxTest::CRecordingWidget;
using GfxTest::WidgetPtr;

/// Handlers that pull the rug from under the dispatch; the sanitizers watch.
class MouseDispatchReentranceTest : public GfxTest::CRecordingTest
{
protected:
    using Self = CRecordingWidget;

    /// What a handler may do to the widget that it is called for, and to others.
    struct SAction
    {
        const char* name;
        void (*run)(Self&);
    };

    static const std::vector<SAction> k_actions;

    void TearDown() override
    {
        EXPECT_EQ(CleanUp(), 0U);
        CRecordingTest::TearDown();
    }

    static WidgetPtr Find(const std::string& a_path) { return Widgets().FindWidget(a_path, nullptr); }

    /// The pointer by which a widget on the stage is held; empty for one that has left it.
    static WidgetPtr Held(CWidget& a_widget)
    {
        const WidgetPtr found = Find(a_widget.GetName());
        return found.Get() == &a_widget ? found : WidgetPtr();
    }

    static CWidget& TopLevel(CWidget& a_widget) { return a_widget.Parent() ? TopLevel(*a_widget.Parent()) : a_widget; }

    static void Destroy(CWidget& a_widget)
    {
        a_widget.Parent() ? a_widget.Parent()->DestroyChild(&a_widget) : Widgets().DestroyWidget(&a_widget);
    }

    static void Destroy(const std::string& a_path)
    {
        if (const WidgetPtr widget = Find(a_path))
        {
            Destroy(*widget);
        }
    }

    static void DestroySiblings(Self& a_self)
    {
        const CWidget* parent = a_self.Parent();
        for (CRecordingWidget* other : std::set(Self::Living()))
        {
            if (other != &a_self && Self::Living().count(other) != 0 && other->Parent() == parent)
            {
                Destroy(*other);
            }
        }
    }

    static void ForgetAll()
    {
        Widgets().SetMousePointer({});
        for (const WidgetPtr& widget : std::exchange(s_nonClients, {}))
        {
            Widgets().DeregisterForNonClientHitEvents(widget);
        }
    }

    static void AddTwo(Self& a_self)
    {
        const WidgetPtr self = Held(a_self);
        if (self && Self::Living().size() < 20)
        {
            Child(self, "n", 0, 0, 20, 20);
            Top("t", 0, 0, 300, 300);
        }
    }

    static void MoveToAnotherParent(Self& a_self)
    {
        const WidgetPtr self = Held(a_self);
        const WidgetPtr upper = Find("u");
        if (self && self->Parent())
        {
            Widgets().AddWidget(self);
        }
        else if (self && upper && self != upper)
        {
            upper->AddChild(self);
        }
    }

    static void Click(Self& a_self)
    {
        static int s_nesting = 0;
        const Gfx::Common::CPoint point = a_self.AbsoluteTopLeft();
        for (const EMouseEvent event : {FirstDown, ThirdDown, Move, FirstUp, ThirdUp})
        {
            if (s_nesting < 2)
            {
                ++s_nesting;
                Widgets().MouseEvent(event, 1, point, false);
                --s_nesting;
            }
        }
    }

    /// Two top-level widgets and a mouse pointer; the lower one has two children, and one of those a child.
    static void AddWidgets(bool a_withNonClients)
    {
        const WidgetPtr panel = Top("p", 0, 0, 200, 200);
        const WidgetPtr button = Child(panel, "a", 10, 10, 50, 50);
        Child(Child(panel, "b", 70, 10, 50, 50), "c", 10, 10, 30, 30);
        const WidgetPtr upper = Top("u", 150, 100, 100, 100);
        Widgets().SetMousePointer(Top("m", 0, 0, 1, 1, 0));
        for (CRecordingWidget* widget : Self::Living())
        {
            widget->draggable = true;
        }
        s_nonClients = a_withNonClients ? std::vector{button, upper} : std::vector<WidgetPtr>();
        for (const WidgetPtr& widget : s_nonClients)
        {
            Widgets().RegisterForNonClientHitEvents(widget);
        }
    }

    /// Runs an operation once, at the a_time-th call of some kind, on any widget or on that with a name.
    static void At(const std::string& a_widget, const std::string& a_call, const std::function<void(Self&)>& a_run,
                   int a_time = 1)
    {
        s_calls = 0;
        Self::s_hook = [=](Self& a_self, const std::string& a_received)
        {
            if ((a_widget.empty() || a_self.Name() == a_widget) &&
                a_received.substr(0, a_received.find('(')) == a_call && ++s_calls == a_time)
            {
                a_run(a_self);
            }
        };
    }

    /// Takes all away; how many objects live in spite of that.
    static std::size_t CleanUp()
    {
        Self::s_hook = nullptr;
        ForgetAll();
        DestroyAll();
        Widgets().GarbageCollect();
        return Self::Living().size();
    }

    static inline std::vector<WidgetPtr> s_nonClients;
    static inline int s_calls = 0;
};

const std::vector<MouseDispatchReentranceTest::SAction> MouseDispatchReentranceTest::k_actions{
    {"nothing", [](Self&) {}},
    {"destroy it", [](Self& a_self) { Destroy(a_self); }},
    {"destroy it behind its parent's back", [](Self& a_self) { Widgets().DestroyWidget(&a_self); }},
    {"destroy its parent", [](Self& a_self) { Destroy(a_self.Parent() ? *a_self.Parent() : a_self); }},
    {"destroy its top level", [](Self& a_self) { Destroy(TopLevel(a_self)); }},
    {"remove its children", [](Self& a_self) { a_self.RemoveAllChildren(); }},
    {"destroy its siblings", DestroySiblings},
    {"destroy all", [](Self&) { DestroyAll(); }},
    {"destroy and collect all", [](Self&) { ForgetAll(), DestroyAll(), Widgets().GarbageCollect(); }},
    {"forget all", [](Self&) { ForgetAll(); }},
    {"collect", [](Self&) { Widgets().GarbageCollect(); }},
    {"add widgets", AddTwo},
    {"move it to another parent", MoveToAnotherParent},
    {"raise", [](Self& a_self) { TopLevel(a_self).BringToFront(); }},
    {"lower", [](Self& a_self) { a_self.SendToBack(); }},
    {"hide", [](Self& a_self) { a_self.Hide(); }},
    {"disable", [](Self& a_self) { TopLevel(a_self).Disable(); }},
    {"make modal", [](Self& a_self) { TopLevel(a_self).Modal(true); }},
    {"select", [](Self&) { Widgets().Select(Find("p:b:c")); }},
    {"click", Click},
};

TEST_F(MouseDispatchReentranceTest, AHandlerMayDoAnythingAtAnyCall)
{
    for (const std::string call :
         {"Select",         "Deselect",    "FirstDown", "FirstUp", "FirstClick",  "ThirdDown",          "ThirdUp",
          "ThirdClick",     "Move",        "Leave",     "Enter",   "SecondDown",  "NonClientHit",       "StartDragging",
          "UpdateDragging", "EndDragging", "Key",       "Idle",    "UpdateStyle", "UpdateLocalisedText"})
    {
        for (const SAction& action : k_actions)
        {
            // The first time is on another widget than the second, and so on.
            for (int time = 1; time <= 3; ++time)
            {
                SCOPED_TRACE(std::string(action.name) + " at " + call + ", time " + std::to_string(time));
                AddWidgets(call == "NonClientHit");
                At("", call, action.run, time);
                Play({{FirstDown, 20, 20}, {Move, 90, 30}, {Move, 20, 20}, {FirstUp, 20, 20}, {ThirdDown, 90, 30}});
                Play({{SecondDown, 160, 110}, {Move, 400, 400}, {ThirdUp, 90, 30}, {FirstDown, 160, 110}});
                Play({{FirstUp, 400, 400}, {FirstDown, 5, 5}});
                Widgets().KeyboardEvent(1);
                Widgets().Idle();
                Widgets().UpdateStyle();
                Widgets().UpdateLocalisation();
                Play({{FirstUp, 5, 5}});
                EXPECT_GE(s_calls, 1);
                if (time == 1)
                {
                    Settle();
                }
                EXPECT_EQ(CleanUp(), 0U);
            }
        }
    }
}

TEST_F(MouseDispatchReentranceTest, RandomHandlersLeaveNothingBehind)
{
    std::mt19937 random;
    const auto upTo = [&random](int a_number) { return std::uniform_int_distribution<int>(0, a_number)(random); };
    for (unsigned int seed = 0; seed < 1000; ++seed)
    {
        random.seed(seed);
        AddWidgets(upTo(1) == 0);
        int nesting = 0;
        Self::s_hook = [&](Self& a_widget, const std::string&)
        {
            if (nesting < 3 && upTo(11) == 0)
            {
                ++nesting;
                k_actions[static_cast<std::size_t>(upTo(static_cast<int>(k_actions.size()) - 1))].run(a_widget);
                --nesting;
            }
        };
        for (int step = 0; step < 60; ++step)
        {
            Play({{static_cast<EMouseEvent>(upTo(13)), upTo(260), upTo(220)}});
            upTo(9) == 0 ? Widgets().Idle() : Widgets().KeyboardEvent(1);
        }
        EXPECT_EQ(CleanUp(), 0U) << "seed " << seed;
        EXPECT_FALSE(Widgets().DraggingInProgress());
    }
}

TEST_F(MouseDispatchReentranceTest, AWidgetThatDestroysItselfWhenPressedLivesUntilTheRelease)
{
    ClutterActor* const actor = Top("w", 10, 10, 50, 50)->GetActor();
    gpointer weak = actor;
    g_object_add_weak_pointer(G_OBJECT(actor), &weak);
    At("w", "FirstDown", [](Self& a_self) { Destroy(a_self); });
    EXPECT_EQ(Play({{FirstDown, 15, 15}}), "w:FirstDown(1;5,5) ");
    Widgets().GarbageCollect();
    EXPECT_EQ(clutter_actor_get_parent(actor), nullptr) << "off the stage, whatever becomes of the object";
    EXPECT_EQ(Play({{Move, 15, 15}}), "w:Leave(1;5,5) ") << "it isn't hovered any more, but pressed";
    EXPECT_EQ(Self::Living().size(), 1U);
    EXPECT_EQ(Play({{FirstUp, 15, 15}}), "");
    EXPECT_EQ(Self::Living().size(), 0U);
    EXPECT_EQ(weak, nullptr);
}

TEST_F(MouseDispatchReentranceTest, TheStepsAfterADestructionStillRun)
{
    const struct
    {
        const char* widget;
        const char* call;
        const char* destroyed;
        /// What follows, in a click of the first and one of the third button on "a".
        const char* log;
    } cases[] = {
        {"u", "Deselect", "u",
         "a:Select p:Select a:FirstDown(1;0,0) a:FirstUp(1;0,0) u:NonClientHit(0;10,10) a:FirstClick(1;0,0) "
         "a:ThirdDown(1;0,0) a:ThirdUp(1;0,0) a:ThirdClick(1;0,0) u:NonClientHit(0;10,10) "},
        {"a", "FirstDown", "p", "u:Select u:NonClientHit(0;10,10) "},
        {"a", "FirstUp", "p:a",
         "p:ThirdDown(1;10,10) p:ThirdUp(1;10,10) p:ThirdClick(1;10,10) u:NonClientHit(0;10,10) "},
        {"u", "NonClientHit", "p", "u:Select a:FirstClick(1;0,0) "},
        {"a", "FirstClick", "p", "u:Select "},
        {"a", "ThirdClick", "p", "u:Select u:NonClientHit(0;10,10) "},
    };
    for (const auto& testCase : cases)
    {
        Child(Top("p", 0, 0, 100, 100), "a", 10, 10, 50, 50);
        s_nonClients = {Top("u", 200, 200, 50, 50)};
        Widgets().RegisterForNonClientHitEvents(s_nonClients.front());
        At(testCase.widget, testCase.call, [&testCase](Self&) { Self::TakeLog(), Destroy(testCase.destroyed); });
        EXPECT_EQ(Play({{FirstDown, 10, 10}, {FirstUp, 10, 10}, {ThirdDown, 10, 10}, {ThirdUp, 10, 10}}), testCase.log)
            << testCase.widget << ' ' << testCase.call;
        EXPECT_EQ(CleanUp(), 0U);
    }
}

TEST_F(MouseDispatchReentranceTest, TheModalWidgetLivesToTheEndOfTheEvent)
{
    AddWidgets(false);
    Find("p")->Modal(true);
    std::size_t living = 0;
    Self::s_hook = [&living](Self& a_self, const std::string&)
    {
        if (a_self.Name() == "a")
        {
            Destroy("p");
        }
        living = Self::Living().size();
    };
    Play({{Move, 20, 20}});
    EXPECT_EQ(living, 6U) << "as the mouse pointer saw it";
}

TEST_F(MouseDispatchReentranceTest, WalksGoOnWithTheWidgetsThatRemain)
{
    const struct
    {
        const char* change;
        std::function<void(Self&)> run;
        const char* log;
    } cases[] = {
        {"x destroyed", [](Self&) { Destroy("x"); }, "x:Idle y:Idle d:Idle c:Idle z:Idle "},
        {"y destroyed", [](Self&) { Destroy("y"); }, "x:Idle y:Idle d:Idle c:Idle z:Idle "},
        {"z destroyed", [](Self&) { Destroy("z"); }, "x:Idle y:Idle y:Select d:Idle c:Idle "},
        {"c destroyed", [](Self&) { Destroy("y:c"); }, "x:Idle y:Idle d:Idle z:Idle "},
        {"d destroyed", [](Self&) { Destroy("y:d"); }, "x:Idle y:Idle c:Idle z:Idle "},
        {"y lowered", [](Self&) { Find("y")->SendToBack(); }, "x:Idle y:Idle d:Idle c:Idle z:Idle "},
        {"z lowered", [](Self&) { Find("z")->SendToBack(); }, "x:Idle y:Idle d:Idle c:Idle "},
        {"c raised", [](Self&) { Find("y:c")->BringToFront(); }, "x:Idle y:Idle c:Idle d:Idle z:Idle "},
    };
    for (const auto& [change, run, log] : cases)
    {
        Top("x");
        Top("y");
        Child(Find("y"), "c");
        Child(Find("y"), "d");
        Top("z");
        Self::TakeLog();
        At("y", "Idle", run);
        Widgets().Idle();
        EXPECT_EQ(Self::TakeLog(), log) << change;
        EXPECT_EQ(CleanUp(), 0U);
    }
}

TEST_F(MouseDispatchReentranceTest, AKeyboardCallbackMayReplaceItselfAndDestroyTheReceiver)
{
    using Callback = Core::Functor<bool, unsigned int>;
    Top("x");
    std::string log;
    Widgets().SetKeyboardEventCallback(Callback::Make(
        [&log, text = std::string("a text that isn't short enough for small things")](unsigned int)
        {
            Widgets().SetKeyboardEventCallback(Callback::Make([](unsigned int a_key) { return a_key != 2; }));
            Destroy("x");
            log += text;
            return true;
        }));
    Self::TakeLog();
    Widgets().KeyboardEvent(2);
    EXPECT_EQ(log, "a text that isn't short enough for small things");
    EXPECT_EQ(Self::TakeLog(), "");
    Top("x");
    At("x", "Key", [](Self& a_self) { Self::TakeLog(), Destroy(a_self); });
    for (const unsigned int key : {2U, 3U, 4U})
    {
        Widgets().KeyboardEvent(key);
    }
    EXPECT_EQ(Self::TakeLog(), "");
    EXPECT_EQ(s_calls, 1);
}

} // namespace
