#pragma once

#include "Core/StaticSingleton.h"
#include "Managers/Config/ConfigManager.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <variant>

namespace Gfx::Managers
{

/// One key of a control's style: where in the configuration it stands, and which member of the style takes it. The
/// default is the member's initialiser. Numbers are pixels, percents and the like, and are kept within k_largestNumber,
/// so that controls can add them up without fear.
template <typename StyleT>
struct SStyleKey
{
    std::string_view path;
    std::variant<int StyleT::*, std::string StyleT::*> member;
};

constexpr int k_largestNumber = 1 << 24;

namespace detail
{

template <typename StyleT>
void ReadKey(const CConfigManager& a_config, const std::string& a_path, StyleT& a_style, int StyleT::*a_number)
{
    int& number = a_style.*a_number;
    number = std::clamp(a_config.Get(a_path, number), -k_largestNumber, k_largestNumber);
}

/// Out of line: inlined for a style without any text, which never comes here, it has GCC 12 warn of bounds.
template <typename StyleT>
[[gnu::noinline]] void ReadKey(const CConfigManager& a_config, const std::string& a_path, StyleT& a_style,
                               std::string StyleT::*a_text)
{
    std::string& text = a_style.*a_text;
    text = a_config.Get(a_path, text);
}

} // namespace detail

/// The style that a control's table of keys leads to; the paths begin behind a_prefix.
template <typename StyleT, std::size_t Count>
StyleT ReadStyle(const std::array<SStyleKey<StyleT>, Count>& a_keys, const std::string& a_prefix)
{
    const CConfigManager& config = Core::Patterns::StaticSingleton<CConfigManager>::ref();
    StyleT style;
    for (const SStyleKey<StyleT>& key : a_keys)
    {
        std::visit([&](auto a_member) { detail::ReadKey(config, a_prefix + std::string(key.path), style, a_member); },
                   key.member);
    }
    return style;
}

/// The same for a table that is its style's only one. It is read once; the reference is good until a configuration is
/// loaded.
template <typename StyleT, std::size_t Count>
const StyleT& ReadStyle(const std::array<SStyleKey<StyleT>, Count>& a_keys)
{
    static StyleT s_style;
    static int s_generation = -1;
    const int generation = Core::Patterns::StaticSingleton<CConfigManager>::ref().Generation();
    if (s_generation != generation)
    {
        s_style = ReadStyle(a_keys, "");
        s_generation = generation;
    }
    return s_style;
}

} // namespace Gfx::Managers
