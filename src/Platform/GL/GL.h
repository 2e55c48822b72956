#pragma once

/// Fixed-function OpenGL as the toolkit calls it, with what only OpenGL ES has.

#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>
