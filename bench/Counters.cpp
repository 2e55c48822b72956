// Cogl asks the window-system library for OpenGL's functions, and that it asks GLib's module loader for; so the
// loader's look-up is replaced in this program by one that hands out counting functions.

#include "Counters.h"

#include <GL/gl.h>
#include <dlfcn.h>
#include <gmodule.h>

#include <cstdlib>
#include <cstring>
#include <new>

namespace
{

Bench::SCounters s_counters;

using Function = void (*)();
using Finder = Function (*)(const GLubyte*);

Finder s_finder = nullptr;
decltype(&glDrawArrays) s_drawArrays = nullptr;
decltype(&glDrawElements) s_drawElements = nullptr;
decltype(&glTexImage2D) s_texImage2D = nullptr;
decltype(&glTexSubImage2D) s_texSubImage2D = nullptr;

void DrawArrays(GLenum a_mode, GLint a_first, GLsizei a_count)
{
    ++s_counters.draws;
    s_drawArrays(a_mode, a_first, a_count);
}

void DrawElements(GLenum a_mode, GLsizei a_count, GLenum a_type, const void* a_indices)
{
    ++s_counters.draws;
    s_drawElements(a_mode, a_count, a_type, a_indices);
}

void TexImage2D(GLenum a_target, GLint a_level, GLint a_internal, GLsizei a_width, GLsizei a_height, GLint a_border,
                GLenum a_format, GLenum a_type, const void* a_pixels)
{
    ++s_counters.uploads;
    s_texImage2D(a_target, a_level, a_internal, a_width, a_height, a_border, a_format, a_type, a_pixels);
}

void TexSubImage2D(GLenum a_target, GLint a_level, GLint a_x, GLint a_y, GLsizei a_width, GLsizei a_height,
                   GLenum a_format, GLenum a_type, const void* a_pixels)
{
    ++s_counters.uploads;
    s_texSubImage2D(a_target, a_level, a_x, a_y, a_width, a_height, a_format, a_type, a_pixels);
}

template <typename FunctionT>
Function Count(Function a_found, FunctionT& a_original, FunctionT a_counting)
{
    a_original = reinterpret_cast<FunctionT>(a_found);
    return a_found != nullptr ? reinterpret_cast<Function>(a_counting) : nullptr;
}

Function Find(const GLubyte* a_name)
{
    const Function found = s_finder(a_name);
    const char* const name = reinterpret_cast<const char*>(a_name);
    if (std::strcmp(name, "glDrawArrays") == 0)
    {
        return Count(found, s_drawArrays, DrawArrays);
    }
    if (std::strcmp(name, "glDrawElements") == 0)
    {
        return Count(found, s_drawElements, DrawElements);
    }
    if (std::strcmp(name, "glTexImage2D") == 0)
    {
        return Count(found, s_texImage2D, TexImage2D);
    }
    if (std::strcmp(name, "glTexSubImage2D") == 0)
    {
        return Count(found, s_texSubImage2D, TexSubImage2D);
    }
    return found;
}

} // namespace

extern "C" gboolean g_module_symbol(GModule* a_module, const gchar* a_name, gpointer* a_symbol)
{
    static const auto s_original = reinterpret_cast<decltype(&g_module_symbol)>(dlsym(RTLD_NEXT, "g_module_symbol"));
    const gboolean found = s_original(a_module, a_name, a_symbol);
    if (found != FALSE && std::strncmp(a_name, "glXGetProcAddress", std::strlen("glXGetProcAddress")) == 0)
    {
        s_finder = reinterpret_cast<Finder>(*a_symbol);
        *a_symbol = reinterpret_cast<gpointer>(Find);
    }
    return found;
}

void* operator new(std::size_t a_size)
{
    ++s_counters.allocations;
    if (void* const memory = std::malloc(a_size))
    {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* a_memory) noexcept
{
    std::free(a_memory);
}

void operator delete(void* a_memory, std::size_t) noexcept
{
    std::free(a_memory);
}

Bench::SCounters Bench::Counters()
{
    return s_counters;
}
