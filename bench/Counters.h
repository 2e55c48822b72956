#pragma once

namespace Bench
{

/// What has happened in this process since its start: draw calls and texture uploads that reached OpenGL, and
/// allocations by C++ code, which here is the toolkit's own and the benchmark's.
struct SCounters
{
    long draws = 0;
    long uploads = 0;
    long allocations = 0;
};

SCounters Counters();

} // namespace Bench
