#include "Commands.h"
#include "Interface.h"
#include "OwnDisplay.h"

#include <Gfx/Gfx.h>

#include <cstdio>

namespace Tool
{

using Core::Patterns::StaticSingleton;

int Tree(const SOptions& a_options)
{
    const COwnDisplay display;
    if (!StartInterface(a_options))
    {
        return eeFailure;
    }
    for (const std::string& layout : WantedLayouts(a_options))
    {
        if (!ShowLayout(layout, a_options))
        {
            return eeFailure;
        }
    }
    for (const auto& widget : StaticSingleton<Gfx::Managers::CWidgetManager>::ref().TopLevelWidgets())
    {
        std::fputs(widget->GetWidgetInfo().c_str(), stdout);
    }
    return std::fflush(stdout) == 0 ? eeSuccess : eeFailure;
}

} // namespace Tool
