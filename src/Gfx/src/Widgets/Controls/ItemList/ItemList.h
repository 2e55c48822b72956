#pragma once

#include "Core/Api.h"
#include "Core/Functor.h"
#include "Core/SharedPtr.h"
#include "Gfx/Common/AABB.h"
#include "Gfx/Common/Margins.h"
#include "Gfx/Text/FontSettings.h"
#include "Widgets/Controls/Button/Button.h"
#include "Widgets/ItemModel.h"
#include "Widgets/TextureLayer.h"
#include "Widgets/Widget.h"

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace Gfx::Widgets
{

/// What a list of items does whatever its geometry is: it holds the items, knows which are selected, and shows some of
/// them, from one of them on, as buttons. Where the others don't fit, two more buttons move the view.
///
/// Each change of the items or of the view makes the buttons anew; it takes all other children away, too, and ends
/// whatever press or selection of a widget is going on. An item whose id is "ScrollBackward" or "ScrollForward" acts as
/// the button of that name. A list of ids is a text with "," between them, so an id that has a comma in it can't be
/// named in one.
template <typename ItemT>
class CItemList : public CWidget
{
public:
    using SListItem = ItemT;

    [[nodiscard]] const std::vector<SListItem>& Items() const { return m_model.Items(); }
    /// Silent, as SelectItem() is.
    void ClearItems();

    /// Selects all items of these ids, in a list of single choice in place of those that were, and all of them even
    /// there. Silent: the handler hears of touches alone. With a_scroll, scrolls to the item whose id is all of a_ids.
    void SelectItem(const std::string& a_ids, bool a_scroll);
    void DeselectItem(const std::string& a_ids);
    void DeselectAll();

    /// What a touch does to the first item of an id: it is selected, in a list of single choice in place of all others,
    /// or with multiple choice deselected. Then the handler runs.
    void ToggleItem(const std::string& a_id, bool a_scroll);

    /// The ids, or the texts, of the selected items.
    [[nodiscard]] std::string SelectedItem() const { return m_model.JoinSelected(&SListItem::id); }
    [[nodiscard]] std::string SelectedText() const { return m_model.JoinSelected(&SListItem::text); }

    /// Unless the first item of an id is on show, moves the view so that as many items as are on show now end with it.
    void ScrollTo(const std::string& a_id);

    /// Changes nothing about the items that are selected.
    void Multiselect(bool a_multiselect) { m_multiselect = a_multiselect; }

    [[nodiscard]] bool Background() const { return m_hasBackground; }
    void Background(bool a_background);

    /// Told of each selection that a touch changes. The handler stays its installer's, as CWidget's do; null for none.
    void SetSelectionChangedEventHandler(NotifyHandler* a_handler) { m_selectionChangedHandler = a_handler; }

    /// A click on one of the list's buttons; any other widget is ignored.
    void ItemPressed(CWidget* a_widget, int a_buttons, const Common::CPoint& a_point, bool a_remote);

    void DrawSelf() const override;
    void UpdateStyle() override;

protected:
    using Key = typename CItemModel<SListItem>::Key;

    /// The view as the geometry has it.
    struct SView
    {
        /// How many items are on show; below 0 where there is no room, or no item.
        int items;
        /// By how many items a scroll button moves it.
        int step;
        /// The farthest that the view can begin.
        int last;
    };

    /// What distinguishes a button's face.
    struct SFace
    {
        int textAlignment;
        int imageAlignment;
        int imageWidth;
        int imageHeight;
        bool parseMarkup;
    };

    /// a_type is the control's word in status dumps, in the configuration, and of its font.
    CItemList(const std::string& a_name, const std::string& a_type, int a_x, int a_y, int a_width, int a_height,
              bool a_multiselect);
    ~CItemList() override;

    [[nodiscard]] virtual SView View() const = 0;

    /// Makes the buttons of the view, by AddItemAt, AddScrollBackward and AddScrollForward.
    virtual void AddButtons() = 0;

    /// Makes all buttons anew, unless the list is frozen.
    void UpdateLayout();
    /// Makes the quads anew, for the elements, the theme and the size that hold now. Happens by itself.
    void LoadTextures();

    /// False if the list has ended meanwhile.
    [[nodiscard]] bool AddItemAt(int a_index, const Common::CAABB& a_box, const SFace& a_face);
    [[nodiscard]] bool AddScrollBackward(const Common::CAABB& a_box, const SFace& a_face);
    [[nodiscard]] bool AddScrollForward(const Common::CAABB& a_box, const SFace& a_face);

    /// How many cells of a size there are in a length; none of size 0.
    [[nodiscard]] static int Fit(int a_length, int a_cell);

    [[nodiscard]] int FirstItem() const { return m_firstItem; }
    [[nodiscard]] const Common::SMargins& Margins() const { return m_margins; }

    [[nodiscard]] const CItemModel<SListItem>& Model() const { return m_model; }
    [[nodiscard]] CItemModel<SListItem>& Model() { return m_model; }

    /// While it is set, UpdateLayout() does nothing.
    void Frozen(bool a_frozen) { m_frozen = a_frozen; }

    /// a_action gets a CButton& for each row and scroll button on show; it must not change the list.
    template <typename ActionT>
    void ForEachButton(ActionT a_action)
    {
        for (const SRow& row : m_rows)
        {
            a_action(*row.button);
        }
    }

private:
    static constexpr Key k_scrollBackward = std::numeric_limits<Key>::min();
    static constexpr Key k_scrollForward = k_scrollBackward + 1;

    /// A button on show, and by its key the item that it is for, which may be gone while the list is frozen.
    struct SRow
    {
        Core::SharedPtr<CButton> button;
        Key key;
    };

    /// The elements that the buttons are drawn with.
    struct STextures
    {
        std::string hover;
        std::string upInactive;
        std::string upActive;
        std::string downInactive;
        std::string downActive;
    };

    [[nodiscard]] const SListItem* ItemOf(const SRow& a_row) const;
    [[nodiscard]] bool AddButton(const SListItem& a_item, Key a_key, const Common::CAABB& a_box, const SFace& a_face);
    void DropRows();
    /// Forgetting or destroying a child leaves its group in this one, where they would heap up while items are added:
    /// with each of them it takes longer to add another.
    void TakeOutGroups();
    void RefreshButtons();

    NotifyHandler* m_selectionChangedHandler = nullptr;
    bool m_hasBackground = true;
    CTextureLayer m_background;
    /// The borders of the background that the list began with.
    Common::SMargins m_margins;
    Text::CFontSettings m_font;
    bool m_multiselect;
    bool m_frozen = false;
    CItemModel<SListItem> m_model;
    std::vector<SRow> m_rows;
    int m_firstItem = 0;
    SListItem m_scrollForwardItem;
    SListItem m_scrollBackwardItem;
    STextures m_textures;
    Core::Functor<void, CWidget*, int, const Common::CPoint&, bool>::template Method<CItemList> m_pressHandler;
};

} // namespace Gfx::Widgets
