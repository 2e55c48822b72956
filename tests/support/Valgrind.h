#pragma once

#include <cstddef>

#if __has_include(<valgrind/memcheck.h>)
#    include <valgrind/memcheck.h>
#endif

namespace GfxTest
{

/// Has Valgrind believe the software renderer, which computes pixels with neighbours that it has never set.
inline void TakePixelsAsDefined([[maybe_unused]] const void* a_data, [[maybe_unused]] std::size_t a_size)
{
#ifdef VALGRIND_MAKE_MEM_DEFINED
    VALGRIND_MAKE_MEM_DEFINED(a_data, a_size);
#endif
}

} // namespace GfxTest
