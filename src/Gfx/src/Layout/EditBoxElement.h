#pragma once

#include "Core/Api.h"
#include "Layout/Element.h"

#include <vector>

namespace Gfx::Layout
{

/// "EditBox": a Widgets::CEditBox. Children: "Events", with "TextChanged" beside the base events, and "Font".
class GFX_API CEditBoxElement : public CElement
{
public:
    CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) override;
    [[nodiscard]] std::vector<SAttributeInfo> Attributes() const override;
    [[nodiscard]] std::vector<SEventInfo> Events() const override;
    [[nodiscard]] std::vector<SNodeInfo> Nodes() const override { return {FontNode()}; }

    /// Takes the events of an "Events" node over.
    void ProcessEvents(const Core::IO::XMLNode& a_node);

    /// For the widget.
    void TextChangedHandler(Widgets::CWidget* a_widget);

private:
    ActionList m_textChangedActions;
};

} // namespace Gfx::Layout
