#include "Layout/ListBoxElement.h"

#include "Core/Functor.h"
#include "Core/Logging/Logger.h"
#include "Core/StaticSingleton.h"
#include "Widgets/Controls/ListBox/ListBox.h"

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
    bool parseMarkup = false;
    bool background = true;
};

constexpr std::array s_rows{
    SAttribute<SValues>{"multiselect", &SValues::multiselect, "whether touches select any number of items"},
    SAttribute<SValues>{"parseMarkup", &SValues::parseMarkup, "whether the items' texts are Pango markup"},
    SAttribute<SValues>{"background", &SValues::background, "whether the background is drawn"},
};

struct SItem
{
    std::string id;
    std::string text;
    bool selected = false;
};

constexpr std::array s_itemRows{
    SAttribute<SItem>{"id", &SItem::id, "what the item is selected by"},
    SAttribute<SItem>{"text", &SItem::text, "the text of its row"},
    SAttribute<SItem>{"selected", &SItem::selected, "whether it is selected at first"},
};

} // namespace

CElement* CListBoxElement::Process(CElement* a_parent, const XMLNode& a_node)
{
    if (!PreProcess(a_node))
    {
        return nullptr;
    }
    const SValues values = ReadAttributes(s_rows, a_node);
    const auto list = Hidden(new Widgets::CListBox(Id(), X(), Y(), Width(), Height(), values.multiselect));
    list->ParseMarkup(values.parseMarkup);
    list->Background(values.background);
    Attach(a_parent, list);
    for (const XMLNode& child : a_node.Children())
    {
        if (child.Name() == "Events")
        {
            ProcessEvents(*list, child);
        }
        else if (child.Name() == "Items")
        {
            ProcessItems(*list, child);
        }
    }
    return this;
}

std::vector<SAttributeInfo> CListBoxElement::Attributes() const
{
    std::vector<SAttributeInfo> list = CElement::Attributes();
    DescribeAttributes(s_rows, list);
    return list;
}

std::vector<SEventInfo> CListBoxElement::Events() const
{
    std::vector<SEventInfo> list = CElement::Events();
    list.push_back({"SelectionChanged", "a touch selects or deselects an item"});
    return list;
}

std::vector<SNodeInfo> CListBoxElement::Nodes() const
{
    SNodeInfo item{"Item", "an item; one without an id is left out"};
    DescribeAttributes(s_itemRows, item.attributes);
    SNodeInfo items{"Items", "what there is to choose from"};
    items.nodes = {item};
    return {items};
}

void CListBoxElement::ProcessEvents(Widgets::CListBox& a_list, const XMLNode& a_events)
{
    using Selection = Core::Functor<void, Widgets::CWidget*>;
    for (const XMLNode& event : a_events.Children())
    {
        if (event.Name() == "SelectionChanged")
        {
            m_selectionChangedActions = ProcessEventActions(event);
            a_list.SetSelectionChangedEventHandler(
                Keep(new Selection::Method<CListBoxElement>(this, &CListBoxElement::SelectionChangedHandler)));
        }
        else
        {
            ProcessEvent(event);
        }
    }
}

void CListBoxElement::ProcessItems(Widgets::CListBox& a_list, const XMLNode& a_items)
{
    a_list.Freeze();
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
                Core::Logging::elSkipped, "CListBoxElement", "Skipping item with empty id in list box %s", Id());
            continue;
        }
        Widgets::CListBox::SListItem item(values.id, values.text);
        item.selected = values.selected;
        a_list.AddItem(item, true);
    }
    a_list.Thaw();
}

void CListBoxElement::SelectionChangedHandler(Widgets::CWidget*)
{
    ExecuteActions(m_selectionChangedActions);
}

} // namespace Gfx::Layout
