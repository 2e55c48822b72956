#include "Layout/Element.h"

#include "Core/Functor.h"
#include "Core/Logging/Logger.h"
#include "Core/StaticSingleton.h"
#include "Core/Utilities.h"
#include "Gfx/Common/Alignment.h"
#include "Gfx/Common/Colour.h"
#include "Layout/Actions/FlowActions.h"
#include "Layout/Actions/ShowMessageBox.h"
#include "Layout/Actions/WidgetActions.h"
#include "Managers/Layout/LayoutManager.h"
#include "Managers/Widgets/WidgetManager.h"

#include <utility>

namespace Gfx::Layout
{

using Core::IO::XMLNode;
using Core::Patterns::StaticSingleton;

namespace
{

/// What one event sets off: its list, the lists within that, and those of further events that the actions cause. Lists
/// can run each other for ever, as one at "Show" that hides the widget and one at "Hide" that shows it again, or for
/// longer than anybody waits, where each runs another one twice: what goes beyond these limits ends as a whole. A nest
/// of conditions in a file is less deep.
struct SRun
{
    static constexpr int k_deepest = 512;
    static constexpr int k_longest = 100'000;

    int depth = 0;
    int actions = 0;
    bool isEndless = false;
};

SRun s_run;

/// A list that runs.
class CNested
{
public:
    CNested() { ++s_run.depth; }
    ~CNested()
    {
        if (--s_run.depth == 0)
        {
            s_run = {};
        }
    }
    CNested(const CNested&) = delete;
    CNested& operator=(const CNested&) = delete;
};

template <typename... Args>
void Report(const std::string& a_format, const Args&... a_arguments)
{
    StaticSingleton<Core::Logging::CLogger>::ref().Log(Core::Logging::elMessage, "CElement", a_format, a_arguments...);
}

constexpr std::array s_events{
    SEventInfo{"Click", "the element's widget is clicked"},
    SEventInfo{"Show", "the widget is shown; a Stop refuses it"},
    SEventInfo{"Hide", "the widget is hidden; a Stop refuses it"},
};

} // namespace

struct CElement::SActionWord
{
    std::string_view word;
    ActionPtr (CElement::*make)(const XMLNode& a_node);
    void (*describe)(std::vector<SAttributeInfo>& a_list);
    std::string_view description;
};

const std::array<CElement::SActionWord, 11> CElement::s_actionWords{
    SActionWord{"ShowMessageBox", &CElement::ProcessAction_ShowMessageBox, Actions::CShowMessageBox::Describe,
                "shows a message box; Button1, Button2 and Button3 hold the actions of its buttons"},
    SActionWord{"ActivateLayout", &CElement::ProcessAction_ActivateLayout, Actions::CActivateLayout::Describe,
                "shows another layout"},
    SActionWord{"Property", &CElement::ProcessAction_Property, Actions::CProperty::Describe,
                "sets a property of a widget"},
    SActionWord{"Condition", &CElement::ProcessAction_Condition, Actions::CCondition::Describe,
                "runs the actions in it if a comparison holds"},
    SActionWord{"Stop", &CElement::ProcessAction_Stop, nullptr, "ends the list, and all that it is nested in"},
    SActionWord{"ToggleVisibility", &CElement::ProcessAction_ToggleVisibility, Actions::CWidgetAction::Describe,
                "shows a hidden widget, and hides a visible one"},
    SActionWord{"Notification", &CElement::ProcessAction_Notification, Actions::CNotification::Describe,
                "tells the application, which may end the list"},
    SActionWord{"CloseWindow", &CElement::ProcessAction_CloseWindow, Actions::CWidgetAction::Describe,
                "hides a window; without an id that of the element's own"},
    SActionWord{"SetFlag", &CElement::ProcessAction_SetFlag, Actions::CSetFlag::Describe, "sets a flag"},
    SActionWord{"BringToFront", &CElement::ProcessAction_BringToFront, Actions::CWidgetAction::Describe,
                "puts a widget over its siblings"},
    SActionWord{"SendToBack", &CElement::ProcessAction_SendToBack, Actions::CWidgetAction::Describe,
                "puts a widget under its siblings"},
};

const std::array<SAttribute<CElement::SCommon>, 8> CElement::s_commonRows{
    SAttribute<SCommon>{"id", &SCommon::id, "the name; required"},
    SAttribute<SCommon>{"x", &SCommon::x, "pixels from the parent's left edge; required"},
    SAttribute<SCommon>{"y", &SCommon::y, "pixels from the parent's top edge; required"},
    SAttribute<SCommon>{"width", &SCommon::width, "in pixels", 1},
    SAttribute<SCommon>{"height", &SCommon::height, "in pixels", 1},
    SAttribute<SCommon>{"opacity", &SCommon::opacity, "in percent", 0, 100},
    SAttribute<SCommon>{"visible", &SCommon::visible, "whether it is shown at first"},
    SAttribute<SCommon>{"enabled", &SCommon::enabled, "whether it reacts; of labels and images alone"},
};

bool Actions::CStop::Execute(CElement&)
{
    return false;
}

CElement::CElement() = default;

CElement::~CElement() = default;

void CElement::AddChild(ElementPtr a_child)
{
    m_children.push_back(std::move(a_child));
}

CElement::WidgetPtr CElement::Widget()
{
    return m_widget;
}

bool CElement::ExecuteActions(ActionList a_actions)
{
    const CNested nested;
    bool goesOn = true;
    for (std::size_t i = 0; i < a_actions.size() && goesOn && !s_run.isEndless; ++i)
    {
        if (s_run.depth > SRun::k_deepest || ++s_run.actions > SRun::k_longest)
        {
            Report("The actions of element %s run each other without end", m_common.id);
            s_run.isEndless = true;
        }
        else
        {
            goesOn = a_actions[i]->Execute(*this);
        }
    }
    return goesOn;
}

bool CElement::PreProcess(const XMLNode& a_node)
{
    SCommon common = ReadAttributes(s_commonRows, a_node);
    if (common.id.empty())
    {
        Report("Error processing element node the id was empty.");
        return false;
    }
    if (common.x < 0 || common.y < 0)
    {
        Report("Error processing element %s. The dimensions are invalid.", common.id);
        return false;
    }
    m_common = std::move(common);
    return true;
}

bool CElement::ProcessChild(CElement* a_parent, const XMLNode& a_node)
{
    return StaticSingleton<Managers::CLayoutManager>::ref().ProcessChild(a_parent, a_node);
}

void CElement::Retire()
{
    StaticSingleton<Managers::CWidgetManager>::ref().DeregisterForNonClientHitEvents(Widget());
    for (const ElementPtr& child : m_children)
    {
        if (child)
        {
            child->Retire();
        }
    }
}

std::vector<SAttributeInfo> CElement::Attributes() const
{
    std::vector<SAttributeInfo> list;
    DescribeAttributes(s_commonRows, list);
    return list;
}

std::vector<SEventInfo> CElement::Events() const
{
    return {s_events.begin(), s_events.end()};
}

SNodeInfo CElement::Describe(const std::string& a_word, const std::string& a_description) const
{
    return {a_word, a_description, Attributes(), Events(), Nodes(), false, TakesElements()};
}

SNodeInfo CElement::FontNode()
{
    const auto value = [](const char* a_name, const char* a_description)
    {
        SNodeInfo node{a_name, a_description};
        node.hasText = true;
        return node;
    };
    SNodeInfo font{"Font", "changes the font that theme and configuration give"};
    font.nodes = {
        value("Name", "the family"), value("Size", "in pixels"),
        value("Colour",
              "a named colour, until the theme is next applied, as it is when the widget comes on the screen"),
        value("ThemeColour", "a colour of the theme, or a named one, for good"),
        value("Alignment", "words such as Left, Centre and Middle")};
    return font;
}

std::vector<SActionInfo> CElement::ActionWords()
{
    std::vector<SActionInfo> list;
    for (const SActionWord& row : s_actionWords)
    {
        list.push_back({row.word, row.description, {}});
        if (row.describe != nullptr)
        {
            row.describe(list.back().attributes);
        }
    }
    return list;
}

std::string CElement::TextOf(const XMLNode& a_node)
{
    return Core::Utilities::trim(a_node.Data());
}

void CElement::SetCommon(const std::string& a_id, int a_opacity, bool a_visible)
{
    m_common.id = a_id;
    m_common.opacity = a_opacity;
    m_common.visible = a_visible;
}

void CElement::Attach(CElement* a_parent, const WidgetPtr& a_widget)
{
    m_widget = a_widget;
    a_widget->SetTransparency(m_common.opacity, false);
    PutInto(a_parent);
}

void CElement::AttachEnabled(CElement* a_parent, const WidgetPtr& a_widget)
{
    m_widget = a_widget;
    a_widget->SetTransparency(m_common.opacity, false);
    if (m_common.enabled)
    {
        a_widget->Enable();
    }
    else
    {
        a_widget->Disable();
    }
    PutInto(a_parent);
}

CElement::SWiring& CElement::Wiring()
{
    if (m_wiring == nullptr)
    {
        m_wiring = std::make_unique<SWiring>();
    }
    return *m_wiring;
}

void CElement::PutInto(CElement* a_parent)
{
    const WidgetPtr parent = a_parent != nullptr ? a_parent->Widget() : WidgetPtr();
    if (parent)
    {
        parent->AddChild(m_widget);
    }
}

void CElement::ProcessEventsOf(const XMLNode& a_node)
{
    for (const XMLNode& child : a_node.Children())
    {
        if (child.Name() == "Events")
        {
            ProcessEvents(child);
        }
    }
}

void CElement::ProcessEvents(const XMLNode& a_node)
{
    for (const XMLNode& event : a_node.Children())
    {
        ProcessEvent(event);
    }
}

void CElement::ProcessEvent(const XMLNode& a_node)
{
    const WidgetPtr widget = Widget();
    if (!widget)
    {
        return;
    }
    using Click = Core::Functor<void, Widgets::CWidget*, int, const Common::CPoint&, bool>;
    using Visibility = Core::Functor<bool, Widgets::CWidget*, bool>;
    if (a_node.Name() == "Click")
    {
        Wiring().click = ProcessEventActions(a_node);
        widget->SetClickEventHandler(Keep(new Click::Method<CElement>(this, &CElement::ClickHandler)));
        return;
    }
    const bool isShow = a_node.Name() == "Show";
    if (isShow || a_node.Name() == "Hide")
    {
        (isShow ? Wiring().show : Wiring().hide) = ProcessEventActions(a_node);
        widget->SetVisibilityChangedEventHandler(
            Keep(new Visibility::Method<CElement>(this, &CElement::VisibilityChangedHandler)));
    }
}

CElement::ActionList CElement::ProcessEventActions(const XMLNode& a_node)
{
    ActionList list;
    for (const XMLNode& child : a_node.Children())
    {
        for (const SActionWord& row : s_actionWords)
        {
            if (row.word == child.Name())
            {
                list.push_back((this->*row.make)(child));
                break;
            }
        }
    }
    return list;
}

void CElement::ProcessFont(const XMLNode& a_node, Text::CFontSettings& a_font)
{
    for (const XMLNode& child : a_node.Children())
    {
        const std::string text = TextOf(child);
        if (child.Name() == "Name")
        {
            a_font.name = text;
        }
        else if (child.Name() == "Size")
        {
            a_font.size = Widgets::NumberFromText(text);
        }
        else if (child.Name() == "Colour")
        {
            // Until the style is next read: the name by which the control finds its colour stays.
            a_font.colour = ColourFromString(text);
        }
        else if (child.Name() == "ThemeColour")
        {
            a_font.colourName = text;
            a_font.UpdateStyle();
        }
        else if (child.Name() == "Alignment")
        {
            a_font.alignment = AlignmentFromString(text);
        }
    }
}

CElement::ActionPtr CElement::ProcessAction_ShowMessageBox(const XMLNode& a_node)
{
    std::array<ActionList, Actions::CShowMessageBox::k_buttons> lists;
    for (std::size_t i = 0; i < lists.size(); ++i)
    {
        if (const XMLNode* button = a_node.Child("Button" + std::to_string(i + 1)))
        {
            lists[i] = ProcessEventActions(*button);
        }
    }
    return ActionPtr(new Actions::CShowMessageBox(*this, Actions::CShowMessageBox::Read(a_node), std::move(lists)));
}

CElement::ActionPtr CElement::ProcessAction_ActivateLayout(const XMLNode& a_node)
{
    return ActionPtr(new Actions::CActivateLayout(Actions::CActivateLayout::Read(a_node)));
}

CElement::ActionPtr CElement::ProcessAction_Property(const XMLNode& a_node)
{
    const WidgetPtr own = Widget();
    return ActionPtr(
        new Actions::CProperty(Actions::CProperty::Read(a_node, own ? own->GetName(false) : std::string())));
}

CElement::ActionPtr CElement::ProcessAction_Condition(const XMLNode& a_node)
{
    return ActionPtr(new Actions::CCondition(Actions::CCondition::Read(a_node), ProcessEventActions(a_node)));
}

CElement::ActionPtr CElement::ProcessAction_Stop(const XMLNode&)
{
    return ActionPtr(new Actions::CStop);
}

CElement::ActionPtr CElement::ProcessAction_ToggleVisibility(const XMLNode& a_node)
{
    return ActionPtr(new Actions::CToggleVisibility(Actions::CWidgetAction::Read(a_node)));
}

CElement::ActionPtr CElement::ProcessAction_Notification(const XMLNode& a_node)
{
    return ActionPtr(new Actions::CNotification(Actions::CNotification::Read(a_node, m_common.id)));
}

CElement::ActionPtr CElement::ProcessAction_CloseWindow(const XMLNode& a_node)
{
    return ActionPtr(new Actions::CCloseWindow(Actions::CWidgetAction::Read(a_node, m_common.id)));
}

CElement::ActionPtr CElement::ProcessAction_SetFlag(const XMLNode& a_node)
{
    return ActionPtr(new Actions::CSetFlag(Actions::CSetFlag::Read(a_node, m_common.id)));
}

CElement::ActionPtr CElement::ProcessAction_BringToFront(const XMLNode& a_node)
{
    return ActionPtr(new Actions::CBringToFront(Actions::CWidgetAction::Read(a_node)));
}

CElement::ActionPtr CElement::ProcessAction_SendToBack(const XMLNode& a_node)
{
    return ActionPtr(new Actions::CSendToBack(Actions::CWidgetAction::Read(a_node)));
}

void CElement::ClickHandler(Widgets::CWidget*, int, const Common::CPoint&, bool)
{
    ExecuteActions(Wiring().click);
}

bool CElement::VisibilityChangedHandler(Widgets::CWidget*, bool a_visible)
{
    return ExecuteActions(a_visible ? Wiring().show : Wiring().hide);
}

} // namespace Gfx::Layout
