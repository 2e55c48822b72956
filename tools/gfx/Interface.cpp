#include "Interface.h"

#include <Gfx/Gfx.h>
#include <glib.h>

#include <algorithm>
#include <cstdio>

namespace Tool
{

using Core::Patterns::StaticSingleton;
using Gfx::Managers::CGfxManager;
using Gfx::Managers::CInputManager;
using Gfx::Managers::CLayoutManager;
using Gfx::Managers::CThemeManager;
using Gfx::Managers::CWidgetManager;

namespace
{

constexpr const char* k_all = "all";
constexpr const char* k_mainLayout = "Main";
constexpr const char* k_baseLanguage = "en";

/// Above everything that the toolkit logs.
constexpr auto k_silent = static_cast<Core::Logging::ELogEventLevel>(100);

std::string Join(const std::vector<std::string>& a_names)
{
    std::string text;
    for (const std::string& name : a_names)
    {
        text += (text.empty() ? "" : ", ") + name;
    }
    return text.empty() ? "none" : text;
}

bool Has(const std::vector<std::string>& a_names, const std::string& a_name)
{
    return std::find(a_names.begin(), a_names.end(), a_name) != a_names.end();
}

bool Tap(const std::string& a_path)
{
    using namespace Gfx::Events;
    CWidgetManager& manager = StaticSingleton<CWidgetManager>::ref();
    const auto widget = manager.FindWidget(a_path, nullptr);
    if (!widget)
    {
        std::fprintf(stderr, "gfx: there is no widget %s to touch\n", a_path.c_str());
        return false;
    }
    const Gfx::Common::CPoint middle =
        widget->AbsoluteTopLeft() + Gfx::Common::CPoint(widget->Width() / 2, widget->Height() / 2);
    manager.MouseEvent(FirstDown, embFirst, middle, false);
    manager.MouseEvent(FirstUp, 0, middle, false);
    return true;
}

} // namespace

void RegisterElements()
{
    static CLayoutManager::ElementConstructor::Function s_fields(
        &Gfx::Managers::ElementBuilder<Gfx::Layout::CNumericEditBoxElement>);
    StaticSingleton<CLayoutManager>::ref().RegisterElementConstructor("NumericEditBox", &s_fields);
}

bool StartInterface(const SOptions& a_options)
{
    RegisterElements();
    if (!g_file_test(a_options.directory.c_str(), G_FILE_TEST_IS_DIR))
    {
        std::fprintf(stderr, "gfx: %s is no directory\n", a_options.directory.c_str());
        return false;
    }
    // A directory without themes has no interface; the toolkit would end the process.
    const std::string themeFile = a_options.directory + "Configuration/ThemeConfig.xml";
    if (!g_file_test(themeFile.c_str(), G_FILE_TEST_IS_REGULAR))
    {
        std::fprintf(stderr, "gfx: there is no %s\n", themeFile.c_str());
        return false;
    }
    if (!a_options.verbose)
    {
        StaticSingleton<Core::Logging::CLogger>::ref().Configure(k_silent, k_silent, true, "gfx");
    }
    CGfxManager& gfx = StaticSingleton<CGfxManager>::ref();
    if (!gfx.Setup(a_options.directory, a_options.directory + " - gfx", {0, 0}, a_options.width, a_options.height, 0,
                   nullptr, Gfx::Colours::Black))
    {
        std::fputs("gfx: no display with OpenGL can be opened\n", stderr);
        return false;
    }
    CInputManager& input = StaticSingleton<CInputManager>::ref();
    if (!input.HasPanel())
    {
        // A desktop's pointer reports pixels of the stage.
        input.UseCalibration(CInputManager::k_identity);
    }
    CThemeManager& themes = StaticSingleton<CThemeManager>::ref();
    if (!a_options.theme.empty() && a_options.theme != k_all)
    {
        if (!Has(themes.ThemeIds(), a_options.theme))
        {
            std::fprintf(stderr, "gfx: there is no theme %s; there are: %s\n", a_options.theme.c_str(),
                         Join(themes.ThemeIds()).c_str());
            return false;
        }
        themes.SetTheme(a_options.theme);
    }
    if (!a_options.language.empty() && a_options.language != k_all &&
        !Core::Localisation::CManager::Instance()->SetLanguage(a_options.language))
    {
        std::fprintf(stderr, "gfx: there is no language %s; there are: %s\n", a_options.language.c_str(),
                     Join(AllLanguages()).c_str());
        return false;
    }
    return true;
}

bool HasLayout(const std::string& a_id, const std::string& a_directory)
{
    const std::vector<std::string> ids = StaticSingleton<CLayoutManager>::ref().LayoutIds();
    if (Has(ids, a_id))
    {
        return true;
    }
    std::fprintf(stderr, "gfx: there is no layout %s in %sLayouts; there are: %s\n", a_id.c_str(), a_directory.c_str(),
                 Join(ids).c_str());
    return false;
}

bool ShowLayout(const std::string& a_id, const SOptions& a_options)
{
    if (!HasLayout(a_id, a_options.directory))
    {
        return false;
    }
    CLayoutManager& layouts = StaticSingleton<CLayoutManager>::ref();
    layouts.ApplyLayout(a_id);
    for (const auto& widget : layouts.RetrieveLayout(a_id))
    {
        if (dynamic_cast<const Gfx::Widgets::CWizardStage*>(widget.Get()) != nullptr)
        {
            widget->Show();
        }
    }
    const auto& taps = a_options.taps;
    return std::all_of(taps.begin(), taps.end(), Tap);
}

std::vector<std::string> WantedLayouts(const SOptions& a_options)
{
    if (Has(a_options.layouts, k_all))
    {
        return StaticSingleton<CLayoutManager>::ref().LayoutIds();
    }
    return a_options.layouts.empty() ? std::vector<std::string>{k_mainLayout} : a_options.layouts;
}

std::vector<std::string> AllLanguages()
{
    std::vector<std::string> languages = Core::Localisation::CManager::Instance()->Languages();
    if (!Has(languages, k_baseLanguage))
    {
        languages.insert(languages.begin(), k_baseLanguage);
    }
    return languages;
}

std::size_t Print(const std::vector<std::string>& a_findings)
{
    for (const std::string& finding : a_findings)
    {
        std::fprintf(stderr, "%s\n", finding.c_str());
    }
    return a_findings.size();
}

} // namespace Tool
