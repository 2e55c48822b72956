#include "DataCopy.h"

#include "Report.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace Soak
{

namespace fs = std::filesystem;

namespace
{

std::string Read(const std::string& a_path)
{
    std::ifstream file(a_path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

bool IsText(const std::string& a_file)
{
    return a_file.ends_with(".xml");
}

/// Moves the number in one of a layout's positions, or writes a text's first letter as another one.
std::string Altered(const std::string& a_content, const Chance& a_chance)
{
    std::vector<std::size_t> places;
    for (const std::string mark : {" x=\"", " y=\"", "text=\"Localised:"})
    {
        for (std::size_t at = a_content.find(mark); at != std::string::npos; at = a_content.find(mark, at + 1))
        {
            places.push_back(at + mark.size());
        }
    }
    std::string altered = a_content;
    if (!places.empty())
    {
        char& character = altered[places[static_cast<std::size_t>(a_chance(static_cast<int>(places.size())))]];
        character = character >= '0' && character <= '8' ? static_cast<char>(character + 1) : '0';
    }
    else if (const std::size_t at = altered.find("\"DarkSlateGray\""); at != std::string::npos)
    {
        altered.replace(at, std::string("\"DarkSlateGray\"").size(), "\"Navy\"");
    }
    return altered;
}

} // namespace

CDataCopy::CDataCopy()
{
    std::string path = (fs::temp_directory_path() / "gfx-soak-XXXXXX").string();
    if (mkdtemp(path.data()) == nullptr)
    {
        Fail("can't make " + path);
    }
    m_path = path + '/';
    fs::copy(GFX_DEMO_DATA, m_path, fs::copy_options::recursive);
    for (const auto& entry : fs::recursive_directory_iterator(m_path))
    {
        if (entry.is_regular_file())
        {
            m_files.push_back(fs::relative(entry.path(), m_path).string());
            m_contents[m_files.back()] = Read(entry.path().string());
        }
    }
    // Whatever the order in which the file system has them.
    std::sort(m_files.begin(), m_files.end());
}

CDataCopy::~CDataCopy()
{
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

std::vector<std::string> CDataCopy::Layouts() const
{
    std::vector<std::string> layouts;
    for (const std::string& file : m_files)
    {
        if (file.starts_with("Layouts/"))
        {
            layouts.push_back(m_path + file);
        }
    }
    return layouts;
}

const std::string& CDataCopy::Any(const Chance& a_chance) const
{
    return m_files[static_cast<std::size_t>(a_chance(static_cast<int>(m_files.size())))];
}

void CDataCopy::Write(const std::string& a_file, const std::string& a_content)
{
    std::ofstream file(m_path + a_file, std::ios::binary);
    file << a_content;
    if (!file.flush())
    {
        Fail("can't write " + m_path + a_file);
    }
}

std::string CDataCopy::Touch(const Chance& a_chance)
{
    const std::string& file = Any(a_chance);
    if (m_changed.count(file) == 0)
    {
        Write(file, m_contents[file]);
    }
    return "touch " + file;
}

std::string CDataCopy::Change(const Chance& a_chance)
{
    const std::string& file = Any(a_chance);
    m_changed.insert(file);
    if (IsText(file))
    {
        Write(file, Altered(m_contents[file], a_chance));
        return "change " + file;
    }
    // Another file of its kind in its folder.
    std::vector<std::string> kin;
    for (const std::string& other : m_files)
    {
        if (fs::path(other).parent_path() == fs::path(file).parent_path() &&
            fs::path(other).extension() == fs::path(file).extension())
        {
            kin.push_back(other);
        }
    }
    const std::string& source = kin[static_cast<std::size_t>(a_chance(static_cast<int>(kin.size())))];
    Write(file, m_contents[source]);
    return "change " + file + " into " + source;
}

std::string CDataCopy::Damage(const Chance& a_chance)
{
    const std::string& file = Any(a_chance);
    m_changed.insert(file);
    m_isDamaged = true;
    std::string content = m_contents[file];
    const auto place = static_cast<std::size_t>(a_chance(static_cast<int>(content.size())));
    switch (a_chance(4))
    {
    case 0: fs::remove(m_path + file); return "remove " + file;
    case 1: Write(file, content.substr(0, place)); return "cut " + file + " at " + std::to_string(place);
    case 2: Write(file, ""); return "empty " + file;
    default:
        content[place] = static_cast<char>(a_chance(256));
        Write(file, content);
        return "spoil " + file + " at " + std::to_string(place);
    }
}

void CDataCopy::Restore()
{
    for (const std::string& file : m_changed)
    {
        Write(file, m_contents[file]);
    }
    m_changed.clear();
    m_isDamaged = false;
}

} // namespace Soak
