#include "Widgets/Controls/3DFrame/3DFrame.h"

#include "Core/IO/XMLDocument.h"
#include "Gfx/3D/TexturedEntity.h"
#include "Gfx/Common/Drawing.h"
#include "Layout/Frame3DElement.h"
#include "Managers/Layout/LayoutManager.h"
#include "Widgets/Controls/Label/Label.h"
#include "Widgets/Controls/Panel/Panel.h"
#include "Widgets/Controls/Window/Window.h"
#include "support/SceneTest.h"

#include <GL/gl.h>

#include <array>
#include <functional>
#include <limits>
#include <memory>
#include <random>

namespace
{

using namespace Gfx::Colours;
using Gfx::C3DEntity;
using Gfx::CColour;
using Gfx::Common::CAABB;
using Gfx::Common::CPoint;
using Gfx::Widgets::C3DFrame;
using Gfx::Widgets::CLabel;
using Gfx::Widgets::CPanel;
using Gfx::Widgets::CWidget;
using Gfx::Widgets::CWindow;
using GfxTest::CBlock;
using GfxTest::CPicture;
using GfxTest::RectangleEntity;
using GfxTest::WidgetPtr;
using EntityPtr = C3DFrame::EntityPtr;
using Vector3f = C3DFrame::Vector3f;

constexpr float k_nan = std::numeric_limits<float>::quiet_NaN();
constexpr float k_infinity = std::numeric_limits<float>::infinity();

/// Draws, and dies, as the functions say.
class CDrawnEntity : public C3DEntity
{
public:
    explicit CDrawnEntity(std::function<void()> a_draw, std::function<void()> a_die = nullptr)
        : C3DEntity("drawn", GfxTest::Rectangle(1, 1)), m_draw(std::move(a_draw)), m_die(std::move(a_die))
    {
    }
    ~CDrawnEntity() override
    {
        if (m_die)
        {
            m_die();
        }
    }
    void DrawGeometry() override { m_draw(); }

private:
    std::function<void()> m_draw;
    std::function<void()> m_die;
};

class Frame3DTest : public GfxTest::CControlTest
{
protected:
    static void SetUpTestSuite()
    {
        CControlTest::SetUpTestSuite();
        WaitForClippedRedraws();
    }

    /// A frame that is all of one colour, with more to draw beyond all of its edges, and lines along them.
    static WidgetPtr FullFrame(const CAABB& a_box, const CColour& a_colour)
    {
        auto* const frame = new C3DFrame("view", a_box.Left(), a_box.Top(), a_box.Width(), a_box.Height(), true);
        frame->AddEntity(RectangleEntity(a_colour, 1000, 1000, -5));
        const auto edges = Gfx::MakeGeometry(
            {}, {{-15, -15, 0}, {15, -15, 0}, {15, 15, 0}, {-15, 15, 0}, {-15, -15, 0}}, 15, Gfx::egtLineStrip);
        const EntityPtr lines(new Gfx::CSingleColouredEntity("lines", a_colour, edges));
        lines->SetLineWidth(9);
        frame->AddEntity(lines);
        const EntityPtr glass = RectangleEntity(a_colour, 1000, 1000);
        glass->SetAlpha(0.5F);
        frame->AddEntity(glass);
        return WidgetPtr(frame);
    }

    static WidgetPtr Block(const CAABB& a_box, const CColour& a_colour)
    {
        return WidgetPtr(new CBlock("view", a_box.Left(), a_box.Top(), a_box.Width(), a_box.Height(), a_colour));
    }
};

using Factory = std::function<WidgetPtr(const CAABB&, const CColour&)>;
using Step = std::function<void()>;
using Steps = std::vector<Step>;

/// A screen with a view in it, made by a factory, and what happens to it, step by step.
class Frame3DSurroundingsTest : public Frame3DTest
{
protected:
    static Step Move(const WidgetPtr& a_widget, int a_x, int a_y)
    {
        return [=] { a_widget->Move({a_x, a_y}); };
    }
    static Step Resize(const WidgetPtr& a_widget, int a_width, int a_height)
    {
        return [=] { a_widget->Resize(a_width, a_height); };
    }
    /// One of the operations that need nothing but the widget.
    static Step Do(const WidgetPtr& a_widget, void (CWidget::*a_operation)())
    {
        return [=] { (a_widget.Get()->*a_operation)(); };
    }
    static Step Invalidate(const WidgetPtr& a_widget)
    {
        return [=] { a_widget->Invalidate(false); };
    }

