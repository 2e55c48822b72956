#pragma once

namespace Core::Patterns
{

/// The one instance of T, made by its default constructor at the first call of ref() and destroyed at exit.
///
/// The library hides its symbols, yet the application must see the library's instance: the template is visible, and the
/// library alone instantiates it for its own classes. The header of such a class ends with
///
///     extern template class GFX_API Core::Patterns::StaticSingleton<CFoo>;
///
/// and its source has `template class Core::Patterns::StaticSingleton<CFoo>;`. A T that derives from
/// StaticSingleton<T> leaves GFX_API out, since the template is then in use before that line.
template <typename T>
class __attribute__((visibility("default"))) StaticSingleton
{
public:
    [[nodiscard]] static T& ref();
};

// Outside of the class, so that it isn't inline: nothing but the explicit instantiation defines the instance.
template <typename T>
T& StaticSingleton<T>::ref()
{
    static T instance;
    return instance;
}

} // namespace Core::Patterns
