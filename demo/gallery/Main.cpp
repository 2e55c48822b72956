// The console that shows every control, in its themes and languages.

#include "Gallery.h"

#include "demo/Pictures.h"

#include <clutter/clutter.h>

#include <string>

namespace
{

using Core::Patterns::StaticSingleton;
using Gfx::Managers::CGfxManager;
using Gfx::Managers::CInputManager;

constexpr int k_stageWidth = 800;
constexpr int k_stageHeight = 480;

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
            if (!Demo::WritePicture(path + ".png"))
            {
                return false;
            }
            if (Gfx::Widgets::CWidget* const extra = a_gallery.ShowExtra(page))
            {
                const bool written = Demo::WritePicture(path + "-Open.png");
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
    const Demo::SPictureOptions options = Demo::ReadPictureOptions(a_argc, a_argv);
    if (options.isWrong)
    {
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
    if (!options.file.empty() || !options.folder.empty())
    {
        clutter_actor_show(gfx.GetStage());
        return (options.folder.empty() ? Demo::WritePicture(options.file) : WritePictures(gallery, options.folder)) ? 0
                                                                                                                    : 1;
    }
    gfx.StartMainLoop();
    return 0;
}
