#pragma once

#include "Core/Api.h"
#include "Layout/Element.h"

#include <string>
#include <vector>

namespace Gfx::Widgets
{
class COnScreenKeyboard;
}

namespace Gfx::Layout
{

/// "Keyboard": a Widgets::COnScreenKeyboard, which has a size of its own and is hidden until it is shown. Child:
/// "Events", with "ClosingDone", "ClosingCancelled", "ClosedDone" and "ClosedCancelled" beside the base events.
class GFX_API CKeyboardElement : public CElement
{
public:
    CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) override;
    [[nodiscard]] std::vector<SAttributeInfo> Attributes() const override;
    [[nodiscard]] std::vector<SEventInfo> Events() const override;

    /// Takes the events of an "Events" node over.
    void ProcessEvents(const Core::IO::XMLNode& a_node);

    /// For the widget. A Stop in the actions keeps the keyboard open.
    bool ClosingHandler(Widgets::CWidget* a_widget, bool a_done, const std::string& a_text);
    void ClosedHandler(Widgets::CWidget* a_widget, bool a_done, const std::string& a_text);

private:
    ActionList m_closingDoneActions;
    ActionList m_closingCancelledActions;
    ActionList m_closedDoneActions;
    ActionList m_closedCancelledActions;
};

} // namespace Gfx::Layout
