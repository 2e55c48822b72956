#pragma once

#include "Core/Api.h"
#include "Widgets/Controls/ItemList/ItemList.h"
#include "Widgets/Property.h"

#include <span>
#include <string>
#include <utility>

namespace Gfx::Widgets
{

/// An item of a list box. The image is an element of a texture page, or a file.
struct SListBoxItem
{
    SListBoxItem(std::string a_id, std::string a_text, std::string a_image = "")
        : id(std::move(a_id)), text(std::move(a_text)), image(std::move(a_image))
    {
    }

    std::string id;
    std::string text;
    std::string image;
    bool selected = false;
};

extern template class GFX_API CItemList<SListBoxItem>;

/// A list of items, one below the other, in whole rows. When they don't fit, the last row has a button that moves the
/// view up and one that moves it down, by one item each. Text and image lie both in the middle of the row.
///
/// How many rows there are is settled by the height that the list begins with. Any number of items can be held, as
/// there are widgets for those on show alone; put Freeze() and Thaw() around many changes.
///
/// Properties: "SelectedItem", whose writing also scrolls there, "SelectedText" (read-only).
///
/// Configuration: `/Gfx/Controls/ListBox/ItemSize` (64), the height of a row; `ImageWidth` (48), `ImageHeight` (48);
/// `Textures/Background` ("Panel_Down"); within `Buttons/Textures/`, `Hover` ("ControlHover"), for a row that isn't
/// selected `UpInactive` ("ControlInactive_Up") and, touched, `UpActive` ("ControlActive_Down"), for a selected one
/// `DownInactive` ("ControlActive_Up") and `DownActive` ("ControlInactive_Down"), and `Down_Indicator` ("Arrow_Down")
/// and `Up_Indicator` ("Arrow_Up"); the font's keys, except for its alignment.
class GFX_API CListBox : public CWithProperties<CListBox, CItemList<SListBoxItem>>
{
public:
    [[nodiscard]] static std::span<const SProperty<CListBox>> PropertyTable();

    /// With a_multiselect, any number of items can be selected by touch, and none; otherwise one.
    CListBox(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_multiselect);

    /// Puts an item behind the last one or before the first one; one whose id is there already is ignored.
    void AddItem(const SListItem& a_item, bool a_atEnd);

    /// Takes the first item of an id out. The view stays where it is, even if there are no items left in it.
    void RemoveItem(const std::string& a_id);

    /// Puts another item in the place of the first one of an id. Nothing is said about the new item's id.
    void UpdateItem(const std::string& a_id, const SListItem& a_item);

    /// Whether the rows' texts are Pango markup.
    [[nodiscard]] bool ParseMarkup() const { return m_parseMarkup; }
    void ParseMarkup(bool a_parse);

    /// Keeps the rows as they are, whatever becomes of the items. A row whose item is gone is dead to the touch.
    void Freeze() { Frozen(true); }
    void Thaw();

    void Resize(int a_width, int a_height) override;

private:
    [[nodiscard]] SView View() const override;
    void AddButtons() override;

    int m_itemSize;
    int m_visibleItems;
    int m_imageWidth;
    int m_imageHeight;
    bool m_parseMarkup = false;
};

} // namespace Gfx::Widgets
