#pragma once

#include "Core/Api.h"
#include "Layout/Element.h"

#include <vector>

namespace Gfx::Layout
{

/// "Window", at the top level of a layout: a Widgets::CWindow. Children: "Events", and any element.
class GFX_API CWindowElement : public CElement
{
public:
    CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) override;
    [[nodiscard]] std::vector<SAttributeInfo> Attributes() const override;
    [[nodiscard]] bool TakesElements() const override { return true; }
};

} // namespace Gfx::Layout
