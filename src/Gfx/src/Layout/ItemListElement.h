#pragma once

#include "Core/Api.h"
#include "Core/Functor.h"
#include "Layout/Element.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace Gfx::Layout
{

/// What the elements of a list box and of a list grid share: the event "SelectionChanged" beside the base events, and a
/// child "Items" of "Item" nodes.
class GFX_API CItemListElement : public CElement
{
public:
    [[nodiscard]] std::vector<SEventInfo> Events() const override;

    /// For the widget.
    void SelectionChangedHandler(Widgets::CWidget* a_widget);

protected:
    /// An "Items" node, to describe it.
    [[nodiscard]] static SNodeInfo ItemsNode(std::vector<SAttributeInfo> a_itemAttributes);

    /// Reads the children of a list of kind ListT: a_processItems gets the "Items".
    template <typename ListT, typename ProcessT>
    void ProcessListContent(const Core::IO::XMLNode& a_node, ProcessT a_processItems)
    {
        for (const Core::IO::XMLNode& child : a_node.Children())
        {
            if (child.Name() == "Events")
            {
                ProcessListEvents<ListT>(child);
            }
            else if (child.Name() == "Items")
            {
                a_processItems(child);
            }
        }
    }

    /// Calls a_add with the values of each item. One without an id is skipped, with a line of a_source; a_format has a
    /// place for the element's id.
    template <typename ItemT, std::size_t Count, typename AddT>
    void ProcessItems(const std::array<SAttribute<ItemT>, Count>& a_rows, const Core::IO::XMLNode& a_items,
                      const char* a_source, const char* a_format, AddT a_add)
    {
        for (const Core::IO::XMLNode& node : a_items.Children())
        {
            if (node.Name() != "Item")
            {
                continue;
            }
            const ItemT item = ReadAttributes(a_rows, node);
            if (item.id.empty())
            {
                ReportSkipped(a_source, a_format);
                continue;
            }
            a_add(item);
        }
    }

    /// Takes the events of an "Events" node of such a list over.
    template <typename ListT>
    void ProcessListEvents(const Core::IO::XMLNode& a_node)
    {
        ProcessEventsAnd("SelectionChanged", m_selectionChangedActions, a_node, &ListT::SetSelectionChangedEventHandler,
                         &CItemListElement::SelectionChangedHandler);
    }

private:
    void ReportSkipped(const char* a_source, const char* a_format) const;

    ActionList m_selectionChangedActions;
};

} // namespace Gfx::Layout
