#include "Managers/Timers/TimerManager.h"

#include <glib.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>

namespace
{

using Gfx::Managers::CTimerManager;

CTimerManager& Timers()
{
    return CTimerManager::ref();
}

/// Counts its runs, and itself out when it is deleted.
class CCounting : public CTimerManager::Callback
{
public:
    struct SCounts
    {
        int runs = 0;
        int alive = 0;
    };

    CCounting(SCounts& a_counts, std::function<bool()> a_run) : m_counts(a_counts), m_run(std::move(a_run))
    {
        ++m_counts.alive;
    }
    ~CCounting() override { --m_counts.alive; }
    bool Execute() override
    {
        ++m_counts.runs;
        return m_run();
    }

private:
    SCounts& m_counts;
    std::function<bool()> m_run;
};

class TimerManagerTest : public testing::Test
{
protected:
    static void RunUntil(const std::function<bool()>& a_condition)
    {
        while (!a_condition())
        {
            g_main_context_iteration(nullptr, TRUE);
        }
    }

    /// Lets every timer of a millisecond that is there now run at least once more, or vanish.
    static void RunAWhile()
    {
        CCounting::SCounts witness;
        Timers().AddTimeoutMs(2, new CCounting(witness, [&] { return witness.runs < 3; }));
        RunUntil([&] { return witness.alive == 0; });
    }

    unsigned int Add(std::function<bool()> a_run) { return Timers().AddTimeoutMs(1, new CCounting(m_counts, a_run)); }

    CCounting::SCounts m_counts;
};

TEST_F(TimerManagerTest, ATimerRunsUntilItReturnsFalseOrIsRemoved)
{
    const unsigned int handle = Add([this] { return m_counts.runs < 3; });
    EXPECT_EQ(m_counts.runs, 0);
    RunUntil([this] { return m_counts.alive == 0; });
    EXPECT_EQ(m_counts.runs, 3);
    EXPECT_FALSE(Timers().RemoveTimeout(handle));
    EXPECT_EQ(g_main_context_find_source_by_id(nullptr, handle), nullptr);

    const unsigned int endless = Add([] { return true; });
    EXPECT_NE(endless, handle);
    RunUntil([this] { return m_counts.runs == 5; });
    EXPECT_TRUE(Timers().RemoveTimeout(endless));
    EXPECT_EQ(m_counts.alive, 0);
    EXPECT_FALSE(Timers().RemoveTimeout(endless));
    EXPECT_EQ(g_main_context_find_source_by_id(nullptr, endless), nullptr);
    EXPECT_FALSE(Timers().RemoveHandle(0));
}

TEST_F(TimerManagerTest, AForgottenTimerLeavesTheMainLoopWithoutRunning)
{
    const unsigned int handle = Add([] { return true; });
    EXPECT_TRUE(Timers().RemoveHandle(handle));
    EXPECT_EQ(m_counts.alive, 0);
    EXPECT_FALSE(Timers().RemoveHandle(handle));
    EXPECT_NE(g_main_context_find_source_by_id(nullptr, handle), nullptr);
    RunAWhile();
    EXPECT_EQ(g_main_context_find_source_by_id(nullptr, handle), nullptr);

    const unsigned int ended = Add([] { return true; });
    g_source_remove(ended);
    EXPECT_EQ(m_counts.alive, 0) << "the main loop was told directly";
    EXPECT_FALSE(Timers().RemoveTimeout(ended));
    EXPECT_EQ(m_counts.runs, 0);
}

TEST_F(TimerManagerTest, ACallbackMayRemoveItsOwnTimer)
{
    for (const bool goesOn : {false, true})
    {
        for (const bool isWhole : {false, true})
        {
            SCOPED_TRACE(testing::Message() << goesOn << isWhole);
            m_counts.runs = 0;
            unsigned int handle = 0;
            handle = Add(
                [&, goesOn, isWhole]
                {
                    EXPECT_TRUE(isWhole ? Timers().RemoveTimeout(handle) : Timers().RemoveHandle(handle));
                    EXPECT_FALSE(Timers().RemoveTimeout(handle));
                    EXPECT_EQ(m_counts.alive, 1) << "it is running";
                    return goesOn;
                });
            RunUntil([this] { return m_counts.runs > 0; });
            EXPECT_EQ(m_counts.alive, 0);
            RunAWhile();
            EXPECT_EQ(m_counts.runs, 1);
            EXPECT_EQ(g_main_context_find_source_by_id(nullptr, handle), nullptr);
        }
    }
}

TEST_F(TimerManagerTest, CallbacksMayAddAndRemoveOthersEvenWhenTheyDie)
{
    CCounting::SCounts others;
    const unsigned int victim = Timers().AddTimeoutMs(100000, new CCounting(others, [] { return true; }));
    unsigned int added = 0;
    unsigned int self = 0;
    // Deletes the added timer, and tries itself, when the callback that holds it is deleted.
    std::shared_ptr<int> last(nullptr,
                              [&](int*)
                              {
                                  EXPECT_TRUE(Timers().RemoveTimeout(added));
                                  EXPECT_FALSE(Timers().RemoveTimeout(self));
                                  g_source_remove(self);
                              });
    self = Add(
        [&, last]
        {
            EXPECT_TRUE(Timers().RemoveTimeout(victim));
            EXPECT_EQ(others.alive, 0);
            added = Timers().AddTimeoutMs(100000, new CCounting(others, [] { return true; }));
            return true;
        });
    last.reset();
    RunUntil([this] { return m_counts.runs == 1; });
    EXPECT_EQ(others.alive, 1);
    EXPECT_TRUE(Timers().RemoveHandle(self));
    EXPECT_EQ(m_counts.alive, 0);
    EXPECT_EQ(others.alive, 0);

    Timers().AddTimeoutMs(-5, nullptr);
    RunAWhile();
}

TEST_F(TimerManagerTest, AManagerOfOnesOwnRunsItsTimersToItsEnd)
{
    CCounting::SCounts removed;
    {
        CTimerManager manager;
        const unsigned int handle = manager.AddTimeoutMs(1, new CCounting(removed, [] { return true; }));
        manager.AddTimeoutMs(1, new CCounting(m_counts, [] { return true; }));
        RunUntil([&] { return removed.runs >= 2 && m_counts.runs >= 2; });
        EXPECT_FALSE(Timers().RemoveTimeout(handle));
        EXPECT_TRUE(manager.RemoveHandle(handle));
        EXPECT_EQ(removed.alive, 0);
        m_counts.runs = 0;
    }
    RunAWhile();
    EXPECT_EQ(m_counts.runs, 0);
}

} // namespace
