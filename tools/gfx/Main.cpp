// gfx, the command-line tool for those who write data directories.

#include "Commands.h"

#include <array>
#include <cstdio>
#include <string>
#include <vector>

namespace
{

using namespace Tool;

constexpr std::array s_commands{
    SCommand{"view", "runs a data directory as a live interface",
             "Runs the data directory DIR as a live interface in a window, or on the bare display of a\n"
             "console. A change of any file below DIR is taken over at once: shown layouts, flags, theme\n"
             "and language stay. What is wrong with a file is said with its line, and what was there\n"
             "before stays.",
             eoLayout | eoStyle | eoOnce, View},
    SCommand{"shot", "takes pictures of layouts",
             "Writes a picture (PNG) and a widget tree of each layout in each theme and language to the\n"
             "folder OUT, and a page index.html that shows all of them. Each of the three may be \"all\".\n"
             "No display is needed.",
             eoLayout | eoStyle | eoTap | eoOutput, Shot},
    SCommand{"tree", "prints the widgets of layouts",
             "Prints what is on the screen of a layout: the widgets' types, paths, places and properties.\n"
             "No display is needed.",
             eoLayout | eoStyle | eoTap, Tree},
    SCommand{"check", "looks for mistakes in layouts",
             "Prints what the layouts of DIR say in vain, as FILE:LINE:COLUMN: attributes, events, actions\n"
             "and nodes that nothing knows, numbers that are none, missing ids and places. The exit code\n"
             "is 1 if there is any.",
             0, Check},
    SCommand{"model", "looks into a model, or converts it",
             "Prints how many groups and triangles the model FILE has, and its largest absolute coordinate.\n"
             "With --output, writes it as a binary model, whose name has .bobj in it, instead. A model whose\n"
             "name has .bobj in it is taken for a binary one, any other for text (OBJ).",
             eoFile, Model},
};

void PrintUsage(std::FILE* a_stream)
{
    std::fputs("Usage: gfx COMMAND [OPTION...] DIR\n       gfx model [OPTION...] FILE\n\n"
               "Works with data directories and models of libGfx. Commands:\n",
               a_stream);
    for (const SCommand& command : s_commands)
    {
        std::fprintf(a_stream, "  %-8s%s\n", command.name, command.summary);
    }
    std::fputs("\n'gfx COMMAND --help' tells more. Exit codes: 0 success, 1 something is wrong with the data or\n"
               "couldn't be written, 2 a wrong command line.\n",
               a_stream);
}

} // namespace

int main(int a_argc, char** a_argv)
{
    const std::vector<std::string> arguments(a_argv + (a_argc > 0 ? 1 : 0), a_argv + a_argc);
    const std::string word = arguments.empty() ? "" : arguments.front();
    if (word == "--help" || word == "-h" || word == "help")
    {
        PrintUsage(stdout);
        return eeSuccess;
    }
    if (word == "--version")
    {
        std::puts("gfx " GFX_VERSION);
        return eeSuccess;
    }
    for (const SCommand& command : s_commands)
    {
        if (word == command.name)
        {
            SOptions options;
            int exit = eeSuccess;
            return ReadOptions(command, {arguments.begin() + 1, arguments.end()}, options, exit) ? command.run(options)
                                                                                                 : exit;
        }
    }
    PrintUsage(stderr);
    return eeUsage;
}
