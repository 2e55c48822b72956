// TextureConfig.xml, and where its elements' pieces lie. No page is loaded: that needs a stage.

#include "fuzz/support/Target.h"

#include "Core/IO/XMLDocument.h"
#include "Core/LexicalCast.h"
#include "Managers/Textures/TextureManager.h"
#include "Managers/Themes/ThemeManager.h"

#include <vector>

namespace
{

using Core::IO::XMLNode;

const std::string k_file = "TextureMaps/TextureConfig.xml";

int Number(const XMLNode& a_node, const char* a_name)
{
    return Core::LexicalCast<int, std::string>(a_node.Attribute(a_name, ""), 0);
}

void UseElement(const XMLNode& a_image, const XMLNode& a_element)
{
    Gfx::Managers::CSimpleElement element(
        Number(a_element, "left"), Number(a_element, "top"), Number(a_element, "width"), Number(a_element, "height"),
        Number(a_image, "width"), Number(a_image, "height"), Number(a_element, "border"));
    element.SetBorders(Number(a_element, "border-top"), Number(a_element, "border-bottom"),
                       Number(a_element, "border-left"), Number(a_element, "border-right"));
    std::vector<Gfx::STexturedQuad> quads;
    element.Generate(Number(a_element, "x"), Number(a_element, "y"), Number(a_image, "width"),
                     Number(a_image, "height"), quads);
    GfxFuzz::Use(quads);
}

Gfx::Managers::CTextureManager& Textures()
{
    return Core::Patterns::StaticSingleton<Gfx::Managers::CTextureManager>::ref();
}

void Load(std::string_view a_text)
{
    GfxFuzz::Data().Write(k_file, a_text);
    std::string error;
    GfxFuzz::Use(Textures().Reload(error));
}

} // namespace

void GfxFuzz::SetUp()
{
    Data().WriteRequiredFiles();
    Core::Patterns::StaticSingleton<Gfx::Managers::CThemeManager>::ref().Initialise(Data().Path());
    Textures().Initialise(Data().Path());
}

void GfxFuzz::Try(std::string_view a_input)
{
    Load(a_input);
    Core::IO::XMLDocument document;
    Use(document.ParseText(a_input, k_file));
    const XMLNode* const textures = document.Section("Textures");
    for (const XMLNode& image : textures != nullptr ? textures->Children() : document.RootNode()->Children())
    {
        for (const XMLNode& element : image.Children())
        {
            Use(Textures().GetElementMargins(element.Attribute("name", "")));
            UseElement(image, element);
        }
    }
    // Those of the last table but one are kept.
    Load("<Textures/>");
    Load("<Textures/>");
}
