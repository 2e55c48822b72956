#pragma once

#include "Layout/Actions/Action.h"
#include "Layout/Attribute.h"

#include <string>
#include <utility>
#include <vector>

namespace Gfx::Layout::Actions
{

/// Sets a property of a widget.
class GFX_API CProperty : public CAction
{
public:
    /// The attributes of the action's node.
    struct SValues
    {
        std::string id;
        std::string name;
        std::string value;
    };

    explicit CProperty(SValues a_values) : m_values(std::move(a_values)) {}

    /// An id that isn't there is a_own, the full name of the element's widget.
    [[nodiscard]] static SValues Read(const Core::IO::XMLNode& a_node, const std::string& a_own);
    static void Describe(std::vector<SAttributeInfo>& a_list);

    bool Execute(CElement& a_element) override;

private:
    SValues m_values;
};

/// An action that has nothing but the name of the widget that it is for.
class GFX_API CWidgetAction : public CAction
{
public:
    explicit CWidgetAction(std::string a_id) : m_id(std::move(a_id)) {}

    /// The attribute "id" of a node, or a_default if it isn't there; and the list of the attributes.
    [[nodiscard]] static std::string Read(const Core::IO::XMLNode& a_node, const std::string& a_default = "");
    static void Describe(std::vector<SAttributeInfo>& a_list);

protected:
    /// The widget, beside the element's own; otherwise empty, with a line on standard error that names a_class.
    [[nodiscard]] Core::SharedPtr<Widgets::CWidget> FindOrReport(CElement& a_element, const char* a_class) const;

    [[nodiscard]] const std::string& Id() const { return m_id; }

private:
    std::string m_id;
};

/// Shows a hidden widget, and hides a visible one.
class GFX_API CToggleVisibility : public CWidgetAction
{
public:
    using CWidgetAction::CWidgetAction;
    bool Execute(CElement& a_element) override;
};

/// Puts a widget over its siblings.
class GFX_API CBringToFront : public CWidgetAction
{
public:
    using CWidgetAction::CWidgetAction;
    bool Execute(CElement& a_element) override;
};

/// Puts a widget under its siblings.
class GFX_API CSendToBack : public CWidgetAction
{
public:
    using CWidgetAction::CWidgetAction;
    bool Execute(CElement& a_element) override;
};

/// Hides a window, wherever it is. Does nothing, silently, if there is none of that name.
class GFX_API CCloseWindow : public CWidgetAction
{
public:
    using CWidgetAction::CWidgetAction;
    bool Execute(CElement& a_element) override;
};

} // namespace Gfx::Layout::Actions
