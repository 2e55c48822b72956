#include "Layout/Frame3DElement.h"

#include "Gfx/3D/3DEntity.h"
#include "Widgets/Controls/3DFrame/3DFrame.h"

#include <array>

namespace Gfx::Layout
{

using Core::IO::XMLNode;

namespace
{

struct SValues
{
    bool picking = true;
};

constexpr std::array s_rows{
    SAttribute<SValues>{"picking", &SValues::picking, "whether a touch can hit an entity"},
};

} // namespace

CElement* C3DFrameElement::Process(CElement* a_parent, const XMLNode& a_node)
{
    if (!PreProcess(a_node))
    {
        return nullptr;
    }
    Attach(a_parent,
           Hidden(new Widgets::C3DFrame(Id(), X(), Y(), Width(), Height(), ReadAttributes(s_rows, a_node).picking)));
    for (const XMLNode& child : a_node.Children())
    {
        if (child.Name() == "Events")
        {
            ProcessEvents(child);
        }
    }
    return this;
}

std::vector<SAttributeInfo> C3DFrameElement::Attributes() const
{
    std::vector<SAttributeInfo> list = CElement::Attributes();
    DescribeAttributes(s_rows, list);
    return list;
}

std::vector<SEventInfo> C3DFrameElement::Events() const
{
    std::vector<SEventInfo> list = CElement::Events();
    list.push_back({"EntityHit", "a touch hits an entity; LastEntityHit names it"});
    return list;
}

void C3DFrameElement::ProcessEvents(const XMLNode& a_node)
{
    ProcessEventsAnd("EntityHit", m_entityHitActions, a_node, &Widgets::C3DFrame::SetEntityHitEventHandler,
                     &C3DFrameElement::EntityHitHandler);
}

void C3DFrameElement::EntityHitHandler(Widgets::CWidget*, Core::SharedPtr<C3DEntity>)
{
    ExecuteActions(m_entityHitActions);
}

} // namespace Gfx::Layout
