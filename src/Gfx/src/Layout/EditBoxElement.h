#pragma once

#include "Core/Api.h"
#include "Layout/Element.h"

#include <vector>

namespace Gfx::Widgets
{
class CEditBox;
}

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

    /// For the widget.
    void TextChangedHandler(Widgets::CWidget* a_widget);

private:
    void ProcessEvents(Widgets::CEditBox& a_box, const Core::IO::XMLNode& a_events);

    ActionList m_textChangedActions;
};

} // namespace Gfx::Layout
