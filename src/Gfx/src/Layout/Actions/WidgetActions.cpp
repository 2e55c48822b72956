#include "Layout/Actions/WidgetActions.h"

#include "Core/StaticSingleton.h"
#include "Managers/Widgets/WidgetManager.h"
#include "Widgets/Controls/Window/Window.h"

#include <array>
#include <cstdio>

namespace Gfx::Layout::Actions
{

namespace
{

constexpr std::array s_propertyRows{
    SAttribute<CProperty::SValues>{"id", &CProperty::SValues::id, "the widget; the element's own"},
    SAttribute<CProperty::SValues>{"name", &CProperty::SValues::name, "the property's name"},
    SAttribute<CProperty::SValues>{"value", &CProperty::SValues::value, "an operand, the value to set"},
};

struct SId
{
    std::string id;
};

constexpr std::array s_idRows{SAttribute<SId>{"id", &SId::id, "the widget"}};

} // namespace

CProperty::SValues CProperty::Read(const Core::IO::XMLNode& a_node, const std::string& a_own)
{
    return ReadAttributes(s_propertyRows, a_node, {a_own, "", ""});
}

void CProperty::Describe(std::vector<SAttributeInfo>& a_list)
{
    DescribeAttributes(s_propertyRows, a_list);
}

bool CProperty::Execute(CElement& a_element)
{
    if (const Core::SharedPtr<Widgets::CWidget> widget = FindWidget(m_values.id, a_element))
    {
        widget->SetProperty(m_values.name, GetProperty(m_values.value, a_element));
    }
    else
    {
        std::printf("CProperty::Execute: could not find widget %s\n", m_values.id.c_str());
    }
    return true;
}

std::string CWidgetAction::Read(const Core::IO::XMLNode& a_node, const std::string& a_default)
{
    return ReadAttributes(s_idRows, a_node, {a_default}).id;
}

void CWidgetAction::Describe(std::vector<SAttributeInfo>& a_list)
{
    DescribeAttributes(s_idRows, a_list);
}

Core::SharedPtr<Widgets::CWidget> CWidgetAction::FindOrReport(CElement& a_element, const char* a_class) const
{
    Core::SharedPtr<Widgets::CWidget> widget = FindWidget(m_id, a_element);
    if (!widget)
    {
        std::fprintf(stderr, "%s::Execute: could not find widget %s\n", a_class, m_id.c_str());
    }
    return widget;
}

bool CToggleVisibility::Execute(CElement& a_element)
{
    if (const Core::SharedPtr<Widgets::CWidget> widget = FindOrReport(a_element, "CToggleVisibility"))
    {
        widget->SetShowHide(!widget->Visible());
    }
    return true;
}

bool CBringToFront::Execute(CElement& a_element)
{
    if (const Core::SharedPtr<Widgets::CWidget> widget = FindOrReport(a_element, "CBringToFront"))
    {
        widget->BringToFront();
    }
    return true;
}

bool CSendToBack::Execute(CElement& a_element)
{
    if (const Core::SharedPtr<Widgets::CWidget> widget = FindOrReport(a_element, "CSendToBack"))
    {
        widget->SendToBack();
    }
    return true;
}

bool CCloseWindow::Execute(CElement&)
{
    const Core::SharedPtr<Widgets::CWidget> widget =
        Core::Patterns::StaticSingleton<Managers::CWidgetManager>::ref().FindWidget(Id(), nullptr);
    if (dynamic_cast<Widgets::CWindow*>(widget.Get()) != nullptr)
    {
        widget->Hide();
    }
    return true;
}

} // namespace Gfx::Layout::Actions
