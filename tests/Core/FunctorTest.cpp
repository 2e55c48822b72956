#include "Core/Functor.h"

#include "Core/SharedPtr.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>

namespace
{

using Core::Functor;

template <typename Callback, typename Expected>
constexpr bool k_executes = std::is_same_v<decltype(&Callback::Signature::Execute), Expected>;

using NoArguments = Functor<void, void, void, void, void, void, void>;
static_assert(std::is_same_v<NoArguments::Signature, Functor<void>::Signature>);
static_assert(k_executes<Functor<void>, void (Functor<void>::Signature::*)()>);
using SixArguments = Functor<bool, int, bool, char, long, float, const std::string&>;
static_assert(
    k_executes<SixArguments, bool (SixArguments::Signature::*)(int, bool, char, long, float, const std::string&)>);

class CCounter
{
public:
    virtual ~CCounter() = default;
    virtual int Add(int a_step) { return m_count += a_step; }
    int Sum(int a_more) const { return m_count + a_more; }
    void Reset() { m_count = 0; }

protected:
    int m_count = 0;
};

class CDoubleCounter : public CCounter
{
public:
    int Add(int a_step) override { return m_count += 2 * a_step; }
};

int Twice(int a_value)
{
    return 2 * a_value;
}

TEST(FunctorTest, AMethodDispatchesByTheClassOfItsObject)
{
    CDoubleCounter counter;
    const std::unique_ptr<Functor<int, int>::Signature> add(
        new Functor<int, int>::Method<CCounter>(&counter, &CCounter::Add));
    const std::unique_ptr<Functor<int, int>::Signature> sum(
        new Functor<int, int>::Method<CDoubleCounter>(&counter, &CDoubleCounter::Sum));
    const std::unique_ptr<Functor<void>::Signature> reset(
        new Functor<void>::Method<CDoubleCounter>(&counter, &CDoubleCounter::Reset));
    EXPECT_EQ(add->Execute(3), 6);
    EXPECT_EQ(sum->Execute(10), 16);
    reset->Execute();
    EXPECT_EQ(sum->Execute(10), 10);
}

TEST(FunctorTest, FunctionsAndFunctionObjectsAreCalledWithTheArguments)
{
    const std::unique_ptr<Functor<int, int>::Signature> function(new Functor<int, int>::Function(Twice));
    EXPECT_EQ(function->Execute(21), 42);

    std::string seen;
    const std::unique_ptr<Functor<void, int, const std::string&>::Signature> callable(
        Functor<void, int, const std::string&>::Make([&seen](int a_count, const std::string& a_text)
                                                     { seen = std::to_string(a_count) + a_text; }));
    callable->Execute(2, "b");
    EXPECT_EQ(seen, "2b");
}

TEST(FunctorTest, ReferencesReachTheCalleeAndValuesAreMovedOn)
{
    const std::unique_ptr<Functor<void, int&>::Signature> increment(
        Functor<void, int&>::Make([](int& a_value) { ++a_value; }));
    int value = 1;
    increment->Execute(value);
    EXPECT_EQ(value, 2);

    using Pointer = Core::SharedPtr<int>;
    const std::unique_ptr<Functor<unsigned, Pointer>::Signature> count(
        Functor<unsigned, Pointer>::Make([](Pointer a_pointer) { return a_pointer.Count(); }));
    const Pointer pointer(new int(1));
    EXPECT_EQ(count->Execute(pointer), 2U);
}

TEST(FunctorTest, ACallableDiesThroughItsSignature)
{
    const Core::SharedPtr<int> pointer(new int(1));
    Functor<void>::Signature* callback = Functor<void>::Make([pointer] {});
    EXPECT_EQ(pointer.Count(), 2U);
    delete callback;
    EXPECT_EQ(pointer.Count(), 1U);
}

} // namespace
