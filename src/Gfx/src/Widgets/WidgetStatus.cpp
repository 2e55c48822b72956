#include "Widgets/WidgetStatus.h"

#include "Core/StaticSingleton.h"
#include "Core/Utilities.h"
#include "Managers/Widgets/WidgetManager.h"
#include "Widgets/Widget.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <string_view>

namespace Gfx::Widgets
{

namespace
{

/// What the lines of a widget without custom info and children take, with room for a path.
constexpr std::size_t k_usualLength = 512;

std::string_view Entity(char a_character)
{
    switch (a_character)
    {
    case '&': return "&amp;";
    case '>': return "&gt;";
    case '<': return "&lt;";
    case '\'': return "&apos;";
    case '"': return "&quot;";
    default: return {};
    }
}

void AppendEncoded(std::string& a_to, std::string_view a_text)
{
    for (const char character : a_text)
    {
        if (const std::string_view entity = Entity(character); !entity.empty())
        {
            a_to += entity;
        }
        else
        {
            a_to += character;
        }
    }
}

void AppendParameter(std::string& a_to, std::string_view a_key, std::string_view a_value)
{
    a_to += "<Param id=\"";
    a_to += a_key;
    a_to += "\" value=\"";
    AppendEncoded(a_to, a_value);
    a_to += "\"/>\n";
}

void AppendParameter(std::string& a_to, std::string_view a_key, int a_value)
{
    std::array<char, 16> digits{};
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), a_value).ptr;
    AppendParameter(a_to, a_key, std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())));
}

} // namespace

void CWidgetStatus::UpdateStatus(const std::string& a_id, const std::string& a_type, int a_x, int a_y, int a_width,
                                 int a_height, bool a_visible, bool a_enabled, bool a_selected, CWidget* a_widget)
{
    SetWidgetName(a_id);
    m_fileContents.clear();
    m_fileContents.reserve(k_usualLength);
    m_fileContents += "<Widget type=\"";
    m_fileContents += a_type;
    m_fileContents += "\" id=\"";
    AppendEncoded(m_fileContents, a_id);
    m_fileContents += "\">\n<Parameters>\n";
    AppendParameter(m_fileContents, "X", a_x);
    AppendParameter(m_fileContents, "Y", a_y);
    AppendParameter(m_fileContents, "Width", a_width);
    AppendParameter(m_fileContents, "Height", a_height);
    AppendParameter(m_fileContents, "Visible", a_visible ? 1 : 0);
    AppendParameter(m_fileContents, "Enabled", a_enabled ? 1 : 0);
    AppendParameter(m_fileContents, "Selected", a_selected ? 1 : 0);
    if (a_widget != nullptr)
    {
        for (const auto& [key, value] : a_widget->GetCustomInfo())
        {
            AppendParameter(m_fileContents, key, value);
        }
    }
    m_fileContents += "</Parameters>\n";
    if (a_widget != nullptr && !a_widget->Children().IsEmpty())
    {
        m_fileContents += "<Children>\n";
        const auto& manager = Core::Patterns::StaticSingleton<Managers::CWidgetManager>::ref();
        detail::CWidgetList::CUpwards children(a_widget->Children());
        while (const auto child = children.Next())
        {
            if (child->Visible() && manager.IsVisible(child.Get()))
            {
                m_fileContents += child->UpdatedStatus().GetFileContents();
            }
        }
        m_fileContents += "</Children>\n";
    }
    m_fileContents += "</Widget>\n";
}

std::string CWidgetStatus::EncodeStringForOutput(const std::string& a_text)
{
    std::string result;
    AppendEncoded(result, a_text);
    return result;
}

bool CWidgetStatus::WriteToFile(const std::string& a_directory)
{
    if (a_directory.empty())
    {
        return false;
    }
    if (!m_hasFileName)
    {
        // A path ends with its first null character, and what came behind that would not tell two files apart.
        const std::string base = (a_directory + (a_directory.ends_with('/') ? "" : "/") + m_widgetName).c_str();
        m_fileName = base + ".xml";
        for (int i = 1; Core::Utilities::FileExists(m_fileName); ++i)
        {
            m_fileName = base + "_" + std::to_string(i) + ".xml";
        }
        m_hasFileName = true;
    }
    std::FILE* const file = std::fopen(m_fileName.c_str(), "w");
    if (file == nullptr)
    {
        return false;
    }
    const bool isWritten = std::fwrite(m_fileContents.data(), 1, m_fileContents.size(), file) == m_fileContents.size();
    // A disk that is full may be noticed no earlier than here.
    return std::fclose(file) == 0 && isWritten;
}

} // namespace Gfx::Widgets
