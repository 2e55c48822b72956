#include "Layout/WindowElement.h"

#include "Widgets/Controls/Window/Window.h"

#include <array>
#include <string>

namespace Gfx::Layout
{

using Core::IO::XMLNode;
using Widgets::CWindow;

namespace
{

struct SValues
{
    std::string title;
    bool scrollable = false;
    bool titleBar = true;
    bool draggable = true;
    bool modal = false;
};

constexpr std::array s_rows{
    SAttribute<SValues>{"title", &SValues::title, "the title, or the key of a localised one behind Localised:"},
    SAttribute<SValues>{"scrollable", &SValues::scrollable, "whether what is too high is scrolled"},
    SAttribute<SValues>{"titleBar", &SValues::titleBar, "whether there is a title bar"},
    SAttribute<SValues>{"draggable", &SValues::draggable, "whether it can be dragged by its title bar"},
    SAttribute<SValues>{"modal", &SValues::modal, "whether it keeps touches from everything else"},
};

} // namespace

CElement* CWindowElement::Process(CElement* a_parent, const XMLNode& a_node)
{
    if (!PreProcess(a_node))
    {
        return nullptr;
    }
    const SValues values = ReadAttributes(s_rows, a_node);
    const int flags = (values.titleBar ? CWindow::ewfTitleBar : 0) | (values.draggable ? CWindow::ewfDraggable : 0) |
                      (values.modal ? CWindow::ewfModal : 0);
    Attach(a_parent, Hidden(new CWindow(Id(), X(), Y(), Width(), Height(), values.scrollable, values.title, flags)));
    ProcessContent(a_node, [this](const XMLNode& a_events) { ProcessEvents(a_events); });
    return this;
}

std::vector<SAttributeInfo> CWindowElement::Attributes() const
{
    std::vector<SAttributeInfo> list = CElement::Attributes();
    DescribeAttributes(s_rows, list);
    return list;
}

} // namespace Gfx::Layout
