#pragma once

#include "Core/StaticSingleton.h"
#include "Managers/Config/ConfigManager.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <variant>

namespace Gfx::Managers
{

/// One key of a control's style: where in the configuration it stands, and which member of the style takes it. The
/// default is the member's initialiser.
template <typename StyleT>
struct SStyleKey
{
    std::string_view path;
    std::variant<int StyleT::*, std::string StyleT::*> member;
};

/// A control's style, read by its table of keys.
template <typename StyleT, std::size_t Count>
StyleT ReadStyle(const std::array<SStyleKey<StyleT>, Count>& a_keys)
{
    const CConfigManager& config = Core::Patterns::StaticSingleton<CConfigManager>::ref();
    StyleT style;
    for (const SStyleKey<StyleT>& key : a_keys)
    {
        std::visit(
            [&](auto a_member)
            {
                auto& value = style.*a_member;
                value = config.Get(std::string(key.path), value);
            },
            key.member);
    }
    return style;
}

} // namespace Gfx::Managers
