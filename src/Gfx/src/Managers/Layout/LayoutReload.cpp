// Layout files that change under a running interface.

#include "Managers/Layout/LayoutManager.h"
#include "Managers/Widgets/WidgetManager.h"

#include <algorithm>
#include <utility>

namespace Gfx::Managers
{

using Core::IO::XMLNode;
using Core::Patterns::StaticSingleton;

namespace
{

using WidgetPtr = CLayoutManager::WidgetPtr;
using Widgets = std::vector<WidgetPtr>;

Widgets WidgetsOf(const std::vector<Layout::CElement::ElementPtr>& a_elements)
{
    Widgets widgets;
    for (const Layout::CElement::ElementPtr& element : a_elements)
    {
        if (const WidgetPtr widget = element ? element->Widget() : WidgetPtr())
        {
            widgets.push_back(widget);
        }
    }
    return widgets;
}

void Retire(const std::vector<Layout::CElement::ElementPtr>& a_elements)
{
    for (const Layout::CElement::ElementPtr& element : a_elements)
    {
        if (element)
        {
            element->Retire();
        }
    }
}

Widgets::iterator Find(Widgets& a_widgets, const WidgetPtr& a_widget)
{
    return std::find(a_widgets.begin(), a_widgets.end(), a_widget);
}

Widgets::iterator FindNamed(Widgets& a_widgets, const std::string& a_name)
{
    return std::find_if(a_widgets.begin(), a_widgets.end(),
                        [&a_name](const WidgetPtr& a_widget) { return a_widget->GetName(true) == a_name; });
}

/// Whether a layout's element of that id is shown at first.
bool StartsVisible(const XMLNode& a_layout, const std::string& a_id)
{
    for (const XMLNode& element : a_layout.Children())
    {
        if (element.Attribute("id", "") == a_id)
        {
            return element.Attribute("visible", "True") == "True";
        }
    }
    return true;
}

/// Puts a_fresh in the place of a_former in the order of the screen's widgets, each where the one of its name was, or
/// else over the one before it in the file.
void Exchange(Widgets& a_order, Widgets a_former, const Widgets& a_fresh)
{
    auto next = a_order.end();
    for (auto widget = a_order.begin(); widget != a_order.end() && next == a_order.end(); ++widget)
    {
        next = Find(a_former, *widget) != a_former.end() ? widget : a_order.end();
    }
    for (const WidgetPtr& widget : a_fresh)
    {
        const auto former = FindNamed(a_former, widget->GetName(true));
        const auto place = former != a_former.end() ? Find(a_order, *former) : a_order.end();
        if (place != a_order.end())
        {
            *place = widget;
            next = place + 1;
        }
        else
        {
            next = a_order.insert(next, widget) + 1;
        }
    }
    std::erase_if(a_order,
                  [&a_former](const WidgetPtr& a_widget) { return Find(a_former, a_widget) != a_former.end(); });
}

} // namespace

bool CLayoutManager::Reload(std::vector<std::string>& a_errors, bool a_remake)
{
    RawLayouts fresh;
    if (!ReadDirectory(fresh, &a_errors))
    {
        return false;
    }
    ReleaseFormerElements();
    std::vector<std::pair<NodePtr, Elements>> former;
    for (auto parsed = m_parsedLayouts.begin(); parsed != m_parsedLayouts.end();)
    {
        const auto current = std::next(parsed);
        SRawLayout& before = m_rawLayouts[parsed->first];
        const auto after = fresh.find(parsed->first);
        if (a_remake || after == fresh.end() || after->second.contentHash != before.contentHash)
        {
            former.emplace_back(before.node, std::move(parsed->second));
            m_parsedLayouts.erase(parsed);
        }
        else
        {
            after->second = std::move(before);
        }
        parsed = current;
    }
    m_rawLayouts = std::move(fresh);
    for (auto& [layout, elements] : former)
    {
        Retire(elements);
        Remake(*layout, elements);
        m_formerElements.push_back(std::move(elements));
    }
    return true;
}

void CLayoutManager::Remake(const XMLNode& a_before, const Elements& a_elements)
{
    CWidgetManager& manager = StaticSingleton<CWidgetManager>::ref();
    const std::string id = a_before.Attribute("id", "");
    Widgets order = manager.TopLevelWidgets();
    Widgets former = WidgetsOf(a_elements);
    const bool wasShown = m_appliedLayouts.count(id) != 0 &&
                          (former.empty() || std::any_of(former.begin(), former.end(),
                                                         [&order](const WidgetPtr& a_widget)
                                                         { return Find(order, a_widget) != order.end(); }));
    Widgets fresh;
    const auto after = m_rawLayouts.find(id);
    if (wasShown && after != m_rawLayouts.end())
    {
        // Unless the actions of another one, which was made before it, have shown it.
        if (m_parsedLayouts.count(id) == 0)
        {
            ParseRawLayout(after->second);
        }
        fresh = WidgetsOf(m_parsedLayouts[id]);
        for (const WidgetPtr& widget : fresh)
        {
            const std::string name = widget->GetName(true);
            const auto before = FindNamed(former, name);
            // What the user has opened or closed stays so, unless that is what the file has changed.
            if (before != former.end() && (*before)->Visible() != widget->Visible() &&
                StartsVisible(a_before, name) == StartsVisible(*after->second.node, name))
            {
                widget->Visible() ? widget->Hide() : widget->Show();
            }
        }
    }
    Exchange(order, former, fresh);
    for (const WidgetPtr& widget : former)
    {
        manager.DestroyWidget(widget.Get());
    }
    for (const WidgetPtr& widget : fresh)
    {
        manager.AddWidget(widget);
    }
    for (const WidgetPtr& widget : order)
    {
        manager.BringToFront(widget.Get());
    }
    if (!fresh.empty() && !order.empty())
    {
        manager.Select(order.back());
    }
}

void CLayoutManager::ReleaseFormerElements()
{
    // The answer of a message box goes to the element that has put it up.
    if (StaticSingleton<CWidgetManager>::ref().FindWidget("WidgetMgrMessage", nullptr))
    {
        return;
    }
    std::erase_if(m_formerElements,
                  [](const Elements& a_elements)
                  {
                      // One pointer is the element's, one the list's here.
                      const Widgets widgets = WidgetsOf(a_elements);
                      const bool isOver = std::all_of(widgets.begin(), widgets.end(),
                                                      [](const WidgetPtr& a_widget) { return a_widget.Count() <= 2; });
                      if (isOver)
                      {
                          Retire(a_elements);
                      }
                      return isOver;
                  });
}

} // namespace Gfx::Managers
