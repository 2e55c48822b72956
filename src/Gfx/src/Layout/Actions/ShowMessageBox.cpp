#include "Layout/Actions/ShowMessageBox.h"

#include "Core/StaticSingleton.h"
#include "Layout/Element.h"
#include "Managers/Widgets/WidgetManager.h"

#include <utility>

namespace Gfx::Layout::Actions
{

namespace
{

using Values = CShowMessageBox::SValues;

constexpr std::array s_rows{
    SAttribute<Values>{"width", &Values::width, "in pixels"},
    SAttribute<Values>{"height", &Values::height, "in pixels"},
    SAttribute<Values>{"title", &Values::title, "the title, literally"},
    SAttribute<Values>{"message", &Values::message, "the text, literally"},
    SAttribute<Values>{"btn1", &Values::btn1, "the first button's caption; empty for no button"},
    SAttribute<Values>{"btn2", &Values::btn2, "the second button's caption; empty for no button"},
    SAttribute<Values>{"btn3", &Values::btn3, "the third button's caption; empty for no button"},
};

} // namespace

CShowMessageBox::CShowMessageBox(CElement& a_element, SValues a_values, std::array<ActionList, k_buttons> a_lists)
    : m_element(a_element)
    , m_values(std::move(a_values))
    , m_lists(std::move(a_lists))
    , m_callback(this, &CShowMessageBox::OptionSelected)
{
}

CShowMessageBox::SValues CShowMessageBox::Read(const Core::IO::XMLNode& a_node)
{
    return ReadAttributes(s_rows, a_node);
}

void CShowMessageBox::Describe(std::vector<SAttributeInfo>& a_list)
{
    DescribeAttributes(s_rows, a_list);
}

bool CShowMessageBox::Execute(CElement&)
{
    Core::Patterns::StaticSingleton<Managers::CWidgetManager>::ref().ShowMessageBox(
        m_values.width, m_values.height, m_values.title, m_values.message, &m_callback, m_values.btn1, m_values.btn2,
        m_values.btn3);
    return true;
}

void CShowMessageBox::OptionSelected(int a_option)
{
    if (a_option >= 1 && a_option <= static_cast<int>(k_buttons))
    {
        m_element.ExecuteActions(m_lists[static_cast<std::size_t>(a_option - 1)]);
    }
}

} // namespace Gfx::Layout::Actions
