#pragma once

#include "Core/Api.h"
#include "Core/SharedPtr.h"
#include "Widgets/Controls/CheckBox/CheckBox.h"

#include <string>

namespace Gfx::Widgets
{

class CRadioGroup;

/// A check box that the pointer can only turn on, and of which at most one in its group is on.
///
/// Configuration: the keys of the check box, below `/Gfx/Controls/RadioButton/`. The text, though, is as wide as that
/// of a check box of this width.
class GFX_API CRadioButton : public CCheckBox
{
public:
    CRadioButton(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, const std::string& a_text);
    ~CRadioButton() override;

    using CCheckBox::Checked;
    void Checked(bool a_checked) override;

    /// Leaves the former group by its Remove. The way into a group is CRadioGroup::Add, which calls this.
    void SetGroup(Core::SharedPtr<CRadioGroup> a_group);

    void MouseEvent(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point, bool a_remote) override;

private:
    /// Group and buttons hold each other, so neither dies while the other is in use.
    Core::SharedPtr<CRadioGroup> m_group;
};

} // namespace Gfx::Widgets
