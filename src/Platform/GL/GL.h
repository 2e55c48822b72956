#pragma once

/// Fixed-function OpenGL as the toolkit calls it, with what only OpenGL ES has.

#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>

namespace Platform
{

/// glClearDepthf, which is OpenGL ES's, and which desktop drivers needn't have before OpenGL 4.1.
inline void ClearDepth(float a_depth)
{
    glClearDepth(static_cast<GLdouble>(a_depth));
}

} // namespace Platform
