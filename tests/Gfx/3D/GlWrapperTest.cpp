#include "Gfx/3D/GlWrapper.h"

#include "Platform/GL/GlBracket.h"
#include "support/StageTest.h"

#include <Eigen/Geometry>
#include <Eigen/LU>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

namespace
{

using namespace Gfx::Wrapper;

using Vector3f = Core::Maths::Vector3<float>;

constexpr float k_nan = std::numeric_limits<float>::quiet_NaN();
constexpr float k_infinity = std::numeric_limits<float>::infinity();

using Matrix = Eigen::Matrix4d;

Matrix AsMatrix(const SViewMatrix& a_matrix)
{
    return Eigen::Map<const Eigen::Matrix4f>(a_matrix.m.data()).cast<double>();
}

Eigen::Vector4d AsVector(const Vector3f& a_point)
{
    return {a_point.x, a_point.y, a_point.z, 1};
}

void ExpectNear(const SViewMatrix& a_actual, const Matrix& a_expected, double a_tolerance)
{
    EXPECT_LT((AsMatrix(a_actual) - a_expected).cwiseAbs().maxCoeff(), a_tolerance)
        << AsMatrix(a_actual) << "\n, and expected\n"
        << a_expected;
}

Matrix Camera(const Vector3f& a_eye, double a_elevation, double a_azimuth)
{
    constexpr double degree = std::numbers::pi / 180;
    const Eigen::Affine3d camera = Eigen::AngleAxisd(a_elevation * degree, Eigen::Vector3d::UnitX()) *
                                   Eigen::AngleAxisd((a_azimuth - 90) * degree, Eigen::Vector3d::UnitY()) *
                                   Eigen::Translation3d(-a_eye.x, -a_eye.y, -a_eye.z);
    return camera.matrix();
}

/// Numbers of one sequence, the same in each run.
class CNumbers
{
public:
    float operator()(float a_from, float a_to) { return std::uniform_real_distribution<float>(a_from, a_to)(m_engine); }
    Vector3f Point() { return {(*this)(-9, 9), (*this)(-9, 9), (*this)(-9, 9)}; }
    SViewMatrix Matrix()
    {
        SViewMatrix matrix;
        std::generate(matrix.m.begin(), matrix.m.end(), [this] { return (*this)(-2, 2); });
        return matrix;
    }

private:
    std::mt19937 m_engine{81};
};

TEST(GlWrapperTest, PerspectiveTakesHalfTheAngleAndTheFarPlaneFirst)
{
    ExpectNear(CGlWrapper::GeneratePerspectiveMatrix(800, 480, 45, 825, 1),
               Matrix{{0.6, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, -826.0 / 824, -1650.0 / 824}, {0, 0, -1, 0}}, 1e-6);
}

TEST(GlWrapperTest, CamerasAreTheProductOfTheirTurnsAndTheirMove)
{
    ExpectNear(CGlWrapper::Camera_LookAt(Vector3f(0, 0, 0), 0, 90, 15),
               Matrix{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, -15}, {0, 0, 0, 1}}, 1e-5);
    CNumbers numbers;
    for (int i = 0; i < 200; ++i)
    {
        const float elevation = numbers(-170, 170);
        const float azimuth = numbers(-360, 360);
        const Vector3f eye = numbers.Point();
        ExpectNear(CGlWrapper::Camera_LookFrom(eye, elevation, azimuth, 77), Camera(eye, elevation, azimuth), 1e-4);

        // Whatever the angles, the target is straight ahead.
        const float distance = numbers(1, 50);
        const Vector3f target = numbers.Point();
        const auto view = AsMatrix(CGlWrapper::Camera_LookAt(target, elevation, azimuth, distance));
        EXPECT_LT((view * AsVector(target) - Eigen::Vector4d(0, 0, -distance, 1)).norm(), 1e-3);
    }
}

TEST(GlWrapperTest, ACameraBetweenTwoPointsLosesTheSignsOfItsAngles)
{
    const double level = std::atan2(2.0, std::sqrt(2.0)) * 180 / std::numbers::pi;
    const Vector3f target(1, 2, 3);
    const struct
    {
        Vector3f eye;
        double elevation;
        double azimuth;
    } cases[] = {
        {{1, 2, 18}, 0, 90},
        {{1, 2, -12}, 0, 90},
        {{6, 2, 3}, 0, 0},
        {{-4, 2, 3}, 0, 180},
        {{2, 4, 4}, level, 45},
        {{2, 0, 2}, level, 45},
        {{0, 0, 2}, level, 135},
        // Straight above, there is no azimuth; in the target itself, neither angle.
        {{1, 7, 3}, 90, 0},
        {{1, 2, 3}, 0, 0},
    };
    for (const auto& row : cases)
    {
        ExpectNear(CGlWrapper::Camera_LookAt(row.eye, target), Camera(row.eye, row.elevation, row.azimuth), 1e-5);
    }
}

