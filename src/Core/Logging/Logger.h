#pragma once

#include "Core/Api.h"
#include "Core/StaticSingleton.h"

#include <string>
#include <type_traits>

namespace Core::Logging
{

/// The weight of a log line: the higher, the more important. Any int is a level.
enum ELogEventLevel : int
{
    elAll = 0,
    elDetail = 1,
    /// Something was left out, and work goes on.
    elSkipped = 2,
    /// Ordinary messages, of progress as well as of errors.
    elMessage = 3
};

/// Writes log lines to standard error: "<seconds since 1970>. <level> (<source>) : <message>".
class GFX_API CLogger
{
public:
    /// Called for every line that is printed, after it is printed.
    using Observer = void (*)(ELogEventLevel a_level, const std::string& a_source, const std::string& a_message);

    /// Sets the lowest level that is printed (at first 0: everything is). The other three are kept and not used.
    void Configure(ELogEventLevel a_console, ELogEventLevel a_second, bool a_enabled, const std::string& a_name);

    /// Logs a message of at most 2039 bytes; what is longer is cut, between characters. a_source is the short name of
    /// the class that logs. a_format is that of printf; the arguments are numbers, enumerators, pointers, and texts,
    /// std::string included.
    template <typename... Args>
    void Log(ELogEventLevel a_level, const std::string& a_source, const std::string& a_format, const Args&... a_args)
    {
        // The empty text at the end is for formats without arguments: printf ignores what the format doesn't use.
        Write(a_level, a_source, a_format.c_str(), Argument(a_args)..., "");
    }

    /// For tests and for applications that forward to a log of their own; null for none. One at a time.
    void SetObserver(Observer a_observer) { m_observer = a_observer; }
    [[nodiscard]] Observer GetObserver() const { return m_observer; }

private:
    static const char* Argument(const std::string& a_text) { return a_text.c_str(); }
    static const char* Argument(const char* a_text) { return a_text ? a_text : "(null)"; }

    template <typename T>
    static auto Argument(const T& a_value)
    {
        if constexpr (std::is_enum_v<T>)
        {
            return static_cast<std::underlying_type_t<T>>(a_value);
        }
        else
        {
            static_assert(std::is_arithmetic_v<T> || std::is_pointer_v<T> || std::is_null_pointer_v<T>,
                          "printf can't take an argument of this type");
            return a_value;
        }
    }

    void Write(ELogEventLevel a_level, const std::string& a_source, const char* a_format, ...)
        __attribute__((format(printf, 4, 5)));

    bool m_enabled = false;
    std::string m_name;
    ELogEventLevel m_consoleLevel = elAll;
    ELogEventLevel m_secondLevel = elSkipped;
    Observer m_observer = nullptr;
};

} // namespace Core::Logging

extern template class GFX_API Core::Patterns::StaticSingleton<Core::Logging::CLogger>;
