// Pictures of pages and of controls.

#include "fuzz/support/Stage.h"
#include "fuzz/support/Target.h"

#include "Managers/Textures/TextureManager.h"
#include "Platform/Clutter/Clutter.h"

#include <vector>

void GfxFuzz::SetUp()
{
    CStage::Make(GFX_TEST_DATA);
}

void GfxFuzz::Try(std::string_view a_input)
{
    std::vector<Gfx::STexturedQuad> quads;
    void* texture = nullptr;
    if (Core::Patterns::StaticSingleton<Gfx::Managers::CTextureManager>::ref().LoadFileAsTexture(
            Data().Write("Picture", a_input), 0, 0, 10, 10, quads, texture))
    {
        cogl_handle_unref(texture);
    }
}
