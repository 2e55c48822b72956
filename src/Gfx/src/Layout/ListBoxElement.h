#pragma once

#include "Core/Api.h"
#include "Layout/Element.h"

#include <vector>

namespace Gfx::Widgets
{
class CListBox;
}

namespace Gfx::Layout
{

/// "ListBox": a Widgets::CListBox. Children: "Events", with "SelectionChanged" beside the base events, and "Items", of
/// "Item" nodes with `id`, `text` and `selected`.
class GFX_API CListBoxElement : public CElement
{
public:
    CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) override;
    [[nodiscard]] std::vector<SAttributeInfo> Attributes() const override;
    [[nodiscard]] std::vector<SEventInfo> Events() const override;
    [[nodiscard]] std::vector<SNodeInfo> Nodes() const override;

    /// For the widget.
    void SelectionChangedHandler(Widgets::CWidget* a_widget);

private:
    void ProcessEvents(Widgets::CListBox& a_list, const Core::IO::XMLNode& a_events);
    void ProcessItems(Widgets::CListBox& a_list, const Core::IO::XMLNode& a_items);

    ActionList m_selectionChangedActions;
};

} // namespace Gfx::Layout
