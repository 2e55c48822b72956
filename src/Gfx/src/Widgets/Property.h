#pragma once

#include <array>
#include <cstddef>
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
