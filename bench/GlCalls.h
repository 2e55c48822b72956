#pragma once

namespace Bench
{

/// Calls of OpenGL by the toolkit itself since the start of the process; Cogl's, which looks its functions up, aren't
/// among them.
struct SGlCalls
{
    long all = 0;
    /// Those of glEnable, glDisable and their likes for arrays that set what has been set already.
    long redundantSwitches = 0;
};

SGlCalls GlCalls();

} // namespace Bench
