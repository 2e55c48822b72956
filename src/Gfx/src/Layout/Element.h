#pragma once

#include "Core/Api.h"
#include "Core/IO/XMLNode.h"
#include "Core/SharedPtr.h"
#include "Gfx/Text/FontSettings.h"
#include "Layout/Actions/Action.h"
#include "Layout/Attribute.h"
#include "Widgets/Widget.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Gfx::Layout
{

namespace Actions
{

/// Ends the list, and all lists that it is nested in.
class GFX_API CStop : public CAction
{
public:
    bool Execute(CElement& a_element) override;
};

} // namespace Actions

/// An event of an element in a list of them, for documentation and editors.
struct SEventInfo
{
    std::string_view name;
    std::string_view description;
};

/// An action word in a list of them.
struct SActionInfo
{
    std::string_view name;
    std::string_view description;
    std::vector<SAttributeInfo> attributes;
};

/// A node within an element, or an element itself, in a list of them.
struct SNodeInfo
{
    std::string name;
    std::string description;
    std::vector<SAttributeInfo> attributes = {};
    std::vector<SEventInfo> events = {};
    std::vector<SNodeInfo> nodes = {};
    /// Whether its content is a text.
    bool hasText = false;
    /// Whether elements can stand in it.
    bool takesElements = false;
};

/// What makes one widget of one node of a layout file, and wires the widget's events to lists of actions. It lives as
/// long as its layout, since the widget calls back into it.
///
/// An application adds kinds of elements of its own:
///
/// \code
/// class CLampElement : public Gfx::Layout::CElement
/// {
/// public:
///     CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) override
///     {
///         if (!PreProcess(a_node))
///         {
///             return nullptr;
///         }
///         Attach(a_parent, Hidden(new CLamp(Id(), X(), Y())));
///         ProcessEventsOf(a_node);
///         return this;
///     }
/// };
///
/// Core::Patterns::StaticSingleton<Gfx::Managers::CLayoutManager>::ref().RegisterElementConstructor(
///     "Lamp", new Gfx::Managers::CLayoutManager::ElementConstructor::Function(
///                 &Gfx::Managers::ElementBuilder<CLampElement>));
/// \endcode
///
/// Attributes of all elements: `id`, `x`, `y`, `width`, `height`, `opacity`, `visible`, `enabled`.
class GFX_API CElement
{
public:
    using ElementPtr = Core::SharedPtr<CElement>;
    using WidgetPtr = Core::SharedPtr<Widgets::CWidget>;
    using ActionPtr = Core::SharedPtr<Actions::CAction>;
    using ActionList = Actions::ActionList;

    CElement();
    virtual ~CElement();
    CElement(const CElement&) = delete;
    CElement& operator=(const CElement&) = delete;

    /// Makes the widget of a_node, and puts it into that of a_parent, if there is one; this on success, null on
    /// failure.
    virtual CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) = 0;

    /// Keeps a nested element alive. An empty one stands for a node that has failed.
    virtual void AddChild(ElementPtr a_child);

    /// Empty until Process has made it.
    virtual WidgetPtr Widget();

    /// Runs the actions until one of them returns false; false if one did.
    virtual bool ExecuteActions(ActionList a_actions);

    /// Reads the attributes that all elements have; false, with a log line, if there is no id or no valid place.
    virtual bool PreProcess(const Core::IO::XMLNode& a_node);

    /// Makes a nested element; false if no kind of element has the node's name.
    virtual bool ProcessChild(CElement* a_parent, const Core::IO::XMLNode& a_node);

    /// For the layout manager, when a layout is replaced: the widgets of the element and of those in it hear no more of
    /// touches beside them.
    void Retire();

    /// What a layout file may give the element, for documentation and editors.
    [[nodiscard]] virtual std::vector<SAttributeInfo> Attributes() const;
    [[nodiscard]] virtual std::vector<SEventInfo> Events() const;

    /// What may stand in it beside events and other elements, which TakesElements tells of.
    [[nodiscard]] virtual std::vector<SNodeInfo> Nodes() const { return {}; }
    [[nodiscard]] virtual bool TakesElements() const { return false; }

    /// All of that.
    [[nodiscard]] SNodeInfo Describe(const std::string& a_word, const std::string& a_description) const;

    /// The words of the actions, in the order in which they are looked for.
    [[nodiscard]] static std::vector<SActionInfo> ActionWords();

    /// Takes the events of an "Events" node over. Elements with further events have their own.
    void ProcessEvents(const Core::IO::XMLNode& a_node);

    /// Takes one of the base events over, by the node's name.
    void ProcessEvent(const Core::IO::XMLNode& a_node);

    /// The actions of a node's children. What isn't an action is left out.
    [[nodiscard]] ActionList ProcessEventActions(const Core::IO::XMLNode& a_node);

    /// Changes what a "Font" node gives.
    void ProcessFont(const Core::IO::XMLNode& a_node, Text::CFontSettings& a_font);

    /// One action each, of a node of that name.
    ActionPtr ProcessAction_ShowMessageBox(const Core::IO::XMLNode& a_node);
    ActionPtr ProcessAction_ActivateLayout(const Core::IO::XMLNode& a_node);
    ActionPtr ProcessAction_Property(const Core::IO::XMLNode& a_node);
    ActionPtr ProcessAction_Condition(const Core::IO::XMLNode& a_node);
    ActionPtr ProcessAction_Stop(const Core::IO::XMLNode& a_node);
    ActionPtr ProcessAction_ToggleVisibility(const Core::IO::XMLNode& a_node);
    ActionPtr ProcessAction_Notification(const Core::IO::XMLNode& a_node);
    ActionPtr ProcessAction_CloseWindow(const Core::IO::XMLNode& a_node);
    ActionPtr ProcessAction_SetFlag(const Core::IO::XMLNode& a_node);
    ActionPtr ProcessAction_BringToFront(const Core::IO::XMLNode& a_node);
    ActionPtr ProcessAction_SendToBack(const Core::IO::XMLNode& a_node);

    /// For the widget.
    void ClickHandler(Widgets::CWidget* a_widget, int a_buttons, const Common::CPoint& a_point, bool a_remote);
    bool VisibilityChangedHandler(Widgets::CWidget* a_widget, bool a_visible);

protected:
    [[nodiscard]] const std::string& Id() const { return m_common.id; }
    [[nodiscard]] int X() const { return m_common.x; }
    [[nodiscard]] int Y() const { return m_common.y; }
    [[nodiscard]] int Width() const { return m_common.width; }
    [[nodiscard]] int Height() const { return m_common.height; }
    [[nodiscard]] bool Visible() const { return m_common.visible; }
    [[nodiscard]] bool Enabled() const { return m_common.enabled; }
    [[nodiscard]] int Opacity() const { return m_common.opacity; }

    /// Of the elements with a text.
    [[nodiscard]] static SNodeInfo FontNode();

    /// The text of a "style" attribute that asks for the raised look.
    static constexpr const char* k_raisedStyle = "Up";

    /// The text in a node, without the white space that a file is laid out with.
    [[nodiscard]] static std::string TextOf(const Core::IO::XMLNode& a_node);

    /// For elements that don't call PreProcess.
    void SetCommon(const std::string& a_id, int a_opacity, bool a_visible);

    /// A new widget, hidden if the element isn't visible.
    template <typename WidgetT>
    [[nodiscard]] Core::SharedPtr<WidgetT> Hidden(WidgetT* a_widget) const
    {
        Core::SharedPtr<WidgetT> widget(a_widget);
        if (!m_common.visible)
        {
            widget->Hide();
        }
        return widget;
    }

    void SetWidget(const WidgetPtr& a_widget) { m_widget = a_widget; }

    /// Keeps the widget, gives it its opacity, and puts it into the parent's.
    void Attach(CElement* a_parent, const WidgetPtr& a_widget);

    /// The same, and enables or disables the widget, as few kinds of elements do.
    void AttachEnabled(CElement* a_parent, const WidgetPtr& a_widget);

    /// The base events of a node's "Events" children.
    void ProcessEventsOf(const Core::IO::XMLNode& a_node);

    /// An "Events" node of an element whose widget has one event more: that one's actions go to a_actions, and a_set
    /// gives the widget the element's handler.
    template <typename WidgetT, typename ElementT, typename... ArgumentsT>
    void ProcessEventsAnd(const char* a_own, ActionList& a_actions, const Core::IO::XMLNode& a_node,
                          void (WidgetT::*a_set)(typename Core::Functor<void, ArgumentsT...>::Signature*),
                          void (ElementT::*a_handler)(ArgumentsT...))
    {
        using Handler = typename Core::Functor<void, ArgumentsT...>::template Method<ElementT>;
        // An application's subclass may have no such widget.
        auto* const widget = dynamic_cast<WidgetT*>(Widget().Get());
        for (const Core::IO::XMLNode& event : a_node.Children())
        {
            if (widget != nullptr && event.Name() == a_own)
            {
                a_actions = ProcessEventActions(event);
                (widget->*a_set)(Keep(new Handler(static_cast<ElementT*>(this), a_handler)));
            }
            else
            {
                ProcessEvent(event);
            }
        }
    }

    /// The children of a container: each is an element, but for "Events", which a_processEvents gets.
    template <typename ProcessT>
    void ProcessContent(const Core::IO::XMLNode& a_node, ProcessT a_processEvents)
    {
        for (const Core::IO::XMLNode& child : a_node.Children())
        {
            if (child.Name() == "Events")
            {
                a_processEvents(child);
            }
            else
            {
                ProcessChild(this, child);
            }
        }
    }

    /// A "Font" node over what a widget has.
    template <typename WidgetT>
    void ProcessFontOf(WidgetT& a_widget, const Core::IO::XMLNode& a_node)
    {
        Text::CFontSettings font = a_widget.Font();
        ProcessFont(a_node, font);
        a_widget.Font(font);
    }

    /// The children of an element with a text: "Events" and "Font".
    template <typename WidgetT>
    void ProcessEventsAndFont(WidgetT& a_widget, const Core::IO::XMLNode& a_node)
    {
        for (const Core::IO::XMLNode& child : a_node.Children())
        {
            if (child.Name() == "Events")
            {
                ProcessEvents(child);
            }
            else if (child.Name() == "Font")
            {
                ProcessFontOf(a_widget, child);
            }
        }
    }

    /// Keeps a handler, which a widget has no hold on, for as long as the element lives.
    template <typename HandlerT>
    HandlerT* Keep(HandlerT* a_handler)
    {
        Wiring().handlers.push_back(std::shared_ptr<HandlerT>(a_handler));
        return a_handler;
    }

private:
    struct SCommon
    {
        std::string id;
        int x = -1;
        int y = -1;
        int width = 1;
        int height = 1;
        int opacity = 100;
        bool visible = true;
        bool enabled = true;
    };

    /// What events set off, and the handlers that hear of them. Most elements have none.
    struct SWiring
    {
        ActionList click;
        ActionList show;
        ActionList hide;
        std::vector<std::shared_ptr<void>> handlers;
    };

    struct SActionWord;

    static const std::array<SAttribute<SCommon>, 8> s_commonRows;
    static const std::array<SActionWord, 11> s_actionWords;

    SWiring& Wiring();
    void PutInto(CElement* a_parent);

    SCommon m_common;
    WidgetPtr m_widget;
    std::vector<ElementPtr> m_children;
    std::unique_ptr<SWiring> m_wiring;
};

} // namespace Gfx::Layout
