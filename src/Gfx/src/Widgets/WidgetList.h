#pragma once

#include "Core/Api.h"
#include "Core/SharedPtr.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Gfx::Widgets
{

class CWidget;

namespace detail
{

/// Widgets in stacking order, from back to front, which may be changed while they are walked: handlers that run in
/// the middle of a walk add, raise, remove and destroy widgets. A walk visits each widget at most once, in the order
/// that it finds, and none that was added after it began. Contiguous, since the hit test reads all of it at each event.
class GFX_API CWidgetList
{
public:
    using WidgetPtr = Core::SharedPtr<CWidget>;

    /// A walk over a list, held on the stack. The widget in hand stays alive at least until the next step.
    class GFX_API CWalk
    {
    public:
        CWalk(const CWalk&) = delete;
        CWalk& operator=(const CWalk&) = delete;

        /// The next widget; empty at the end, or when the list has died meanwhile.
        [[nodiscard]] WidgetPtr Next();

    protected:
        enum class EDirection
        {
            Upwards,
            Downwards
        };

        CWalk(const CWidgetList& a_list, EDirection a_direction);
        ~CWalk();

    private:
        friend class CWidgetList;

        const CWidgetList* m_list;
        CWalk* m_outer;
        EDirection m_direction;
        /// Which bit of the marks says that this walk has done with a widget.
        std::uint32_t m_bit;
        /// Upwards the index of the next widget, downwards one above it.
        std::size_t m_position;
    };

    /// From the back to the front.
    class GFX_API CUpwards : public CWalk
    {
    public:
        explicit CUpwards(const CWidgetList& a_list) : CWalk(a_list, EDirection::Upwards) {}
    };

    /// From the front to the back.
    class GFX_API CDownwards : public CWalk
    {
    public:
        explicit CDownwards(const CWidgetList& a_list) : CWalk(a_list, EDirection::Downwards) {}
    };

    /// Notices the death of a list, and with it of the widget whose children it holds. Held on the stack.
    class GFX_API CLife
    {
    public:
        explicit CLife(const CWidgetList& a_list) : m_list(&a_list), m_outer(a_list.m_lives) { a_list.m_lives = this; }
        ~CLife();
        CLife(const CLife&) = delete;
        CLife& operator=(const CLife&) = delete;

        [[nodiscard]] bool IsOver() const { return m_list == nullptr; }

    private:
        friend class CWidgetList;

        const CWidgetList* m_list;
        CLife* m_outer;
    };

    CWidgetList() = default;
    ~CWidgetList();
    CWidgetList(const CWidgetList&) = delete;
    CWidgetList& operator=(const CWidgetList&) = delete;

    void AddToFront(WidgetPtr a_widget);

    /// Takes out the first entry for a_widget, counted from the back, and returns it; empty if there is none.
    WidgetPtr Remove(const CWidget* a_widget);

    /// Takes out all widgets.
    void Clear();

    /// Moves the first entry for a_widget; does nothing if there is none.
    void MoveToFront(const CWidget* a_widget);
    void MoveToBack(const CWidget* a_widget);

    /// The entry for a_widget; empty if there is none.
    [[nodiscard]] WidgetPtr Find(const CWidget* a_widget) const;

    [[nodiscard]] bool IsEmpty() const { return m_widgets.empty(); }
    [[nodiscard]] std::size_t Size() const { return m_widgets.size(); }

    /// The widgets themselves, from back to front, for code that runs no handlers.
    [[nodiscard]] const std::vector<WidgetPtr>& Widgets() const { return m_widgets; }

private:
    [[nodiscard]] std::size_t IndexOf(const CWidget* a_widget) const;

    /// Moves an entry to where it would be inserted if it weren't there.
    void MoveTo(std::size_t a_index, std::size_t a_target);

    std::vector<WidgetPtr> m_widgets;
    /// While the list is walked, an entry for each widget: the bits of the walks that have done with it.
    mutable std::vector<std::uint32_t> m_marks;
    mutable CWalk* m_walks = nullptr;
    mutable CLife* m_lives = nullptr;
};

} // namespace detail

} // namespace Gfx::Widgets
