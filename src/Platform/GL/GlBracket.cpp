#include "Platform/GL/GlBracket.h"

#include "Platform/Clutter/Clutter.h"

#include <algorithm>
#include <utility>

namespace Platform
{

namespace
{

int s_nesting = 0;

GLint Get(GLenum a_name)
{
    GLint value = 0;
    glGetIntegerv(a_name, &value);
    return value;
}

/// Brings a stack back to a depth, by a_pop or a_push.
void RestoreDepth(GLenum a_depthName, GLint a_depth, void (*a_pop)(), void (*a_push)())
{
    for (GLint depth = Get(a_depthName); depth > a_depth; --depth)
    {
        a_pop();
    }
    for (GLint depth = Get(a_depthName); depth < a_depth; ++depth)
    {
        a_push();
    }
}

template <typename Matrix>
Matrix SavedMatrix(GLenum a_name, GLenum a_depthName)
{
    Matrix matrix;
    glGetFloatv(a_name, matrix.values.data());
    matrix.depth = Get(a_depthName);
    return matrix;
}

template <typename Matrix>
void RestoreMatrix(const Matrix& a_matrix, GLenum a_mode, GLenum a_depthName)
{
    glMatrixMode(a_mode);
    RestoreDepth(a_depthName, a_matrix.depth, glPopMatrix, glPushMatrix);
    glLoadMatrixf(a_matrix.values.data());
}

/// What the class comment promises. Cogl has left the client arrays off.
void PrepareForRawDrawing(GLuint a_units)
{
    glUseProgram(0);
    glDisable(GL_VERTEX_PROGRAM_ARB);
    glDisable(GL_FRAGMENT_PROGRAM_ARB);
    for (GLuint unit = a_units; unit-- > 0;)
    {
        glActiveTexture(GL_TEXTURE0 + unit);
        for (const GLenum target :
             {GL_TEXTURE_1D, GL_TEXTURE_2D, GL_TEXTURE_3D, GL_TEXTURE_CUBE_MAP, GL_TEXTURE_RECTANGLE})
        {
            glDisable(target);
        }
        // A sampler's filters would replace the texture's own.
        glBindSampler(unit, 0);
    }
    glColor4ub(255, 255, 255, 255);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    glClientActiveTexture(GL_TEXTURE0);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glBlendEquation(GL_FUNC_ADD);
    glBindVertexArray(0);
    for (const GLenum target : {GL_ARRAY_BUFFER, GL_ELEMENT_ARRAY_BUFFER, GL_PIXEL_PACK_BUFFER, GL_PIXEL_UNPACK_BUFFER})
    {
        glBindBuffer(target, 0);
    }
    for (const GLenum name : {GL_PACK_ROW_LENGTH, GL_PACK_SKIP_ROWS, GL_PACK_SKIP_PIXELS, GL_UNPACK_ROW_LENGTH,
                              GL_UNPACK_SKIP_ROWS, GL_UNPACK_SKIP_PIXELS})
    {
        glPixelStorei(name, 0);
    }
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
}

} // namespace

CGlBracket::CGlBracket()
{
    if (s_nesting++ == 0)
    {
        cogl_begin_gl();
    }
    m_attributeDepth = Get(GL_ATTRIB_STACK_DEPTH);
    m_clientAttributeDepth = Get(GL_CLIENT_ATTRIB_STACK_DEPTH);
    glPushAttrib(GL_ALL_ATTRIB_BITS);
    glPushClientAttrib(GL_CLIENT_ALL_ATTRIB_BITS);
    m_program = Get(GL_CURRENT_PROGRAM);
    m_drawFramebuffer = Get(GL_DRAW_FRAMEBUFFER_BINDING);
    m_readFramebuffer = Get(GL_READ_FRAMEBUFFER_BINDING);
    m_projection = SavedMatrix<SMatrix>(GL_PROJECTION_MATRIX, GL_PROJECTION_STACK_DEPTH);
    m_modelview = SavedMatrix<SMatrix>(GL_MODELVIEW_MATRIX, GL_MODELVIEW_STACK_DEPTH);
    SaveUnits();
    PrepareForRawDrawing(m_unitCount);
}

CGlBracket::~CGlBracket()
{
    glUseProgram(static_cast<GLuint>(m_program));
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, static_cast<GLuint>(m_drawFramebuffer));
    glBindFramebuffer(GL_READ_FRAMEBUFFER, static_cast<GLuint>(m_readFramebuffer));
    // These change the active unit and the matrix mode, which are attributes.
    RestoreMatrix(m_projection, GL_PROJECTION, GL_PROJECTION_STACK_DEPTH);
    RestoreMatrix(m_modelview, GL_MODELVIEW, GL_MODELVIEW_STACK_DEPTH);
    RestoreUnits();
    const auto nothing = [] {};
    RestoreDepth(GL_CLIENT_ATTRIB_STACK_DEPTH, m_clientAttributeDepth, glPopClientAttrib, nothing);
    RestoreDepth(GL_ATTRIB_STACK_DEPTH, m_attributeDepth, glPopAttrib, nothing);
    // Cogl would report them as its own. OpenGL keeps one of each kind; a lost context goes on giving them.
    constexpr int kinds = 8;
    for (int i = 0; i < kinds && glGetError() != GL_NO_ERROR; ++i)
    {
    }
    if (--s_nesting == 0)
    {
        cogl_end_gl();
    }
}

void CGlBracket::SaveUnits()
{
    m_unitCount = std::min(static_cast<GLuint>(Get(GL_MAX_TEXTURE_COORDS)), k_mostUnits);
    for (GLuint unit = 0; unit < m_unitCount; ++unit)
    {
        glActiveTexture(GL_TEXTURE0 + unit);
        m_units[unit] = {SavedMatrix<SMatrix>(GL_TEXTURE_MATRIX, GL_TEXTURE_STACK_DEPTH), Get(GL_SAMPLER_BINDING)};
    }
}

void CGlBracket::RestoreUnits() const
{
    for (GLuint unit = 0; unit < m_unitCount; ++unit)
    {
        glActiveTexture(GL_TEXTURE0 + unit);
        RestoreMatrix(m_units[unit].matrix, GL_TEXTURE, GL_TEXTURE_STACK_DEPTH);
        glBindSampler(unit, static_cast<GLuint>(m_units[unit].sampler));
    }
}

void MarkFrameAsDrawn()
{
    static CoglPipeline* const s_pipeline =
        cogl_pipeline_new(cogl_framebuffer_get_context(cogl_get_draw_framebuffer()));
    // Any drawing will do, also one of no size.
    cogl_framebuffer_draw_rectangle(cogl_get_draw_framebuffer(), s_pipeline, 0, 0, 0, 0);
}

} // namespace Platform