    static Steps ThatChanges(const Factory& a_make)
    {
        const WidgetPtr view = a_make({100, 60, 200, 120}, SteelBlue);
        AddToStage(view);
        const auto above = AddTopLevel(new CBlock("above", 150, 100, 60, 60, Gold));
        above->SetTransparency(50, false);
        return {Move(view, -50, -40),     Move(view, 700, 430),
                Resize(view, 60, 30),     Resize(view, 0, 0),
                Move(view, 300, 100),     Resize(view, 150, 150),
                Do(view, &CWidget::Hide), Do(view, &CWidget::Show),
                Move(above, 350, 140),    Do(view, &CWidget::BringToFront)};
    }

    static Steps WithinOthersThatMove(const Factory& a_make)
    {
        const auto outer = AddTopLevel(new CBlock("outer", 50, 50, 400, 300, Maroon));
        const auto inner = AddChild(*outer, new CBlock("inner", 30, 30, 300, 200, Teal));
        inner->AddChild(a_make({20, 20, 120, 90}, Gold));
        return {Move(outer, 200, 100), Move(inner, -20, 60), Do(outer, &CWidget::Hide), Do(outer, &CWidget::Show)};
    }

    static Steps InAScrolledPanel(const Factory& a_make)
    {
        const auto panel = AddTopLevel(new CPanel("panel", 100, 50, 400, 200, true, true));
        const WidgetPtr view = a_make({20, 120, 200, 150}, Orchid);
        panel->AddChild(view);
        AddChild(*panel, new CBlock("below", 20, 300, 200, 150, Navy));
        const auto scroll = [bar = Widgets().FindWidget(panel.Get(), {"PanelScrollBar"})](const char* a_current)
        { return [=] { bar->SetProperty("Current", a_current); }; };
        return {scroll("30"), scroll("60"), Invalidate(view), scroll("100"), scroll("10"), Resize(panel, 400, 260)};
    }

    static Steps InADraggedWindow(const Factory& a_make)
    {
        const auto window = AddTopLevel(
            new CWindow("window", 100, 100, 300, 250, false, "Title", CWindow::ewfTitleBar | CWindow::ewfDraggable));
        window->AddChild(a_make({20, 20, 200, 150}, Tomato));
        const auto drag = [=](int a_x, int a_y)
        {
            return [=]
            {
                const CPoint from = window->TopLeft() + CPoint(200, 5);
                const CPoint to = from + CPoint(a_x, a_y);
                Press(from.X(), from.Y());
                MoveTo(to.X(), to.Y());
                Release(to.X(), to.Y());
                EXPECT_EQ(window->TopLeft() + CPoint(200, 5), to);
            };
        };
        return {drag(150, 100), drag(-280, -110)};
    }

    static Steps TwoThatOverlap(const Factory& a_make)
    {
        const WidgetPtr first = a_make({100, 100, 200, 200}, Coral);
        const WidgetPtr second = a_make({200, 150, 200, 200}, Khaki);
        AddToStage(first);
        AddToStage(second);
        return {Invalidate(first), Do(first, &CWidget::BringToFront), Move(second, 50, 50), Invalidate(second)};
    }

    /// What is shown after each step, each of which something else changes in, too.
    std::vector<CPicture> Pictures(Steps (*a_arrangement)(const Factory&), const Factory& a_make)
    {
        AddTopLevel(new CBlock("behind", 0, 0, k_width, k_height, SlateGray));
        AddTopLevel(
            new CLabel("text", 80, 40, 500, 40, false, false, false, "Text, which is drawn from a texture", true));
        Steps steps = a_arrangement(a_make);
        const auto counter = AddTopLevel(new CBlock("counter", 600, 400, 20, 20, White));
        AddTopLevel(new CLabel("after", 540, 330, 200, 40, false, false, false, "More text", true));
        steps.insert(steps.begin(), [] {});
        std::vector<CPicture> pictures;
        for (const auto& step : steps)
        {
            step();
            counter->Move(counter->TopLeft() + CPoint(5, 0));
            Settle();
            pictures.push_back(ShownPicture());
            EXPECT_EQ(pictures.back().CountDifferences(FreshPicture()), 0) << "after step " << pictures.size() - 1;
        }
        TearDown();
        return pictures;
    }
};

TEST_F(Frame3DSurroundingsTest, AFrameFillsItsRectangleAndLeavesEverythingElseAlone)
{
    const struct
    {
        const char* name;
        Steps (*arrangement)(const Factory&);
    } rows[] = {{"changes itself", ThatChanges},
                {"within others", WithinOthersThatMove},
                {"in a panel", InAScrolledPanel},
                {"in a window", InADraggedWindow},
                {"two of them", TwoThatOverlap}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.name);
        const std::vector<CPicture> blocks = Pictures(row.arrangement, Block);
        const std::vector<CPicture> frames = Pictures(row.arrangement, FullFrame);
        for (std::size_t step = 0; step < blocks.size(); ++step)
        {
            EXPECT_EQ(frames[step].CountDifferences(blocks[step]), 0) << "a frame and a block at step " << step;
        }
    }
}

