// Models in the text format.

#include "fuzz/support/Target.h"

#include "Gfx/Common/ObjectLoader.h"

void GfxFuzz::SetUp() {}

void GfxFuzz::Try(std::string_view a_input)
{
    const std::string path = Data().Write("Model.obj", a_input);
    Use(Gfx::Managers::CObjectLoader::FirstBadFace(path));
    Use(Gfx::Managers::CObjectLoader::LoadObjectFile(path));
}
