#pragma once

#include "Core/Api.h"
#include "Core/Maths/Vector3.h"
#include "Gfx/Common/Colour.h"

#include <array>
#include <cstddef>
#include <list>

namespace Gfx::Wrapper
{

/// A 4 by 4 matrix in the order that glLoadMatrixf takes: element 4 * column + row.
struct SViewMatrix
{
    std::array<float, 16> m{};

    bool operator==(const SViewMatrix& a_other) const = default;
    [[nodiscard]] constexpr float& operator[](std::size_t a_index) { return m[a_index]; }
    [[nodiscard]] constexpr const float& operator[](std::size_t a_index) const { return m[a_index]; }
};

/// Four components, such as homogeneous coordinates: x, y, z, w.
struct SVector4f
{
    std::array<float, 4> v{};

    [[nodiscard]] constexpr float& operator[](std::size_t a_index) { return v[a_index]; }
    [[nodiscard]] constexpr const float& operator[](std::size_t a_index) const { return v[a_index]; }
};

namespace detail
{
class CDrawingArea;
}

static_assert(sizeof(SViewMatrix) == 64 && sizeof(SVector4f) == 16);

/// The bits of a state mask, named after OpenGL's states.
enum EGlState : unsigned int
{
    egsFog = 0x1,
    egsLighting = 0x2,
    egsTexture2D = 0x4,
    egsCullFace = 0x8,
    egsAlphaTest = 0x10,
    egsBlend = 0x20,
    egsLineSmooth = 0x40,
    egsDepthTest = 0x200,
    egsScissorTest = 0x1000,
    egsVertexArray = 0x20000,
    egsNormalArray = 0x40000,
    egsColourArray = 0x80000,
    egsTextureCoordArray = 0x100000,
    egsDepthWrite = 0x200000
};

/// The little state and matrix arithmetic that OpenGL ES 1.x leaves to the caller. For the thread that holds the GL
/// context.
///
/// 3D drawing within a paint stands between PushState() and PopState(): ToggleState() in between says what it wants.
/// What a mask doesn't cover, Platform::CGlBracket restores.
///
/// The matrix operations work on any numbers: what isn't finite goes through them by the rules of floating point.
class GFX_API CGlWrapper
{
public:
    using Vector3f = Core::Maths::Vector3<float>;

    CGlWrapper() = delete;

    /// Makes a_matrix the identity.
    static void MakeIdentify(SViewMatrix& a_matrix);

    /// False for a singular matrix, with a_out half-made. a_in and a_out may be the same.
    [[nodiscard]] static bool InvertMatrix(const SViewMatrix& a_in, SViewMatrix& a_out);

    /// In OpenGL's order of columns, the product a_b times a_a: a_a is applied first. a_out may be either of them.
    static void Multiply(const SViewMatrix& a_a, const SViewMatrix& a_b, SViewMatrix& a_out);

    /// The matrix applied to a vector. a_out may be a_vector.
    static void Multiply(const SViewMatrix& a_matrix, const SVector4f& a_vector, SVector4f& a_out);

    /// a_halfAngle, in degrees, is half the vertical field of view: 45 gives a field of 90. Note that a_far comes
    /// before a_near.
    [[nodiscard]] static SViewMatrix GeneratePerspectiveMatrix(float a_width, float a_height, float a_halfAngle,
                                                               float a_far, float a_near);

    /// A camera that looks at a_target from a point of the sphere of radius a_distance around it. Degrees: elevation 0
    /// is level with the target, azimuth 0 on its x side and 90 on its z side.
    [[nodiscard]] static SViewMatrix Camera_LookAt(const Vector3f& a_target, float a_elevation, float a_azimuth,
                                                   float a_distance);

    /// A camera at a_eye that looks at a_target, if the target isn't higher than the eye, nor further along z: the
    /// angles come from a cosine, which knows no sign.
    [[nodiscard]] static SViewMatrix Camera_LookAt(const Vector3f& a_eye, const Vector3f& a_target);

    /// A camera at a_eye that looks as one at this elevation and azimuth, in degrees, looks at its target.
    [[nodiscard]] static SViewMatrix Camera_LookFrom(const Vector3f& a_eye, float a_elevation, float a_azimuth,
                                                     float a_unused);

    /// The point of the scene that is seen at x and y of the viewport, from its bottom left, in pixels, and at z in
    /// the depth buffer, from 0 (near) to 1 (far). False, with a_out left alone, if the matrices have no inverse.
    [[nodiscard]] static bool UnProject(float a_x, float a_y, float a_z, const SViewMatrix& a_view,
                                        const SViewMatrix& a_projection, int a_viewportX, int a_viewportY,
                                        int a_viewportWidth, int a_viewportHeight, Vector3f& a_out);

    /// The depth, from 0 to 1, that clearing the depth buffer fills it with.
    static void ClearDepth(float a_depth);

    /// OpenGL's current colour; each component is cut to a byte, not rounded.
    [[nodiscard]] static CColour GetColour();
    static void SetColour(const CColour& a_colour);

    /// Sets all states to what a_mask says, except when it is the mask that was last set or pushed: then what somebody
    /// else has done to OpenGL meanwhile stays. While a frame draws its scene, the scissor test stays on.
    static void ToggleState(unsigned int a_mask);

    /// The mask of the states as OpenGL has them.
    [[nodiscard]] static unsigned int CurrentState();

    /// Keeps the mask of the states as OpenGL has them, for PopState().
    static void PushState();

    /// Goes back, by ToggleState(), to the mask that was last pushed. Does nothing if there is none.
    static void PopState();

private:
    friend class detail::CDrawingArea;

    static std::list<unsigned int> s_glState;
    static unsigned int s_currentState;
    /// What is set whatever a mask says.
    static unsigned int s_keptState;
};

} // namespace Gfx::Wrapper
