// GfxConfig.xml, and what texts are converted to that stand in it.

#include "fuzz/support/Target.h"

#include "Core/LexicalCast.h"
#include "Gfx/Common/Colour.h"
#include "Gfx/Text/FontSettings.h"
#include "Managers/Config/ConfigManager.h"

#include <cstdlib>

namespace
{

using Core::IO::XMLNode;

/// Numbers are read by a quick way of their own, which is to have the results of the general one.
void Convert(const std::string& a_text)
{
    for (const int fallback : {0, -1})
    {
        if (Core::LexicalCast<int, std::string>(a_text, fallback) !=
            Core::detail::LexicalCastByStream<int, std::string>(a_text, fallback))
        {
            std::abort();
        }
    }
    if (Core::LexicalCast<std::string, std::string>(a_text, "-") !=
        Core::detail::LexicalCastByStream<std::string, std::string>(a_text, "-"))
    {
        std::abort();
    }
    GfxFuzz::Use(Core::LexicalCast<float, std::string>(a_text, 0));
    GfxFuzz::Use(Gfx::ColourFromString(a_text));
}

void Visit(const Gfx::Managers::CConfigManager& a_config, const XMLNode& a_node, const std::string& a_path)
{
    GfxFuzz::Use(a_config.Get<int>(a_path, 1));
    GfxFuzz::Use(a_config.Get<std::string>(a_path, "default"));
    Convert(a_node.Data());
    for (const auto& [name, value] : a_node.Attributes())
    {
        Convert(value);
    }
    for (const XMLNode& child : a_node.Children())
    {
        Visit(a_config, child, a_path + '/' + child.Name());
    }
}

} // namespace

void GfxFuzz::SetUp() {}

void GfxFuzz::Try(std::string_view a_input)
{
    Gfx::Managers::CConfigManager config;
    Data().Write("Configuration/GfxConfig.xml", a_input);
    config.Initialise(Data().Path());
    Visit(config, *config.RootNode(), "");
    std::string error;
    Use(config.Reload(error));
}
