#include "Widgets/Controls/ListGrid/ListGrid.h"

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
    int itemSize = 96;
    int itemBorder = 10;
    int imageWidth = 64;
    int imageHeight = 64;
};

constexpr std::array s_styleKeys{
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/ListGrid/ItemSize", &SStyle::itemSize},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/ListGrid/ItemBorder", &SStyle::itemBorder},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/ListGrid/ImageWidth", &SStyle::imageWidth},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/ListGrid/ImageHeight", &SStyle::imageHeight},
};

constexpr std::array s_properties{
    SProperty<CListGrid>{"SelectedItem", [](const CListGrid& a_grid) { return a_grid.SelectedItem(); },
                         [](CListGrid& a_grid, const std::string& a_value) { a_grid.SelectItem(a_value, true); }},
};

int Side(int a_length)
{
    return std::clamp(a_length, -CWidget::k_longestSide, CWidget::k_longestSide);
}

} // namespace

std::span<const SProperty<CListGrid>> CListGrid::PropertyTable()
{
    return s_properties;
}

CListGrid::CListGrid(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_multiselect)
    : CWithProperties(a_name, "ListGrid", a_x, a_y, a_width, a_height, a_multiselect)
{
    const SStyle& style = Managers::ReadStyle(s_styleKeys);
    m_itemBorder = style.itemBorder;
    CListGrid::SetItemSize(style.itemSize, style.itemSize, style.imageWidth, style.imageHeight);
}

void CListGrid::SetItemSize(int a_width, int a_height, int a_imageWidth, int a_imageHeight)
{
    m_itemWidth = Side(a_width);
    m_itemHeight = Side(a_height);
    m_imageWidth = Side(a_imageWidth);
    m_imageHeight = Side(a_imageHeight);
    UpdateGrid();
}

void CListGrid::UpdateGrid()
{
    m_columns = Fit(Width(), m_itemWidth + m_itemBorder);
    m_rows = Fit(Height(), m_itemHeight + m_itemBorder);
    const std::int64_t columns = m_columns;
    m_gridLeft = Common::detail::Saturated((Width() - columns * m_itemWidth - (columns - 1) * m_itemBorder) / 2);
    LoadTextures();
    UpdateLayout();
}

void CListGrid::AddItem(const SListItem& a_item)
{
    Model().Add(a_item, true);
    UpdateLayout();
}

void CListGrid::AddItems(const std::vector<SListItem>& a_items)
{
    // They may be the grid's own.
    for (const std::vector<SListItem> items = a_items; const SListItem& item : items)
    {
        Model().Add(item, true);
    }
    UpdateLayout();
}

void CListGrid::Resize(int a_width, int a_height)
{
    if (ResizeSelf(a_width, a_height))
    {
        UpdateGrid();
    }
}

CListGrid::SCells CListGrid::Cells() const
{
    const std::int64_t count = Model().Count();
    std::int64_t capacity = std::int64_t{m_columns} * m_rows;
    SCells cells{};
    if (capacity < count)
    {
        cells.back = FirstItem() > 0;
        capacity -= cells.back ? 1 : 0;
        cells.forward = count > FirstItem() + capacity;
        capacity -= cells.forward ? 1 : 0;
    }
    cells.tiles = Common::detail::Saturated(std::min(capacity, count - FirstItem()));
    return cells;
}

CListGrid::SView CListGrid::View() const
{
    return {Cells().tiles, m_columns, Model().Count() - m_columns};
}

CListGrid::SFace CListGrid::Face(bool a_hasImage, bool a_hasText) const
{
    constexpr int middle = eaCentre | eaMiddle;
    return {a_hasImage ? eaCentre | eaBottom : middle, a_hasText ? eaCentre | eaTop : middle, m_imageWidth,
            m_imageHeight, false};
}

void CListGrid::AddButtons()
{
    Common::CPoint place(m_gridLeft, m_itemBorder);
    int column = 0;
    const auto box = [&] { return Common::CAABB(place.X(), place.Y(), m_itemWidth, m_itemHeight); };
    const auto stepOn = [&]
    {
        if (++column < m_columns)
        {
            place = place + Common::CPoint(m_itemWidth + m_itemBorder, 0);
        }
        else
        {
            column = 0;
            place = Common::CPoint(m_gridLeft, place.Y()) + Common::CPoint(0, m_itemHeight + m_itemBorder);
        }
    };

    const SFace scrollFace = Face(true, false);
    const SCells cells = Cells();
    if (cells.back)
    {
        if (!AddScrollBackward(box(), scrollFace))
        {
            return;
        }
        stepOn();
    }
    for (int i = 0; i < cells.tiles && FirstItem() + i < Model().Count(); ++i)
    {
        const int index = FirstItem() + i;
        const SListItem& item = Items()[static_cast<std::size_t>(index)];
        if (!AddItemAt(index, box(), Face(!item.image.empty(), !item.text.empty())))
        {
            return;
        }
        stepOn();
    }
    if (cells.forward)
    {
        static_cast<void>(AddScrollForward(box(), scrollFace));
    }
}

} // namespace Gfx::Widgets
