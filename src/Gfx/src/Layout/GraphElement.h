#pragma once

#include "Core/Api.h"
#include "Layout/Element.h"

#include <vector>

namespace Gfx::Layout
{

/// "Graph": a Widgets::CGraph, to which the application adds the series. Children: "Events".
class GFX_API CGraphElement : public CElement
{
public:
    CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) override;
    [[nodiscard]] std::vector<SAttributeInfo> Attributes() const override;
};

} // namespace Gfx::Layout
