#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace GfxTest
{

/// A directory of the test's own, gone at the end of its scope with all that is in it.
class CTemporaryDirectory
{
public:
    CTemporaryDirectory()
    {
        std::string pattern = testing::TempDir() + "gfx-test-XXXXXX";
        if (mkdtemp(pattern.data()) == nullptr)
        {
            ADD_FAILURE() << "can't make a directory like " << pattern;
            std::abort();
        }
        m_path = pattern + "/";
    }
    ~CTemporaryDirectory()
    {
        std::error_code error;
        std::filesystem::remove_all(m_path, error);
    }
    CTemporaryDirectory(const CTemporaryDirectory&) = delete;
    CTemporaryDirectory& operator=(const CTemporaryDirectory&) = delete;

    /// Writes a file, making the folders on the way; returns its path.
    std::string Write(const std::string& a_relativePath, const std::string& a_content) const
    {
        const std::filesystem::path path = m_path + a_relativePath;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << a_content;
        return path.string();
    }

    /// With a separator at its end.
    [[nodiscard]] const std::string& Path() const { return m_path; }

private:
    std::string m_path;
};

} // namespace GfxTest
