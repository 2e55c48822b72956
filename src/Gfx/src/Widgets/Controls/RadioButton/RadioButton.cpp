#include "Widgets/Controls/RadioButton/RadioButton.h"

#include "Widgets/Controls/RadioButton/RadioGroup.h"

#include <utility>

namespace Gfx::Widgets
{

CRadioButton::CRadioButton(const std::string& a_name, int a_x, int a_y, int a_width, int a_height,
                           const std::string& a_text)
    : CCheckBox(a_name, "RadioButton", a_x, a_y, a_width, a_height, a_text)
{
}

CRadioButton::~CRadioButton() = default;

void CRadioButton::Checked(bool a_checked)
{
    StoreChecked(a_checked);
    if (a_checked && m_group)
    {
        const Core::SharedPtr<CRadioGroup> group = m_group;
        group->SelectionChanged(this);
    }
}

void CRadioButton::SetGroup(Core::SharedPtr<CRadioGroup> a_group)
{
    // Held to the end, since this button may be held by the former group alone.
    const Core::SharedPtr<CRadioGroup> former = m_group;
    if (former)
    {
        former->Remove(this);
    }
    m_group = std::move(a_group);
}

void CRadioButton::MouseEvent(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point, bool a_remote)
{
    if (ReadOnly())
    {
        return;
    }
    if (a_event == Events::FirstClick)
    {
        Checked(true);
    }
    CWidget::MouseEvent(a_event, a_buttons, a_point, a_remote);
}

} // namespace Gfx::Widgets
