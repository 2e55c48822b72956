#pragma once

#include "Core/Api.h"

#include <functional>
#include <type_traits>
#include <utility>

namespace Core
{

namespace detail
{

template <typename... Args>
struct SArguments
{
};

/// SArguments of the types up to the first void.
template <typename Taken, typename... Rest>
struct SArgumentsUpToVoid
{
    using Type = Taken;
};

template <typename... Taken, typename Next, typename... Rest>
requires(!std::is_void_v<Next>) struct SArgumentsUpToVoid<SArguments<Taken...>, Next, Rest...>
    : SArgumentsUpToVoid<SArguments<Taken..., Next>, Rest...>
{
};

template <typename R, typename Arguments>
class FunctorOf;

template <typename R, typename... Args>
class FunctorOf<R, SArguments<Args...>>
{
public:
    /// What interfaces take and store. Made with new; it belongs to whoever stores it.
    class GFX_API Signature
    {
    public:
        // The order of these two is the order of the virtual table's slots.
        virtual R Execute(Args... a_args) = 0;
        virtual ~Signature() = default;

        Signature(const Signature&) = delete;
        Signature& operator=(const Signature&) = delete;

    protected:
        Signature() = default;
    };

    /// Calls a member function of an object, which must outlive it. A virtual one dispatches by the object's class.
    template <typename T>
    class Method : public Signature
    {
    public:
        Method(T* a_object, R (T::*a_method)(Args...)) : m_object(a_object), m_method(a_method) {}
        Method(T* a_object, R (T::*a_method)(Args...) const) : m_object(a_object), m_constMethod(a_method) {}

        R Execute(Args... a_args) override
        {
            return m_method ? (m_object->*m_method)(std::forward<Args>(a_args)...)
                            : (m_object->*m_constMethod)(std::forward<Args>(a_args)...);
        }

    private:
        T* m_object;
        R (T::*m_method)(Args...) = nullptr;
        R (T::*m_constMethod)(Args...) const = nullptr;
    };

    /// Calls a free function.
    class Function : public Signature
    {
    public:
        explicit Function(R (*a_function)(Args...)) : m_function(a_function) {}

        R Execute(Args... a_args) override { return m_function(std::forward<Args>(a_args)...); }

    private:
        R (*m_function)(Args...);
    };

    /// Calls a function object that it holds, such as a lambda.
    template <typename F>
    class Callable : public Signature
    {
    public:
        explicit Callable(F a_function) : m_function(std::move(a_function)) {}

        R Execute(Args... a_args) override
        {
            if constexpr (std::is_void_v<R>)
            {
                std::invoke(m_function, std::forward<Args>(a_args)...);
            }
            else
            {
                return std::invoke(m_function, std::forward<Args>(a_args)...);
            }
        }

    private:
        F m_function;
    };

    /// A new Callable of a_function, for the caller or whoever it is handed on to.
    template <typename F>
    [[nodiscard]] static Signature* Make(F&& a_function)
    {
        return new Callable<std::decay_t<F>>(std::forward<F>(a_function));
    }
};

} // namespace detail

/// A family of callbacks by their result and up to six arguments; the first void ends the arguments. Interfaces take a
/// Signature*, callers make one of its subclasses:
///
///     manager->AddUpdateCompletedCallback(new Core::Functor<void>::Method<CScreen>(this, &CScreen::OnLanguage));
///     manager->AddUpdateCompletedCallback(Core::Functor<void>::Make([this] { Refill(); }));
template <typename R, typename A1 = void, typename A2 = void, typename A3 = void, typename A4 = void,
          typename A5 = void, typename A6 = void>
class Functor
    : public detail::FunctorOf<R,
                               typename detail::SArgumentsUpToVoid<detail::SArguments<>, A1, A2, A3, A4, A5, A6>::Type>
{
};

} // namespace Core
