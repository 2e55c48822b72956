#include "Gfx/Common/ObjectLoader.h"

#include "Core/Assert.h"
#include "Gfx/Common/GroupBuilder.h"

#include <locale.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <deque>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace Gfx::Managers
{

namespace
{

using Core::Maths::Vector2;
using Core::Maths::Vector3;

bool IsBlank(char a_character)
{
    return a_character == ' ' || (a_character >= '\t' && a_character <= '\r');
}

bool IsLetter(char a_character)
{
    const int lower = a_character | 0x20;
    return lower >= 'a' && lower <= 'z';
}

/// Reads a number at the start of a text by the C library itself; gives its end, or null for none. It is slow, and
/// alone knows what becomes of numbers like 1e999, 0x10, 3e and infi.
const char* ReadByCLibrary(std::string_view a_text, float& a_number)
{
    static const locale_t s_locale = newlocale(LC_ALL_MASK, "C", nullptr);
    const locale_t previous = uselocale(s_locale);
    int length = 0;
    const bool isNumber = std::sscanf(std::string(a_text).c_str(), "%f%n", &a_number, &length) == 1;
    uselocale(previous);
    return isNumber ? a_text.data() + length : nullptr;
}

/// Reads numbers from a text, one after the other, as scanf does with %f and %d, whatever the locale.
class CNumbers
{
public:
    explicit CNumbers(std::string_view a_text) : m_at(a_text.data()), m_end(a_text.data() + a_text.size()) {}

    [[nodiscard]] bool Read(float& a_number)
    {
        const char* const from = Begin();
        const auto result = std::from_chars(from, m_end, a_number);
        if (result.ec == std::errc::invalid_argument)
        {
            return false;
        }
        const bool isPlain =
            result.ec == std::errc() && (result.ptr == m_end || !IsLetter(*result.ptr)) && result.ptr[-1] != ')';
        m_at = isPlain ? result.ptr : ReadByCLibrary({from, m_end}, a_number);
        return m_at != nullptr;
    }

    [[nodiscard]] bool Read(int& a_number)
    {
        const char* const from = Begin();
        const auto result = std::from_chars(from, m_end, a_number);
        m_at = result.ptr;
        if (result.ec == std::errc::result_out_of_range)
        {
            a_number = *from == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
        }
        return result.ec != std::errc::invalid_argument;
    }

    [[nodiscard]] bool Skip(char a_character)
    {
        const bool isThere = m_at != m_end && *m_at == a_character;
        m_at += isThere ? 1 : 0;
        return isThere;
    }

private:
    /// Where the next number begins, past blanks and a plus sign; the end for a plus sign before a minus sign.
    const char* Begin()
    {
        while (m_at != m_end && IsBlank(*m_at))
        {
            ++m_at;
        }
        if (Skip('+') && m_at != m_end && *m_at == '-')
        {
            m_at = m_end;
        }
        return m_at;
    }

    const char* m_at;
    const char* m_end;
};

using FilePtr = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

FilePtr Open(const std::string& a_path)
{
    return {std::fopen(a_path.c_str(), "rb"), std::fclose};
}

/// The lines of a file. Of a line beyond k_longestLine bytes, the rest is left out.
class CLines
{
public:
    explicit CLines(std::FILE* a_file) : m_file(a_file), m_buffer(new char[k_longestLine]) {}

    /// False at the end. The line has no newline, and lives until the next call.
    [[nodiscard]] bool Next(std::string_view& a_line)
    {
        for (bool isRest = m_isCut;; isRest = m_isCut)
        {
            const char* const from = m_buffer.get() + m_from;
            const std::size_t left = m_filled - m_from;
            const auto* const newline =
                static_cast<const char*>(std::memchr(from + m_searched, '\n', left - m_searched));
            if (newline == nullptr && left < k_longestLine && !m_isAtEnd)
            {
                Fill();
                continue;
            }
            if (newline == nullptr && left == 0)
            {
                return false;
            }
            a_line = {from, newline != nullptr ? static_cast<std::size_t>(newline - from) : left};
            m_from += a_line.size() + (newline != nullptr ? 1 : 0);
            m_searched = 0;
            m_isCut = newline == nullptr;
            if (!isRest)
            {
                return true;
            }
        }
    }

    /// The file is larger than models may be; then its lines end early.
    [[nodiscard]] bool IsTooLarge() const { return m_bytesRead > k_largestModelFile; }

private:
    static constexpr std::size_t k_longestLine = std::size_t{64} << 10U;

    /// Reads more, behind what isn't a whole line yet.
    void Fill()
    {
        m_searched = m_filled - m_from;
        std::memmove(m_buffer.get(), m_buffer.get() + m_from, m_searched);
        m_from = 0;
        const std::size_t size = std::fread(m_buffer.get() + m_searched, 1, k_longestLine - m_searched, m_file);
        m_filled = m_searched + size;
        m_bytesRead += size;
        m_isAtEnd = size == 0 || IsTooLarge();
    }

    std::FILE* m_file;
    std::unique_ptr<char[]> m_buffer;
    std::size_t m_from = 0;
    std::size_t m_filled = 0;
    /// How many bytes from m_from on have no newline.
    std::size_t m_searched = 0;
    /// The line that was returned last has a rest.
    bool m_isCut = false;
    std::size_t m_bytesRead = 0;
    bool m_isAtEnd = false;
};

constexpr std::size_t k_mostCorners = 4;
using CornerTexts = std::array<std::string_view, k_mostCorners>;

/// Finds the corners of a face, each with the rest of the line, and says how many there are. A corner begins behind
/// each blank, and two blanks in a row make two.
std::size_t FindCorners(std::string_view a_line, CornerTexts& a_corners)
{
    const std::string_view line = a_line.substr(0, a_line.find('\0'));
    std::size_t count = 0;
    for (std::size_t blank = line.find(' '); blank != std::string_view::npos && count < k_mostCorners;
         blank = line.find(' ', blank + 1))
    {
        a_corners[count++] = line.substr(blank + 1);
    }
    return count;
}

struct SCorner
{
    int vertex = 0;
    int texCoord = 0;
    int normal = 0;
    bool isValid = false;
};

SCorner ReadCorner(std::string_view a_text)
{
    SCorner corner;
    CNumbers numbers(a_text);
    corner.isValid = numbers.Read(corner.vertex) && numbers.Skip('/') && numbers.Read(corner.texCoord) &&
                     numbers.Skip('/') && numbers.Read(corner.normal);
    return corner;
}

template <typename T>
bool Look(const std::vector<T>& a_array, int a_index, T& a_result)
{
    // A negative index is a large one.
    if (static_cast<std::size_t>(a_index) >= a_array.size())
    {
        return false;
    }
    a_result = a_array[static_cast<std::size_t>(a_index)];
    return true;
}

template <typename Faces>
void AddGroup(GeometryPtrList& a_groups, const Faces& a_faces, const std::vector<Vector3<float>>& a_vertices,
              const std::vector<Vector2<float>>& a_texCoords, float a_extent)
{
    detail::CGroupBuilder builder(a_faces.size());
    for (const CObjectLoader::STriFace& face : a_faces)
    {
        builder.Add(
            face.vertex, face.texCoord,
            [&](int a_index, Vector3<float>& a_result) { return Look(a_vertices, a_index, a_result); },
            [&](int a_index, Vector2<float>& a_result) { return Look(a_texCoords, a_index, a_result); });
    }
    builder.AppendTo(a_groups, a_extent);
}

/// The model as far as it has been read.
class CModel
{
public:
    void ReadLine(std::string_view a_line)
    {
        if (a_line.starts_with("v "))
        {
            ReadPosition(a_line.substr(1));
        }
        else if (a_line.starts_with("vt "))
        {
            ReadTexCoord(a_line.substr(2));
        }
        else if (a_line.starts_with("f "))
        {
            ReadFace(a_line);
        }
        else if (a_line.starts_with("g "))
        {
            if (m_hasGroup)
            {
                CloseGroup();
            }
            m_hasGroup = true;
        }
    }

    void CloseGroup()
    {
        AddGroup(m_groups, m_faces, m_vertices, m_texCoords, m_extent);
        m_faces.clear();
    }

    [[nodiscard]] GeometryPtrList& Groups() { return m_groups; }

private:
    void ReadPosition(std::string_view a_text)
    {
        CNumbers numbers(a_text);
        Vector3<float> position;
        if (numbers.Read(position.x) && numbers.Read(position.y) && numbers.Read(position.z))
        {
            m_vertices.push_back(position);
            // In this order, what isn't a number makes no difference.
            m_extent = std::max(m_extent, std::abs(position.x));
            m_extent = std::max(m_extent, std::abs(position.y));
            m_extent = std::max(m_extent, std::abs(position.z));
        }
    }

    void ReadTexCoord(std::string_view a_text)
    {
        CNumbers numbers(a_text);
        Vector2<float> texCoord;
        if (numbers.Read(texCoord.x) && numbers.Read(texCoord.y))
        {
            m_texCoords.push_back(texCoord);
        }
    }

    void ReadFace(std::string_view a_line)
    {
        CornerTexts texts;
        const std::size_t vertexIndex = FindCorners(a_line, texts);
        GFX_ASSERT(vertexIndex >= 3);
        GFX_ASSERT(vertexIndex <= 4);
        std::array<SCorner, k_mostCorners> corners;
        std::transform(texts.begin(), texts.begin() + vertexIndex, corners.begin(), ReadCorner);
        if (vertexIndex == k_mostCorners)
        {
            AddTriangle(corners[0], corners[2], corners[3]);
        }
        AddTriangle(corners[0], corners[1], corners[2]);
    }

    void AddTriangle(const SCorner& a_first, const SCorner& a_second, const SCorner& a_third)
    {
        CObjectLoader::STriFace face;
        std::size_t i = 0;
        for (const SCorner* corner : {&a_first, &a_second, &a_third})
        {
            // Any index below 1 is as good as another, and the lowest has none below it.
            if (!corner->isValid || corner->vertex < 1 || corner->texCoord < 1)
            {
                return;
            }
            face.vertex[i] = corner->vertex - 1;
            face.texCoord[i] = corner->texCoord - 1;
            ++i;
        }
        m_faces.push_back(face);
    }

    std::vector<Vector3<float>> m_vertices;
    std::vector<Vector2<float>> m_texCoords;
    /// In pieces: one block that grows would for a moment be there twice.
    std::deque<CObjectLoader::STriFace> m_faces;
    GeometryPtrList m_groups;
    float m_extent = std::numeric_limits<float>::min();
    bool m_hasGroup = false;
};

} // namespace

GeometryPtrList CObjectLoader::LoadObjectFile(const std::string& a_path)
{
    const FilePtr file = Open(a_path);
    if (!file)
    {
        return {};
    }
    CModel model;
    CLines lines(file.get());
    for (std::string_view line; lines.Next(line);)
    {
        model.ReadLine(line);
        if (lines.IsTooLarge() || model.Groups().size() >= k_mostModelGroups)
        {
            break;
        }
    }
    model.CloseGroup();
    if (lines.IsTooLarge() || model.Groups().size() > k_mostModelGroups)
    {
        detail::ReportTooLarge("CObjectLoader", a_path);
        return {};
    }
    return std::move(model.Groups());
}

std::string CObjectLoader::FirstBadFace(const std::string& a_path)
{
    const FilePtr file = Open(a_path);
    if (!file)
    {
        return {};
    }
    CLines lines(file.get());
    std::size_t number = 0;
    for (std::string_view line; lines.Next(line);)
    {
        ++number;
        if (!line.starts_with("f "))
        {
            continue;
        }
        CornerTexts texts;
        const std::size_t count = FindCorners(line, texts);
        if (count < 3)
        {
            return std::to_string(number) + ": a face of fewer than three corners";
        }
        for (std::size_t i = 0; i < count; ++i)
        {
            // Behind three corners there may be a blank or a comment.
            const bool isCorner = i < 3 || (!texts[i].empty() && texts[i].front() >= '0' && texts[i].front() <= '9');
            if (isCorner && !ReadCorner(texts[i]).isValid)
            {
                return std::to_string(number) + ": a corner needs three numbers, as 1/2/3";
            }
        }
    }
    return {};
}

void CObjectLoader::AddNewGroup(GeometryPtrList& a_groups, const std::vector<STriFace>& a_faces,
                                const std::vector<Vector3<float>>& a_vertices,
                                const std::vector<Vector2<float>>& a_texCoords, float a_extent)
{
    AddGroup(a_groups, a_faces, a_vertices, a_texCoords, a_extent);
}

} // namespace Gfx::Managers
