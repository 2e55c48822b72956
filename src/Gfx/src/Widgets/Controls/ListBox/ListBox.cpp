#include "Widgets/Controls/ListBox/ListBox.h"

#include "Gfx/Common/Alignment.h"
#include "Managers/Config/StyleKeys.h"

#include <algorithm>
#include <array>

namespace Gfx::Widgets
{

namespace
{

struct SStyle
{
    int itemSize = 64;
    int imageWidth = 48;
    int imageHeight = 48;
};

constexpr std::array s_styleKeys{
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/ListBox/ItemSize", &SStyle::itemSize},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/ListBox/ImageWidth", &SStyle::imageWidth},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/ListBox/ImageHeight", &SStyle::imageHeight},
};

constexpr std::array s_properties{
    SProperty<CListBox>{"SelectedItem", [](const CListBox& a_list) { return a_list.SelectedItem(); },
                        [](CListBox& a_list, const std::string& a_value) { a_list.SelectItem(a_value, true); }},
    SProperty<CListBox>{"SelectedText", [](const CListBox& a_list) { return a_list.SelectedText(); }, nullptr},
};

} // namespace

std::span<const SProperty<CListBox>> CListBox::PropertyTable()
{
    return s_properties;
}

CListBox::CListBox(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_multiselect)
    : CWithProperties(a_name, "ListBox", a_x, a_y, a_width, a_height, a_multiselect)
{
    const SStyle& style = Managers::ReadStyle(s_styleKeys);
    m_itemSize = style.itemSize;
    m_imageWidth = style.imageWidth;
    m_imageHeight = style.imageHeight;
    m_visibleItems = Fit(Height() - Margins().Vertical(), m_itemSize);
    LoadTextures();
}

void CListBox::AddItem(const SListItem& a_item, bool a_atEnd)
{
    if (!Model().IndexOf(a_item.id))
    {
        Model().Add(a_item, a_atEnd);
        UpdateLayout();
    }
}

void CListBox::RemoveItem(const std::string& a_id)
{
    if (const auto index = Model().IndexOf(a_id))
    {
        Model().Remove(*index);
    }
    UpdateLayout();
}

void CListBox::UpdateItem(const std::string& a_id, const SListItem& a_item)
{
    if (const auto index = Model().IndexOf(a_id))
    {
        Model().Replace(*index, a_item);
    }
    UpdateLayout();
}

void CListBox::ParseMarkup(bool a_parse)
{
    if (a_parse != m_parseMarkup)
    {
        m_parseMarkup = a_parse;
        ForEachButton([a_parse](CButton& a_button) { a_button.ParseMarkup(a_parse); });
    }
}

void CListBox::Thaw()
{
    Frozen(false);
    UpdateLayout();
}

void CListBox::Resize(int a_width, int a_height)
{
    if (ResizeSelf(a_width, a_height))
    {
        LoadTextures();
        UpdateLayout();
    }
}

CListBox::SView CListBox::View() const
{
    const int count = Model().Count();
    // The last row is the scroll buttons' as soon as not all items have one.
    const int capacity = count <= m_visibleItems ? m_visibleItems : m_visibleItems - 1;
    return {std::min(capacity, count - FirstItem()), 1, count + 1 - m_visibleItems};
}

void CListBox::AddButtons()
{
    constexpr int middle = eaCentre | eaMiddle;
    const SFace face{middle, middle, m_imageWidth, m_imageHeight, m_parseMarkup};
    const int width = Width() - Margins().Horizontal();
    const int rows = View().items;
    Common::CPoint place(Margins().left, Margins().top);
    for (int i = 0; i < rows && FirstItem() + i < Model().Count(); ++i)
    {
        if (!AddItemAt(FirstItem() + i, {place.X(), place.Y(), width, m_itemSize}, face))
        {
            return;
        }
        place = place + Common::CPoint(0, m_itemSize);
    }
    if (m_visibleItems < Model().Count())
    {
        const int half = width / 2;
        const int top = Height() - Margins().bottom - m_itemSize;
        if (AddScrollBackward({Margins().left, top, half, m_itemSize}, face))
        {
            static_cast<void>(AddScrollForward({Margins().left + half, top, half, m_itemSize}, face));
        }
    }
}

} // namespace Gfx::Widgets
