// The program's own functions of OpenGL's names stand before those of the library in the dynamic linker's search, so
// the toolkit calls these, which count and go on.

#include "GlCalls.h"

#include "Platform/GL/GL.h"

#include <dlfcn.h>

namespace
{

Bench::SGlCalls s_calls;

template <typename FunctionT>
FunctionT* Next(const char* a_name)
{
    return reinterpret_cast<FunctionT*>(dlsym(RTLD_NEXT, a_name));
}

void CountSwitch(GLenum a_capability, bool a_on)
{
    static auto* const s_isEnabled = Next<decltype(glIsEnabled)>("glIsEnabled");
    ++s_calls.all;
    if ((s_isEnabled(a_capability) != GL_FALSE) == a_on)
    {
        ++s_calls.redundantSwitches;
    }
}

} // namespace

#define GL_CALL(a_result, a_name, a_parameters, a_arguments)         \
    extern "C" a_result a_name a_parameters                          \
    {                                                                \
        static auto* const s_next = Next<decltype(a_name)>(#a_name); \
        ++s_calls.all;                                               \
        return s_next a_arguments;                                   \
    }

#define GL_SWITCH(a_name, a_on)                                      \
    extern "C" void a_name(GLenum a_capability)                      \
    {                                                                \
        static auto* const s_next = Next<decltype(a_name)>(#a_name); \
        CountSwitch(a_capability, a_on);                             \
        s_next(a_capability);                                        \
    }

GL_SWITCH(glDisable, false)
GL_SWITCH(glDisableClientState, false)
GL_SWITCH(glEnable, true)
GL_SWITCH(glEnableClientState, true)

GL_CALL(void, glActiveTexture, (GLenum a_texture), (a_texture))
GL_CALL(void, glBindBuffer, (GLenum a_target, GLuint a_buffer), (a_target, a_buffer))
GL_CALL(void, glBindFramebuffer, (GLenum a_target, GLuint a_framebuffer), (a_target, a_framebuffer))
GL_CALL(void, glBindSampler, (GLuint a_unit, GLuint a_sampler), (a_unit, a_sampler))
GL_CALL(void, glBindTexture, (GLenum a_target, GLuint a_texture), (a_target, a_texture))
GL_CALL(void, glBindVertexArray, (GLuint a_array), (a_array))
GL_CALL(void, glBlendEquation, (GLenum a_mode), (a_mode))
GL_CALL(void, glBlendFunc, (GLenum a_sfactor, GLenum a_dfactor), (a_sfactor, a_dfactor))
GL_CALL(void, glClear, (GLbitfield a_mask), (a_mask))
GL_CALL(void, glClearDepth, (GLclampd a_depth), (a_depth))
GL_CALL(void, glClientActiveTexture, (GLenum a_texture), (a_texture))
GL_CALL(void, glColor4ub, (GLubyte a_red, GLubyte a_green, GLubyte a_blue, GLubyte a_alpha),
        (a_red, a_green, a_blue, a_alpha))
GL_CALL(void, glDepthFunc, (GLenum a_func), (a_func))
GL_CALL(void, glDepthMask, (GLboolean a_flag), (a_flag))
GL_CALL(void, glDrawArrays, (GLenum a_mode, GLint a_first, GLsizei a_count), (a_mode, a_first, a_count))
GL_CALL(void, glGetBooleanv, (GLenum a_pname, GLboolean* a_params), (a_pname, a_params))
GL_CALL(GLenum, glGetError, (), ())
GL_CALL(void, glGetFloatv, (GLenum a_pname, GLfloat* a_params), (a_pname, a_params))
GL_CALL(void, glGetIntegerv, (GLenum a_pname, GLint* a_params), (a_pname, a_params))
GL_CALL(GLboolean, glIsEnabled, (GLenum a_cap), (a_cap))
GL_CALL(void, glLineWidth, (GLfloat a_width), (a_width))
GL_CALL(void, glLoadMatrixf, (const GLfloat* a_m), (a_m))
GL_CALL(void, glMatrixMode, (GLenum a_mode), (a_mode))
GL_CALL(void, glPixelStorei, (GLenum a_pname, GLint a_param), (a_pname, a_param))
GL_CALL(void, glPopAttrib, (), ())
GL_CALL(void, glPopClientAttrib, (), ())
GL_CALL(void, glPopMatrix, (), ())
GL_CALL(void, glPushAttrib, (GLbitfield a_mask), (a_mask))
GL_CALL(void, glPushClientAttrib, (GLbitfield a_mask), (a_mask))
GL_CALL(void, glPushMatrix, (), ())
GL_CALL(void, glRotatef, (GLfloat a_angle, GLfloat a_x, GLfloat a_y, GLfloat a_z), (a_angle, a_x, a_y, a_z))
GL_CALL(void, glScalef, (GLfloat a_x, GLfloat a_y, GLfloat a_z), (a_x, a_y, a_z))
GL_CALL(void, glScissor, (GLint a_x, GLint a_y, GLsizei a_width, GLsizei a_height), (a_x, a_y, a_width, a_height))
GL_CALL(void, glShadeModel, (GLenum a_mode), (a_mode))
GL_CALL(void, glTexCoordPointer, (GLint a_size, GLenum a_type, GLsizei a_stride, const void* a_ptr),
        (a_size, a_type, a_stride, a_ptr))
GL_CALL(void, glTexEnvi, (GLenum a_target, GLenum a_pname, GLint a_param), (a_target, a_pname, a_param))
GL_CALL(void, glTranslatef, (GLfloat a_x, GLfloat a_y, GLfloat a_z), (a_x, a_y, a_z))
GL_CALL(void, glUseProgram, (GLuint a_program), (a_program))
GL_CALL(void, glVertexPointer, (GLint a_size, GLenum a_type, GLsizei a_stride, const void* a_ptr),
        (a_size, a_type, a_stride, a_ptr))
GL_CALL(void, glViewport, (GLint a_x, GLint a_y, GLsizei a_width, GLsizei a_height), (a_x, a_y, a_width, a_height))

Bench::SGlCalls Bench::GlCalls()
{
    return s_calls;
}
