#include "Layout/WizardStageElement.h"

#include "Core/Functor.h"
#include "Widgets/Controls/Wizard/WizardStage.h"

#include <array>
#include <string>

namespace Gfx::Layout
{

using Core::IO::XMLNode;

namespace
{

struct SValues
{
    std::string id;
    int opacity = 100;
    bool allowScrolling = false;
    bool visible = false;
};

constexpr std::array s_rows{
    SAttribute<SValues>{"id", &SValues::id, "the name, by which a wizard finds the stage"},
    SAttribute<SValues>{"opacity", &SValues::opacity, "in percent", 0, 100},
    SAttribute<SValues>{"allowScrolling", &SValues::allowScrolling, "whether what is too high is scrolled"},
    SAttribute<SValues>{"visible", &SValues::visible, "whether it is shown at first; a wizard shows it"},
};

} // namespace

CElement* CWizardStageElement::Process(CElement* a_parent, const XMLNode& a_node)
{
    const SValues values = ReadAttributes(s_rows, a_node);
    SetCommon(values.id, values.opacity, values.visible);
    // A new stage is hidden, whatever the attribute says: only Show() makes it appear.
    Attach(a_parent, Hidden(new Widgets::CWizardStage(values.id, values.allowScrolling)));
    ProcessContent(a_node, [this](const XMLNode& a_events) { ProcessEvents(a_events); });
    return this;
}

std::vector<SAttributeInfo> CWizardStageElement::Attributes() const
{
    std::vector<SAttributeInfo> list;
    DescribeAttributes(s_rows, list);
    return list;
}

std::vector<SEventInfo> CWizardStageElement::Events() const
{
    std::vector<SEventInfo> list = CElement::Events();
    list.push_back({"Enter", "the wizard comes to the stage"});
    list.push_back({"Exit", "the wizard leaves the stage"});
    return list;
}

void CWizardStageElement::ProcessEvents(const XMLNode& a_node)
{
    using Notify = Core::Functor<void, Widgets::CWidget*>;
    auto* const stage = dynamic_cast<Widgets::CWizardStage*>(Widget().Get());
    for (const XMLNode& event : a_node.Children())
    {
        if (stage != nullptr && event.Name() == "Enter")
        {
            m_enterActions = ProcessEventActions(event);
            stage->SetEnterEventHandler(
                Keep(new Notify::Method<CWizardStageElement>(this, &CWizardStageElement::EnterHandler)));
        }
        else if (stage != nullptr && event.Name() == "Exit")
        {
            m_exitActions = ProcessEventActions(event);
            stage->SetLeaveEventHandler(
                Keep(new Notify::Method<CWizardStageElement>(this, &CWizardStageElement::ExitHandler)));
        }
        else
        {
            ProcessEvent(event);
        }
    }
}

void CWizardStageElement::EnterHandler(Widgets::CWidget*)
{
    ExecuteActions(m_enterActions);
}

void CWizardStageElement::ExitHandler(Widgets::CWidget*)
{
    ExecuteActions(m_exitActions);
}

} // namespace Gfx::Layout
