#pragma once

#include "Core/Api.h"
#include "Layout/Element.h"

#include <vector>

namespace Gfx::Layout
{

/// "WizardStage": a Widgets::CWizardStage, whose place and size are its own. Children: "Events", with "Enter" and
/// "Exit" beside the base events, and any element.
class GFX_API CWizardStageElement : public CElement
{
public:
    CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) override;
    [[nodiscard]] std::vector<SAttributeInfo> Attributes() const override;
    [[nodiscard]] std::vector<SEventInfo> Events() const override;
    [[nodiscard]] bool TakesElements() const override { return true; }

    /// Takes the events of an "Events" node over.
    void ProcessEvents(const Core::IO::XMLNode& a_node);

    /// For the widget.
    void EnterHandler(Widgets::CWidget* a_widget);
    void ExitHandler(Widgets::CWidget* a_widget);

private:
    ActionList m_enterActions;
    ActionList m_exitActions;
};

} // namespace Gfx::Layout
