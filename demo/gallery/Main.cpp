// The console that shows every control, in its themes and languages.

#include "Gallery.h"

#include <clutter/clutter.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <string>
#include <string_view>

namespace
{

using Core::Patterns::StaticSingleton;
using Gfx::Managers::CGfxManager;
using Gfx::Managers::CInputManager;

constexpr int k_stageWidth = 800;
constexpr int k_stageHeight = 480;

/// Draws a whole frame and writes it; false if that fails.
bool WritePicture(const std::string& a_path)
{
    const std::string png = StaticSingleton<CGfxManager>::ref().TrueScreenShot();
    std::ofstream file(a_path, std::ios::binary);
    file << png;
    if (png.empty() || !file.flush())
    {
        std::fprintf(stderr, "gfx-gallery: can't write %s\n", a_path.c_str());
        return false;
    }
    return true;
}

/// Every page in every theme, and what comes up over it by a touch.
bool WritePictures(Demo::CGallery& a_gallery, const std::string& a_folder)
{
    auto& widgets = StaticSingleton<Gfx::Managers::CWidgetManager>::ref();
    for (const char* theme : {"Day", "Night", "Contrast"})
    {
        Demo::CGallery::SetTheme(theme);
        for (std::size_t page = 0; page < a_gallery.PageCount(); ++page)
        {
            a_gallery.ShowPage(page);
            const std::string path = a_folder + '/' + theme + '-' + a_gallery.PageName(page);
            if (!WritePicture(path + ".png"))
            {
                return false;
            }
            if (Gfx::Widgets::CWidget* const extra = a_gallery.ShowExtra(page))
            {
                const bool written = WritePicture(path + "-Open.png");
                widgets.DestroyWidget(extra);
                if (!written)
                {
                    return false;
                }
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

    static Core::Localisation::CManager s_localisation("demo/gallery/");
    Core::Localisation::CManager::Instance(&s_localisation);
    CGfxManager& gfx = StaticSingleton<CGfxManager>::ref();
    if (!gfx.Setup("data/", "libGfx", {0, 0}, k_stageWidth, k_stageHeight, 0, nullptr, Gfx::Colours::Black))
    {
        return 1;
    }
    // The pointer of a desktop reports pixels of the stage.
    StaticSingleton<CInputManager>::ref().UseCalibration(CInputManager::k_identity);
    Demo::CGallery gallery;
    if (isPicture || arePictures)
    {
        clutter_actor_show(gfx.GetStage());
        return (isPicture ? WritePicture(a_argv[2]) : WritePictures(gallery, a_argv[2])) ? 0 : 1;
    }
    gfx.StartMainLoop();
    return 0;
}
