#pragma once

#include "Core/Api.h"
#include "Layout/Element.h"

#include <vector>

namespace Gfx::Layout
{

/// "TextBox": a Widgets::CTextBox. Children: "Events", "Font".
class GFX_API CTextBoxElement : public CElement
{
public:
    CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) override;
    [[nodiscard]] std::vector<SAttributeInfo> Attributes() const override;
    [[nodiscard]] std::vector<SNodeInfo> Nodes() const override { return {FontNode()}; }
};

} // namespace Gfx::Layout
