#pragma once

#include "Core/Api.h"
#include "Gfx/Common/Point.h"

#include <cstddef>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>
#include <vector>

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

/// A property in a list of them.
struct SPropertyInfo
{
    std::string_view name;
    bool isReadable;
    bool isWritable;
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

/// A control with properties of its own beside those of its base class: ControlT::PropertyTable() lists them.
///
/// \code
/// class CLamp : public CWithProperties<CLamp, CWidget>
/// {
/// public:
///     static std::span<const SProperty<CLamp>> PropertyTable();
/// };
/// \endcode
template <typename ControlT, typename BaseT>
class GFX_API CWithProperties : public BaseT
{
public:
    using BaseT::BaseT;

    void SetProperty(const std::string& a_name, const std::string& a_value) override
    {
        for (const SProperty<ControlT>& property : ControlT::PropertyTable())
        {
            if (property.name == a_name && property.set != nullptr)
            {
                property.set(static_cast<ControlT&>(*this), a_value);
                return;
            }
        }
        BaseT::SetProperty(a_name, a_value);
    }

    [[nodiscard]] std::string GetProperty(const std::string& a_name, const std::string& a_default) override
    {
        for (const SProperty<ControlT>& property : ControlT::PropertyTable())
        {
            if (property.name == a_name && property.get != nullptr)
            {
                return property.get(static_cast<const ControlT&>(*this));
            }
        }
        return BaseT::GetProperty(a_name, a_default);
    }

    [[nodiscard]] std::vector<SPropertyInfo> Properties() const override
    {
        std::vector<SPropertyInfo> properties = BaseT::Properties();
        for (const SProperty<ControlT>& property : ControlT::PropertyTable())
        {
            properties.push_back({property.name, property.get != nullptr, property.set != nullptr});
        }
        return properties;
    }
};

} // namespace Gfx::Widgets
