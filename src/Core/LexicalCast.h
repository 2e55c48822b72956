#pragma once

#include <charconv>
#include <concepts>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>

namespace Core
{

/// The white space of the C locale.
inline constexpr std::string_view k_whiteSpace = " \t\n\v\f\r";

namespace detail
{

template <typename To, typename From>
[[nodiscard]] To LexicalCastByStream(const From& a_value, const To& a_fallback)
{
    std::stringstream stream(std::ios::in | std::ios::out);
    stream.imbue(std::locale::classic());
    if constexpr (std::numeric_limits<To>::is_specialized)
    {
        stream.precision(std::numeric_limits<To>::digits10 + 1);
    }
    stream.unsetf(std::ios::skipws);
    stream << a_value;
    if (stream.fail())
    {
        return a_fallback;
    }
    To result{};
    stream >> result;
    return !stream.fail() && stream.eof() ? result : a_fallback;
}

} // namespace detail

/// Converts all of a_value, or gives a_fallback: a blank anywhere, letters after a number, "0x" and an empty text don't
/// convert. So no text of several words converts to a std::string. Numbers are read in base 10, whatever the locale.
template <typename To, typename From>
[[nodiscard]] To LexicalCast(const From& a_value, const To& a_fallback)
{
    return detail::LexicalCastByStream<To, From>(a_value, a_fallback);
}

/// The two conversions of every configuration read, with the results of the stream but without making one.
template <typename To, typename From = std::string>
requires std::same_as<To, int> && std::same_as<From, std::string>
[[nodiscard]] int LexicalCast(const std::string& a_value, const int& a_fallback)
{
    std::string_view text = a_value;
    // A stream takes a plus sign, std::from_chars takes a minus sign only.
    if (text.starts_with('+'))
    {
        text.remove_prefix(1);
        if (text.starts_with('-'))
        {
            return a_fallback;
        }
    }
    int result = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), result);
    return error == std::errc() && end == text.data() + text.size() ? result : a_fallback;
}

/// The same.
template <typename To, typename From = std::string>
requires std::same_as<To, std::string> && std::same_as<From, std::string>
[[nodiscard]] std::string LexicalCast(const std::string& a_value, const std::string& a_fallback)
{
    return a_value.empty() || a_value.find_first_of(k_whiteSpace) != std::string::npos ? a_fallback : a_value;
}

} // namespace Core
