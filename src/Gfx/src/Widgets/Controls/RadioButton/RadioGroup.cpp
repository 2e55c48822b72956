#include "Widgets/Controls/RadioButton/RadioGroup.h"

#include "Core/Assert.h"
#include "Widgets/Controls/RadioButton/RadioButton.h"

#include <algorithm>
#include <utility>

namespace Gfx::Widgets
{

CRadioGroup::CRadioGroup() = default;

CRadioGroup::~CRadioGroup() = default;

void CRadioGroup::Add(ButtonPtr a_button, Core::SharedPtr<CRadioGroup> a_self)
{
    const auto it = std::find(m_buttons.begin(), m_buttons.end(), a_button);
    GFX_ASSERT(it == m_buttons.end());
    m_buttons.push_back(a_button);
    a_button->SetGroup(std::move(a_self));
    if (a_button->Checked())
    {
        SelectionChanged(a_button.Get());
    }
}

void CRadioGroup::Remove(CRadioButton* a_button)
{
    const auto other = std::find_if(m_buttons.begin(), m_buttons.end(),
                                    [a_button](const ButtonPtr& a_entry) { return a_entry.Get() != a_button; });
    if (other != m_buttons.end())
    {
        // Held until it is out of the list, since its own end may come with it.
        const ButtonPtr removed = *other;
        m_buttons.erase(other);
    }
}

void CRadioGroup::SelectionChanged(CRadioButton* a_button)
{
    // A copy, since a button's override may change the group.
    const std::vector<ButtonPtr> buttons = m_buttons;
    for (const ButtonPtr& button : buttons)
    {
        if (button.Get() != a_button)
        {
            button->Checked(false);
        }
    }
}

} // namespace Gfx::Widgets
