#include "Widgets/Controls/ItemList/ItemList.h"

#include "Core/Utilities.h"
#include "Gfx/Common/Alignment.h"
#include "Managers/Config/StyleKeys.h"
#include "Managers/Widgets/WidgetManager.h"
#include "Platform/Clutter/Clutter.h"
#include "Widgets/Controls/ListBox/ListBox.h"
#include "Widgets/Controls/ListGrid/ListGrid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace Gfx::Widgets
{

namespace
{

constexpr const char* k_scrollForwardId = "ScrollForward";
constexpr const char* k_scrollBackwardId = "ScrollBackward";
constexpr const char* k_selectedSet = "Selected";
constexpr const char* k_defaultSet = "Default";

struct SStyle
{
    std::string background = "Panel_Down";
    std::string hover = "ControlHover";
    std::string upInactive = "ControlInactive_Up";
    std::string upActive = "ControlActive_Down";
    // Those of the pressed-in look cross over.
    std::string downInactive = "ControlActive_Up";
    std::string downActive = "ControlInactive_Down";
    std::string downIndicator = "Arrow_Down";
    std::string upIndicator = "Arrow_Up";
};

constexpr std::array s_styleKeys{
    Managers::SStyleKey<SStyle>{"/Textures/Background", &SStyle::background},
    Managers::SStyleKey<SStyle>{"/Buttons/Textures/Hover", &SStyle::hover},
    Managers::SStyleKey<SStyle>{"/Buttons/Textures/UpInactive", &SStyle::upInactive},
    Managers::SStyleKey<SStyle>{"/Buttons/Textures/UpActive", &SStyle::upActive},
    Managers::SStyleKey<SStyle>{"/Buttons/Textures/DownInactive", &SStyle::downInactive},
    Managers::SStyleKey<SStyle>{"/Buttons/Textures/DownActive", &SStyle::downActive},
    Managers::SStyleKey<SStyle>{"/Buttons/Textures/Down_Indicator", &SStyle::downIndicator},
    Managers::SStyleKey<SStyle>{"/Buttons/Textures/Up_Indicator", &SStyle::upIndicator},
};

std::vector<std::string> SplitIds(const std::string& a_ids)
{
    std::vector<std::string> ids;
    if (Core::Utilities::SplitString(a_ids, ",", ids, 0) == 0)
    {
        ids.assign(1, a_ids);
    }
    return ids;
}

const char* TextureSet(bool a_selected)
{
    return a_selected ? k_selectedSet : k_defaultSet;
}

} // namespace

template <typename ItemT>
CItemList<ItemT>::CItemList(const std::string& a_name, const std::string& a_type, int a_x, int a_y, int a_width,
                            int a_height, bool a_multiselect)
    : CWidget(a_name, a_type, a_x, a_y, a_width, a_height, false)
    , m_font(a_type)
    , m_multiselect(a_multiselect)
    , m_scrollForwardItem(k_scrollForwardId, "", "")
    , m_scrollBackwardItem(k_scrollBackwardId, "", "")
    , m_pressHandler(this, &CItemList::ItemPressed)
{
    InitialiseClutterGroup();
    SStyle style = Managers::ReadStyle(s_styleKeys, "/Gfx/Controls/" + a_type);
    m_background.Element(style.background);
    m_margins = m_background.Margins();
    m_textures = {std::move(style.hover), std::move(style.upInactive), std::move(style.upActive),
                  std::move(style.downInactive), std::move(style.downActive)};
    m_scrollForwardItem.image = std::move(style.downIndicator);
    m_scrollBackwardItem.image = std::move(style.upIndicator);
}

template <typename ItemT>
CItemList<ItemT>::~CItemList()
{
    // The buttons may be held by others.
    DropRows();
}

template <typename ItemT>
int CItemList<ItemT>::Fit(int a_length, int a_cell)
{
    return a_cell != 0 ? static_cast<int>(std::floor(static_cast<float>(a_length) / static_cast<float>(a_cell))) : 0;
}

template <typename ItemT>
void CItemList<ItemT>::ClearItems()
{
    const CLife life(Children());
    m_model.Clear();
    DropRows();
    TakeOutGroups();
    RemoveAllChildren();
    if (!life.IsOver())
    {
        m_firstItem = 0;
        UpdateLayout();
    }
}

template <typename ItemT>
void CItemList<ItemT>::SelectItem(const std::string& a_ids, bool a_scroll)
{
    if (!m_multiselect)
    {
        m_model.ClearSelection();
    }
    for (const std::string& id : SplitIds(a_ids))
    {
        m_model.Select(id, true);
    }
    RefreshButtons();
    if (a_scroll)
    {
        ScrollTo(a_ids);
    }
}

template <typename ItemT>
void CItemList<ItemT>::DeselectItem(const std::string& a_ids)
{
    for (const std::string& id : SplitIds(a_ids))
    {
        m_model.Select(id, false);
    }
    RefreshButtons();
}

template <typename ItemT>
void CItemList<ItemT>::DeselectAll()
{
    m_model.ClearSelection();
    RefreshButtons();
}

template <typename ItemT>
void CItemList<ItemT>::ToggleItem(const std::string& a_id, bool a_scroll)
{
    const std::optional<std::size_t> index = m_model.IndexOf(a_id);
    if (!index)
    {
        return;
    }
    const bool wasSelected = Items()[*index].selected;
    if (wasSelected && !m_multiselect)
    {
        return;
    }
    if (!m_multiselect)
    {
        m_model.ClearSelection();
    }
    m_model.Select(*index, !wasSelected);
    RefreshButtons();

    const CLife life(Children());
    // The handler may take away the item that the argument belongs to.
    const std::string id = a_id;
    if (m_selectionChangedHandler != nullptr)
    {
        m_selectionChangedHandler->Execute(this);
    }
    if (!life.IsOver() && a_scroll)
    {
        ScrollTo(id);
    }
}

template <typename ItemT>
void CItemList<ItemT>::ScrollTo(const std::string& a_id)
{
    const std::optional<std::size_t> index = m_model.IndexOf(a_id);
    if (!index)
    {
        return;
    }
    const auto item = static_cast<std::int64_t>(*index);
    const std::int64_t items = View().items;
    if (item < m_firstItem || item >= m_firstItem + items)
    {
        m_firstItem = Common::detail::Saturated(std::max<std::int64_t>(item - (items - 1), 0));
        UpdateLayout();
    }
}

template <typename ItemT>
void CItemList<ItemT>::Background(bool a_background)
{
    if (a_background != m_hasBackground)
    {
        m_hasBackground = a_background;
        LoadTextures();
        Invalidate(false);
    }
}

template <typename ItemT>
void CItemList<ItemT>::ItemPressed(CWidget* a_widget, int, const Common::CPoint&, bool)
{
    const auto row = std::find_if(m_rows.begin(), m_rows.end(),
                                  [a_widget](const SRow& a_row) { return a_row.button.Get() == a_widget; });
    const SListItem* const item = row != m_rows.end() ? ItemOf(*row) : nullptr;
    if (item == nullptr)
    {
        return;
    }
    const SView view = View();
    if (item->id == k_scrollBackwardId)
    {
        // A grid of negative size steps the other way, each time.
        m_firstItem = Common::detail::Saturated(std::max<std::int64_t>(std::int64_t{m_firstItem} - view.step, 0));
        UpdateLayout();
    }
    else if (item->id == k_scrollForwardId)
    {
        // Where everything fits, the farthest beginning is before the first item.
        m_firstItem = std::max(std::min(m_firstItem + view.step, view.last), 0);
        UpdateLayout();
    }
    else
    {
        ToggleItem(item->id, false);
    }
}

template <typename ItemT>
void CItemList<ItemT>::DrawSelf() const
{
    if (m_hasBackground)
    {
        m_background.Draw();
    }
}

template <typename ItemT>
void CItemList<ItemT>::UpdateStyle()
{
    if (!UpdateStyleSelf())
    {
        return;
    }
    m_font.UpdateStyle();
    ForEachButton([this](CButton& a_button) { a_button.Font(m_font); });
    LoadTextures();
    UpdateLayout();
}

template <typename ItemT>
void CItemList<ItemT>::LoadTextures()
{
    if (m_hasBackground)
    {
        m_background.Retrieve({0, 0, Width(), Height()});
    }
}

template <typename ItemT>
void CItemList<ItemT>::UpdateLayout()
{
    if (m_frozen)
    {
        return;
    }
    const CLife life(Children());
    DropRows();
    detail::CWidgetList::CUpwards children(Children());
    while (const WidgetPtr child = children.Next())
    {
        Core::Patterns::StaticSingleton<Managers::CWidgetManager>::ref().DestroyWidget(child.Get());
    }
    if (!life.IsOver())
    {
        TakeOutGroups();
        RemoveAllChildren();
    }
    if (!life.IsOver())
    {
        AddButtons();
    }
}

template <typename ItemT>
void CItemList<ItemT>::TakeOutGroups()
{
    for (const WidgetPtr& child : Children().Widgets())
    {
        if (clutter_actor_get_parent(child->GetActor()) == GetActor())
        {
            clutter_actor_remove_child(GetActor(), child->GetActor());
        }
    }
}

template <typename ItemT>
void CItemList<ItemT>::DropRows()
{
    for (const SRow& row : std::exchange(m_rows, {}))
    {
        row.button->SetClickEventHandler(nullptr);
    }
}

template <typename ItemT>
bool CItemList<ItemT>::AddItemAt(int a_index, const Common::CAABB& a_box, const SFace& a_face)
{
    const auto index = static_cast<std::size_t>(a_index);
    return AddButton(Items()[index], m_model.KeyAt(index), a_box, a_face);
}

template <typename ItemT>
bool CItemList<ItemT>::AddScrollBackward(const Common::CAABB& a_box, const SFace& a_face)
{
    return AddButton(m_scrollBackwardItem, k_scrollBackward, a_box, a_face);
}

template <typename ItemT>
bool CItemList<ItemT>::AddScrollForward(const Common::CAABB& a_box, const SFace& a_face)
{
    return AddButton(m_scrollForwardItem, k_scrollForward, a_box, a_face);
}

template <typename ItemT>
bool CItemList<ItemT>::AddButton(const SListItem& a_item, Key a_key, const Common::CAABB& a_box, const SFace& a_face)
{
    const Core::SharedPtr<CButton> button(
        new CButton(a_item.id, a_box.Left(), a_box.Top(), a_box.Width(), a_box.Height(), false));
    button->ParseMarkup(a_face.parseMarkup);
    m_font.alignment = a_face.textAlignment;
    button->Font(m_font);
    button->SetEllipsisMode(Text::eemMiddle);
    if (!a_item.image.empty())
    {
        button->SetImage(a_item.image, a_face.imageAlignment, a_face.imageWidth, a_face.imageHeight);
    }
    if (!a_item.text.empty())
    {
        button->Text(a_item.text);
    }
    m_rows.push_back({button, a_key});
    button->SetTextures(m_textures.downInactive, m_textures.hover, m_textures.downActive, k_selectedSet);
    button->SetTextures(m_textures.upInactive, m_textures.hover, m_textures.upActive, k_defaultSet);
    button->ChangeTextureSet(TextureSet(a_item.selected));
    button->SetClickEventHandler(&m_pressHandler);
    const CLife life(Children());
    AddChild(button);
    return !life.IsOver();
}

template <typename ItemT>
const ItemT* CItemList<ItemT>::ItemOf(const SRow& a_row) const
{
    return a_row.key == k_scrollBackward  ? &m_scrollBackwardItem
           : a_row.key == k_scrollForward ? &m_scrollForwardItem
                                          : m_model.Find(a_row.key);
}

template <typename ItemT>
void CItemList<ItemT>::RefreshButtons()
{
    for (const SRow& row : m_rows)
    {
        if (const SListItem* const item = ItemOf(row))
        {
            row.button->ChangeTextureSet(TextureSet(item->selected));
        }
    }
}

template class CItemList<SListBoxItem>;
template class CItemList<SListGridItem>;

} // namespace Gfx::Widgets
