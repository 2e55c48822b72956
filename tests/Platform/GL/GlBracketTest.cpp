#include "Platform/GL/GlBracket.h"

#include "Widgets/Controls/Button/Button.h"
#include "support/StageTest.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <vector>

namespace
{

using Gfx::CColour;

/// What no picture would show, as Cogl sets it itself before it draws.
std::vector<GLint> HiddenState()
{
    std::vector<GLint> state;
    for (const GLenum name :
         {GL_MODELVIEW_STACK_DEPTH, GL_PROJECTION_STACK_DEPTH, GL_TEXTURE_STACK_DEPTH, GL_ATTRIB_STACK_DEPTH,
          GL_CLIENT_ATTRIB_STACK_DEPTH, GL_MODELVIEW_MATRIX, GL_MATRIX_MODE, GL_ACTIVE_TEXTURE,
          GL_CLIENT_ACTIVE_TEXTURE, GL_SAMPLER_BINDING, GL_TEXTURE_BINDING_2D, GL_VERTEX_ARRAY_BINDING,
          GL_ARRAY_BUFFER_BINDING, GL_ELEMENT_ARRAY_BUFFER_BINDING, GL_PIXEL_UNPACK_BUFFER_BINDING,
          GL_UNPACK_ROW_LENGTH, GL_VERTEX_ARRAY, GL_VERTEX_ARRAY_SIZE, GL_READ_FRAMEBUFFER_BINDING})
    {
        std::array<GLint, 16> values{};
        glGetIntegerv(name, values.data());
        state.insert(state.end(), values.begin(), values.end());
    }
    return state;
}

constexpr std::array<GLfloat, 16> k_odd{3, 1, 0, 0, 0, 2, 0, 1, 0, 0, -1, 0, 5, 7, 0, 1};

void DisturbCapabilities()
{
    for (const GLenum capability :
         {GL_BLEND, GL_DEPTH_TEST, GL_CULL_FACE, GL_LIGHTING, GL_FOG, GL_ALPHA_TEST, GL_STENCIL_TEST, GL_SCISSOR_TEST,
          GL_COLOR_LOGIC_OP, GL_CLIP_PLANE0, GL_TEXTURE_GEN_S, GL_VERTEX_PROGRAM_ARB, GL_FRAGMENT_PROGRAM_ARB})
    {
        glIsEnabled(capability) != GL_FALSE ? glDisable(capability) : glEnable(capability);
    }
    // An error that nobody has asked for.
    glEnable(GL_FUNC_ADD);
}

void DisturbFixedFunctions()
{
    glBlendFunc(GL_ZERO, GL_ZERO);
    glAlphaFunc(GL_NEVER, 1);
    glDepthFunc(GL_NEVER);
    glDepthMask(GL_FALSE);
    glColorMask(GL_FALSE, GL_FALSE, GL_TRUE, GL_FALSE);
    glCullFace(GL_FRONT_AND_BACK);
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    glLineWidth(9);
    glViewport(5, 6, 70, 80);
    glVertexAttrib4f(0, 9, 9, 9, 9);
}

void DisturbMatrices()
{
    for (const GLenum unit : {GL_TEXTURE2, GL_TEXTURE1, GL_TEXTURE0})
    {
        glActiveTexture(unit);
        for (const GLenum mode : {GL_MODELVIEW, GL_PROJECTION, GL_TEXTURE})
        {
            // So stacks end deeper than they began.
            glMatrixMode(mode);
            glPushMatrix();
            glLoadMatrixf(k_odd.data());
        }
    }
    glPushAttrib(GL_ALL_ATTRIB_BITS);
    glPushClientAttrib(GL_CLIENT_ALL_ATTRIB_BITS);
}

void DisturbTextures()
{
    GLuint texture = 0;
    GLuint sampler = 0;
    glGenTextures(1, &texture);
    glGenSamplers(1, &sampler);
    for (const GLuint unit : {0U, 1U, 2U})
    {
        glActiveTexture(GL_TEXTURE0 + unit);
        glBindTexture(GL_TEXTURE_2D, texture);
        glBindSampler(unit, sampler);
        glEnable(GL_TEXTURE_2D);
        glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_DECAL);
    }
}

void DisturbObjects()
{
    GLuint name = 0;
    glGenVertexArrays(1, &name);
    glBindVertexArray(name);
    glGenBuffers(1, &name);
    for (const GLenum target : {GL_ARRAY_BUFFER, GL_ELEMENT_ARRAY_BUFFER, GL_PIXEL_UNPACK_BUFFER})
    {
        glBindBuffer(target, name);
    }
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(2, GL_FLOAT, 0, nullptr);
    glEnableVertexAttribArray(0);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 7);
    glGenFramebuffers(1, &name);
    glBindFramebuffer(GL_FRAMEBUFFER, name);
    const char* const source = "void main() { gl_FragColor = vec4(1.0, 0.0, 1.0, 1.0); }";
    name = glCreateShaderProgramv(GL_FRAGMENT_SHADER, 1, &source);
    glUseProgram(name);
}

