#include "Managers/Widgets/RecordingWidget.h"

#include <algorithm>
#include <iterator>
#include <list>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace
{

using namespace Gfx::Events;
using Gfx::Common::CAABB;
using Gfx::Common::CPoint;
using GfxTest::CRecordingWidget;
using GfxTest::RecorderPtr;

constexpr int k_touchArea = 3;
constexpr int k_touchOffset = 2;

/// A widget that isn't quite where its fields put it.
class CShiftedWidget : public CRecordingWidget
{
public:
    CShiftedWidget(const std::string& a_name, const CPoint& a_shift, int a_margin)
        : CRecordingWidget(a_name, 0, 0, 0, 0), m_shift(a_shift), m_margin(a_margin)
    {
    }
    CPoint AbsoluteTopLeft() const override { return CRecordingWidget::AbsoluteTopLeft() + m_shift; }
    CAABB AABB() const override
    {
        const CPoint corner = AbsoluteTopLeft() - CPoint(m_margin, m_margin);
        return {corner.X(), corner.Y(), Width() + 2 * m_margin, Height() + 2 * m_margin};
    }

private:
    CPoint m_shift;
    int m_margin;
};

/// A widget, its place in the tree, and what has become of it.
struct SNode
{
    SNode* parent = nullptr;
    std::vector<SNode*> children{};
    RecorderPtr widget{};
    CPoint shift{};
    /// Where it is hit beyond its edges.
    int margin = 0;
    bool selected = false;
    bool dragging = false;

    CPoint Corner() const { return widget->TopLeft() + shift + (parent ? parent->Corner() : CPoint()); }
    bool IsDragging() const { return dragging || (parent && parent->IsDragging()); }
    bool IsLive() const { return widget->Visible() && widget->Enabled(); }

    /// How much of the touch it has, in square pixels: 0 if they only touch, less if they are apart.
    int Overlap(const CPoint& a_touch) const
    {
        const auto inCommon = [this](int a_start, int a_length, int a_touchStart)
        {
            return std::min(a_start + a_length + margin, a_touchStart + k_touchArea) -
                   std::max(a_start - margin, a_touchStart);
        };
        const int columns = inCommon(Corner().X(), widget->Width(), a_touch.X());
        const int rows = inCommon(Corner().Y(), widget->Height(), a_touch.Y());
        return columns < 0 || rows < 0 ? -1 : columns * rows;
    }
};

/// What the widget manager is to do, told by what it knows: who is selected, pressed, hovered, dragged.
struct SModel
{
    /// From the bottom of the screen to the top.
    std::vector<SNode*> topLevels{};
    std::vector<SNode*> nonClients{};
    SNode* first = nullptr;
    SNode* third = nullptr;
    SNode* hover = nullptr;
    SNode* dragged = nullptr;
    SNode* selected = nullptr;
    SNode* pointer = nullptr;
    CPoint dragOrigin{};
    std::string log{};

    std::vector<SNode*>& Level(const SNode& a_node) { return a_node.parent ? a_node.parent->children : topLevels; }

    void Record(const SNode& a_node, const std::string& a_call)
    {
        log += CRecordingWidget::Entry(a_node.widget->Name(), a_call);
    }

    void Mark(SNode* a_node, bool a_selected)
    {
        for (; a_node; a_node = a_node->parent)
        {
            a_node->selected = a_selected;
            Record(*a_node, a_selected ? "Select" : "Deselect");
        }
    }

    void MoveSelection(SNode* a_node)
    {
        Mark(selected, false);
        Mark(a_node, true);
        selected = a_node;
    }

    void Select(SNode* a_node)
    {
        if (selected != a_node && a_node->widget->Enabled())
        {
            MoveSelection(a_node);
        }
    }

    void AddTopLevel(SNode& a_node)
    {
        MoveSelection(nullptr);
        Record(a_node, "UpdateStyle");
        MoveSelection(&a_node);
        topLevels.push_back(&a_node);
    }

    void Destroy(SNode& a_node)
    {
        first = third = hover = dragged = selected = nullptr;
        std::erase(Level(a_node), &a_node);
        if (!a_node.parent && a_node.selected && !topLevels.empty())
        {
            MoveSelection(topLevels.back());
        }
    }

    static SNode* Hit(const std::vector<SNode*>& a_level, const CPoint& a_touch)
    {
        SNode* best = nullptr;
        int bestScore = 0;
        for (auto entry = a_level.rbegin(); entry != a_level.rend(); ++entry)
        {
            if ((*entry)->IsLive() && (*entry)->Overlap(a_touch) >= 0)
            {
                SNode* inner = Hit((*entry)->children, a_touch);
                SNode* candidate = inner ? inner : *entry;
                const int score = candidate->Overlap(a_touch) * candidate->widget->MousePriority();
                best = score > bestScore ? candidate : best;
                bestScore = std::max(score, bestScore);
            }
        }
        return best;
    }

    SNode* FindTarget(const CPoint& a_point) const
    {
        const CPoint touch = a_point - CPoint(k_touchArea / 2, k_touchArea / 2 + k_touchOffset);
        const auto modal =
            std::find_if(topLevels.rbegin(), topLevels.rend(),
                         [](const SNode* a_node) { return a_node->widget->Modal() && a_node->IsLive(); });
        if (modal == topLevels.rend())
        {
            return Hit(topLevels, touch);
        }
        SNode* inner = Hit((*modal)->children, touch);
        return (*modal)->Overlap(touch) < 0 ? nullptr : inner ? inner : *modal;
    }

    void Send(SNode* a_node, EMouseEvent a_event, int a_buttons, const CPoint& a_point, bool a_remote)
    {
        if (a_node && !(a_remote && a_node->widget->RemoteLockout()))
        {
            Record(*a_node, CRecordingWidget::Describe(a_event, a_buttons, a_point, a_remote));
        }
    }

    void TellNonClients(const CPoint& a_point)
    {
        for (SNode* node : nonClients)
        {
            const CPoint local = a_point - node->Corner();
            // The bottom edge is inside, the right one isn't.
            const bool isInside = local.X() >= 0 && local.Y() >= 0 && local.X() < node->widget->Width() &&
                                  local.Y() <= node->widget->Height();
            Send(isInside ? nullptr : node, NonClientHit, 0, a_point, false);
        }
    }

    void MouseEvent(EMouseEvent a_event, int a_buttons, const CPoint& a_point, bool a_remote)
    {
        SNode* target = FindTarget(a_point);
        if (dragged && dragged->IsDragging() && a_event == Move)
        {
            Record(*dragged, CRecordingWidget::Describe("UpdateDragging", a_point - dragOrigin));
        }
        else if (dragged && dragged->IsDragging() && a_event == FirstUp)
        {
            Record(*dragged, "EndDragging");
            std::exchange(dragged, nullptr)->dragging = false;
        }
        target ? EventOver(*target, a_event, a_buttons, a_point, a_remote)
               : EventOverNothing(a_event, a_buttons, a_point, a_remote);
        Send(pointer, a_event, a_buttons, a_point, false);
    }

    void EventOver(SNode& a_target, EMouseEvent a_event, int a_buttons, const CPoint& a_point, bool a_remote)
    {
        const CPoint local = a_point - a_target.Corner();
        const auto send = [&](SNode* a_node, EMouseEvent a_sent) { Send(a_node, a_sent, a_buttons, local, a_remote); };
        if (a_event == FirstDown)
        {
            const CRecordingWidget& widget = *a_target.widget;
            if (widget.draggable && !dragged)
            {
                Record(a_target, CRecordingWidget::Describe("StartDragging", local));
                a_target.dragging = widget.acceptsDrag && widget.admitsDrag;
                dragged = widget.acceptsDrag ? &a_target : nullptr;
                dragOrigin = a_point;
            }
            Select(&a_target);
        }
        if (hover != &a_target)
        {
            send(&a_target == first || &a_target == third ? &a_target : nullptr, Enter);
            send(hover, Leave);
            hover = &a_target;
        }
        send(&a_target, a_event);
        if (a_event == FirstDown)
        {
            first = first ? first : &a_target;
        }
        else if (a_event == FirstUp && std::exchange(first, nullptr) == &a_target)
        {
            TellNonClients(a_point);
            send(&a_target, FirstClick);
        }
        else if (a_event == ThirdDown)
        {
            third = third ? third : &a_target;
        }
        else if (a_event == ThirdUp && std::exchange(third, nullptr) == &a_target)
        {
            send(&a_target, ThirdClick);
            TellNonClients(a_point);
        }
    }

    void EventOverNothing(EMouseEvent a_event, int a_buttons, const CPoint& a_point, bool a_remote)
    {
        if (a_event == FirstDown)
        {
            MoveSelection(nullptr);
        }
        else if (a_event == FirstUp)
        {
            TellNonClients(a_point);
            first = nullptr;
        }
        else if (a_event == ThirdUp)
        {
            third = nullptr;
        }
        for (SNode* node : {std::exchange(hover, nullptr), first, third})
        {
            Send(node, Leave, a_buttons, node ? a_point - node->Corner() : a_point, a_remote);
        }
    }
};

class MouseDispatchModelTest : public GfxTest::CRecordingTest
{
protected:
    static void SetUpTestSuite() { SetUpTouch(k_touchArea, k_touchOffset); }

    int Random(int a_low, int a_high) { return std::uniform_int_distribution<int>(a_low, a_high)(m_random); }
    bool OneIn(int a_number) { return Random(1, a_number) == 1; }
    SNode* RandomNode()
    {
        return m_nodes.empty() ? nullptr
                               : &*std::next(m_nodes.begin(), Random(1, static_cast<int>(m_nodes.size())) - 1);
    }

    void Add(SNode* a_parent, int a_depth)
    {
        SNode& node = m_nodes.emplace_back();
        const std::string name = "w" + std::to_string(m_added++);
        node.parent = a_parent;
        if (OneIn(4))
        {
            node.shift = {Random(-9, 9), 5};
            node.margin = Random(0, 9);
            node.widget = RecorderPtr(new CShiftedWidget(name, node.shift, node.margin));
        }
        else
        {
            node.widget = RecorderPtr(new CRecordingWidget(name, 0, 0, 0, 0));
        }
        Change(node);
        if (a_parent)
        {
            a_parent->widget->AddChild(node.widget);
            a_parent->children.push_back(&node);
        }
        else
        {
            Widgets().AddWidget(node.widget);
            m_model.AddTopLevel(node);
        }
        for (int i = a_depth < 4 ? Random(0, 3) : 0; i > 0; --i)
        {
            Add(&node, a_depth + 1);
        }
    }

    /// All that a widget can be set to.
    void Change(const SNode& a_node)
    {
        static constexpr int priorities[] = {-1, 0, 1, 99, 100, 100, 100, 10000};
        CRecordingWidget& widget = *a_node.widget;
        const int greatest = a_node.parent ? 70 : 120;
        widget.Move({Random(-10, 50), Random(-10, 50)});
        widget.Resize(Random(0, greatest), Random(0, greatest));
        widget.MousePriority(priorities[Random(0, 7)]);
        widget.SetShowHide(!OneIn(8));
        OneIn(8) ? widget.Disable() : widget.Enable();
        widget.Modal(OneIn(20));
        widget.RemoteLockout(OneIn(6));
        widget.draggable = !OneIn(3);
        widget.acceptsDrag = !OneIn(5);
        widget.admitsDrag = !OneIn(8);
    }

    void SetNonClient(SNode& a_node, bool a_registered)
    {
        std::erase(m_model.nonClients, &a_node);
        Widgets().DeregisterForNonClientHitEvents(a_node.widget);
        if (a_registered)
        {
            m_model.nonClients.push_back(&a_node);
            Widgets().RegisterForNonClientHitEvents(a_node.widget);
        }
    }

    void SetPointer(SNode* a_node)
    {
        m_model.pointer = a_node;
        Widgets().SetMousePointer(a_node ? a_node->widget : RecorderPtr());
    }

    void Destroy(SNode& a_node)
    {
        m_model.Destroy(a_node);
        a_node.parent ? a_node.parent->widget->DestroyChild(a_node.widget)
                      : Widgets().DestroyWidget(a_node.widget.Get());
        Forget(a_node);
    }

    void Forget(SNode& a_node)
    {
        for (SNode* child : a_node.children)
        {
            Forget(*child);
        }
        SetNonClient(a_node, false);
        if (m_model.pointer == &a_node)
        {
            SetPointer(nullptr);
        }
        m_nodes.remove_if([&a_node](const SNode& a_entry) { return &a_entry == &a_node; });
    }

    void Mutate()
    {
        SNode* node = RandomNode();
        if (!node || OneIn(6))
        {
            Add(OneIn(4) ? nullptr : node, OneIn(3) ? 3 : 4);
            return;
        }
        std::vector<SNode*>& level = m_model.Level(*node);
        switch (Random(0, 7))
        {
        case 0:
            std::erase(level, node);
            level.push_back(node);
            node->widget->BringToFront();
            break;
        case 1:
            std::erase(level, node);
            level.insert(level.begin(), node);
            node->widget->SendToBack();
            break;
        case 2: Destroy(*node); break;
        case 3:
            m_model.Select(node);
            Widgets().Select(node->widget);
            break;
        case 4: SetNonClient(*node, OneIn(2)); break;
        case 5: SetPointer(OneIn(2) && !node->parent ? node : nullptr); break;
        default: Change(*node); break;
        }
    }

    /// Anywhere, or on or beside an edge or a corner of a widget.
    CPoint RandomPoint()
    {
        const SNode* node = RandomNode();
        if (!node || OneIn(5))
        {
            return {Random(-20, 120), Random(-20, 120)};
        }
        const auto place = [this](int a_length)
        { return OneIn(2) ? Random(0, a_length) : Random(-3, 3) + (OneIn(2) ? a_length : 0); };
        return node->Corner() + CPoint(place(node->widget->Width()), place(node->widget->Height()) + k_touchOffset);
    }

    void PlayOneEvent()
    {
        static constexpr EMouseEvent usual[] = {Move, FirstDown, FirstUp, FirstDown, FirstUp, ThirdDown, ThirdUp};
        const EMouseEvent event = OneIn(4) ? static_cast<EMouseEvent>(Random(0, 13)) : usual[Random(0, 6)];
        const int buttons = Random(0, 7);
        // A click needs two events at one place.
        m_point = OneIn(2) ? m_point : RandomPoint();
        const bool remote = OneIn(4);
        m_model.MouseEvent(event, buttons, m_point, remote);
        Widgets().MouseEvent(event, buttons, m_point, remote);
        Widgets().KeyboardEvent(7);
        if (m_model.selected)
        {
            m_model.Record(*m_model.selected, "Key(7)");
        }
    }

    std::mt19937 m_random;
    SModel m_model;
    std::list<SNode> m_nodes;
    int m_added = 0;
    CPoint m_point;
};

TEST_F(MouseDispatchModelTest, AnySequenceOfEventsAndChangesIsToldAsTheModelTellsIt)
{
    std::string all;
    for (unsigned int seed = 0; seed < 400; ++seed)
    {
        m_random.seed(seed);
        for (int i = Random(1, 3); i > 0; --i)
        {
            Add(nullptr, 1);
        }
        for (int step = 0; step < 200; ++step)
        {
            if (OneIn(4))
            {
                Mutate();
            }
            PlayOneEvent();
            ASSERT_EQ(CRecordingWidget::TakeLog(), m_model.log) << "seed " << seed << ", step " << step;
            ASSERT_EQ(Widgets().DraggingInProgress(), m_model.dragged != nullptr)
                << "seed " << seed << ", step " << step;
            for (const SNode& node : m_nodes)
            {
                ASSERT_EQ(node.widget->Selected(), node.selected) << "seed " << seed << ", step " << step;
            }
            all += std::exchange(m_model.log, {});
        }
        while (!m_model.topLevels.empty())
        {
            Destroy(*m_model.topLevels.back());
        }
        Widgets().GarbageCollect();
    }
    for (const std::string call : {"Enter(", "FirstClick(", "ThirdClick(", "UpdateDragging(", "EndDragging "})
    {
        std::size_t number = 0;
        for (std::size_t at = 0; (at = all.find(call, at)) != std::string::npos; ++at)
        {
            ++number;
        }
        EXPECT_GT(number, 500U) << "too little happens: " << call;
    }
}

} // namespace
