#include "Commands.h"
#include "Interface.h"

#include <Gfx/Gfx.h>
#include <glib.h>

namespace Tool
{

int Check(const SOptions& a_options)
{
    if (!g_file_test(a_options.directory.c_str(), G_FILE_TEST_IS_DIR))
    {
        return Print({a_options.directory + ": no directory"}) == 0 ? eeSuccess : eeFailure;
    }
    RegisterElements();
    return Print(Gfx::Layout::CheckLayouts(a_options.directory)) == 0 ? eeSuccess : eeFailure;
}

} // namespace Tool