TEST_F(Frame3DTest, EntitiesThatMoveAreRepaintedWithinTheFrame)
{
    AddTopLevel(new CBlock("behind", 0, 0, k_width, k_height, SlateGray));
    const auto frame = AddTopLevel(new C3DFrame("view", 100, 100, 300, 300, true));
    const EntityPtr red = RectangleEntity(Red, 4, 4);
    const EntityPtr lime = RectangleEntity(Lime, 3, 3, -2);
    frame->AddEntity(red);
    frame->AddEntity(lime);
    EXPECT_EQ(ShownExtent(Red), "210,210 80 x 80");
    EXPECT_EQ(ShownPicture().Count(Lime), 0) << "it lies behind";
    for (int step = 0; step < 12; ++step)
    {
        red->SetPosition({static_cast<float>(step), 0, 0});
        lime->SetRotationDegrees({0, 1, 1}, static_cast<float>(30 * step));
        frame->Camera_LookAt({0, 0, 0}, static_cast<float>(3 * step), 90, 15);
        Settle();
        const CPicture shown = ShownPicture();
        ASSERT_EQ(shown.CountDifferences(FreshPicture()), 0) << step;
    }
    frame->RemoveEntity(red);
    frame->RemoveEntity(lime);
    EXPECT_EQ(ShownExtent(SlateGray), "0,0 800 x 480");
    EXPECT_EQ(Settle(), 0);
}

TEST_F(Frame3DTest, OnlyWhatChangesTheSceneRedrawsIt)
{
    const auto frame = AddTopLevel(new C3DFrame("view", 100, 100, 300, 300, true));
    const EntityPtr entity = RectangleEntity(Red, 4, 4);
    frame->AddEntity(entity);
    Settle();
    frame->AddEntity(entity);
    frame->AddEntity({});
    frame->RemoveEntity(RectangleEntity(Red, 4, 4));
    frame->RemoveEntity({});
    frame->SetViewPerspective(30, 100, 1);
    frame->DepthFunction(GL_ALWAYS);
    EXPECT_EQ(Settle(), 0);
    frame->Camera_LookAt({0, 0, 15}, {0, 0, 0});
    EXPECT_GT(Settle(), 0);
    // tan 45 / tan 30 times as large.
    EXPECT_EQ(ShownExtent(Red), "181,181 138 x 138");
    frame->Resize(150, 300);
    EXPECT_EQ(ShownExtent(Red), "140,181 70 x 138") << "the aspect is that of the old size";
}

TEST_F(Frame3DTest, ALayoutHearsOfHits)
{
    using Core::IO::XMLDocument;
    XMLDocument document;
    ASSERT_TRUE(
        document.ParseText("<Frame3D id='scene' x='0' y='180' width='300' height='300'><Events>"
                           "<EntityHit><SetFlag id='hit' value='LastEntityHit'/></EntityHit></Events></Frame3D>",
                           "frame"));
    Gfx::Layout::C3DFrameElement element;
    ASSERT_EQ(element.Process(nullptr, document.RootNode()->Children().front()), &element);
    const auto frame = element.Widget().StaticCast<C3DFrame>();
    EXPECT_TRUE(frame->Picking());
    frame->AddEntity(RectangleEntity(Red, 4, 4, 0, "pump"));
    Widgets().AddWidget(frame);
    Click(150, 330);
    EXPECT_EQ(Core::Patterns::StaticSingleton<Gfx::Managers::CLayoutManager>::ref().GetFlag("hit"), "pump");
    Widgets().DestroyWidget(frame.Get());
}

