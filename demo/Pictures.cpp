#include "demo/Pictures.h"

#include <Gfx/Gfx.h>

#include <cstdio>
#include <fstream>
#include <string_view>

namespace Demo
{

bool WritePicture(const std::string& a_path)
{
    const std::string png = Core::Patterns::StaticSingleton<Gfx::Managers::CGfxManager>::ref().TrueScreenShot();
    std::ofstream file(a_path, std::ios::binary);
    file << png;
    if (png.empty() || !file.flush())
    {
        std::fprintf(stderr, "can't write %s\n", a_path.c_str());
        return false;
    }
    return true;
}

SPictureOptions ReadPictureOptions(int a_argc, char** a_argv)
{
    SPictureOptions options;
    const std::string_view option = a_argc == 3 ? a_argv[1] : "";
    if (option == "--screenshot")
    {
        options.file = a_argv[2];
    }
    else if (option == "--screenshots")
    {
        options.folder = a_argv[2];
    }
    else if (a_argc > 1)
    {
        std::fprintf(stderr, "usage: %s [--screenshot FILE | --screenshots FOLDER]\n", a_argv[0]);
        options.isWrong = true;
    }
    return options;
}

} // namespace Demo
