#pragma once

#include "Gfx/Common/Point.h"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <string_view>

namespace Gfx::Widgets
{

/// One property of a control: its name, and how it is read and written as text. What is null is left to the base class.
template <typename ControlT>
struct SProperty
{
    std::string_view name;
    std::string (*get)(const ControlT& a_control);
    void (*set)(ControlT& a_control, const std::string& a_value);
};

/// A Boolean property as text.
inline std::string TextFromBool(bool a_value)
{
    return a_value ? "True" : "False";
}

/// A Boolean property is true for this text alone.
inline bool IsTrue(const std::string& a_text)
{
    return a_text == "True";
}

/// The leading decimal number of a text, cut to the limits of int, or 0 where there is none. *a_rest, if it is asked
/// for, is left behind the number, or at the start of the text.
inline int NumberFromText(const std::string& a_text, std::size_t a_start = 0, std::size_t* a_rest = nullptr)
{
    char* end = nullptr;
    const long number = std::strtol(a_text.c_str() + a_start, &end, 10);
    if (a_rest != nullptr)
    {
        *a_rest = static_cast<std::size_t>(end - a_text.c_str());
    }
    return Common::detail::Saturated(number);
}

/// Writes a property by its name; false if the table has none of that name that can be written.
template <typename ControlT, std::size_t Count>
bool WriteProperty(const std::array<SProperty<ControlT>, Count>& a_table, ControlT& a_control,
                   const std::string& a_name, const std::string& a_value)
{
    for (const SProperty<ControlT>& property : a_table)
    {
        if (property.name == a_name && property.set != nullptr)
        {
            property.set(a_control, a_value);
            return true;
        }
    }
    return false;
}

/// Reads a property by its name into a_value; false if the table has none of that name that can be read.
template <typename ControlT, std::size_t Count>
bool ReadProperty(const std::array<SProperty<ControlT>, Count>& a_table, const ControlT& a_control,
                  const std::string& a_name, std::string& a_value)
{
    for (const SProperty<ControlT>& property : a_table)
    {
        if (property.name == a_name && property.get != nullptr)
        {
            a_value = property.get(a_control);
            return true;
        }
    }
    return false;
}

} // namespace Gfx::Widgets
