#pragma once

#include "Core/Api.h"
#include "Widgets/Controls/ItemList/ItemList.h"
#include "Widgets/Property.h"

#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace Gfx::Widgets
{

/// An item of a list grid. The image is an element of a texture page, or a file.
struct SListGridItem
{
    SListGridItem(std::string a_id, std::string a_image, std::string a_text)
        : id(std::move(a_id)), image(std::move(a_image)), text(std::move(a_text))
    {
    }

    std::string id;
    std::string image;
    std::string text;
    bool selected = false;
};

extern template class GFX_API CItemList<SListGridItem>;

/// A list of items as tiles in rows, with an image above a text, or one of the two in the middle. When they don't fit,
/// the first and the last cell have buttons that move the view by one row; each is there only while there is something
/// to move to.
///
/// ScrollTo reckons with the tiles that are on show before: where a scroll button appears on the way, the item is one
/// cell short of being shown, and a second call shows it. An id may stand any number of times. The tiles of a row begin
/// where the row is in the middle of the grid; what remains at the lower edge stays empty. Any number of items can be
/// held, as there are widgets for those on show alone, but each call that adds some makes the tiles anew.
///
/// Properties: "SelectedItem", whose writing also scrolls there.
///
/// Configuration: `/Gfx/Controls/ListGrid/ItemSize` (96), the width and height of a tile; `ItemBorder` (10), the gap
/// between tiles; `ImageWidth` (64), `ImageHeight` (64); the textures and the font as in CListBox.
class GFX_API CListGrid : public CWithProperties<CListGrid, CItemList<SListGridItem>>
{
public:
    [[nodiscard]] static std::span<const SProperty<CListGrid>> PropertyTable();

    /// With a_multiselect, any number of items can be selected by touch, and none; otherwise one.
    CListGrid(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_multiselect);

    /// Of the tiles, and of the images on them. Sizes are kept within CWidget::k_longestSide.
    void SetItemSize(int a_width, int a_height, int a_imageWidth, int a_imageHeight);

    /// Puts an item behind the last one.
    void AddItem(const SListItem& a_item);

    /// The same for each of them, with the tiles made once.
    void AddItems(const std::vector<SListItem>& a_items);

    void Resize(int a_width, int a_height) override;

private:
    /// What the items leave room for at the first and the last cell.
    struct SCells
    {
        bool back;
        bool forward;
        int tiles;
    };

    void UpdateGrid();
    [[nodiscard]] SCells Cells() const;
    [[nodiscard]] SFace Face(bool a_hasImage, bool a_hasText) const;
    [[nodiscard]] SView View() const override;
    void AddButtons() override;

    int m_itemWidth;
    int m_itemHeight;
    int m_itemBorder;
    int m_imageWidth;
    int m_imageHeight;
    int m_columns = 0;
    int m_rows = 0;
    int m_gridLeft = 0;
};

} // namespace Gfx::Widgets
