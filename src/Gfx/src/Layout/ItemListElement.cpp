#include "Layout/ItemListElement.h"

#include "Core/Logging/Logger.h"
#include "Core/StaticSingleton.h"

#include <utility>

namespace Gfx::Layout
{

std::vector<SEventInfo> CItemListElement::Events() const
{
    std::vector<SEventInfo> list = CElement::Events();
    list.push_back({"SelectionChanged", "a touch selects or deselects an item"});
    return list;
}

SNodeInfo CItemListElement::ItemsNode(std::vector<SAttributeInfo> a_itemAttributes)
{
    SNodeInfo items{"Items", "what there is to choose from"};
    items.nodes = {{"Item", "an item; one without an id is left out", std::move(a_itemAttributes)}};
    return items;
}

void CItemListElement::SelectionChangedHandler(Widgets::CWidget*)
{
    ExecuteActions(m_selectionChangedActions);
}

void CItemListElement::ReportSkipped(const char* a_source, const char* a_format) const
{
    Core::Patterns::StaticSingleton<Core::Logging::CLogger>::ref().Log(Core::Logging::elSkipped, a_source, a_format,
                                                                       Id());
}

} // namespace Gfx::Layout
