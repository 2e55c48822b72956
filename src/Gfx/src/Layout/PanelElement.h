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

    /// Takes the events of an "Events" node over.
    void ProcessEvents(const Core::IO::XMLNode& a_node);

    /// For the widget.
    void SelectionChanged(Widgets::CWidget* a_widget, bool a_selected);
    void NonClientHit(Widgets::CWidget* a_widget);

private:
    ActionList m_selectedActions;
    ActionList m_deselectedActions;
    ActionList m_nonClientHitActions;
};

} // namespace Gfx::Layout
