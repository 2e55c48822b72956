#pragma once

#include "Core/Api.h"
#include "Layout/Element.h"

#include <vector>

namespace Gfx::Layout
{

/// "CheckBox": a Widgets::CCheckBox. Children: "Events", "Font".
class GFX_API CCheckboxElement : public CElement
{
public:
    CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) override;
    [[nodiscard]] std::vector<SAttributeInfo> Attributes() const override;
    [[nodiscard]] std::vector<SNodeInfo> Nodes() const override { return {FontNode()}; }
};

} // namespace Gfx::Layout
