#pragma once

#include "Core/Api.h"
#include "Layout/Element.h"

#include <vector>

namespace Gfx::Layout
{

/// "Panel": a Widgets::CPanel. Children: "Events", with "Selected", "Deselected" and "NonClientHit" beside the base
/// events, and any element.
class GFX_API CPanelElement : public CElement
{
public:
    CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) override;
    [[nodiscard]] std::vector<SAttributeInfo> Attributes() const override;
    [[nodiscard]] std::vector<SEventInfo> Events() const override;
    [[nodiscard]] bool TakesElements() const override { return true; }

    /// For the widget.
    void SelectionChanged(Widgets::CWidget* a_widget, bool a_selected);
    void NonClientHit(Widgets::CWidget* a_widget);

private:
    void ProcessEvents(const Core::IO::XMLNode& a_events);

    ActionList m_selectedActions;
    ActionList m_deselectedActions;
    ActionList m_nonClientHitActions;
};

} // namespace Gfx::Layout