TEST(GlWrapperTest, ProductsApplyTheirFirstFactorFirst)
{
    CNumbers numbers;
    for (int i = 0; i < 100; ++i)
    {
        SViewMatrix a = numbers.Matrix();
        const SViewMatrix b = numbers.Matrix();
        SVector4f vector{{a[0], a[1], a[2], a[3]}};
        const Eigen::Vector4d expected = AsMatrix(b) * AsMatrix(a).col(0);
        CGlWrapper::Multiply(b, vector, vector);
        EXPECT_LT((Eigen::Map<const Eigen::Vector4f>(vector.v.data()).cast<double>() - expected).norm(), 1e-5);
        const Matrix product = AsMatrix(b) * AsMatrix(a);
        CGlWrapper::Multiply(a, b, a);
        ExpectNear(a, product, 1e-5);
    }
}

TEST(GlWrapperTest, AnInverseUndoesItsMatrix)
{
    CNumbers numbers;
    for (int i = 0; i < 200; ++i)
    {
        SViewMatrix matrix = numbers.Matrix();
        // Zeros where pivots are looked for first, so that rows are exchanged.
        matrix[0] = 0;
        matrix[5] = i % 2 == 0 ? 0 : matrix[5];
        const Matrix inverse = AsMatrix(matrix).inverse();
        ASSERT_TRUE(CGlWrapper::InvertMatrix(matrix, matrix));
        ExpectNear(matrix, inverse, 1e-5 * (1 + inverse.squaredNorm()));
    }
    for (std::ptrdiff_t zero = 0; zero < 4; ++zero)
    {
        SViewMatrix singular = numbers.Matrix();
        std::fill_n(singular.m.begin() + zero * 4, 4, 0.0F);
        EXPECT_FALSE(CGlWrapper::InvertMatrix(singular, singular)) << zero;
    }
}

TEST(GlWrapperTest, UnProjectingFindsThePointThatWasProjected)
{
    CNumbers numbers;
    for (int i = 0; i < 200; ++i)
    {
        const SViewMatrix view = CGlWrapper::Camera_LookAt(numbers.Point(), numbers(-80, 80), numbers(0, 360), 30);
        const SViewMatrix projection = CGlWrapper::GeneratePerspectiveMatrix(800, 480, numbers(10, 60), 100, 1);
        const Vector3f point = numbers.Point();
        // From 0 to 1 over the viewport and the depth.
        const Eigen::Vector3d seen =
            ((AsMatrix(projection) * AsMatrix(view) * AsVector(point)).hnormalized().array() + 1) / 2;
        Vector3f found;
        ASSERT_TRUE(CGlWrapper::UnProject(static_cast<float>(40 + 800 * seen.x()),
                                          static_cast<float>(-30 + 480 * seen.y()), static_cast<float>(seen.z()), view,
                                          projection, 40, -30, 800, 480, found));
        EXPECT_LT((found - point).Length(), 0.05F) << i;
    }
}

TEST(GlWrapperTest, UnProjectingWithoutAnInverseLeavesTheResultAlone)
{
    SViewMatrix identity;
    CGlWrapper::MakeIdentify(identity);
    // It exchanges z and w, so the middle of the depths is at infinity.
    const SViewMatrix exchange{{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 1, 0}};
    Vector3f out(1, 2, 3);
    EXPECT_FALSE(CGlWrapper::UnProject(0, 0, 0, SViewMatrix(), identity, 0, 0, 8, 8, out));
    EXPECT_FALSE(CGlWrapper::UnProject(0, 0, 0.5F, exchange, identity, 0, 0, 8, 8, out));
    EXPECT_EQ(out, Vector3f(1, 2, 3));
    EXPECT_TRUE(CGlWrapper::UnProject(6, 2, 0.25F, identity, identity, 0, 0, 8, 8, out));
    EXPECT_EQ(out, Vector3f(0.5F, -0.5F, -0.5F));
    // Neither numbers that are none nor an empty viewport are refused.
    EXPECT_TRUE(CGlWrapper::UnProject(k_nan, 2, 0.25F, identity, identity, 0, 0, 0, 8, out));
}

class GlWrapperStateTest : public GfxTest::CStageTest
{
};

