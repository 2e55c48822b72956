#include "Widgets/WidgetList.h"

#include "Widgets/Widget.h"

#include <algorithm>
#include <utility>

namespace Gfx::Widgets::detail
{

CWidgetList::CWalk::CWalk(const CWidgetList& a_list, EDirection a_direction)
    : m_list(&a_list)
    , m_outer(a_list.m_walks)
    , m_direction(a_direction)
    , m_bit(m_outer != nullptr ? m_outer->m_bit << 1U : 1U)
    , m_position(a_direction == EDirection::Upwards ? 0 : a_list.Size())
{
    if (m_outer == nullptr)
    {
        a_list.m_marks.assign(a_list.Size(), 0);
    }
    for (std::uint32_t& mark : a_list.m_marks)
    {
        mark &= ~m_bit;
    }
    a_list.m_walks = this;
}

CWidgetList::CWalk::~CWalk()
{
    if (m_list != nullptr)
    {
        // Walks live on the stack, so the innermost one ends first.
        m_list->m_walks = m_outer;
    }
}

CWidgetList::WidgetPtr CWidgetList::CWalk::Next()
{
    const bool upwards = m_direction == EDirection::Upwards;
    // A walk within more walks than there are bits has none, and finds nothing.
    while (m_list != nullptr && m_bit != 0 && (upwards ? m_position < m_list->Size() : m_position > 0))
    {
        const std::size_t index = upwards ? m_position++ : --m_position;
        if ((m_list->m_marks[index] & m_bit) == 0)
        {
            m_list->m_marks[index] |= m_bit;
            return m_list->m_widgets[index];
        }
    }
    return {};
}

CWidgetList::CLife::~CLife()
{
    if (m_list != nullptr)
    {
        m_list->m_lives = m_outer;
    }
}

CWidgetList::~CWidgetList()
{
    for (CWalk* walk = m_walks; walk != nullptr; walk = walk->m_outer)
    {
        walk->m_list = nullptr;
    }
    for (CLife* life = m_lives; life != nullptr; life = life->m_outer)
    {
        life->m_list = nullptr;
    }
}

void CWidgetList::AddToFront(WidgetPtr a_widget)
{
    m_widgets.push_back(std::move(a_widget));
    if (m_walks != nullptr)
    {
        // Not for the walks that are under way: one whose handlers add widgets would never end.
        m_marks.push_back(~std::uint32_t{0});
    }
}

CWidgetList::WidgetPtr CWidgetList::Remove(const CWidget* a_widget)
{
    const std::size_t index = IndexOf(a_widget);
    if (index == Size())
    {
        return {};
    }
    // To the end first, past all walks, whose positions that takes care of.
    MoveTo(index, Size() - 1);
    WidgetPtr widget = std::move(m_widgets.back());
    m_widgets.pop_back();
    if (m_walks != nullptr)
    {
        m_marks.pop_back();
    }
    for (CWalk* walk = m_walks; walk != nullptr; walk = walk->m_outer)
    {
        walk->m_position = std::min(walk->m_position, Size());
    }
    return widget;
}

void CWidgetList::Clear()
{
    for (CWalk* walk = m_walks; walk != nullptr; walk = walk->m_outer)
    {
        walk->m_position = 0;
    }
    m_marks.clear();
    // The widgets die outside the list, since their destructors may look at it.
    const std::vector<WidgetPtr> widgets = std::exchange(m_widgets, {});
}

void CWidgetList::MoveToFront(const CWidget* a_widget)
{
    const std::size_t index = IndexOf(a_widget);
    if (index < Size())
    {
        MoveTo(index, Size() - 1);
    }
}

void CWidgetList::MoveToBack(const CWidget* a_widget)
{
    const std::size_t index = IndexOf(a_widget);
    if (index < Size())
    {
        MoveTo(index, 0);
    }
}

void CWidgetList::MoveTo(std::size_t a_index, std::size_t a_target)
{
    const auto rotate = [a_index, a_target](auto& a_entries)
    {
        const auto at = [&a_entries](std::size_t a_place)
        { return a_entries.begin() + static_cast<std::ptrdiff_t>(a_place); };
        if (a_index < a_target)
        {
            std::rotate(at(a_index), at(a_index + 1), at(a_target + 1));
        }
        else
        {
            std::rotate(at(a_target), at(a_index), at(a_index + 1));
        }
    };
    rotate(m_widgets);
    if (m_walks != nullptr)
    {
        rotate(m_marks);
    }
    for (CWalk* walk = m_walks; walk != nullptr; walk = walk->m_outer)
    {
        if (a_index < walk->m_position && walk->m_position <= a_target)
        {
            --walk->m_position;
        }
        else if (a_target < walk->m_position && walk->m_position <= a_index)
        {
            ++walk->m_position;
        }
    }
}

CWidgetList::WidgetPtr CWidgetList::Find(const CWidget* a_widget) const
{
    const std::size_t index = IndexOf(a_widget);
    return index < Size() ? m_widgets[index] : WidgetPtr();
}

std::size_t CWidgetList::IndexOf(const CWidget* a_widget) const
{
    const auto found = std::find_if(m_widgets.begin(), m_widgets.end(),
                                    [a_widget](const WidgetPtr& a_entry) { return a_entry.Get() == a_widget; });
    return static_cast<std::size_t>(found - m_widgets.begin());
}

} // namespace Gfx::Widgets::detail
