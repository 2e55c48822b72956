#pragma once

#include "Core/Api.h"
#include "Gfx/3D/3DEntity.h"

namespace Gfx
{

/// An entity that is made with its colours. The alpha of the first one says whether it is transparent.
class GFX_API CSingleColouredEntity : public C3DEntity
{
public:
    CSingleColouredEntity(const std::string& a_name, const CColour& a_colour, Core::SharedPtr<SGeometry> a_geometry);
    CSingleColouredEntity(const std::string& a_name, const std::list<CColour>& a_colours, GeometryPtrList a_geometry);
};

} // namespace Gfx
