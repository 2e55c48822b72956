#pragma once

#include "Core/SharedPtr.h"
#include "Gfx/Common/AABB.h"
#include "Gfx/Common/Point.h"
#include "Widgets/WidgetList.h"

namespace Gfx::Widgets
{

class CWidget;

namespace detail
{

/// Which widget a touch is for.
class CHitTest
{
public:
    /// Of a_widgets, and of what lies in them, the one with the greatest product of overlap with a_box and priority,
    /// the topmost of equals; empty if no product is above 0. Widgets are compared on one level only: a child that is
    /// hit stands for its parent, whatever their priorities. Invisible, disabled and missed widgets are passed over
    /// with all their children. a_box is in stage coordinates; a_parent holds the widgets, null for the stage.
    [[nodiscard]] static CWidgetList::WidgetPtr FindBest(const CWidgetList& a_widgets, const CWidget* a_parent,
                                                         const Common::CAABB& a_box);

private:
    /// An entry of a list, and its overlap with the touch.
    struct SHit
    {
        const CWidgetList::WidgetPtr* entry = nullptr;
        int area = 0;
    };

    /// a_origin is the top left of the widgets' parent on the stage; null if there is none.
    [[nodiscard]] static SHit Find(const CWidgetList& a_widgets, const Common::CPoint* a_origin,
                                   const Common::CAABB& a_box);
};

} // namespace detail

} // namespace Gfx::Widgets
