#include "Commands.h"
#include "Interface.h"
#include "OwnDisplay.h"

#include <Gfx/Gfx.h>
#include <clutter/clutter.h>
#include <glib.h>

#include <cstdio>
#include <set>

namespace Tool
{

using Core::Patterns::StaticSingleton;
using Gfx::Managers::CGfxManager;
using Gfx::Managers::CThemeManager;
using Gfx::Managers::CWidgetManager;

namespace
{

constexpr const char* k_head = R"(<!DOCTYPE html>
<html><head><meta charset="utf-8"><title>Screens</title><style>
body { font-family: sans-serif; background: #eceff1; color: #263238; margin: 2em }
main { display: grid; grid-template-columns: repeat(auto-fill, minmax(420px, 1fr)); gap: 1.5em }
figure { margin: 0; background: white; padding: 0.75em; border-radius: 6px; box-shadow: 0 1px 4px #0003 }
img { width: 100%; height: auto; display: block }
figcaption { padding-top: 0.6em; font-size: 0.9em }
</style></head><body><h1>Screens</h1><main>
)";
constexpr const char* k_tail = "</main></body></html>\n";

bool Write(const std::string& a_path, const std::string& a_content)
{
    GError* error = nullptr;
    if (g_file_set_contents(a_path.c_str(), a_content.data(), static_cast<gssize>(a_content.size()), &error))
    {
        return true;
    }
    std::fprintf(stderr, "gfx: %s\n", error->message);
    g_error_free(error);
    return false;
}

std::string Escaped(const std::string& a_text)
{
    const std::unique_ptr<char, decltype(&g_free)> escaped(g_markup_escape_text(a_text.c_str(), -1), g_free);
    return escaped.get();
}

/// Layouts may have any names; files and addresses may not.
class CFileNames
{
public:
    std::string Make(const std::string& a_layout, const std::string& a_theme, const std::string& a_language)
    {
        std::string name = a_layout + '-' + a_theme + '-' + a_language;
        for (char& letter : name)
        {
            if (!g_ascii_isalnum(letter) && letter != '-' && letter != '_')
            {
                letter = '_';
            }
        }
        std::string unique = name;
        for (int i = 2; !m_names.insert(unique).second; ++i)
        {
            unique = name + '_' + std::to_string(i);
        }
        return unique;
    }

private:
    std::set<std::string> m_names;
};

void DestroyAll()
{
    CWidgetManager& manager = StaticSingleton<CWidgetManager>::ref();
    for (const auto& widget : manager.TopLevelWidgets())
    {
        manager.DestroyWidget(widget.Get());
    }
    manager.GarbageCollect();
}

std::string DumpAll()
{
    std::string dump;
    for (const auto& widget : StaticSingleton<CWidgetManager>::ref().TopLevelWidgets())
    {
        dump += widget->GetWidgetInfo();
    }
    return dump;
}

/// The names that an option stands for.
std::vector<std::string> Choices(const std::string& a_option, const std::vector<std::string>& a_all,
                                 const std::string& a_current)
{
    return a_option == "all" ? a_all : std::vector<std::string>{a_current};
}

} // namespace

int Shot(const SOptions& a_options)
{
    const COwnDisplay display;
    if (!StartInterface(a_options))
    {
        return eeFailure;
    }
    if (g_mkdir_with_parents(a_options.output.c_str(), 0777) != 0)
    {
        std::fprintf(stderr, "gfx: %s can't be made\n", a_options.output.c_str());
        return eeFailure;
    }
    CGfxManager& gfx = StaticSingleton<CGfxManager>::ref();
    CThemeManager& themes = StaticSingleton<CThemeManager>::ref();
    Core::Localisation::CManager& localisation = *Core::Localisation::CManager::Instance();
    clutter_actor_show(gfx.GetStage());
    const std::vector<std::string> themeIds = Choices(a_options.theme, themes.ThemeIds(), themes.GetTheme());
    const std::vector<std::string> languages = Choices(a_options.language, AllLanguages(), localisation.Language());
    const std::string folder = a_options.output + '/';
    CFileNames names;
    std::string index = k_head;
    for (const std::string& layout : WantedLayouts(a_options))
    {
        if (!ShowLayout(layout, a_options))
        {
            return eeFailure;
        }
        for (const std::string& theme : themeIds)
        {
            themes.SetTheme(theme);
            for (const std::string& language : languages)
            {
                const std::string name = names.Make(layout, theme, language);
                if (!localisation.SetLanguage(language) || !Write(folder + name + ".png", gfx.TrueScreenShot()) ||
                    !Write(folder + name + ".xml", DumpAll()))
                {
                    return eeFailure;
                }
                index += "<figure><a href=\"" + name + ".png\"><img src=\"" + name +
                         ".png\" alt=\"\"></a><figcaption>" + Escaped(layout + " · " + theme + " · " + language) +
                         " · <a href=\"" + name + ".xml\">widgets</a></figcaption></figure>\n";
            }
        }
        DestroyAll();
    }
    return Write(folder + "index.html", index + k_tail) ? eeSuccess : eeFailure;
}

} // namespace Tool
