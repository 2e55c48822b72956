#include "Core/Logging/Logger.h"

#include "Core/Time.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <string_view>

template class Core::Patterns::StaticSingleton<Core::Logging::CLogger>;

namespace Core::Logging
{

namespace
{

/// a_text without a character that was cut short at its end.
std::string_view WithoutPartialCharacter(std::string_view a_text)
{
    std::size_t lead = a_text.size();
    while (lead > 0 && a_text.size() - lead < 4)
    {
        --lead;
        const auto byte = static_cast<unsigned char>(a_text[lead]);
        if ((byte & 0xC0) != 0x80)
        {
            const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
            return length > a_text.size() - lead ? a_text.substr(0, lead) : a_text;
        }
    }
    return a_text;
}

} // namespace

void CLogger::Configure(ELogEventLevel a_console, ELogEventLevel a_second, bool a_enabled, const std::string& a_name)
{
    m_consoleLevel = a_console;
    m_secondLevel = a_second;
    m_enabled = a_enabled;
    m_name = a_name;
}

void CLogger::Write(ELogEventLevel a_level, const std::string& a_source, const char* a_format, ...)
{
    Time now;
    now.Now();

    std::array<char, 2040> buffer;
    std::va_list args;
    va_start(args, a_format);
    const int length = std::vsnprintf(buffer.data(), buffer.size(), a_format, args);
    va_end(args);

    if (a_level < m_consoleLevel)
    {
        return;
    }

    // A negative length means that an argument couldn't be converted; the format still tells what it was about.
    std::string_view message = a_format;
    if (length >= 0)
    {
        message = {buffer.data(), std::min<std::size_t>(length, buffer.size() - 1)};
        if (message.size() < static_cast<std::size_t>(length))
        {
            message = WithoutPartialCharacter(message);
        }
    }
    const std::string text(message);

    // Room for the 309 digits of the largest double.
    std::array<char, 400> head{};
    std::snprintf(head.data(), head.size(), "%lf. %d (", now.AsDouble(), static_cast<int>(a_level));
    std::string line(head.data());
    line.append(a_source.c_str()).append(") : ").append(text).append("\n");
    // One call, so that lines of several processes don't mix.
    std::fwrite(line.data(), 1, line.size(), stderr);

    if (m_observer)
    {
        m_observer(a_level, a_source, text);
    }
}

} // namespace Core::Logging
