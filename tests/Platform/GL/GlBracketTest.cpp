#include "Platform/GL/GlBracket.h"

#include "Platform/Clutter/Clutter.h"
#include "Widgets/Controls/Button/Button.h"
#include "Widgets/Controls/Label/Label.h"
#include "support/StageTest.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace
{

using Gfx::CColour;

using Draw = std::function<void()>;

/// Covers the stage, and runs a function within a bracket.
class CRaw : public Gfx::Widgets::CWidget
{
public:
    explicit CRaw(Draw a_draw) : CWidget("raw", "Raw", 0, 0, 800, 480, false), m_draw(std::move(a_draw))
    {
        InitialiseClutterGroup();
    }
    void DrawSelf() const override
    {
        const Platform::CGlBracket bracket;
        m_draw();
    }

private:
    Draw m_draw;
};

struct SDisturbance
{
    const char* name;
    void (*run)();
};

constexpr std::array<GLfloat, 16> k_odd{3, 1, 0, 0, 0, 2, 0, 1, 0, 0, -1, 0, 5, 7, 0, 1};

void LoadOddMatrix(GLenum a_mode)
{
    glMatrixMode(a_mode);
    glLoadMatrixf(k_odd.data());
    // Stacks that end deeper than they began.
    glPushMatrix();
    glLoadIdentity();
}

constexpr SDisturbance k_disturbances[] = {
    {"capabilities",
     []
     {
         for (const GLenum capability :
              {GL_BLEND, GL_DEPTH_TEST, GL_CULL_FACE, GL_LIGHTING, GL_LIGHT0, GL_FOG, GL_ALPHA_TEST, GL_STENCIL_TEST,
               GL_SCISSOR_TEST, GL_COLOR_LOGIC_OP, GL_CLIP_PLANE0, GL_POLYGON_STIPPLE, GL_TEXTURE_GEN_S,
               GL_VERTEX_PROGRAM_ARB, GL_FRAGMENT_PROGRAM_ARB, GL_LINE_SMOOTH, GL_SAMPLE_COVERAGE})
         {
             glIsEnabled(capability) != GL_FALSE ? glDisable(capability) : glEnable(capability);
         }
     }},
    {"fixed functions",
     []
     {
         glBlendFunc(GL_ZERO, GL_ZERO);
         glBlendEquation(GL_FUNC_REVERSE_SUBTRACT);
         glAlphaFunc(GL_NEVER, 1);
         glDepthFunc(GL_NEVER);
         glDepthMask(GL_FALSE);
         glDepthRange(1, 0);
         glClearDepth(0);
         glClearColor(1, 0, 1, 1);
         glColorMask(GL_FALSE, GL_FALSE, GL_TRUE, GL_FALSE);
         glStencilFunc(GL_NEVER, 3, 1);
         glStencilMask(0);
         glCullFace(GL_FRONT_AND_BACK);
         glFrontFace(GL_CW);
         glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
         glShadeModel(GL_FLAT);
         glLineWidth(9);
         glPointSize(9);
         glScissor(1, 2, 3, 4);
         glViewport(5, 6, 70, 80);
         glColor4f(0, 1, 0, 0.5F);
         glVertexAttrib4f(0, 9, 9, 9, 9);
         glVertexAttrib4f(3, 9, 9, 9, 9);
     }},
    {"matrices",
     []
     {
         LoadOddMatrix(GL_MODELVIEW);
         LoadOddMatrix(GL_PROJECTION);
         for (const GLenum unit : {GL_TEXTURE0, GL_TEXTURE1, GL_TEXTURE2})
         {
             glActiveTexture(unit);
             LoadOddMatrix(GL_TEXTURE);
         }
     }},
    {"popped stacks",
     []
     {
         for (const GLenum mode : {GL_MODELVIEW, GL_PROJECTION})
         {
             glMatrixMode(mode);
             glPopMatrix();
             glLoadMatrixf(k_odd.data());
         }
         glPushAttrib(GL_ALL_ATTRIB_BITS);
         glPushClientAttrib(GL_CLIENT_ALL_ATTRIB_BITS);
         glBlendFunc(GL_ZERO, GL_ZERO);
     }},
    {"texture units",
     []
     {
         GLuint texture = 0;
         glGenTextures(1, &texture);
         for (const GLenum unit : {GL_TEXTURE0, GL_TEXTURE1, GL_TEXTURE2})
         {
             glActiveTexture(unit);
             glBindTexture(GL_TEXTURE_2D, texture);
             glEnable(GL_TEXTURE_2D);
             glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_DECAL);
         }
         const std::array<GLubyte, 12> pixels{};
         glTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, 2, 2, 0, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
     }},
    {"arrays and buffers",
     []
     {
         static const std::array<GLfloat, 16> s_vertices{};
         GLuint buffer = 0;
         glGenBuffers(1, &buffer);
         glEnableClientState(GL_VERTEX_ARRAY);
         glVertexPointer(3, GL_FLOAT, 0, s_vertices.data());
         glClientActiveTexture(GL_TEXTURE1);
         glEnableClientState(GL_TEXTURE_COORD_ARRAY);
         glTexCoordPointer(2, GL_FLOAT, 0, s_vertices.data());
         glEnableVertexAttribArray(1);
         glVertexAttribPointer(1, 4, GL_FLOAT, GL_FALSE, 0, s_vertices.data());
         for (const GLenum target : {GL_ARRAY_BUFFER, GL_ELEMENT_ARRAY_BUFFER, GL_PIXEL_UNPACK_BUFFER})
         {
             glBindBuffer(target, buffer);
         }
         GLuint array = 0;
         glGenVertexArrays(1, &array);
         glBindVertexArray(array);
         glEnableVertexAttribArray(0);
         glPixelStorei(GL_UNPACK_ROW_LENGTH, 7);
         glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
     }},
    {"programs and framebuffers",
     []
     {
         const char* const source = "void main() { gl_FragColor = vec4(1.0, 0.0, 1.0, 1.0); }";
         const GLuint shader = glCreateShader(GL_FRAGMENT_SHADER);
         glShaderSource(shader, 1, &source, nullptr);
         glCompileShader(shader);
         const GLuint program = glCreateProgram();
         glAttachShader(program, shader);
         glLinkProgram(program);
         glUseProgram(program);
         GLuint framebuffer = 0;
         glGenFramebuffers(1, &framebuffer);
         glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
         glDrawBuffer(GL_NONE);
     }},
    {"errors", [] { glEnable(GL_FUNC_ADD); }},
};

