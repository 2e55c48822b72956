#include "Core/Assert.h"

#include <cstdio>
#include <cstdlib>

void Core::detail::FailAssertion(const char* a_text, const char* a_file, int a_line)
{
    std::fprintf(stderr, "%s:%d: assertion failed: %s\n", a_file, a_line, a_text);
    std::abort();
}
