#include "fuzz/support/Target.h"

#include "Core/Assert.h"
#include "Core/Logging/Logger.h"

#include <glib.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace
{

struct SFailedAssertion
{
};

/// What GLib calls critical is a mistake of its caller's; its warnings tell of bad data, which is all that comes here.
GLogWriterOutput OnGLibMessage(GLogLevelFlags a_level, const GLogField* a_fields, gsize a_count, gpointer)
{
    if ((a_level & (G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL)) != 0)
    {
        char* const text = g_log_writer_format_fields(a_level, a_fields, a_count, FALSE);
        std::fprintf(stderr, "%s\n", text);
        std::abort();
    }
    return G_LOG_WRITER_HANDLED;
}

} // namespace

/// Stands in place of the library's own, which ends the process: that is what the library does with some of the data
/// that come here, on purpose, and no finding. An exception leaves the library in the state that an input without that
/// part of it would have left, and is cheap enough for thousands of inputs a second, which a process for each is not.
/// What the library counts only while it does something must be counted by objects, for this to be true.
void Core::detail::FailAssertion(const char*, const char*, int)
{
    throw SFailedAssertion();
}

const GfxTest::CTemporaryDirectory& GfxFuzz::Data()
{
    static const GfxTest::CTemporaryDirectory s_directory;
    return s_directory;
}

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    // What is printed costs more time than most inputs; the lines are made all the same.
    constexpr auto nothing = static_cast<Core::Logging::ELogEventLevel>(1000);
    Core::Patterns::StaticSingleton<Core::Logging::CLogger>::ref().Configure(nothing, nothing, false, "");
    g_log_set_writer_func(OnGLibMessage, nullptr, nullptr);
    GfxFuzz::SetUp();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* a_data, std::size_t a_size)
{
    try
    {
        GfxFuzz::Try({reinterpret_cast<const char*>(a_data), a_size});
    }
    catch (const SFailedAssertion&)
    {
    }
    return 0;
}
