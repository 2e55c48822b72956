#pragma once

#include <string>
#include <vector>

namespace Tool
{

/// What a command line asks for.
struct SOptions
{
    /// The data directory, with a separator at its end; of a command that takes a file, empty.
    std::string directory;
    std::string file;
    std::vector<std::string> layouts;
    /// Paths of widgets to touch, in this order.
    std::vector<std::string> taps;
    std::string theme;
    std::string language;
    std::string output;
    int width = 800;
    int height = 480;
    bool verbose = false;
    bool once = false;
};

/// Which options a command takes, and what on.
enum EOptions : unsigned
{
    eoLayout = 1U << 0U,
    eoStyle = 1U << 1U,
    eoOutput = 1U << 2U,
    eoOnce = 1U << 3U,
    /// A file in place of the data directory; its output is a file, too, and needn't be given.
    eoFile = 1U << 4U,
    eoTap = 1U << 5U,
};

/// Exit codes, for scripts.
enum EExit
{
    eeSuccess = 0,
    /// Something is wrong with the data, or couldn't be written.
    eeFailure = 1,
    eeUsage = 2,
};

struct SCommand
{
    const char* name;
    const char* summary;
    const char* description;
    unsigned options;
    int (*run)(const SOptions& a_options);
};

/// Reads the arguments that follow the command's name; --help is answered here. False, with the exit code, if the
/// command is not to run.
[[nodiscard]] bool ReadOptions(const SCommand& a_command, std::vector<std::string> a_arguments, SOptions& a_options,
                               int& a_exit);

} // namespace Tool