TEST_F(Frame3DTest, ATouchPicksTheNearestSphere)
{
    // In the display's bottom left corner.
    const auto frame = AddTopLevel(new C3DFrame("view", 0, 180, 300, 300, true));
    const EntityPtr far = RectangleEntity(Red, 4, 4, 0, "far");
    const EntityPtr near = RectangleEntity(Lime, 1, 1, 0, "near");
    near->SetPosition({0, 0, 6});
    near->Hide();
    frame->AddEntity(far);
    frame->AddEntity(near);
    const EntityPtr twin = RectangleEntity(Lime, 1, 1, 0, "twin");
    twin->SetPosition({0, 0, 6});
    frame->AddEntity(twin);
    std::string told;
    using Hit = Core::Functor<void, CWidget*, EntityPtr>;
    const std::unique_ptr<C3DFrame::EntityHitHandler> handler(Hit::Make(
        [&](CWidget* a_frame, EntityPtr a_entity) { told += a_frame->Name() + ':' + a_entity->Name() + ' '; }));
    frame->SetEntityHitEventHandler(handler.get());

    Click(150, 330);
    EXPECT_EQ(frame->GetProperty("LastEntityHit", ""), "near");
    Press(150, 330);
    EXPECT_EQ(told, "view:near ") << "a press is no click";
    Release(180, 330);
    EXPECT_EQ(frame->LastEntityHit(), "far");
    Click(150, 290);
    EXPECT_EQ(frame->LastEntityHit(), "far");
    Click(20, 200);
    EXPECT_EQ(frame->LastEntityHit(), "");
    EXPECT_EQ(told, "view:near view:far view:far ");

    Click(150, 330);
    frame->SetProperty("Picking", "true");
    EXPECT_EQ(frame->LastEntityHit(), "");
    Click(150, 330);
    EXPECT_EQ(frame->LastEntityHit(), "");
    EXPECT_EQ(frame->EntityAt({150, 150}), near);

    // Elsewhere on the display the touch counts as one that is that much nearer to the bottom left corner.
    frame->Picking(true);
    frame->Move({100, 130});
    frame->NotifyPositionChanged();
    Click(250, 280);
    EXPECT_EQ(frame->LastEntityHit(), "");
    Click(350, 230);
    EXPECT_EQ(frame->LastEntityHit(), "near");
    EXPECT_EQ(frame->EntityAt({150, 150}), near);
    EXPECT_EQ(frame->EntityAt({250, 100}), EntityPtr());
    frame->Move({0, 180});
    frame->UpdateViewport();
    Click(150, 330);
    EXPECT_EQ(frame->LastEntityHit(), "near");
}

TEST_F(Frame3DTest, EntitiesMayChangeTheFrameWhileItDraws)
{
    const auto frame = AddTopLevel(new C3DFrame("view", 0, 0, 300, 300, true));
    int draws = 0;
    EntityPtr self(new CDrawnEntity(
        [&]
        {
            ++draws;
            frame->RemoveEntity(self);
            self.Reset();
            frame->AddEntity(RectangleEntity(Red, 4, 4));
        }));
    frame->AddEntity(self);
    EXPECT_EQ(ShownExtent(Red), "110,110 80 x 80");
    EXPECT_EQ(draws, 1);
    EXPECT_EQ(frame->EntityAt({150, 150})->Name(), "rectangle");
}

TEST_F(Frame3DTest, EntitiesMayDrawAndDestroyTheFrameWhileItDraws)
{
    const auto painting = AddTopLevel(new C3DFrame("view", 0, 0, 300, 300, true));
    EntityPtr first(new CDrawnEntity(
        [&]
        {
            painting->RemoveEntity(first);
            painting->DrawSelf();
        }));
    painting->AddEntity(first);
    painting->AddEntity(RectangleEntity(Red, 4, 4));
    EXPECT_EQ(ShownExtent(Red), "110,110 80 x 80");

    // As it draws, and as the entity, which nothing else holds, is given up after it has drawn.
    for (const bool isEntityFirst : {false, true})
    {
        Core::SharedPtr<C3DFrame> frame(new C3DFrame("view", 300, 0, 300, 300, true));
        C3DFrame* const plain = frame.Get();
        int deaths = 0;
        const auto destroy = [&]
        {
            Widgets().DestroyWidget(plain);
            frame.Reset();
        };
        EntityPtr entity(new CDrawnEntity(
            [&]
            {
                isEntityFirst ? plain->RemoveEntity(entity) : destroy();
                entity.Reset();
            },
            [&]
            {
                ++deaths;
                if (isEntityFirst)
                {
                    destroy();
                }
            }));
        frame->AddEntity(entity);
        frame->AddEntity(RectangleEntity(Lime, 4, 4));
        frame->AddEntity(RectangleEntity(Lime, 4, 4));
        Widgets().AddWidget(frame);
        Settle();
        EXPECT_EQ(deaths, 1);
        EXPECT_EQ(frame, Core::SharedPtr<C3DFrame>());
        EXPECT_EQ(FreshPicture().Count(Lime), 0);
    }

    const EntityPtr sibling = RectangleEntity(Lime, 4, 4);
    auto* const frame = new C3DFrame("view", 0, 0, 300, 300, true);
    int entities = -1;
    {
        const WidgetPtr widget(frame);
        frame->AddEntity(sibling);
        frame->AddEntity(EntityPtr(new CDrawnEntity([] {},
                                                    [&]
                                                    {
                                                        frame->RemoveEntity(sibling);
                                                        entities = frame->EntityAt({150, 150}) == sibling ? 1 : 0;
                                                    })));
        frame->AddEntity(RectangleEntity(Lime, 4, 4));
    }
    EXPECT_EQ(entities, 0);
    EXPECT_EQ(sibling.Count(), 1U);
}

