#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

namespace Core
{

/// The count that all pointers to one object share, in a heap cell of its own. Not atomic.
class SimpleReferenceCounter
{
public:
    /// One reference more.
    void Increment() { ++m_count; }

    /// True when no reference is left.
    [[nodiscard]] bool Decrement() { return m_count == 0 || --m_count == 0; }

    [[nodiscard]] std::uint32_t Count() const { return m_count; }

private:
    std::uint32_t m_count = 0;
};

static_assert(sizeof(SimpleReferenceCounter) == 4);

/// A counted pointer. The object dies with the last pointer to it; it needs no base class. Pointers to base and derived
/// class share one count. For one thread only.
///
/// The pointer that gives an object up is already empty when the object's destructor runs, so a destructor may use the
/// very pointer that held it. Access is unchecked.
template <typename T, typename Counter = SimpleReferenceCounter>
class SharedPtr
{
public:
    using ElementType = T;

    SharedPtr() noexcept = default;

    /// For nullptr alone: a NULL or a 0 is a T*.
    template <typename Null>
    SharedPtr(Null) noexcept requires(std::is_null_pointer_v<Null>)
    {
    }

    /// Takes a_object over. An object is taken over once only; further pointers to it are copies.
    explicit SharedPtr(T* a_object) : SharedPtr(a_object, nullptr) {}

    SharedPtr(const SharedPtr& a_other) noexcept : m_counter(a_other.m_counter), m_object(a_other.m_object)
    {
        IncrementReferenceCount();
    }

    SharedPtr(SharedPtr&& a_other) noexcept
        : m_counter(std::exchange(a_other.m_counter, nullptr)), m_object(std::exchange(a_other.m_object, nullptr))
    {
    }

    template <typename U>
    SharedPtr(const SharedPtr<U, Counter>& a_other) noexcept requires(std::is_convertible_v<U*, T*>)
        : m_counter(a_other.m_counter), m_object(a_other.m_object)
    {
        CheckDestruction<U>();
        IncrementReferenceCount();
    }

    template <typename U>
    SharedPtr(SharedPtr<U, Counter>&& a_other) noexcept requires(std::is_convertible_v<U*, T*>)
        : m_counter(std::exchange(a_other.m_counter, nullptr)), m_object(std::exchange(a_other.m_object, nullptr))
    {
        CheckDestruction<U>();
    }

    ~SharedPtr() { DecrementReferenceCount(); }

    SharedPtr& operator=(const SharedPtr& a_other)
    {
        // The old object may own a_other, or be the new one: the new reference is held before the old one goes.
        SharedPtr held(a_other);
        return Replace(held);
    }

    SharedPtr& operator=(SharedPtr&& a_other)
    {
        SharedPtr held(std::move(a_other));
        return Replace(held);
    }

    template <typename U>
    SharedPtr& operator=(const SharedPtr<U, Counter>& a_other) requires(std::is_convertible_v<U*, T*>)
    {
        SharedPtr held(a_other);
        return Replace(held);
    }

    template <typename U>
    SharedPtr& operator=(SharedPtr<U, Counter>&& a_other) requires(std::is_convertible_v<U*, T*>)
    {
        SharedPtr held(std::move(a_other));
        return Replace(held);
    }

    SharedPtr& operator=(std::nullptr_t)
    {
        DecrementReferenceCount();
        return *this;
    }

    /// Gives the object up.
    void Reset() { DecrementReferenceCount(); }

    [[nodiscard]] T* Get() const noexcept { return m_object; }
    T* operator->() const noexcept { return m_object; }
    T& operator*() const noexcept { return *m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }

    /// How many pointers share the object; 0 for an empty pointer.
    [[nodiscard]] std::uint32_t Count() const noexcept { return m_counter ? m_counter->Count() : 0; }

    /// A pointer to the same object as a To, which it must be.
    template <typename To>
    [[nodiscard]] SharedPtr<To, Counter> StaticCast() const
    {
        SharedPtr<To, Counter>::template CheckDestruction<T>();
        return SharedPtr<To, Counter>(static_cast<To*>(m_object), m_counter);
    }

private:
    template <typename, typename>
    friend class SharedPtr;

    SharedPtr(T* a_object, Counter* a_counter)
    {
        if (a_object)
        {
            m_counter = a_counter ? a_counter : new Counter;
            m_object = a_object;
            m_counter->Increment();
        }
    }

    /// The last pointer may be one to the base, so that has to be able to delete a U.
    template <typename U>
    static constexpr void CheckDestruction()
    {
        static_assert(std::is_same_v<std::remove_cv_t<T>, std::remove_cv_t<U>> || std::has_virtual_destructor_v<T>,
                      "a shared base class needs a virtual destructor");
    }

    void IncrementReferenceCount() noexcept
    {
        if (m_counter)
        {
            m_counter->Increment();
        }
    }

    void DecrementReferenceCount()
    {
        Counter* const counter = std::exchange(m_counter, nullptr);
        T* const object = std::exchange(m_object, nullptr);
        if (counter && counter->Decrement())
        {
            Destroy(counter, object);
        }
    }

    /// Apart from the rest, so that what is inlined everywhere is small.
    [[gnu::noinline]] static void Destroy(Counter* a_counter, T* a_object)
    {
        static_assert(sizeof(T) > 0, "the pointee must be complete where a pointer to it dies");
        delete a_counter;
        delete a_object;
    }

    SharedPtr& Replace(SharedPtr& a_held)
    {
        DecrementReferenceCount();
        // Whatever the old object's destructor has put here meanwhile goes with a_held.
        std::swap(m_counter, a_held.m_counter);
        std::swap(m_object, a_held.m_object);
        return *this;
    }

    Counter* m_counter = nullptr;
    T* m_object = nullptr;
};

/// Pointers are equal when they point to the same object; two empty ones are.
template <typename A, typename B, typename CounterA, typename CounterB>
[[nodiscard]] bool operator==(const SharedPtr<A, CounterA>& a_left, const SharedPtr<B, CounterB>& a_right) noexcept
{
    return a_left.Get() == a_right.Get();
}

template <typename A, typename B, typename CounterA, typename CounterB>
[[nodiscard]] bool operator!=(const SharedPtr<A, CounterA>& a_left, const SharedPtr<B, CounterB>& a_right) noexcept
{
    return a_left.Get() != a_right.Get();
}

template <typename T, typename Counter>
[[nodiscard]] bool operator==(const SharedPtr<T, Counter>& a_pointer, std::nullptr_t) noexcept
{
    return a_pointer.Get() == nullptr;
}

} // namespace Core
