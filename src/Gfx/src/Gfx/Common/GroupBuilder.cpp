#include "Gfx/Common/GroupBuilder.h"

#include "Core/Logging/Logger.h"
#include "Core/StaticSingleton.h"

#include <utility>

namespace Gfx::detail
{

void CGroupBuilder::AppendTo(GeometryPtrList& a_groups, float a_extent)
{
    if (m_size != m_vertices.size())
    {
        m_texCoords.resize(m_size);
        m_texCoords.shrink_to_fit();
        m_vertices.resize(m_size);
        m_vertices.shrink_to_fit();
    }
    a_groups.push_back(MakeGeometry(std::move(m_texCoords), std::move(m_vertices), a_extent, egtTriangles));
}

void ReportTooLarge(const char* a_loader, const std::string& a_path)
{
    Core::Patterns::StaticSingleton<Core::Logging::CLogger>::ref().Log(
        Core::Logging::elMessage, a_loader, "The model file %s is larger than models may be", a_path.c_str());
}

} // namespace Gfx::detail
