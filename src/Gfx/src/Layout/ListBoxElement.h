#pragma once

#include "Core/Api.h"
#include "Layout/ItemListElement.h"

#include <vector>

namespace Gfx::Layout
{

/// "ListBox": a Widgets::CListBox. Children: "Events", and "Items", of "Item" nodes with `id`, `text` and `selected`.
class GFX_API CListBoxElement : public CItemListElement
{
public:
    CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) override;
    [[nodiscard]] std::vector<SAttributeInfo> Attributes() const override;
    [[nodiscard]] std::vector<SNodeInfo> Nodes() const override;

    /// Takes the events of an "Events" node over.
    void ProcessEvents(const Core::IO::XMLNode& a_node);
};

} // namespace Gfx::Layout
