// The console of a greenhouse: its screens are the layouts of demo/greenhouse.

#include "demo/Greenhouse.h"

#include <clutter/clutter.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

namespace
{

using Core::Patterns::StaticSingleton;
using Gfx::Managers::CGfxManager;
using Gfx::Managers::CInputManager;

constexpr int k_stageWidth = 800;
constexpr int k_stageHeight = 480;
/// A minute of the greenhouse.
constexpr int k_stepMs = 1000;

/// In the source tree, or where the program is installed.
std::string DataDirectory()
{
    const std::string source = "demo/greenhouse/";
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return std::filesystem::is_directory(source, error) ? source : (program.parent_path() / GFX_DEMO_DATA).string();
}

/// Draws a whole frame and writes it; false if that fails.
bool WritePicture(const std::string& a_path)
{
    const std::string png = StaticSingleton<CGfxManager>::ref().TrueScreenShot();
    std::ofstream file(a_path, std::ios::binary);
    file << png;
    if (png.empty() || !file.flush())
    {
        std::fprintf(stderr, "gfx-demo: can't write %s\n", a_path.c_str());
        return false;
    }
    return true;
}

/// Every page of the rail in every theme.
bool WritePictures(const std::string& a_folder)
{
    auto& widgets = StaticSingleton<Gfx::Managers::CWidgetManager>::ref();
    auto& rail = dynamic_cast<Gfx::Widgets::CListGrid&>(*widgets.FindWidget("Navigation:Pages", nullptr));
    for (const std::string& theme : StaticSingleton<Gfx::Managers::CThemeManager>::ref().ThemeIds())
    {
        StaticSingleton<Gfx::Managers::CLayoutManager>::ref().PostNotification("Theme", theme, {});
        for (const auto& page : rail.Items())
        {
            rail.ToggleItem(page.id, true);
            if (!WritePicture(a_folder + '/' + theme + '-' + page.id + ".png"))
            {
                return false;
            }
        }
    }
    return true;
}

} // namespace

int main(int a_argc, char** a_argv)
{
    const bool isPicture = a_argc == 3 && std::string_view(a_argv[1]) == "--screenshot";
    const bool arePictures = a_argc == 3 && std::string_view(a_argv[1]) == "--screenshots";
    if (a_argc > 1 && !isPicture && !arePictures)
    {
        std::fprintf(stderr, "usage: %s [--screenshot FILE | --screenshots FOLDER]\n", a_argv[0]);
        return 2;
    }
    const std::string data = DataDirectory();
    CGfxManager& gfx = StaticSingleton<CGfxManager>::ref();
    if (!gfx.Setup(data, "Greenhouse", {0, 0}, k_stageWidth, k_stageHeight, 0, nullptr, Gfx::Colours::Black))
    {
        return 1;
    }
    CInputManager& input = StaticSingleton<CInputManager>::ref();
    if (!input.HasPanel())
    {
        // The pointer of a desktop reports pixels of the stage.
        input.UseCalibration(CInputManager::k_identity);
    }
    StaticSingleton<Gfx::Managers::C3DManager>::ref().Initialise(data);
    Demo::CGreenhouse greenhouse;
    if (isPicture || arePictures)
    {
        clutter_actor_show(gfx.GetStage());
        return (isPicture ? WritePicture(a_argv[2]) : WritePictures(a_argv[2])) ? 0 : 1;
    }
    const auto step = [&greenhouse]
    {
        greenhouse.Step();
        return true;
    };
    Gfx::Managers::CTimerManager::ref().AddTimeoutMs(k_stepMs, Core::Functor<bool>::Make(step));
    gfx.StartMainLoop();
    return 0;
}
