#include "Core/IO/XMLNode.h"

#include <algorithm>
#include <utility>

namespace Core::IO
{

XMLNode::XMLNode(std::string a_name, std::string a_data, AttributeMap a_attributes, std::list<XMLNode> a_children,
                 int a_line, int a_column)
    : m_name(std::move(a_name))
    , m_data(std::move(a_data))
    , m_attributes(std::move(a_attributes))
    , m_children(std::move(a_children))
    , m_line(a_line)
    , m_column(a_column)
{
}

const XMLNode* XMLNode::Child(const std::string& a_name) const
{
    const auto child = std::find_if(m_children.begin(), m_children.end(),
                                    [&](const XMLNode& a_child) { return a_child.m_name == a_name; });
    return child != m_children.end() ? &*child : nullptr;
}

XMLNode* XMLNode::Child(const std::string& a_name)
{
    return const_cast<XMLNode*>(std::as_const(*this).Child(a_name));
}

std::string XMLNode::Attribute(const std::string& a_name, const std::string& a_fallback) const
{
    const auto attribute = m_attributes.find(a_name);
    return attribute != m_attributes.end() ? attribute->second : a_fallback;
}

bool XMLNode::HasSameContent(const XMLNode& a_other) const
{
    return m_name == a_other.m_name && m_data == a_other.m_data && m_attributes == a_other.m_attributes &&
           std::equal(m_children.begin(), m_children.end(), a_other.m_children.begin(), a_other.m_children.end(),
                      [](const XMLNode& a_left, const XMLNode& a_right) { return a_left.HasSameContent(a_right); });
}

} // namespace Core::IO
