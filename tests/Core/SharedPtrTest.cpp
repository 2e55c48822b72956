#include "Core/SharedPtr.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

namespace
{

using Core::SharedPtr;

int s_cells = 0;

class CCountingCounter : public Core::SimpleReferenceCounter
{
public:
    CCountingCounter() { ++s_cells; }
    ~CCountingCounter() { --s_cells; }
};

class CBase
{
public:
    virtual ~CBase()
    {
        if (onDeath)
        {
            onDeath();
        }
    }

    std::function<void()> onDeath;
    SharedPtr<CBase> next;
};

class CSideBase
{
public:
    virtual ~CSideBase() = default;
    int padding = 0;
};

class CDerived : public CSideBase, public CBase
{
};

class CFinal
{
};

static_assert(sizeof(SharedPtr<CBase>) == 2 * sizeof(void*));
static_assert(std::is_nothrow_move_constructible_v<SharedPtr<CBase>>);
static_assert(std::is_convertible_v<SharedPtr<CDerived>, SharedPtr<CBase>>);
static_assert(!std::is_convertible_v<SharedPtr<CBase>, SharedPtr<CDerived>>);
static_assert(!std::is_convertible_v<CBase*, SharedPtr<CBase>>, "a raw pointer must not be taken over by accident");

TEST(SharedPtrTest, AnEmptyPointerHasNoCounterAndNeitherHasItsCopy)
{
    const SharedPtr<CFinal, CCountingCounter> empty(static_cast<CFinal*>(nullptr));
    const SharedPtr<CFinal, CCountingCounter> copy(empty);
    const SharedPtr<CFinal, CCountingCounter> cast = empty.StaticCast<CFinal>();
    const SharedPtr<CFinal, CCountingCounter> old(NULL); // NOLINT(modernize-use-nullptr)
    EXPECT_EQ(s_cells, 0);
    EXPECT_FALSE(copy);
    EXPECT_EQ(copy.Count(), 0U);
    EXPECT_TRUE(empty == copy);
    EXPECT_TRUE(cast == nullptr);
    EXPECT_TRUE(old == nullptr);
    EXPECT_FALSE(empty != (SharedPtr<CFinal>()));
}

TEST(SharedPtrTest, TheCellGoesBeforeTheObjectWhichDiesOnceWithTheLastCopy)
{
    int deaths = 0;
    int cellsAtDeath = -1;
    SharedPtr<CBase, CCountingCounter> first(new CBase);
    first->onDeath = [&]
    {
        ++deaths;
        cellsAtDeath = s_cells;
    };
    {
        SharedPtr<CBase, CCountingCounter> second = first;
        const SharedPtr<CBase, CCountingCounter> third(std::move(first));
        EXPECT_EQ(second.Count(), 2U);
        EXPECT_EQ(s_cells, 1);
        EXPECT_FALSE(first);
        first = second;
        second.Reset();
        EXPECT_FALSE(second);
    }
    EXPECT_EQ(first.Count(), 1U);
    EXPECT_EQ(deaths, 0);
    first = nullptr;
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(cellsAtDeath, 0);
}

TEST(SharedPtrTest, BaseAndDerivedShareOneCountAndCompareByObject)
{
    int deaths = 0;
    SharedPtr<CDerived> derived(new CDerived);
    derived->onDeath = [&] { ++deaths; };
    SharedPtr<CBase> base = derived;
    SharedPtr<CSideBase> side;
    side = derived;
    EXPECT_EQ(derived.Count(), 3U);
    EXPECT_TRUE(base == derived);
    EXPECT_TRUE(side == derived);
    EXPECT_TRUE(base != SharedPtr<CDerived>(new CDerived));
    const SharedPtr<CDerived> back = base.StaticCast<CDerived>();
    EXPECT_EQ(back.Get(), derived.Get());
    EXPECT_EQ(back.Count(), 4U);
    base = std::move(derived);
    EXPECT_FALSE(derived);
    EXPECT_EQ(base.Count(), 3U);
    EXPECT_EQ(deaths, 0);
}

TEST(SharedPtrTest, ADestructorFindsTheReleasingPointerEmpty)
{
    SharedPtr<CBase> pointer(new CBase);
    const CBase* seen = pointer.Get();
    const auto look = [&] { seen = pointer.Get(); };

    pointer->onDeath = look;
    pointer.Reset();
    EXPECT_EQ(seen, nullptr);

    pointer = SharedPtr<CBase>(new CBase);
    pointer->onDeath = look;
    seen = pointer.Get();
    pointer = SharedPtr<CBase>(new CBase);
    EXPECT_EQ(seen, nullptr);
    EXPECT_TRUE(pointer);
}

TEST(SharedPtrTest, APointerThatTheOldObjectsDestructorSetsIsReplaced)
{
    int deathsOfIntruder = 0;
    SharedPtr<CBase> pointer(new CBase);
    pointer->onDeath = [&]
    {
        pointer = SharedPtr<CBase>(new CBase);
        pointer->onDeath = [&] { ++deathsOfIntruder; };
    };
    const SharedPtr<CBase> wanted(new CBase);
    pointer = wanted;
    EXPECT_EQ(pointer, wanted);
    EXPECT_EQ(wanted.Count(), 2U);
    EXPECT_EQ(deathsOfIntruder, 1);
}

TEST(SharedPtrTest, AssignmentFromItselfAndFromWhatTheOldObjectOwnsIsSafe)
{
    SharedPtr<CBase> head(new CBase);
    CBase* const first = head.Get();
    SharedPtr<CBase>& same = head;
    head = same;
    EXPECT_EQ(head.Get(), first);
    head = std::move(same);
    EXPECT_EQ(head.Get(), first);
    EXPECT_EQ(head.Count(), 1U);

    head->next = SharedPtr<CBase>(new CBase);
    head->next->next = SharedPtr<CBase>(new CBase);
    const CBase* const second = head->next.Get();
    const CBase* const third = head->next->next.Get();
    head = head->next;
    EXPECT_EQ(head.Get(), second);
    head = std::move(head->next);
    EXPECT_EQ(head.Get(), third);
    EXPECT_EQ(head.Count(), 1U);
}

} // namespace
