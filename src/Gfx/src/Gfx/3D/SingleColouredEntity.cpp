#include "Gfx/3D/SingleColouredEntity.h"

#include <utility>

namespace Gfx
{

CSingleColouredEntity::CSingleColouredEntity(const std::string& a_name, const CColour& a_colour,
                                             Core::SharedPtr<SGeometry> a_geometry)
    : CSingleColouredEntity(a_name, std::list<CColour>{a_colour}, GeometryPtrList{std::move(a_geometry)})
{
}

CSingleColouredEntity::CSingleColouredEntity(const std::string& a_name, const std::list<CColour>& a_colours,
                                             GeometryPtrList a_geometry)
    : C3DEntity(a_name, a_colours, std::move(a_geometry))
{
}

} // namespace Gfx
