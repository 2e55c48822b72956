#include "Options.h"

#include <glib.h>

#include <array>
#include <charconv>
#include <cstdio>
#include <memory>

namespace Tool
{

namespace
{

constexpr int k_longestSide = 4096;

/// "800x480".
bool ReadSize(const std::string& a_text, int& a_width, int& a_height)
{
    const char* const end = a_text.data() + a_text.size();
    const auto width = std::from_chars(a_text.data(), end, a_width);
    if (width.ec != std::errc() || width.ptr == end || *width.ptr != 'x')
    {
        return false;
    }
    const auto height = std::from_chars(width.ptr + 1, end, a_height);
    return height.ec == std::errc() && height.ptr == end && a_width > 0 && a_width <= k_longestSide && a_height > 0 &&
           a_height <= k_longestSide;
}

int Fail(const SCommand& a_command, const std::string& a_message)
{
    std::fprintf(stderr, "gfx %s: %s\nTry 'gfx %s --help'.\n", a_command.name, a_message.c_str(), a_command.name);
    return eeUsage;
}

/// The text that GLib has put there, which is freed.
std::string Take(char*& a_text)
{
    const std::unique_ptr<char, decltype(&g_free)> owner(a_text, g_free);
    return a_text != nullptr ? a_text : "";
}

std::vector<std::string> Take(char**& a_texts)
{
    const std::unique_ptr<char*, decltype(&g_strfreev)> owner(a_texts, g_strfreev);
    std::vector<std::string> texts;
    for (char** text = a_texts; text != nullptr && *text != nullptr; ++text)
    {
        texts.emplace_back(*text);
    }
    return texts;
}

} // namespace

bool ReadOptions(const SCommand& a_command, std::vector<std::string> a_arguments, SOptions& a_options, int& a_exit)
{
    char** layouts = nullptr;
    char** taps = nullptr;
    char* theme = nullptr;
    char* language = nullptr;
    char* size = nullptr;
    char* output = nullptr;
    gboolean verbose = FALSE;
    gboolean once = FALSE;
    std::vector<GOptionEntry> entries;
    if ((a_command.options & eoLayout) != 0)
    {
        entries.push_back({"layout", 'l', 0, G_OPTION_ARG_STRING_ARRAY, &layouts,
                           "a layout, Main if none is given; may be repeated", "ID"});
    }
    if ((a_command.options & eoStyle) != 0)
    {
        entries.push_back({"theme", 't', 0, G_OPTION_ARG_STRING, &theme, "in place of the default theme", "ID"});
        entries.push_back(
            {"language", 'L', 0, G_OPTION_ARG_STRING, &language, "in place of the environment's", "LANGUAGE"});
        entries.push_back(
            {"size", 's', 0, G_OPTION_ARG_STRING, &size, "of the stage in pixels, 800x480 if not given", "WxH"});
    }
    if ((a_command.options & eoTap) != 0)
    {
        entries.push_back({"tap", 'T', 0, G_OPTION_ARG_STRING_ARRAY, &taps,
                           "touches a widget of each layout first; may be repeated", "PATH"});
    }
    const bool takesFile = (a_command.options & eoFile) != 0;
    const bool needsOutput = (a_command.options & eoOutput) != 0;
    if (takesFile || needsOutput)
    {
        entries.push_back({"output", 'o', 0, G_OPTION_ARG_FILENAME, &output,
                           takesFile ? "the file to write" : "the folder to write to", "OUT"});
    }
    if ((a_command.options & eoOnce) != 0)
    {
        entries.push_back({"once", 0, 0, G_OPTION_ARG_NONE, &once, "ends after the first frame", nullptr});
    }
    entries.push_back({"verbose", 'v', 0, G_OPTION_ARG_NONE, &verbose, "shows the toolkit's log", nullptr});
    entries.push_back({nullptr, 0, 0, G_OPTION_ARG_NONE, nullptr, nullptr, nullptr});

    const std::unique_ptr<GOptionContext, decltype(&g_option_context_free)> context(
        g_option_context_new(takesFile ? "FILE" : "DIR"), g_option_context_free);
    g_option_context_set_summary(context.get(), a_command.description);
    g_option_context_add_main_entries(context.get(), entries.data(), nullptr);
    g_option_context_set_help_enabled(context.get(), FALSE);

    std::vector<char*> pointers;
    const std::string program = std::string("gfx ") + a_command.name;
    g_set_prgname(program.c_str());
    pointers.push_back(const_cast<char*>(program.c_str()));
    bool help = false;
    for (std::string& argument : a_arguments)
    {
        help = help || argument == "--help" || argument == "-h";
        pointers.push_back(argument.data());
    }
    if (help)
    {
        char* text = g_option_context_get_help(context.get(), TRUE, nullptr);
        std::fputs(Take(text).c_str(), stdout);
        a_exit = eeSuccess;
        return false;
    }
    pointers.push_back(nullptr);
    int count = static_cast<int>(pointers.size()) - 1;
    char** arguments = pointers.data();
    GError* error = nullptr;
    const bool parsed = g_option_context_parse(context.get(), &count, &arguments, &error) == TRUE;
    a_options.layouts = Take(layouts);
    a_options.taps = Take(taps);
    a_options.theme = Take(theme);
    a_options.language = Take(language);
    a_options.output = Take(output);
    a_options.verbose = verbose == TRUE;
    a_options.once = once == TRUE;
    const std::string sizeText = Take(size);
    if (!parsed)
    {
        a_exit = Fail(a_command, error->message);
        g_error_free(error);
        return false;
    }
    if (count != 2)
    {
        const std::string operand = takesFile ? "file" : "data directory";
        a_exit = Fail(a_command, count < 2 ? "which " + operand + "?" : "one " + operand + " at a time");
        return false;
    }
    if (!sizeText.empty() && !ReadSize(sizeText, a_options.width, a_options.height))
    {
        a_exit = Fail(a_command, '"' + sizeText + "\" is no size such as 800x480");
        return false;
    }
    if (needsOutput && a_options.output.empty())
    {
        a_exit = Fail(a_command, "which folder to write to? (--output)");
        return false;
    }
    if (takesFile)
    {
        a_options.file = arguments[1];
        return true;
    }
    a_options.directory = arguments[1];
    if (!a_options.directory.ends_with('/'))
    {
        a_options.directory += '/';
    }
    return true;
}

} // namespace Tool
