#pragma once

#include <string>

namespace Demo
{

/// Draws a whole frame and writes it as PNG; false, with a line, if that fails.
[[nodiscard]] bool WritePicture(const std::string& a_path);

/// What a demo's command line asks for: nothing, or a picture, or a folder of pictures.
struct SPictureOptions
{
    bool isWrong = false;
    std::string file;
    std::string folder;

    [[nodiscard]] bool AskForPictures() const { return !file.empty() || !folder.empty(); }
};

/// Explains a wrong command line.
[[nodiscard]] SPictureOptions ReadPictureOptions(int a_argc, char** a_argv);

} // namespace Demo
