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

} // namespace

void GfxFuzz::SetUp()
{
    Data().WriteRequiredFiles();
    Core::Patterns::StaticSingleton<Gfx::Managers::CThemeManager>::ref().Initialise(Data().Path());
}

void GfxFuzz::Try(std::string_view a_input)
{
    Data().Write("TextureMaps/TextureConfig.xml", a_input);
    static Gfx::Managers::CTextureManager s_textures;
    static const bool s_isInitialised = (s_textures.Initialise(Data().Path()), true);
    Use(s_isInitialised);
    std::string error;
    if (!s_textures.Reload(error))
    {
        return;
    }
    Core::IO::XMLDocument document;
    Use(document.ParseText(a_input, "TextureConfig.xml"));
    const XMLNode* const textures = document.Section("Textures");
    for (const XMLNode& image : textures != nullptr ? textures->Children() : document.RootNode()->Children())
    {
        for (const XMLNode& element : image.Children())
        {
            Use(s_textures.GetElementMargins(element.Attribute("name", "")));
            UseElement(image, element);
        }
    }
}
