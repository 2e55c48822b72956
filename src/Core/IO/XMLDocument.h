#pragma once

#include "Core/Api.h"
#include "Core/IO/XMLNode.h"

#include <string>
#include <string_view>

namespace Core::IO
{

/// An XML file in memory. Empty until something is parsed, and after a parse that failed.
///
/// Files are read in UTF-8, UTF-16, UTF-32 or the encoding that they declare, as far as iconv knows it; all texts given
/// out are UTF-8. Neither a file beyond 64 MiB nor one with elements nested more than 256 deep is read, so that trees
/// can be walked by recursion.
class GFX_API XMLDocument
{
public:
    XMLDocument() = default;

    /// Reads a file in place of what the document held. On failure there is one log line, with ErrorText.
    [[nodiscard]] bool Parse(const std::string& a_path);

    /// The same from memory. a_name stands for the path in error messages.
    [[nodiscard]] bool ParseText(std::string_view a_text, const std::string& a_name);

    /// The text of the first element that a path such as "/Gfx/General/ClipText" leads to, or a_fallback if it leads
    /// nowhere.
    [[nodiscard]] std::string FindValue(const std::string& a_path, const std::string& a_fallback) const;

    /// Why the last parse failed, "path: reason" or "path:line:column: reason"; empty if it didn't.
    [[nodiscard]] const std::string& ErrorText() const { return m_errorText; }

    /// The nameless node above the root element. Never null.
    [[nodiscard]] XMLNode* RootNode() { return &m_root; }
    [[nodiscard]] const XMLNode* RootNode() const { return &m_root; }

    /// The element that holds what a file is about, by its name: the root element, or else the first of that name
    /// directly below the root element; null if there is none.
    [[nodiscard]] XMLNode* Section(const std::string& a_name);
    [[nodiscard]] const XMLNode* Section(const std::string& a_name) const;

private:
    bool Load(std::string_view a_text, const std::string& a_name);
    bool Report(bool a_success) const;

    XMLNode m_root;
    std::string m_errorText;
};

} // namespace Core::IO
