#pragma once

#include "Core/Api.h"

#include <cstddef>
#include <list>
#include <map>
#include <string>
#include <utility>

namespace Core::IO
{

/// An element of an XML document. A value: a copy has its own whole subtree, and needs the document no longer.
class GFX_API XMLNode
{
public:
    using AttributeMap = std::map<std::string, std::string>;

    XMLNode() = default;
    XMLNode(std::string a_name, std::string a_data, AttributeMap a_attributes, std::list<XMLNode> a_children,
            int a_line = 0, int a_column = 0);

    /// The first child of that name; null if there is none. It belongs to this node.
    [[nodiscard]] const XMLNode* Child(const std::string& a_name) const;
    [[nodiscard]] XMLNode* Child(const std::string& a_name);

    /// The attribute's value, or a_fallback if there is no such attribute.
    [[nodiscard]] std::string Attribute(const std::string& a_name, const std::string& a_fallback) const;

    /// A number that is another one for a node that says anything else, as good as always; where in a file the nodes
    /// lie makes no difference.
    [[nodiscard]] std::size_t ContentHash() const;

    /// The tag.
    [[nodiscard]] const std::string& Name() const { return m_name; }

    /// All text directly in the element, CDATA included, joined in document order, with its white space.
    [[nodiscard]] const std::string& Data() const { return m_data; }

    [[nodiscard]] const AttributeMap& Attributes() const { return m_attributes; }

    /// The child elements in document order.
    [[nodiscard]] const std::list<XMLNode>& Children() const { return m_children; }

    /// The same, taken from the node.
    [[nodiscard]] std::list<XMLNode> TakeChildren() { return std::exchange(m_children, {}); }

    /// Where the start tag lies in its file, from 1, columns in characters; 0 for a node that isn't from a file and for
    /// the document node.
    [[nodiscard]] int Line() const { return m_line; }
    [[nodiscard]] int Column() const { return m_column; }

private:
    std::string m_name;
    std::string m_data;
    AttributeMap m_attributes;
    std::list<XMLNode> m_children;
    int m_line = 0;
    int m_column = 0;
};

} // namespace Core::IO
