#include "Managers/Gfx/GfxManager.h"

#include "Managers/Widgets/RecordingWidget.h"

#include <clutter/clutter.h>
#include <gmock/gmock.h>

#include <functional>
#include <list>
#include <memory>

namespace
{

using Core::Patterns::StaticSingleton;
using Gfx::Managers::CGfxManager;
using GfxTest::CRecordingWidget;
using Handler = CGfxManager::IdleHandler;

/// Handlers write their runs into a log as "name ", and their ends as "~name ".
class IdleHandlerTest : public testing::Test
{
protected:
    /// A handler that isn't registered.
    Handler* Make(
        const std::string& a_name, const std::function<void()>& a_work = [] {},
        const std::function<void()>& a_atEnd = [] {})
    {
        const std::shared_ptr<void> life(nullptr,
                                         [this, a_name, a_atEnd](void*)
                                         {
                                             m_log += '~' + a_name + ' ';
                                             a_atEnd();
                                         });
        return Core::Functor<void>::Make(
            [this, a_name, a_work, life]
            {
                m_log += a_name + ' ';
                a_work();
            });
    }

    Handler* Add(Handler* a_handler)
    {
        gfx.AddIdleHandler(a_handler);
        m_added.push_back(a_handler);
        return a_handler;
    }

    void Remove(Handler* a_handler)
    {
        gfx.RemoveIdleHandler(a_handler);
        m_added.remove(a_handler);
    }

    std::string Round()
    {
        m_log.clear();
        gfx.Idle();
        return m_log;
    }

    /// The manager leaves handlers that are still registered to their makers.
    void TearDown() override
    {
        for (Handler* handler : m_added)
        {
            delete handler;
        }
    }

    CGfxManager gfx;

private:
    std::string m_log;
    std::list<Handler*> m_added;
};

TEST_F(IdleHandlerTest, HandlersRunInOrderOnceForEachRoundTheOnesAddedInItIncluded)
{
    bool added = false;
    Handler* first = Add(Make("first",
                              [&]
                              {
                                  if (!std::exchange(added, true))
                                  {
                                      Add(Make("late"));
                                  }
                              }));
    Add(Make("second"));
    gfx.AddIdleHandler(first);
    gfx.AddIdleHandler(nullptr);
    EXPECT_EQ(Round(), "first second late ");
    EXPECT_EQ(Round(), "first second late ");
}

TEST_F(IdleHandlerTest, ARemovedHandlerRunsOnceMoreAndDiesAtTheEndOfTheRound)
{
    Handler* removed = Add(Make("removed"));
    Add(Make("last"));
    Remove(removed);
    Remove(removed);
    gfx.AddIdleHandler(removed);
    EXPECT_EQ(Round(), "removed last ~removed ");
    EXPECT_EQ(Round(), "last ");
}

TEST_F(IdleHandlerTest, AHandlerMayRemoveItselfAndAnother)
{
    Handler* self = nullptr;
    Handler* other = nullptr;
    const auto removeBoth = [&]
    {
        Remove(self);
        Remove(other);
    };
    self = Add(Make("self", removeBoth));
    other = Add(Make("other"));
    Add(Make("last"));
    EXPECT_EQ(Round(), "self other last ~self ~other ");
    EXPECT_EQ(Round(), "last ");

    self = Add(Make(
        "dying", [] {}, removeBoth));
    other = Add(Make("other"));
    Remove(self);
    EXPECT_EQ(Round(), "last dying other ~dying ~other ") << "by its destructor";
    EXPECT_EQ(Round(), "last ");
}

TEST_F(IdleHandlerTest, AHandlerThatWasNeverAddedDiesWithoutARun)
{
    gfx.RemoveIdleHandler(Make("stranger"));
    gfx.RemoveIdleHandler(nullptr);
    Add(Make("known"));
    EXPECT_EQ(Round(), "known ~stranger ");
    EXPECT_EQ(Round(), "known ");
}

using GfxManagerTest = GfxTest::CRecordingTest;

TEST_F(GfxManagerTest, TheStageIsAsItWasAskedFor)
{
    EXPECT_EQ(CGfxManager().GetStage(), nullptr);
    CGfxManager& gfx = StaticSingleton<CGfxManager>::ref();
    EXPECT_EQ(gfx.DisplayWidth(), k_width);
    EXPECT_EQ(gfx.DisplayHeight(), k_height);
    gfx.Destroy();
    EXPECT_EQ(gfx.GetStage(), clutter_stage_get_default());
}

TEST_F(GfxManagerTest, AnInjectedEventCarriesTheButtonItIsAbout)
{
    const auto widget = Top("w", 0, 0, k_width, k_height);
    constexpr int k_buttons[] = {0, 0, 0, 0, 1, 1, 1, 2, 2, 2, 4, 4, 4, 0};
    for (int i = 0; i < static_cast<int>(std::size(k_buttons)); ++i)
    {
        const auto event = static_cast<Gfx::Events::EMouseEvent>(i);
        const bool remote = i % 2 == 0;
        CRecordingWidget::TakeLog();
        StaticSingleton<CGfxManager>::ref().InjectMouseEvent(event, 20 + i, 40, remote);
        // A click may follow.
        EXPECT_THAT(CRecordingWidget::TakeLog(),
                    testing::StartsWith("w:" + CRecordingWidget::Describe(event, k_buttons[i], {20 + i, 40}, remote)));
    }
}

TEST_F(GfxManagerTest, AHandlerMayRemoveItselfAndRunARoundOfItsOwn)
{
    CGfxManager& gfx = StaticSingleton<CGfxManager>::ref();
    int calls = 0;
    Core::Functor<void>::Signature* handler = nullptr;
    handler = Core::Functor<void>::Make(
        [&, marker = std::make_shared<int>(7)]
        {
            gfx.RemoveIdleHandler(handler);
            if (++calls < 3)
            {
                gfx.Idle();
            }
            // Reads what dies with the handler.
            EXPECT_EQ(*marker, 7);
        });
    gfx.AddIdleHandler(handler);
    gfx.Idle();
    EXPECT_EQ(calls, 3);
    gfx.Idle();
    EXPECT_EQ(calls, 3);
}

} // namespace
