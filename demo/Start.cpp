#include "demo/Start.h"

#include <Gfx/Gfx.h>
#include <clutter/clutter.h>

namespace Demo
{

using Core::Patterns::StaticSingleton;
using Gfx::Managers::CGfxManager;
using Gfx::Managers::CInputManager;

namespace
{

constexpr int k_stageWidth = 800;
constexpr int k_stageHeight = 480;

} // namespace

bool SetUpConsole(const std::string& a_data, const std::string& a_title)
{
    CGfxManager& gfx = StaticSingleton<CGfxManager>::ref();
    if (!gfx.Setup(a_data, a_title, {0, 0}, k_stageWidth, k_stageHeight, 0, nullptr, Gfx::Colours::Black))
    {
        return false;
    }
    CInputManager& input = StaticSingleton<CInputManager>::ref();
    if (!input.HasPanel())
    {
        // The pointer of a desktop reports pixels of the stage.
        input.UseCalibration(CInputManager::k_identity);
    }
    return true;
}

int WritePictures(const SPictureOptions& a_options, const std::function<bool(const std::string&)>& a_writeAll)
{
    clutter_actor_show(StaticSingleton<CGfxManager>::ref().GetStage());
    return (a_options.folder.empty() ? WritePicture(a_options.file) : a_writeAll(a_options.folder)) ? 0 : 1;
}

} // namespace Demo
