#include "Layout/PanelElement.h"

#include "Core/Functor.h"
#include "Core/StaticSingleton.h"
#include "Managers/Widgets/WidgetManager.h"
#include "Widgets/Controls/Panel/Panel.h"

#include <array>
#include <string>

namespace Gfx::Layout
{

using Core::IO::XMLNode;
using Widgets::CPanel;

namespace
{

struct SValues
{
    bool allowScrolling = false;
    std::string style = "Up";
    int autoClose = -1;
    bool autoSize = false;
    std::string anchorPoint;
    bool background = true;
    std::string backgroundTexture;
};

constexpr std::array s_rows{
    SAttribute<SValues>{"allowScrolling", &SValues::allowScrolling, "whether what is too high is scrolled"},
    SAttribute<SValues>{"style", &SValues::style, "Up for the raised background, anything else for the lowered one"},
    SAttribute<SValues>{"autoClose", &SValues::autoClose,
                        "the seconds without a touch after which it is hidden, counted from when it is shown; one that "
                        "is visible at first is hidden at once"},
    SAttribute<SValues>{"autoSize", &SValues::autoSize, "whether it takes the size of its visible children"},
    SAttribute<SValues>{"anchorPoint", &SValues::anchorPoint,
                        "what stays in place then: Left or Right, Top or Bottom; otherwise the middle"},
    SAttribute<SValues>{"background", &SValues::background, "whether there is a background"},
    SAttribute<SValues>{"backgroundTexture", &SValues::backgroundTexture, "another background"},
};

/// The words may stand anywhere in the text; the first of a pair wins.
int AnchorPointFromString(const std::string& a_text)
{
    const auto has = [&a_text](const char* a_word) { return a_text.find(a_word) != std::string::npos; };
    int anchorPoint = 0;
    if (has("Left"))
    {
        anchorPoint |= CPanel::eapLeft;
    }
    else if (has("Right"))
    {
        anchorPoint |= CPanel::eapRight;
    }
    if (has("Top"))
    {
        anchorPoint |= CPanel::eapTop;
    }
    else if (has("Bottom"))
    {
        anchorPoint |= CPanel::eapBottom;
    }
    return anchorPoint;
}

} // namespace

CElement* CPanelElement::Process(CElement* a_parent, const XMLNode& a_node)
{
    if (!PreProcess(a_node))
    {
        return nullptr;
    }
    const SValues values = ReadAttributes(s_rows, a_node);
    const Core::SharedPtr<CPanel> panel(
        new CPanel(Id(), X(), Y(), Width(), Height(), values.allowScrolling, values.style == k_raisedStyle));
    panel->AutocloseInterval(values.autoClose);
    panel->AutoSize(values.autoSize);
    panel->AnchorPoint(AnchorPointFromString(values.anchorPoint));
    if (!Visible())
    {
        panel->Hide();
    }
    panel->Background(values.background);
    if (!values.backgroundTexture.empty())
    {
        panel->BackgroundTexture(values.backgroundTexture);
    }
    Attach(a_parent, panel);
    ProcessContent(a_node, [this](const XMLNode& a_events) { ProcessEvents(a_events); });
    return this;
}

std::vector<SAttributeInfo> CPanelElement::Attributes() const
{
    std::vector<SAttributeInfo> list = CElement::Attributes();
    DescribeAttributes(s_rows, list);
    return list;
}

std::vector<SEventInfo> CPanelElement::Events() const
{
    std::vector<SEventInfo> list = CElement::Events();
    list.push_back({"Selected", "the panel, or something in it, gets the keyboard"});
    list.push_back({"Deselected", "it loses the keyboard"});
    list.push_back({"NonClientHit", "something beside the panel is touched"});
    return list;
}

void CPanelElement::ProcessEvents(const XMLNode& a_node)
{
    const WidgetPtr panel = Widget();
    if (!panel)
    {
        return;
    }
    using Selection = Core::Functor<void, Widgets::CWidget*, bool>;
    using Hit = Core::Functor<void, Widgets::CWidget*>;
    bool needsSelection = false;
    for (const XMLNode& event : a_node.Children())
    {
        if (event.Name() == "Deselected")
        {
            m_deselectedActions = ProcessEventActions(event);
            needsSelection = true;
        }
        else if (event.Name() == "Selected")
        {
            m_selectedActions = ProcessEventActions(event);
            needsSelection = true;
        }
        else if (event.Name() == "NonClientHit")
        {
            m_nonClientHitActions = ProcessEventActions(event);
            panel->SetNonClientHitEventHandler(
                Keep(new Hit::Method<CPanelElement>(this, &CPanelElement::NonClientHit)));
            Core::Patterns::StaticSingleton<Managers::CWidgetManager>::ref().RegisterForNonClientHitEvents(panel);
        }
        else
        {
            ProcessEvent(event);
        }
    }
    if (needsSelection)
    {
        panel->SetSelectedChangedEventHandler(
            Keep(new Selection::Method<CPanelElement>(this, &CPanelElement::SelectionChanged)));
    }
}

void CPanelElement::SelectionChanged(Widgets::CWidget*, bool a_selected)
{
    ExecuteActions(a_selected ? m_selectedActions : m_deselectedActions);
}

void CPanelElement::NonClientHit(Widgets::CWidget*)
{
    ExecuteActions(m_nonClientHitActions);
}

} // namespace Gfx::Layout
