// Widgets that are put here and there at random, also by the handlers and overrides that run meanwhile.

#include "Core/StaticSingleton.h"
#include "Managers/Gfx/GfxManager.h"
#include "Platform/Clutter/Clutter.h"
#include "support/LogGuard.h"
#include "support/StageTest.h"

#include <array>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace
{

using Gfx::Common::CPoint;
using Gfx::Widgets::CWidget;
using GfxTest::WidgetPtr;

/// One that may be anywhere, and lets something happen whenever it is asked for anything.
class CNode : public CWidget
{
public:
    CNode(const std::string& a_name, const std::function<void()>& a_happen)
        : CWidget(a_name, "Node", 0, 0, 10, 10, false), m_happen(a_happen)
    {
    }
    using CWidget::Children;

    bool CanBeChild() override
    {
        m_happen();
        return true;
    }
    void RemoveChild(WidgetPtr a_child) override
    {
        CWidget::RemoveChild(a_child);
        m_happen();
    }
    void ChildVisibilityChanged() override { m_happen(); }
    void NotifyPositionChanged() override { m_happen(); }
    void Invalidate(bool) override { m_happen(); }
    void UpdateStyle() override { m_happen(); }

private:
    const std::function<void()>& m_happen;
};

class WidgetTreeTest : public GfxTest::CStageTest
{
protected:
    WidgetTreeTest()
    {
        for (WidgetPtr& widget : m_held)
        {
            widget = Make();
        }
    }

    ~WidgetTreeTest() override
    {
        m_left = 0;
        for (const WidgetPtr& widget : m_held)
        {
            Destroy(widget);
        }
        Widgets().GarbageCollect();
    }

    /// What it does is the same for the same seed and the same start. Returns what has been done.
    std::string DoSomething(unsigned a_seed)
    {
        m_random.seed(a_seed);
        m_story.clear();
        m_left = 8;
        Operate();
        m_left = 0;
        return m_story;
    }

    /// Empty, or what is wrong with where the widgets and their actors are once the dead ones have been collected.
    static std::string Fault()
    {
        Widgets().GarbageCollect();
        ClutterActor* const stage = Core::Patterns::StaticSingleton<Gfx::Managers::CGfxManager>::ref().GetStage();
        const std::vector<WidgetPtr> widgets = Widgets().TopLevelWidgets();
        if (clutter_actor_get_n_children(stage) != static_cast<int>(widgets.size()))
        {
            return "actors without widgets";
        }
        ClutterActor* actor = clutter_actor_get_first_child(stage);
        for (const WidgetPtr& widget : widgets)
        {
            if (widget->GetActor() != actor)
            {
                return widget->Name() + " isn't where its actor is";
            }
            if (const std::string fault = FaultAt(*widget, nullptr); !fault.empty())
            {
                return fault;
            }
            actor = clutter_actor_get_next_sibling(actor);
        }
        return {};
    }

private:
    using Veto = Core::Functor<bool, CWidget*, bool>;
    using Toggle = Core::Functor<void, CWidget*, bool>;
    using Move = Core::Functor<bool, CWidget*, const CPoint&>;
    using Resize = Core::Functor<bool, CWidget*, int, int>;

    static constexpr int k_deepest = 5;

    static std::string FaultAt(CWidget& a_widget, CWidget* a_parent)
    {
        if (a_widget.Parent() != a_parent)
        {
            return a_widget.Name() + " has another parent";
        }
        for (const WidgetPtr& child : static_cast<CNode&>(a_widget).Children().Widgets())
        {
            if (clutter_actor_get_parent(child->GetActor()) != a_widget.GetActor())
            {
                return child->Name() + " isn't where its actor is";
            }
            if (const std::string fault = FaultAt(*child, &a_widget); !fault.empty())
            {
                return fault;
            }
        }
        return {};
    }

    WidgetPtr Make()
    {
        const WidgetPtr widget(new CNode(std::to_string(m_made++), m_happen));
        widget->SetVisibilityChangedEventHandler(&m_toggled);
        widget->SetSelectedChangedEventHandler(&m_selected);
        widget->SetMoveEventHandler(&m_moved);
        widget->SetResizeEventHandler(&m_resized);
        return widget;
    }

    static void Destroy(const WidgetPtr& a_widget)
    {
        if (CWidget* const parent = a_widget->Parent())
        {
            // What the manager destroys stays in its parent's list.
            parent->DestroyChild(a_widget);
        }
        else
        {
            Widgets().DestroyWidget(a_widget.Get());
        }
    }

    int Chance(int a_count) { return static_cast<int>(m_random() % static_cast<unsigned>(a_count)); }

    WidgetPtr& Any() { return m_held[static_cast<std::size_t>(Chance(static_cast<int>(m_held.size())))]; }

    void Operate()
    {
        if (m_depth == k_deepest || m_left == 0)
        {
            return;
        }
        --m_left;
        ++m_depth;
        WidgetPtr& held = Any();
        // By values, as the operations within may let go of what is held.
        const WidgetPtr one = held;
        const WidgetPtr other = Any();
        const int which = Chance(14);
        m_story += std::string(static_cast<std::size_t>(m_depth), ' ') + std::to_string(which) + ": " + one->Name() +
                   ", " + other->Name() + '\n';
        switch (which)
        {
        case 0:
        case 1: Widgets().AddWidget(one); break;
        case 2:
        case 3:
        case 4: one->AddChild(other); break;
        case 5: Destroy(one); break;
        case 6: one->DestroyChild(other); break;
        case 7:
            Destroy(one);
            held = Make();
            break;
        case 8: Widgets().GarbageCollect(); break;
        case 9: Chance(2) == 0 ? Widgets().BringToFront(one.Get()) : Widgets().SendToBack(one.Get()); break;
        case 10: Widgets().Select(one); break;
        case 11: one->Visible() ? one->Hide() : one->Show(); break;
        case 12: one->Move({Chance(10), Chance(10)}); break;
        default: one->Resize(Chance(10), Chance(10)); break;
        }
        --m_depth;
    }

    bool Agree()
    {
        Operate();
        return Chance(8) != 0;
    }
    bool OnToggled(CWidget*, bool) { return Agree(); }
    void OnSelected(CWidget*, bool) { Operate(); }
    bool OnMoved(CWidget*, const CPoint&) { return Agree(); }
    bool OnResized(CWidget*, int, int) { return Agree(); }

    std::mt19937 m_random;
    int m_depth = 0;
    /// How many operations there may still be, one within the other or not.
    int m_left = 0;
    int m_made = 0;
    std::string m_story;
    std::function<void()> m_happen = [this] { Operate(); };
    Veto::Method<WidgetTreeTest> m_toggled{this, &WidgetTreeTest::OnToggled};
    Toggle::Method<WidgetTreeTest> m_selected{this, &WidgetTreeTest::OnSelected};
    Move::Method<WidgetTreeTest> m_moved{this, &WidgetTreeTest::OnMoved};
    Resize::Method<WidgetTreeTest> m_resized{this, &WidgetTreeTest::OnResized};
    std::array<WidgetPtr, 7> m_held;
};

TEST_F(WidgetTreeTest, ActorsAreWhereTheirWidgetsAre)
{
    // To itself, and to those that are in it.
    GfxTest::ExpectLog("Can't add");
    for (unsigned round = 0; round < 3000; ++round)
    {
        const std::string story = DoSomething(round);
        ASSERT_EQ(Fault(), "") << "in round " << round << ":\n" << story;
    }
}

} // namespace