struct SState
{
    unsigned int bit;
    GLenum capability;
};

/// The colour array is set by glEnable, which Mesa takes.
constexpr SState k_states[] = {{0x1, GL_FOG},
                               {0x2, GL_LIGHTING},
                               {0x4, GL_TEXTURE_2D},
                               {0x8, GL_CULL_FACE},
                               {0x10, GL_ALPHA_TEST},
                               {0x20, GL_BLEND},
                               {0x40, GL_LINE_SMOOTH},
                               {0x200, GL_DEPTH_TEST},
                               {0x1000, GL_SCISSOR_TEST},
                               {0x20000, GL_VERTEX_ARRAY},
                               {0x40000, GL_NORMAL_ARRAY},
                               {0x80000, GL_COLOR_ARRAY},
                               {0x100000, GL_TEXTURE_COORD_ARRAY}};
constexpr unsigned int k_depthWrite = 0x200000;

/// What OpenGL itself says.
unsigned int ActualState()
{
    GLboolean depthWrite = GL_FALSE;
    glGetBooleanv(GL_DEPTH_WRITEMASK, &depthWrite);
    unsigned int mask = depthWrite != GL_FALSE ? k_depthWrite : 0;
    for (const SState& state : k_states)
    {
        mask |= glIsEnabled(state.capability) != GL_FALSE ? state.bit : 0;
    }
    return mask;
}

TEST_F(GlWrapperStateTest, EachBitIsAStateOfItsOwn)
{
    const Platform::CGlBracket alone;
    constexpr unsigned int all = 0x3E127F;
    std::vector<unsigned int> masks{all, 0, k_depthWrite, all & ~k_depthWrite};
    for (const SState& state : k_states)
    {
        masks.insert(masks.end(), {state.bit, all & ~state.bit});
    }
    for (const unsigned int mask : masks)
    {
        CGlWrapper::ToggleState(mask);
        EXPECT_EQ(ActualState(), mask);
        EXPECT_EQ(CGlWrapper::CurrentState(), mask);
    }
}

TEST_F(GlWrapperStateTest, AMaskThatIsSetAlreadyTouchesNothing)
{
    const Platform::CGlBracket alone;
    CGlWrapper::ToggleState(0x24);
    CGlWrapper::ToggleState(0x220200);
    glDisable(GL_DEPTH_TEST);
    // Reading the state doesn't store it.
    EXPECT_EQ(CGlWrapper::CurrentState(), 0x220000U);
    CGlWrapper::ToggleState(0x220200);
    EXPECT_EQ(ActualState(), 0x220000U);
    CGlWrapper::ToggleState(0x24);
    EXPECT_EQ(ActualState(), 0x24U);
}

TEST_F(GlWrapperStateTest, PushedStatesComeBackInReverse)
{
    const Platform::CGlBracket alone;
    CGlWrapper::ToggleState(0x3);
    CGlWrapper::PushState();
    CGlWrapper::ToggleState(0x220200);
    CGlWrapper::PushState();
    CGlWrapper::ToggleState(0);
    for (const unsigned int expected : {0x220200U, 0x3U, 0x3U})
    {
        CGlWrapper::PopState();
        EXPECT_EQ(ActualState(), expected);
    }
    // What was pushed is what OpenGL had, not what was set last; and unless another mask was set since, it isn't set
    // again.
    glEnable(GL_BLEND);
    CGlWrapper::PushState();
    glDisable(GL_FOG);
    CGlWrapper::PopState();
    EXPECT_EQ(ActualState(), 0x22U);
}

TEST_F(GlWrapperStateTest, ColoursAreCutToBytesAndDepthIsClearedAsTold)
{
    const Platform::CGlBracket alone;
    CGlWrapper::SetColour({255, 51, 0, 102});
    std::array<GLfloat, 4> values{};
    glGetFloatv(GL_CURRENT_COLOR, values.data());
    EXPECT_EQ(values, (std::array<GLfloat, 4>{1, 0.2F, 0, 0.4F}));
    glColor4f(0.5F, 1.0F, 0.999F, 0.0F);
    EXPECT_EQ(CGlWrapper::GetColour(), Gfx::CColour(127, 255, 254, 0));
    glColor4f(7.0F, -3.0F, k_nan, k_infinity);
    EXPECT_EQ(CGlWrapper::GetColour(), Gfx::CColour(255, 0, 0, 255));
    CGlWrapper::ClearDepth(0.25F);
    glGetFloatv(GL_DEPTH_CLEAR_VALUE, values.data());
    EXPECT_EQ(values[0], 0.25F);
}

} // namespace
