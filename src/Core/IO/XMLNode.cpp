#include "Core/IO/XMLNode.h"

#include <algorithm>
#include <functional>
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

std::size_t XMLNode::ContentHash() const
{
    std::size_t hash = 0;
    // As Boost's hash_combine does it.
    const auto add = [&hash](std::size_t a_part)
    { hash ^= a_part + 0x9E3779B97F4A7C15U + (hash << 12U) + (hash >> 4U); };
    const auto addText = [&add](const std::string& a_text) { add(std::hash<std::string>()(a_text)); };
    addText(m_name);
    addText(m_data);
    add(m_attributes.size());
    for (const auto& [name, value] : m_attributes)
    {
        addText(name);
        addText(value);
    }
    add(m_children.size());
    for (const XMLNode& child : m_children)
    {
        add(child.ContentHash());
    }
    return hash;
}

} // namespace Core::IO
