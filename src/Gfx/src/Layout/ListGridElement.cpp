#include "Layout/ListGridElement.h"

#include "Core/Functor.h"
#include "Core/Logging/Logger.h"
#include "Core/StaticSingleton.h"
#include "Widgets/Controls/ListGrid/ListGrid.h"

#include <array>
#include <string>

namespace Gfx::Layout
{

using Core::IO::XMLNode;

namespace
{

struct SValues
{
    bool multiselect = false;
    bool background = true;
    int tileWidth = 96;
    int tileHeight = 96;
    int imageWidth = 64;
    int imageHeight = 64;
};

constexpr std::array s_rows{
    SAttribute<SValues>{"multiselect", &SValues::multiselect, "whether touches select any number of items"},
    SAttribute<SValues>{"background", &SValues::background, "whether the background is drawn"},
    SAttribute<SValues>{"btnWidth", &SValues::tileWidth, "the width of a tile"},
    SAttribute<SValues>{"btnHeight", &SValues::tileHeight, "the height of a tile"},
    SAttribute<SValues>{"imgWidth", &SValues::imageWidth, "the width of an item's image"},
    SAttribute<SValues>{"imgHeight", &SValues::imageHeight, "the height of an item's image"},
};

struct SItem
{
    std::string id;
    std::string image;
    std::string text;
    bool selected = false;
};

constexpr std::array s_itemRows{
    SAttribute<SItem>{"id", &SItem::id, "what the item is selected by"},
    SAttribute<SItem>{"image", &SItem::image, "an element of the texture pages, or a file"},
    SAttribute<SItem>{"text", &SItem::text, "the text of its tile"},
    SAttribute<SItem>{"selected", &SItem::selected, "whether it is selected at first"},
};

} // namespace

CElement* CListGridElement::Process(CElement* a_parent, const XMLNode& a_node)
{
    if (!PreProcess(a_node))
    {
        return nullptr;
    }
    const SValues values = ReadAttributes(s_rows, a_node);
    const auto grid = Hidden(new Widgets::CListGrid(Id(), X(), Y(), Width(), Height(), values.multiselect));
    grid->SetItemSize(values.tileWidth, values.tileHeight, values.imageWidth, values.imageHeight);
    grid->Background(values.background);
    Attach(a_parent, grid);
    for (const XMLNode& child : a_node.Children())
    {
        if (child.Name() == "Events")
        {
            ProcessEvents(*grid, child);
        }
        else if (child.Name() == "Items")
        {
            ProcessItems(*grid, child);
        }
    }
    return this;
}

std::vector<SAttributeInfo> CListGridElement::Attributes() const
{
    std::vector<SAttributeInfo> list = CElement::Attributes();
    DescribeAttributes(s_rows, list);
    return list;
}

std::vector<SEventInfo> CListGridElement::Events() const
{
    std::vector<SEventInfo> list = CElement::Events();
    list.push_back({"SelectionChanged", "a touch selects or deselects an item"});
    return list;
}

std::vector<SNodeInfo> CListGridElement::Nodes() const
{
    SNodeInfo item{"Item", "an item; one without an id is left out"};
    DescribeAttributes(s_itemRows, item.attributes);
    SNodeInfo items{"Items", "what there is to choose from"};
    items.nodes = {item};
    return {items};
}

void CListGridElement::ProcessEvents(Widgets::CListGrid& a_grid, const XMLNode& a_events)
{
    using Selection = Core::Functor<void, Widgets::CWidget*>;
    for (const XMLNode& event : a_events.Children())
    {
        if (event.Name() == "SelectionChanged")
        {
            m_selectionChangedActions = ProcessEventActions(event);
            a_grid.SetSelectionChangedEventHandler(
                Keep(new Selection::Method<CListGridElement>(this, &CListGridElement::SelectionChangedHandler)));
        }
        else
        {
            ProcessEvent(event);
        }
    }
}

void CListGridElement::ProcessItems(Widgets::CListGrid& a_grid, const XMLNode& a_items)
{
    std::vector<Widgets::CListGrid::SListItem> items;
    for (const XMLNode& node : a_items.Children())
    {
        if (node.Name() != "Item")
        {
            continue;
        }
        const SItem values = ReadAttributes(s_itemRows, node);
        if (values.id.empty())
        {
            Core::Patterns::StaticSingleton<Core::Logging::CLogger>::ref().Log(
                Core::Logging::elSkipped, "CListGridElement", "Skipping item with empty id in list grid %s", Id());
            continue;
        }
        items.emplace_back(values.id, values.image, values.text).selected = values.selected;
    }
    a_grid.AddItems(items);
}

void CListGridElement::SelectionChangedHandler(Widgets::CWidget*)
{
    ExecuteActions(m_selectionChangedActions);
}

} // namespace Gfx::Layout
