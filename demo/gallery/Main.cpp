// The console that shows every control, in its themes and languages.

#include "Gallery.h"

#include "demo/Start.h"

#include <string>

namespace
{

using Core::Patterns::StaticSingleton;

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
    if (!Demo::SetUpConsole("data/", "libGfx"))
    {
        return 1;
    }
    Demo::CGallery gallery;
    if (options.AskForPictures())
    {
        return Demo::WritePictures(options,
                                   [&](const std::string& a_folder) { return WritePictures(gallery, a_folder); });
    }
    StaticSingleton<Gfx::Managers::CGfxManager>::ref().StartMainLoop();
    return 0;
}
