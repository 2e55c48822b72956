#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Gfx::Widgets
{

/// The items of a list in their order, and which of them are selected. To find one and to select one takes a time that
/// hardly grows with their number.
///
/// ItemT is a struct with an id, not necessarily a unique one, and with a flag called selected.
template <typename ItemT>
class CItemModel
{
public:
    /// What tells an item from all others that are or were in the list, however the list changes around it. Keys rise
    /// along the list.
    using Key = std::int64_t;

    [[nodiscard]] const std::vector<ItemT>& Items() const { return m_items; }
    [[nodiscard]] int Count() const { return static_cast<int>(m_items.size()); }

    /// Indices aren't checked, here and below.
    [[nodiscard]] Key KeyAt(std::size_t a_index) const { return m_keys[a_index]; }

    /// Null if the item has been removed. Good until the list is changed.
    [[nodiscard]] const ItemT* Find(Key a_key) const
    {
        const std::size_t index = Position(a_key);
        return index < m_items.size() && m_keys[index] == a_key ? &m_items[index] : nullptr;
    }

    /// The first item of that id.
    [[nodiscard]] std::optional<std::size_t> IndexOf(const std::string& a_id) const
    {
        std::optional<std::size_t> first;
        ForEach(a_id,
                [&first](std::size_t a_index)
                {
                    if (!first || a_index < *first)
                    {
                        first = a_index;
                    }
                });
        return first;
    }

    /// Behind the last item, or before the first.
    void Add(const ItemT& a_item, bool a_atEnd)
    {
        m_items.insert(a_atEnd ? m_items.end() : m_items.begin(), a_item);
        m_keys.insert(a_atEnd ? m_keys.end() : m_keys.begin(), a_atEnd ? m_nextBehind++ : m_nextBefore--);
        Enter(a_atEnd ? m_items.size() - 1 : 0);
    }

    /// The items behind it move up.
    void Remove(std::size_t a_index)
    {
        Leave(a_index);
        m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(a_index));
        m_keys.erase(m_keys.begin() + static_cast<std::ptrdiff_t>(a_index));
    }

    /// By value, since the new item may be one of the list.
    void Replace(std::size_t a_index, ItemT a_item)
    {
        Leave(a_index);
        m_items[a_index] = std::move(a_item);
        Enter(a_index);
    }

    /// Forgets all items.
    void Clear()
    {
        m_items.clear();
        m_keys.clear();
        m_index.clear();
        m_selected.clear();
    }

    /// Sets the flag of an item.
    void Select(std::size_t a_index, bool a_selected)
    {
        m_items[a_index].selected = a_selected;
        if (a_selected)
        {
            m_selected.insert(m_keys[a_index]);
        }
        else
        {
            m_selected.erase(m_keys[a_index]);
        }
    }

    /// All items of that id.
    void Select(const std::string& a_id, bool a_selected)
    {
        ForEach(a_id, [this, a_selected](std::size_t a_index) { Select(a_index, a_selected); });
    }

    /// Selects nothing.
    void ClearSelection()
    {
        for (const Key key : m_selected)
        {
            m_items[Position(key)].selected = false;
        }
        m_selected.clear();
    }

    /// One text of each selected item, in the order of the list, with "," between them.
    [[nodiscard]] std::string JoinSelected(std::string ItemT::*a_text) const
    {
        std::string joined;
        for (const Key key : m_selected)
        {
            joined += (key == *m_selected.begin() ? "" : ",") + m_items[Position(key)].*a_text;
        }
        return joined;
    }

private:
    /// Where a key is, or would be.
    [[nodiscard]] std::size_t Position(Key a_key) const
    {
        return static_cast<std::size_t>(std::lower_bound(m_keys.begin(), m_keys.end(), a_key) - m_keys.begin());
    }

    template <typename ActionT>
    void ForEach(const std::string& a_id, ActionT a_action) const
    {
        const auto [first, last] = m_index.equal_range(std::hash<std::string>{}(a_id));
        for (auto entry = first; entry != last; ++entry)
        {
            const std::size_t index = Position(entry->second);
            if (m_items[index].id == a_id)
            {
                a_action(index);
            }
        }
    }

    void Enter(std::size_t a_index)
    {
        const ItemT& item = m_items[a_index];
        m_index.emplace(std::hash<std::string>{}(item.id), m_keys[a_index]);
        if (item.selected)
        {
            m_selected.insert(m_selected.end(), m_keys[a_index]);
        }
    }

    void Leave(std::size_t a_index)
    {
        const Key key = m_keys[a_index];
        m_selected.erase(key);
        const auto [first, last] = m_index.equal_range(std::hash<std::string>{}(m_items[a_index].id));
        m_index.erase(std::find_if(first, last, [key](const auto& a_entry) { return a_entry.second == key; }));
    }

    std::vector<ItemT> m_items;
    /// Of the items, in the same order.
    std::vector<Key> m_keys;
    Key m_nextBefore = -1;
    Key m_nextBehind = 0;
    /// The keys by the hash values of the ids: a second copy of the ids themselves would take more room.
    std::unordered_multimap<std::size_t, Key> m_index;
    std::set<Key> m_selected;
};

} // namespace Gfx::Widgets
