#pragma once

#include "Core/Api.h"
#include "Layout/Element.h"

#include <vector>

namespace Gfx::Widgets
{
class CScrollBar;
}

namespace Gfx::Layout
{

/// "Scrollbar": a Widgets::CScrollBar. Children: "Events", with "Scroll" beside the base events, and "TextureSet", with
/// any of the elements "Bar", "SliderInactive", "SliderActive", "StepperInactive", "StepperActive", "Stepper1" and
/// "Stepper2".
class GFX_API CScrollbarElement : public CElement
{
public:
    CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) override;
    [[nodiscard]] std::vector<SAttributeInfo> Attributes() const override;
    [[nodiscard]] std::vector<SEventInfo> Events() const override;
    [[nodiscard]] std::vector<SNodeInfo> Nodes() const override;

    /// Takes the events of an "Events" node over.
    void ProcessEvents(const Core::IO::XMLNode& a_node);

    /// For the widget.
    void ScrollHandler(Widgets::CWidget* a_widget, int a_current);

private:
    static void ProcessTextureSet(Widgets::CScrollBar& a_bar, const Core::IO::XMLNode& a_set);

    ActionList m_scrollActions;
};

} // namespace Gfx::Layout
