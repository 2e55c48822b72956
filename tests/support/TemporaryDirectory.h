#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

namespace GfxTest
{

/// A new folder that is removed with all that is in it.
class CTemporaryDirectory
{
public:
    CTemporaryDirectory()
    {
        std::string path = testing::TempDir() + "gfx-test-XXXXXX";
        if (mkdtemp(path.data()))
        {
            m_path = path + "/";
        }
        else
        {
            ADD_FAILURE() << "can't make " << path;
        }
    }

    ~CTemporaryDirectory()
    {
        if (!m_path.empty())
        {
            std::error_code error;
            std::filesystem::remove_all(m_path, error);
        }
    }

    CTemporaryDirectory(const CTemporaryDirectory&) = delete;
    CTemporaryDirectory& operator=(const CTemporaryDirectory&) = delete;

    /// With a slash at its end.
    [[nodiscard]] const std::string& Path() const { return m_path; }

    /// Writes a file, and the folders above it; returns its path.
    std::string Write(const std::string& a_relativePath, std::string_view a_text) const
    {
        const std::filesystem::path path = m_path + a_relativePath;
        std::error_code error;
        std::filesystem::create_directories(path.parent_path(), error);
        std::ofstream file(path, std::ios::binary);
        file.write(a_text.data(), static_cast<std::streamsize>(a_text.size()));
        file.close();
        EXPECT_TRUE(file) << "can't write " << path;
        return path.string();
    }

    /// Writes what a start can't do without: a theme, and a table of textures, both empty.
    void WriteRequiredFiles() const
    {
        Write("Configuration/ThemeConfig.xml", R"(<Themes><Theme id="Plain"/></Themes>)");
        Write("TextureMaps/TextureConfig.xml", "<Textures/>");
    }

private:
    std::string m_path;
};

} // namespace GfxTest
