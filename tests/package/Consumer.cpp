// A program that knows the library as it is installed, and nothing else of it.

#include <Gfx/Gfx.h>

#include <cstdio>

int main()
{
    using Core::Patterns::StaticSingleton;
    using Gfx::Managers::CConfigManager;
    using Gfx::Managers::CWidgetManager;

    // What the library's code reads must be the instance that this program has written to.
    if (!StaticSingleton<CConfigManager>::ref().ParseText("<Gfx><General><TouchArea>7</TouchArea></General></Gfx>",
                                                          "probe") ||
        StaticSingleton<CWidgetManager>::ref().TouchArea() != 7)
    {
        return 1;
    }
    std::puts(Gfx::StringFromColour(Gfx::ColourFromString("Cyan")).c_str());
    return 0;
}
