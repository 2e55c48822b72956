#include "Platform/System/Config.h"

#include <cstdlib>

CConfig* CConfig::GetSystemConfig()
{
    const char* const path = secure_getenv("GFX_SYSTEM_CONFIG");
    return new CConfig(path != nullptr && *path != '\0' ? path : "/var/lib/gfx/system.conf");
}
