#include "Layout/Actions/FlowActions.h"

#include "Core/Logging/Logger.h"
#include "Core/StaticSingleton.h"
#include "Core/Utilities.h"
#include "Layout/Element.h"
#include "Managers/Layout/LayoutManager.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace Gfx::Layout::Actions
{

using Core::Patterns::StaticSingleton;

namespace
{

constexpr std::array s_conditionRows{
    SAttribute<CCondition::SValues>{"type", &CCondition::SValues::type, "the operator, such as == or less than"},
    SAttribute<CCondition::SValues>{"lhs", &CCondition::SValues::lhs, "the left operand"},
    SAttribute<CCondition::SValues>{"rhs", &CCondition::SValues::rhs, "the right operand"},
};

constexpr std::array s_layoutRows{
    SAttribute<CActivateLayout::SValues>{"id", &CActivateLayout::SValues::id, "the layout to show"},
};

constexpr std::array s_flagRows{
    SAttribute<CSetFlag::SValues>{"id", &CSetFlag::SValues::id, "the flag's name; the element's own id"},
    SAttribute<CSetFlag::SValues>{"value", &CSetFlag::SValues::value, "an operand; the element's own id"},
};

constexpr std::array s_notificationRows{
    SAttribute<CNotification::SValues>{"id", &CNotification::SValues::id,
                                       "the notification's name; the element's own id"},
    SAttribute<CNotification::SValues>{"parameter", &CNotification::SValues::parameter,
                                       "an operand; the element's own id"},
};

enum EComparison
{
    ecEqual = 0,
    ecNotEqual,
    ecLess,
    ecLessOrEqual,
    ecGreater,
    ecGreaterOrEqual,
    ecUnknown
};

constexpr std::array s_words{
    std::pair{"equality", ecEqual},
    std::pair{"equals", ecEqual},
    std::pair{"==", ecEqual},
    std::pair{"inequality", ecNotEqual},
    std::pair{"not equals", ecNotEqual},
    std::pair{"!=", ecNotEqual},
    std::pair{"less than", ecLess},
    std::pair{"<", ecLess},
    std::pair{"less than or equal to", ecLessOrEqual},
    std::pair{"<=", ecLessOrEqual},
    std::pair{"greater than", ecGreater},
    std::pair{">", ecGreater},
    std::pair{"greater than or equal to", ecGreaterOrEqual},
    std::pair{">=", ecGreaterOrEqual},
};

/// ecUnknown for what is no operator.
int ComparisonOf(const std::string& a_word)
{
    const std::string lower = Core::Utilities::StringToLower(a_word);
    const auto found =
        std::find_if(s_words.begin(), s_words.end(), [&lower](const auto& a_entry) { return lower == a_entry.first; });
    return found != s_words.end() ? found->second : ecUnknown;
}

/// As texts for equality, by their leading numbers for order.
bool Holds(int a_comparison, const std::string& a_lhs, const std::string& a_rhs)
{
    const double left = std::strtod(a_lhs.c_str(), nullptr);
    const double right = std::strtod(a_rhs.c_str(), nullptr);
    switch (a_comparison)
    {
    case ecEqual: return a_lhs == a_rhs;
    case ecNotEqual: return a_lhs != a_rhs;
    case ecLess: return left < right;
    case ecLessOrEqual: return left <= right;
    case ecGreater: return left > right;
    case ecGreaterOrEqual: return left >= right;
    default: return false;
    }
}

Managers::CLayoutManager& Layouts()
{
    return StaticSingleton<Managers::CLayoutManager>::ref();
}

} // namespace

CCondition::CCondition(const SValues& a_values, ActionList a_actions)
    : m_type(ComparisonOf(a_values.type)), m_lhs(a_values.lhs), m_rhs(a_values.rhs), m_actions(std::move(a_actions))
{
    if (m_type == ecUnknown)
    {
        StaticSingleton<Core::Logging::CLogger>::ref().Log(Core::Logging::elMessage, "CCondition",
                                                           "Unknown condition type %s", a_values.type);
    }
}

bool CCondition::IsOperator(const std::string& a_word)
{
    return ComparisonOf(a_word) != ecUnknown;
}

CCondition::SValues CCondition::Read(const Core::IO::XMLNode& a_node)
{
    return ReadAttributes(s_conditionRows, a_node);
}

void CCondition::Describe(std::vector<SAttributeInfo>& a_list)
{
    DescribeAttributes(s_conditionRows, a_list);
}

bool CCondition::Execute(CElement& a_element)
{
    const std::string lhs = GetProperty(m_lhs, a_element);
    const std::string rhs = GetProperty(m_rhs, a_element);
    return !Holds(m_type, lhs, rhs) || a_element.ExecuteActions(m_actions);
}

CActivateLayout::SValues CActivateLayout::Read(const Core::IO::XMLNode& a_node)
{
    return ReadAttributes(s_layoutRows, a_node);
}

void CActivateLayout::Describe(std::vector<SAttributeInfo>& a_list)
{
    DescribeAttributes(s_layoutRows, a_list);
}

bool CActivateLayout::Execute(CElement&)
{
    Layouts().ApplyLayout(m_values.id);
    return true;
}

CSetFlag::SValues CSetFlag::Read(const Core::IO::XMLNode& a_node, const std::string& a_own)
{
    return ReadAttributes(s_flagRows, a_node, {a_own, a_own});
}

void CSetFlag::Describe(std::vector<SAttributeInfo>& a_list)
{
    DescribeAttributes(s_flagRows, a_list);
}

bool CSetFlag::Execute(CElement& a_element)
{
    Layouts().SetFlag(m_values.id, GetProperty(m_values.value, a_element));
    return true;
}

CNotification::SValues CNotification::Read(const Core::IO::XMLNode& a_node, const std::string& a_own)
{
    return ReadAttributes(s_notificationRows, a_node, {a_own, a_own});
}

void CNotification::Describe(std::vector<SAttributeInfo>& a_list)
{
    DescribeAttributes(s_notificationRows, a_list);
}

bool CNotification::Execute(CElement& a_element)
{
    return Layouts().PostNotification(m_values.id, GetProperty(m_values.parameter, a_element), a_element.Widget());
}

} // namespace Gfx::Layout::Actions
