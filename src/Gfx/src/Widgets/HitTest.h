#pragma once

#include "Core/SharedPtr.h"
#include "Gfx/Common/AABB.h"
#include "Widgets/WidgetList.h"

namespace Gfx::Widgets::detail
{

/// Which widget a touch is for.
class CHitTest
{
public:
    /// Of a_widgets, and of what lies in them, the one with the greatest product of overlap with a_box and priority,
    /// the topmost of equals; empty if no product is above 0. Widgets are compared on one level only: a child that is
    /// hit stands for its parent, whatever their priorities. Invisible, disabled and missed widgets are passed over
    /// with all their children. a_box is in stage coordinates.
    [[nodiscard]] static CWidgetList::WidgetPtr FindBest(const CWidgetList& a_widgets, const Common::CAABB& a_box);

private:
    [[nodiscard]] static const CWidgetList::WidgetPtr* FindEntry(const CWidgetList& a_widgets,
                                                                 const Common::CAABB& a_box);
};

} // namespace Gfx::Widgets::detail
