// Models in the binary format.

#include "fuzz/support/Target.h"

#include "Gfx/Common/BObjectLoader.h"

void GfxFuzz::SetUp() {}

void GfxFuzz::Try(std::string_view a_input)
{
    Use(Gfx::Managers::CBObjectLoader::LoadObjectFile(Data().Write("Model.bobj", a_input)));
}
