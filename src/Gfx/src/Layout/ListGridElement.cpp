#include "Layout/ListGridElement.h"

#include "Widgets/Controls/ListGrid/ListGrid.h"

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
    ProcessListContent<Widgets::CListGrid>(
        a_node,
        [&](const XMLNode& a_items)
        {
            std::vector<Widgets::CListGrid::SListItem> items;
            ProcessItems(s_itemRows, a_items, "CListGridElement", "Skipping item with empty id in list grid %s",
                         [&items](const SItem& a_values) {
                             items.emplace_back(a_values.id, a_values.image, a_values.text).selected =
                                 a_values.selected;
                         });
            grid->AddItems(items);
        });
    return this;
}

std::vector<SAttributeInfo> CListGridElement::Attributes() const
{
    std::vector<SAttributeInfo> list = CElement::Attributes();
    DescribeAttributes(s_rows, list);
    return list;
}

std::vector<SNodeInfo> CListGridElement::Nodes() const
{
    std::vector<SAttributeInfo> attributes;
    DescribeAttributes(s_itemRows, attributes);
    return {ItemsNode(std::move(attributes))};
}

void CListGridElement::ProcessEvents(const XMLNode& a_node)
{
    ProcessListEvents<Widgets::CListGrid>(a_node);
}

} // namespace Gfx::Layout
