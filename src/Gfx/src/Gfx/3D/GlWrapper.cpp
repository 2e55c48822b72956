#include "Gfx/3D/GlWrapper.h"

#include "Core/Maths/Math.h"
#include "Platform/GL/GL.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>
#include <utility>

namespace Gfx::Wrapper
{

namespace
{

/// Nodes that the stack has had, so that none is made in a paint.
std::list<unsigned int> s_spareNodes;

using Core::Maths::Vector3;
using Math = Core::Maths::Math<float>;

struct SState
{
    EGlState bit;
    GLenum capability;
    bool isClientState;
};

/// In the order in which they are set.
constexpr auto k_states = std::to_array<SState>({
    {egsFog, GL_FOG, false},
    {egsLighting, GL_LIGHTING, false},
    {egsTexture2D, GL_TEXTURE_2D, false},
    {egsCullFace, GL_CULL_FACE, false},
    {egsAlphaTest, GL_ALPHA_TEST, false},
    {egsBlend, GL_BLEND, false},
    {egsDepthTest, GL_DEPTH_TEST, false},
    {egsScissorTest, GL_SCISSOR_TEST, false},
    {egsVertexArray, GL_VERTEX_ARRAY, true},
    {egsNormalArray, GL_NORMAL_ARRAY, true},
    // A client state that has always been set by the other call; not every driver takes that.
    {egsColourArray, GL_COLOR_ARRAY, false},
    {egsTextureCoordArray, GL_TEXTURE_COORD_ARRAY, true},
    {egsLineSmooth, GL_LINE_SMOOTH, false},
});

void Set(const SState& a_state, bool a_on)
{
    if (a_state.isClientState)
    {
        a_on ? glEnableClientState(a_state.capability) : glDisableClientState(a_state.capability);
    }
    else
    {
        a_on ? glEnable(a_state.capability) : glDisable(a_state.capability);
    }
}

/// Rx(elevation) * Ry(azimuth - 90 degrees) * T(-eye), with the angles in radians.
SViewMatrix CameraMatrix(const Vector3<float>& a_eye, float a_elevation, float a_azimuth)
{
    const float sinA = std::sin(a_elevation);
    const float cosA = std::cos(a_elevation);
    const float sinQ = std::sin(a_azimuth - Math::HALF_PI);
    const float cosQ = std::cos(a_azimuth - Math::HALF_PI);
    SViewMatrix view{{cosQ, sinA * sinQ, -cosA * sinQ, 0, //
                      0, cosA, sinA, 0,                   //
                      sinQ, -sinA * cosQ, cosA * cosQ, 0, //
                      0, 0, 0, 1}};
    for (std::size_t row = 0; row < 3; ++row)
    {
        view[12 + row] = view[row] * -a_eye.x + view[4 + row] * -a_eye.y + view[8 + row] * -a_eye.z;
    }
    return view;
}

/// 0 for what isn't a number.
float GuardedArcCosine(float a_value)
{
    if (a_value <= -1)
    {
        return Math::PI;
    }
    return a_value >= 1 || std::isnan(a_value) ? 0 : std::acos(a_value);
}

} // namespace

std::list<unsigned int> CGlWrapper::s_glState;
unsigned int CGlWrapper::s_currentState = 0;
unsigned int CGlWrapper::s_keptState = 0;

void CGlWrapper::MakeIdentify(SViewMatrix& a_matrix)
{
    a_matrix = {{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}};
}

bool CGlWrapper::InvertMatrix(const SViewMatrix& a_in, SViewMatrix& a_out)
{
    const auto at = [](SViewMatrix& a_matrix, std::size_t a_row, std::size_t a_column) -> float&
    { return a_matrix[4 * a_column + a_row]; };

    SViewMatrix work = a_in;
    MakeIdentify(a_out);
    for (std::size_t i = 0; i < 4; ++i)
    {
        std::size_t pivotRow = i;
        for (std::size_t row = i + 1; row < 4; ++row)
        {
            if (std::abs(at(work, row, i)) > std::abs(at(work, pivotRow, i)))
            {
                pivotRow = row;
            }
        }
        const float pivot = at(work, pivotRow, i);
        if (pivot == 0)
        {
            return false;
        }
        for (SViewMatrix* matrix : {&work, &a_out})
        {
            for (std::size_t column = 0; column < 4; ++column)
            {
                std::swap(at(*matrix, i, column), at(*matrix, pivotRow, column));
                at(*matrix, i, column) /= pivot;
            }
        }
        for (std::size_t row = 0; row < 4; ++row)
        {
            if (row == i)
            {
                continue;
            }
            const float factor = at(work, row, i);
            for (SViewMatrix* matrix : {&work, &a_out})
            {
                for (std::size_t column = 0; column < 4; ++column)
                {
                    at(*matrix, row, column) -= factor * at(*matrix, i, column);
                }
            }
        }
    }
    return true;
}

void CGlWrapper::Multiply(const SViewMatrix& a_a, const SViewMatrix& a_b, SViewMatrix& a_out)
{
    SViewMatrix product;
    for (std::size_t i = 0; i < 4; ++i)
    {
        for (std::size_t j = 0; j < 4; ++j)
        {
            product[4 * i + j] = a_a[4 * i] * a_b[j] + a_a[4 * i + 1] * a_b[4 + j] + a_a[4 * i + 2] * a_b[8 + j] +
                                 a_a[4 * i + 3] * a_b[12 + j];
        }
    }
    a_out = product;
}

void CGlWrapper::Multiply(const SViewMatrix& a_matrix, const SVector4f& a_vector, SVector4f& a_out)
{
    SVector4f product;
    for (std::size_t k = 0; k < 4; ++k)
    {
        product[k] = a_vector[0] * a_matrix[k] + a_vector[1] * a_matrix[4 + k] + a_vector[2] * a_matrix[8 + k] +
                     a_vector[3] * a_matrix[12 + k];
    }
    a_out = product;
}

SViewMatrix CGlWrapper::GeneratePerspectiveMatrix(float a_width, float a_height, float a_halfAngle, float a_far,
                                                  float a_near)
{
    const float tangent = std::tan(static_cast<float>(a_halfAngle * std::numbers::pi / 180.0));
    const float aspect = a_width / a_height;
    SViewMatrix projection;
    projection[0] = (1 / tangent) / aspect;
    projection[5] = 1 / tangent;
    projection[10] = (a_far + a_near) / (a_near - a_far);
    projection[11] = -1;
    projection[14] = (2 * a_far * a_near) / (a_near - a_far);
    return projection;
}

SViewMatrix CGlWrapper::Camera_LookAt(const Vector3f& a_target, float a_elevation, float a_azimuth, float a_distance)
{
    const float elevation = a_elevation * Math::DEG_TO_RAD;
    const float azimuth = a_azimuth * Math::DEG_TO_RAD;
    const Vector3f offset(a_distance * std::cos(elevation) * std::cos(azimuth), a_distance * std::sin(elevation),
                          a_distance * std::cos(elevation) * std::sin(azimuth));
    return CameraMatrix(a_target + offset, elevation, azimuth);
}

SViewMatrix CGlWrapper::Camera_LookAt(const Vector3f& a_eye, const Vector3f& a_target)
{
    const Vector3f offset = a_eye - a_target;
    const float level = std::sqrt(offset.x * offset.x + offset.z * offset.z);
    const float length = std::sqrt(level * level + offset.y * offset.y);
    return CameraMatrix(a_eye, GuardedArcCosine(level / length), GuardedArcCosine(offset.x / level));
}

SViewMatrix CGlWrapper::Camera_LookFrom(const Vector3f& a_eye, float a_elevation, float a_azimuth, float)
{
    return CameraMatrix(a_eye, a_elevation * Math::DEG_TO_RAD, a_azimuth * Math::DEG_TO_RAD);
}

bool CGlWrapper::UnProject(float a_x, float a_y, float a_z, const SViewMatrix& a_view, const SViewMatrix& a_projection,
                           int a_viewportX, int a_viewportY, int a_viewportWidth, int a_viewportHeight, Vector3f& a_out)
{
    SViewMatrix matrix;
    Multiply(a_view, a_projection, matrix);
    if (!InvertMatrix(matrix, matrix))
    {
        return false;
    }
    const auto within = [](float a_value, int a_corner, int a_size)
    { return 2 * (a_value - static_cast<float>(a_corner)) / static_cast<float>(a_size) - 1; };
    SVector4f point{
        {within(a_x, a_viewportX, a_viewportWidth), within(a_y, a_viewportY, a_viewportHeight), 2 * a_z - 1, 1}};
    Multiply(matrix, point, point);
    if (point[3] == 0)
    {
        return false;
    }
    a_out = {point[0] / point[3], point[1] / point[3], point[2] / point[3]};
    return true;
}

void CGlWrapper::ClearDepth(float a_depth)
{
    Platform::ClearDepth(a_depth);
}

CColour CGlWrapper::GetColour()
{
    std::array<GLfloat, 4> components{};
    glGetFloatv(GL_CURRENT_COLOR, components.data());
    // glColor4f takes any number; beyond the range of a byte the conversion would be undefined.
    const auto byte = [](GLfloat a_component)
    {
        const double value = a_component * 255.0;
        return static_cast<std::uint8_t>(std::isnan(value) ? 0 : std::clamp(value, 0.0, 255.0));
    };
    return {byte(components[0]), byte(components[1]), byte(components[2]), byte(components[3])};
}

void CGlWrapper::SetColour(const CColour& a_colour)
{
    glColor4ub(a_colour.Red(), a_colour.Green(), a_colour.Blue(), a_colour.Alpha());
}

void CGlWrapper::ToggleState(unsigned int a_mask)
{
    if (a_mask == s_currentState)
    {
        return;
    }
    for (const SState& state : k_states)
    {
        Set(state, ((a_mask | s_keptState) & state.bit) != 0);
    }
    glDepthMask((a_mask & egsDepthWrite) != 0 ? GL_TRUE : GL_FALSE);
    s_currentState = a_mask;
}

unsigned int CGlWrapper::CurrentState()
{
    unsigned int mask = 0;
    for (const SState& state : k_states)
    {
        mask |= glIsEnabled(state.capability) != GL_FALSE ? state.bit : 0U;
    }
    GLboolean depthWrite = GL_FALSE;
    glGetBooleanv(GL_DEPTH_WRITEMASK, &depthWrite);
    return mask | (depthWrite != GL_FALSE ? egsDepthWrite : 0U);
}

void CGlWrapper::PushState()
{
    s_currentState = CurrentState();
    if (s_spareNodes.empty())
    {
        s_spareNodes.emplace_back();
    }
    s_glState.splice(s_glState.end(), s_spareNodes, s_spareNodes.begin());
    s_glState.back() = s_currentState;
}

void CGlWrapper::PopState()
{
    if (s_glState.empty())
    {
        return;
    }
    ToggleState(s_glState.back());
    s_spareNodes.splice(s_spareNodes.begin(), s_glState, std::prev(s_glState.end()));
}

} // namespace Gfx::Wrapper
