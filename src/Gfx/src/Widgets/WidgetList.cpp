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
    , m_position(a_direction == EDirection::Upwards ? 0 : a_list.Size())
{
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
    if (m_list == nullptr)
    {
        return {};
    }
    if (m_direction == EDirection::Upwards)
    {
        return m_position < m_list->Size() ? m_list->m_widgets[m_position++] : WidgetPtr();
    }
    return m_position > 0 ? m_list->m_widgets[--m_position] : WidgetPtr();
}

CWidgetList::~CWidgetList()
{
    for (CWalk* walk = m_walks; walk != nullptr; walk = walk->m_outer)
    {
        walk->m_list = nullptr;
    }
}

void CWidgetList::AddToFront(WidgetPtr a_widget)
{
    m_widgets.push_back(std::move(a_widget));
}

CWidgetList::WidgetPtr CWidgetList::Remove(const CWidget* a_widget)
{
    const std::size_t index = IndexOf(a_widget);
    return index < Size() ? RemoveAt(index) : WidgetPtr();
}

void CWidgetList::Clear()
{
    for (CWalk* walk = m_walks; walk != nullptr; walk = walk->m_outer)
    {
        walk->m_position = 0;
    }
    // The widgets die outside the list, since their destructors may look at it.
    const std::vector<WidgetPtr> widgets = std::exchange(m_widgets, {});
}

void CWidgetList::MoveToFront(const CWidget* a_widget)
{
    const std::size_t index = IndexOf(a_widget);
    if (index < Size())
    {
        AddToFront(RemoveAt(index));
    }
}

void CWidgetList::MoveToBack(const CWidget* a_widget)
{
    const std::size_t index = IndexOf(a_widget);
    if (index < Size())
    {
        WidgetPtr widget = RemoveAt(index);
        m_widgets.insert(m_widgets.begin(), std::move(widget));
        for (CWalk* walk = m_walks; walk != nullptr; walk = walk->m_outer)
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

CWidgetList::WidgetPtr CWidgetList::RemoveAt(std::size_t a_index)
{
    WidgetPtr widget = std::move(m_widgets[a_index]);
    m_widgets.erase(m_widgets.begin() + static_cast<std::ptrdiff_t>(a_index));
    for (CWalk* walk = m_walks; walk != nullptr; walk = walk->m_outer)
    {
        if (walk->m_position > a_index)
        {
            --walk->m_position;
        }
    }
    return widget;
}

} // namespace Gfx::Widgets::detail