class GlBracketTest : public GfxTest::CControlTest
{
protected:
    void SetUp() override
    {
        CControlTest::SetUp();
        AddTopLevel(new GfxTest::CBlock("ground", 0, 0, 800, 480, Gfx::Colours::Navy));
    }

    /// What draws in Cogl's several ways: textured, text, clipped, half transparent.
    static void AddControls(int a_x)
    {
        const std::string place = std::to_string(a_x);
        AddTopLevel(new Gfx::Widgets::CButton("button" + place, a_x, 20, 120, 60, false))->Text("Button");
        const auto clip = AddTopLevel(new GfxTest::CBlock("clip" + place, a_x, 100, 100, 50, Gfx::Colours::Teal, true));
        AddChild(*clip, new GfxTest::CBlock("clipped", 50, 20, 100, 100, Gfx::Colours::Orange));
        AddTopLevel(new GfxTest::CBlock("glass" + place, a_x, 180, 80, 80, CColour(255, 0, 0, 100)));
    }

    /// Runs a function within a bracket, in each paint. In a small place, as what is covered isn't drawn.
    static void AddRaw(const std::function<void()>& a_draw)
    {
        AddTopLevel(new GfxTest::CDrawing(0, 0, 10, 10,
                                          [a_draw]
                                          {
                                              const Platform::CGlBracket outer;
                                              const std::vector<GLint> before = HiddenState();
                                              {
                                                  const Platform::CGlBracket bracket;
                                                  a_draw();
                                              }
                                              EXPECT_EQ(HiddenState(), before);
                                          }));
    }
};

TEST_F(GlBracketTest, WhateverIsDisturbedTheOtherWidgetsLookTheSame)
{
    std::vector<std::function<void()>> running;
    AddControls(20);
    AddRaw([&] { std::for_each(running.begin(), running.end(), [](const auto& a_run) { a_run(); }); });
    AddControls(400);
    const GfxTest::CPicture expected = FreshPicture();
    ASSERT_GT(expected.Count(Gfx::Colours::Orange), 0);
    const std::vector<std::function<void()>> all{DisturbCapabilities, DisturbFixedFunctions, DisturbMatrices,
                                                 DisturbTextures, DisturbObjects};
    for (std::size_t i = 0; i <= all.size(); ++i)
    {
        running = i < all.size() ? std::vector{all[i]} : all;
        // Once for what comes later in the same frame, and once for the next.
        EXPECT_EQ(FreshPicture().CountDifferences(expected), 0) << i;
        running.clear();
        EXPECT_EQ(FreshPicture().CountDifferences(expected), 0) << "after " << i;
    }
}

void DrawSquare(float a_left, float a_top)
{
    constexpr float side = 40;
    const std::array<GLfloat, 8> vertices{a_left,        a_top, a_left,        a_top + side,
                                          a_left + side, a_top, a_left + side, a_top + side};
    const std::array<GLfloat, 8> texCoords{0, 0, 0, 1, 1, 0, 1, 1};
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glVertexPointer(2, GL_FLOAT, 0, vertices.data());
    glTexCoordPointer(2, GL_FLOAT, 0, texCoords.data());
    glDrawArrays(GL_TRIANGLE_STRIP, 0, 4);
}

TEST_F(GlBracketTest, WithinItColoursBlendAndTexturesAreModulated)
{
    GLuint texture = 0;
    glGenTextures(1, &texture);
    {
        // Outside of a paint, Cogl leaves another unit active and a way of its own to unpack pixels.
        glPixelStorei(GL_UNPACK_ROW_LENGTH, 64);
        const Platform::CGlBracket bracket;
        glBindTexture(GL_TEXTURE_2D, texture);
        // Three bytes a pixel and two pixels a row: each row is padded to eight bytes.
        const std::array<GLubyte, 16> pixels{200, 0, 0, 0, 200, 0, 9, 9, 0, 0, 200, 200, 200, 200, 9, 9};
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, 2, 2, 0, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    }
    AddRaw(
        [texture]
        {
            glEnable(GL_BLEND);
            glColor4ub(255, 0, 0, 128);
            DrawSquare(600, 300);
            glEnable(GL_TEXTURE_2D);
            glBindTexture(GL_TEXTURE_2D, texture);
            glColor4ub(255, 128, 255, 255);
            DrawSquare(700, 300);
        });
    AddTopLevel(new GfxTest::CBlock("later", 720, 320, 40, 40, Gfx::Colours::Lime));
    const GfxTest::CPicture picture = FreshPicture();
    EXPECT_EQ(picture.At(620, 320), CColour(128, 0, 64, 255));
    EXPECT_EQ(picture.At(705, 305), CColour(200, 0, 0, 255));
    EXPECT_EQ(picture.At(735, 305), CColour(0, 100, 0, 255));
    EXPECT_EQ(picture.At(705, 335), CColour(0, 0, 200, 255));
    EXPECT_EQ(picture.At(735, 335), Gfx::Colours::Lime);
    glDeleteTextures(1, &texture);
}

} // namespace
