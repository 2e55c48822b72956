#pragma once

#include "Layout/Actions/Action.h"
#include "Layout/Attribute.h"

#include <string>
#include <vector>

namespace Gfx::Layout::Actions
{

/// Runs a list of its own if a comparison holds.
class GFX_API CCondition : public CAction
{
public:
    /// The attributes of the action's node.
    struct SValues
    {
        std::string type;
        std::string lhs;
        std::string rhs;
    };

    /// An operator word that isn't known is logged, and makes the condition do nothing.
    CCondition(const SValues& a_values, ActionList a_actions);

    /// Whether a_word is one of the operators, in whatever case.
    [[nodiscard]] static bool IsOperator(const std::string& a_word);

    /// The attributes of a node, and the list of what they are.
    [[nodiscard]] static SValues Read(const Core::IO::XMLNode& a_node);
    static void Describe(std::vector<SAttributeInfo>& a_list);

    bool Execute(CElement& a_element) override;

private:
    int m_type;
    std::string m_lhs;
    std::string m_rhs;
    ActionList m_actions;
};

/// Makes a layout's widgets live.
class GFX_API CActivateLayout : public CAction
{
public:
    /// The attributes of the action's node.
    struct SValues
    {
        std::string id;
    };

    explicit CActivateLayout(SValues a_values) : m_values(std::move(a_values)) {}

    /// The attributes of a node, and the list of what they are.
    [[nodiscard]] static SValues Read(const Core::IO::XMLNode& a_node);
    static void Describe(std::vector<SAttributeInfo>& a_list);

    bool Execute(CElement& a_element) override;

private:
    SValues m_values;
};

/// Sets a flag of the layout manager.
class GFX_API CSetFlag : public CAction
{
public:
    /// The attributes of the action's node.
    struct SValues
    {
        std::string id;
        std::string value;
    };

    explicit CSetFlag(SValues a_values) : m_values(std::move(a_values)) {}

    /// What isn't there is a_own, the element's id.
    [[nodiscard]] static SValues Read(const Core::IO::XMLNode& a_node, const std::string& a_own);
    static void Describe(std::vector<SAttributeInfo>& a_list);

    bool Execute(CElement& a_element) override;

private:
    SValues m_values;
};

/// Tells the application; its handler may end the list.
class GFX_API CNotification : public CAction
{
public:
    /// The attributes of the action's node.
    struct SValues
    {
        std::string id;
        std::string parameter;
    };

    explicit CNotification(SValues a_values) : m_values(std::move(a_values)) {}

    /// What isn't there is a_own, the element's id.
    [[nodiscard]] static SValues Read(const Core::IO::XMLNode& a_node, const std::string& a_own);
    static void Describe(std::vector<SAttributeInfo>& a_list);

    bool Execute(CElement& a_element) override;

private:
    SValues m_values;
};

} // namespace Gfx::Layout::Actions
