#include "Core/Utilities.h"

#include "Core/LexicalCast.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace Core::Utilities
{

bool FileExists(const std::string& a_path)
{
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(a_path, error);
    return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

int SplitString(std::string_view a_text, std::string_view a_delimiter, std::vector<std::string>& a_result,
                int a_dropEmpty)
{
    if (a_delimiter.empty() || a_text.find(a_delimiter) == std::string_view::npos)
    {
        return 0;
    }

    // a_text may be one of the strings in a_result.
    std::vector<std::string> pieces;
    std::size_t start = 0;
    while (start <= a_text.size())
    {
        const std::size_t end = std::min(a_text.find(a_delimiter, start), a_text.size());
        if (a_dropEmpty == 0 || end > start)
        {
            pieces.emplace_back(a_text.substr(start, end - start));
        }
        start = end == a_text.size() ? end + 1 : end + a_delimiter.size();
    }
    a_result = std::move(pieces);
    return 1;
}

std::string StringToLower(std::string a_text)
{
    for (char& character : a_text)
    {
        if (character >= 'A' && character <= 'Z')
        {
            character = static_cast<char>(character - 'A' + 'a');
        }
    }
    return a_text;
}

std::string trim(std::string_view a_text)
{
    const std::size_t first = a_text.find_first_not_of(k_whiteSpace);
    if (first == std::string_view::npos)
    {
        return {};
    }
    return std::string(a_text.substr(first, a_text.find_last_not_of(k_whiteSpace) - first + 1));
}

} // namespace Core::Utilities
