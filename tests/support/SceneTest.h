#pragma once

#include "Core/SharedPtr.h"
#include "Gfx/3D/SingleColouredEntity.h"
#include "Gfx/Common/Geometry.h"
#include "support/StageTest.h"

#include <string>
#include <vector>

namespace GfxTest
{

/// Two triangles in the plane z that cover -x to x and -y to y, with the whole of a texture on them. In a frame of 300
/// by 300 pixels with its first camera, a unit at z 0 is ten pixels.
inline Core::SharedPtr<Gfx::SGeometry> Rectangle(float a_x, float a_y, float a_z = 0)
{
    return Gfx::MakeGeometry(
        {{0, 0}, {1, 0}, {1, 1}, {0, 0}, {1, 1}, {0, 1}},
        {{-a_x, -a_y, a_z}, {a_x, -a_y, a_z}, {a_x, a_y, a_z}, {-a_x, -a_y, a_z}, {a_x, a_y, a_z}, {-a_x, a_y, a_z}},
        a_x, Gfx::egtTriangles);
}

inline Core::SharedPtr<Gfx::C3DEntity> RectangleEntity(const Gfx::CColour& a_colour, float a_x, float a_y,
                                                       float a_z = 0, const std::string& a_name = "rectangle")
{
    return Core::SharedPtr<Gfx::C3DEntity>(new Gfx::CSingleColouredEntity(a_name, a_colour, Rectangle(a_x, a_y, a_z)));
}

} // namespace GfxTest
