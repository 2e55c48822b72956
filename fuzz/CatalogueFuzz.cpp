// Catalogues of texts.

#include "fuzz/support/Target.h"

#include "Core/IO/XMLDocument.h"
#include "Core/Localisation/Asset.h"
#include "Core/Localisation/Manager.h"

#include <cstdlib>

void GfxFuzz::SetUp()
{
    setenv("LANGUAGE", "en", 1);
}

void GfxFuzz::Try(std::string_view a_input)
{
    Data().Write("Localisation/de.xml", a_input);
    Core::Localisation::CManager manager(Data().Path());
    Use(manager.Languages());
    if (!manager.SetLanguage("de"))
    {
        return;
    }
    Core::IO::XMLDocument document;
    Use(document.ParseText(a_input, "de.xml"));
    for (const Core::IO::XMLNode& node : document.RootNode()->Children())
    {
        for (const Core::IO::XMLNode& text : node.Children())
        {
            const std::string id = text.Attribute("id", "");
            Use(std::string(manager.Translate(id)));
            Use(manager.ProcessEscapes(id + "%LANG%"));
        }
    }
    Use(manager.SetLanguage("en"));
}
