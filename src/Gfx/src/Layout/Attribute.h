#pragma once

#include "Core/IO/XMLNode.h"
#include "Core/LexicalCast.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Gfx::Layout
{

/// One attribute of an element or action: its name in the file, and which member of the values takes it. The default
/// is the member's initialiser. A number that is read is kept within the limits.
template <typename ValuesT>
struct SAttribute
{
    constexpr SAttribute(std::string_view a_name, int ValuesT::*a_number, std::string_view a_description,
                         int a_least = std::numeric_limits<int>::min(), int a_most = std::numeric_limits<int>::max())
        : name(a_name), description(a_description), number(a_number), least(a_least), most(a_most)
    {
    }
    constexpr SAttribute(std::string_view a_name, bool ValuesT::*a_boolean, std::string_view a_description)
        : name(a_name), description(a_description), boolean(a_boolean)
    {
    }
    constexpr SAttribute(std::string_view a_name, std::string ValuesT::*a_text, std::string_view a_description)
        : name(a_name), description(a_description), text(a_text)
    {
    }

    std::string_view name;
    std::string_view description;
    /// One of these three isn't null.
    int ValuesT::*number = nullptr;
    bool ValuesT::*boolean = nullptr;
    std::string ValuesT::*text = nullptr;
    int least = 0;
    int most = 0;
};

/// An attribute in a list of them, for documentation and editors.
struct SAttributeInfo
{
    std::string name;
    /// "integer", "boolean" or "text".
    std::string type;
    std::string defaultText;
    std::string description;
};

namespace detail
{

/// Out of line: inlined for values without any member of that type, which never come here, it has GCC 12 warn of
/// bounds.
template <typename ValuesT, typename T>
[[gnu::noinline]] T& Member(ValuesT& a_values, T ValuesT::*a_member)
{
    return a_values.*a_member;
}

} // namespace detail

/// The values that a node's attributes give. What isn't there, and a number that isn't entirely one, keeps its default;
/// a Boolean is true for the text "True" alone.
template <typename ValuesT, std::size_t Count>
ValuesT ReadAttributes(const std::array<SAttribute<ValuesT>, Count>& a_rows, const Core::IO::XMLNode& a_node,
                       ValuesT a_defaults = {})
{
    for (const auto& attribute : a_node.Attributes())
    {
        const auto row =
            std::find_if(a_rows.begin(), a_rows.end(),
                         [&attribute](const SAttribute<ValuesT>& a_row) { return a_row.name == attribute.first; });
        const std::string& text = attribute.second;
        if (row == a_rows.end())
        {
            continue;
        }
        if (row->number != nullptr)
        {
            int& value = detail::Member(a_defaults, row->number);
            value = std::clamp(Core::LexicalCast<int, std::string>(text, value), row->least, row->most);
        }
        else if (row->boolean != nullptr)
        {
            detail::Member(a_defaults, row->boolean) = text == "True";
        }
        else
        {
            detail::Member(a_defaults, row->text) = text;
        }
    }
    return a_defaults;
}

/// Adds what a table of attributes says to a list.
template <typename ValuesT, std::size_t Count>
void DescribeAttributes(const std::array<SAttribute<ValuesT>, Count>& a_rows, std::vector<SAttributeInfo>& a_list)
{
    ValuesT defaults;
    for (const SAttribute<ValuesT>& row : a_rows)
    {
        SAttributeInfo info{std::string(row.name), "text", "", std::string(row.description)};
        if (row.number != nullptr)
        {
            info.type = "integer";
            info.defaultText = std::to_string(detail::Member(defaults, row.number));
        }
        else if (row.boolean != nullptr)
        {
            info.type = "boolean";
            info.defaultText = detail::Member(defaults, row.boolean) ? "True" : "False";
        }
        else if (row.text != nullptr)
        {
            info.defaultText = detail::Member(defaults, row.text);
        }
        a_list.push_back(std::move(info));
    }
}

} // namespace Gfx::Layout