TEST_F(Frame3DTest, NumbersThatAreNoneStayWithinTheFrame)
{
    AddTopLevel(new CBlock("behind", 0, 0, k_width, k_height, SlateGray));
    const auto frame = AddTopLevel(new C3DFrame("view", 100, 100, 300, 200, true));
    auto* const textured = new Gfx::CTexturedEntity("textured", {}, GfxTest::Rectangle(k_infinity, k_nan));
    textured->DisableTexture();
    const std::array entities{EntityPtr(textured), RectangleEntity(Red, 4, 4), RectangleEntity(Lime, k_nan, 3)};
    for (const EntityPtr& entity : entities)
    {
        frame->AddEntity(entity);
    }
    std::mt19937 engine(85);
    constexpr std::array numbers{0.0F,   1.0F,  -1.0F,    k_nan,   k_infinity, -k_infinity,
                                 1e-40F, 90.0F, -3.4e38F, 3.4e38F, 1e-20F,     -255.0F};
    const auto any = [&] { return numbers[engine() % numbers.size()]; };
    const auto vector = [&] { return Vector3f(any(), any(), any()); };
    for (int round = 0; round < 400; ++round)
    {
        C3DEntity& entity = *entities[engine() % entities.size()];
        entity.SetPosition(vector());
        entity.SetScale(vector());
        entity.SetRotationRadians(vector(), any());
        entity.SetLineWidth(any());
        entity.SetAlpha(any());
        entity.SetColours(round % 3 == 0 ? std::list<CColour>{} : std::list<CColour>{Blue, Red});
        static_cast<void>(entity.Intersects(vector(), vector()));
        switch (engine() % 3)
        {
        case 0: frame->Camera_LookAt(vector(), vector()); break;
        case 1: frame->Camera_LookAt(vector(), any(), any(), any()); break;
        default: frame->Camera_LookFrom(vector(), any(), any(), any());
        }
        frame->SetViewPerspective(any(), any(), any());
        frame->DepthFunction(round % 2 == 0 ? static_cast<int>(engine()) : GL_LESS);
        frame->ShadingModel(static_cast<int>(engine()));
        static_cast<void>(frame->EntityAt({static_cast<int>(engine()), static_cast<int>(engine())}));
        Click(250, 200);
        if (round % 10 == 0)
        {
            Settle();
            const CPicture shown = ShownPicture();
            ASSERT_EQ(shown.CountDifferences(FreshPicture()), 0) << round;
            const int outside = shown.CountIf(
                [&](int a_x, int a_y)
                {
                    const bool isInside = a_x >= 100 && a_x < 400 && a_y >= 100 && a_y < 300;
                    return !isInside && shown.At(a_x, a_y) != SlateGray;
                });
            ASSERT_EQ(outside, 0) << round;
        }
    }
    constexpr int limit = std::numeric_limits<int>::max();
    for (const CAABB& box : {CAABB(0, 0, 0, 0), CAABB(10, 10, -5, 40), CAABB(0, 0, limit, limit),
                             CAABB(limit, -limit, 1, limit), CAABB(-limit, limit, limit, -limit)})
    {
        frame->Move({box.Left(), box.Top()});
        frame->Resize(box.Width(), box.Height());
        frame->SetViewPerspective(45, 825, 1);
        frame->MouseEvent(Gfx::Events::FirstClick, 0, {limit, -limit}, false);
        Settle();
    }
    frame->Hide();
    EXPECT_EQ(ShownExtent(SlateGray), "0,0 800 x 480");
}

} // namespace