class GlBracketTest : public GfxTest::CControlTest
{
protected:
    void SetUp() override
    {
        CControlTest::SetUp();
        AddTopLevel(new GfxTest::CBlock("ground", 0, 0, 800, 480, Gfx::Colours::Navy));
        AddControls(20);
    }

    /// What draws in Cogl's several ways: plain, textured, text, clipped, half transparent.
    static void AddControls(int a_x)
    {
        const std::string place = std::to_string(a_x);
        AddTopLevel(new Gfx::Widgets::CButton("button" + place, a_x, 20, 120, 60, false))->Text("Button");
        const auto clip = AddTopLevel(new GfxTest::CBlock("clip" + place, a_x, 100, 100, 50, Gfx::Colours::Teal, true));
        AddChild(*clip, new GfxTest::CBlock("clipped", 50, 20, 100, 100, Gfx::Colours::Orange));
        AddTopLevel(new GfxTest::CBlock("glass" + place, a_x, 180, 80, 80, CColour(255, 0, 0, 100)));
        AddTopLevel(new Gfx::Widgets::CLabel("label" + place, a_x, 280, 150, 30))->Text("Label");
    }
};

TEST_F(GlBracketTest, WhateverIsDisturbedTheOtherWidgetsLookTheSame)
{
    std::vector<const SDisturbance*> running;
    AddTopLevel(new CRaw(
        [&]
        {
            for (const SDisturbance* disturbance : running)
            {
                disturbance->run();
            }
        }));
    AddControls(400);
    const GfxTest::CPicture expected = FreshPicture();
    ASSERT_GT(expected.Count(Gfx::Colours::Orange), 0);
    const auto compare = [&](const char* a_name)
    {
        // Once for what comes later in the same frame, and once for the next.
        EXPECT_EQ(FreshPicture().CountDifferences(expected), 0) << a_name;
        running.clear();
        EXPECT_EQ(FreshPicture().CountDifferences(expected), 0) << "after " << a_name;
    };
    for (const SDisturbance& disturbance : k_disturbances)
    {
        running = {&disturbance};
        compare(disturbance.name);
    }
    for (const SDisturbance& disturbance : k_disturbances)
    {
        running.push_back(&disturbance);
    }
    compare("all");
}

void DrawSquare(float a_left, float a_top, float a_side)
{
    const std::array<GLfloat, 12> vertices{a_left, a_top,          0, a_left + a_side, a_top,          0,
                                           a_left, a_top + a_side, 0, a_left + a_side, a_top + a_side, 0};
    const std::array<GLfloat, 8> texCoords{0, 0, 1, 0, 0, 1, 1, 1};
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, vertices.data());
    glTexCoordPointer(2, GL_FLOAT, 0, texCoords.data());
    glDrawArrays(GL_TRIANGLE_STRIP, 0, 4);
}

/// Three bytes a pixel and two pixels a row: each row is padded to eight bytes.
GLuint MakeTexture()
{
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    const std::array<GLubyte, 16> pixels{200, 0, 0, 0, 200, 0, 9, 9, 0, 0, 200, 200, 200, 200, 9, 9};
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, 2, 2, 0, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    return texture;
}

TEST_F(GlBracketTest, WithinItColoursBlendAndTexturesAreModulated)
{
    GLuint texture = 0;
    {
        // Outside of a paint, Cogl leaves another unit active and its own way of unpacking; brackets may be nested.
        const Platform::CGlBracket bracket;
        const Platform::CGlBracket inner;
        texture = MakeTexture();
    }
    AddTopLevel(new CRaw(
        [texture]
        {
            glEnable(GL_BLEND);
            glDisable(GL_TEXTURE_2D);
            glColor4ub(255, 0, 0, 128);
            DrawSquare(600, 300, 40);
            glEnable(GL_TEXTURE_2D);
            glBindTexture(GL_TEXTURE_2D, texture);
            glColor4ub(255, 128, 255, 255);
            DrawSquare(700, 300, 40);
        }));
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
