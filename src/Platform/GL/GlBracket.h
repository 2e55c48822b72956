#pragma once

#include "Platform/GL/GL.h"

#include <array>

namespace Platform
{

/// Lets the toolkit use fixed-function OpenGL, between Cogl's own drawing or outside of a paint, for as long as it
/// lives. What Cogl has been told to draw so far is drawn first. Brackets may be nested.
///
/// Within it OpenGL is as a program finds that doesn't know of Cogl, as far as that matters to coloured or textured
/// triangles: no shader or program, white as the colour, texture unit 0 active and the only one in use, textures
/// modulated by the colour, ordinary blending of colours that aren't premultiplied, pixels in memory without gaps, no
/// buffer objects. Clipping, viewport and matrices are Cogl's.
///
/// Afterwards all is as Cogl left it, since Cogl doesn't look: every state of OpenGL 1.x with the depth of its stacks,
/// the shader program, the samplers, the vertex array object and the framebuffers. Errors of OpenGL's that are pending
/// then are dropped. What objects contain (textures, buffers, programs) is not restored.
class CGlBracket
{
public:
    CGlBracket();
    ~CGlBracket();
    CGlBracket(const CGlBracket&) = delete;
    CGlBracket& operator=(const CGlBracket&) = delete;

private:
    struct SMatrix
    {
        std::array<GLfloat, 16> values{};
        GLint depth = 0;
    };

    static constexpr GLuint k_mostUnits = 8;

    struct SUnit
    {
        SMatrix matrix;
        GLint sampler = 0;
    };

    void SaveUnits();
    void RestoreUnits() const;

    GLint m_attributeDepth = 0;
    GLint m_clientAttributeDepth = 0;
    GLint m_program = 0;
    GLint m_drawFramebuffer = 0;
    GLint m_readFramebuffer = 0;
    SMatrix m_projection;
    SMatrix m_modelview;
    GLuint m_unitCount = 0;
    std::array<SUnit, k_mostUnits> m_units;
};

/// To be called in a paint that draws by OpenGL: Cogl would take a frame in which it has drawn nothing itself for one
/// that is still clear, and not clear it again.
void MarkFrameAsDrawn();

} // namespace Platform
