#pragma once

#include "Core/Api.h"
#include "Core/SharedPtr.h"

#include <vector>

namespace Gfx::Widgets
{

class CRadioButton;

/// Radio buttons of which at most one is on. The group and its buttons hold each other.
class GFX_API CRadioGroup
{
public:
    using ButtonPtr = Core::SharedPtr<CRadioButton>;

    CRadioGroup();
    ~CRadioGroup();
    CRadioGroup(const CRadioGroup&) = delete;
    CRadioGroup& operator=(const CRadioGroup&) = delete;

    /// Adds a button, which turns the others off if it is on. a_self is the group's own pointer. A button that is in
    /// the group already ends the process.
    void Add(ButtonPtr a_button, Core::SharedPtr<CRadioGroup> a_self);

    /// Takes out the first button that is not a_button, if there is one. So a button that changes its group stays in
    /// the former one's list, and a neighbour of its leaves that in its place; layouts are made for it.
    void Remove(CRadioButton* a_button);

    /// a_button has been turned on: turns all others off, in order.
    void SelectionChanged(CRadioButton* a_button);

    [[nodiscard]] const std::vector<ButtonPtr>& Buttons() const { return m_buttons; }

private:
    std::vector<ButtonPtr> m_buttons;
};

} // namespace Gfx::Widgets
