// The console of a greenhouse: its screens are the layouts of demo/greenhouse.

#include "demo/Greenhouse.h"
#include "demo/Start.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace
{

using Core::Patterns::StaticSingleton;

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
            if (!Demo::WritePicture(a_folder + '/' + theme + '-' + page.id + ".png"))
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
    const Demo::SPictureOptions options = Demo::ReadPictureOptions(a_argc, a_argv);
    if (options.isWrong)
    {
        return 2;
    }
    const std::string data = DataDirectory();
    if (!Demo::SetUpConsole(data, "Greenhouse"))
    {
        return 1;
    }
    StaticSingleton<Gfx::Managers::C3DManager>::ref().Initialise(data);
    Demo::CGreenhouse greenhouse;
    if (options.AskForPictures())
    {
        return Demo::WritePictures(options, WritePictures);
    }
    const auto step = [&greenhouse]
    {
        greenhouse.Step();
        return true;
    };
    Gfx::Managers::CTimerManager::ref().AddTimeoutMs(k_stepMs, Core::Functor<bool>::Make(step));
    StaticSingleton<Gfx::Managers::CGfxManager>::ref().StartMainLoop();
    return 0;
}
