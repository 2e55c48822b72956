#include "Layout/ListBoxElement.h"

#include "Widgets/Controls/ListBox/ListBox.h"

#include <array>
#include <string>
#include <utility>

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
    ProcessListContent<Widgets::CListBox>(
        a_node,
        [&](const XMLNode& a_items)
        {
            list->Freeze();
            ProcessItems(s_itemRows, a_items, "CListBoxElement", "Skipping item with empty id in list box %s",
                         [&list](const SItem& a_values)
                         {
                             Widgets::CListBox::SListItem item(a_values.id, a_values.text);
                             item.selected = a_values.selected;
                             list->AddItem(item, true);
                         });
            list->Thaw();
        });
    return this;
}

std::vector<SAttributeInfo> CListBoxElement::Attributes() const
{
    std::vector<SAttributeInfo> list = CElement::Attributes();
    DescribeAttributes(s_rows, list);
    return list;
}

std::vector<SNodeInfo> CListBoxElement::Nodes() const
{
    std::vector<SAttributeInfo> attributes;
    DescribeAttributes(s_itemRows, attributes);
    return {ItemsNode(std::move(attributes))};
}

void CListBoxElement::ProcessEvents(const XMLNode& a_node)
{
    ProcessListEvents<Widgets::CListBox>(a_node);
}

} // namespace Gfx::Layout
