#include "Core/IO/XMLDocument.h"

#include "Core/Logging/Logger.h"

#include <glib.h>
#include <pugixml.hpp>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <list>
#include <memory>
#include <optional>
#include <utility>

namespace Core::IO
{

namespace
{

using namespace std::string_view_literals;

constexpr std::size_t k_largestFile = std::size_t{64} << 20;
constexpr int k_deepestElement = 256;

struct SSignature
{
    std::string_view bytes;
    const char* encoding;
    std::size_t markLength;
};

/// How the first bytes tell an encoding, with or without a byte order mark. The longer ones come first, since those of
/// UTF-16 begin those of UTF-32.
constexpr std::array k_signatures{SSignature{"\x00\x00\xFE\xFF"sv, "UTF-32BE", 4},
                                  SSignature{"\xFF\xFE\x00\x00"sv, "UTF-32LE", 4},
                                  SSignature{"\x00\x00\x00<"sv, "UTF-32BE", 0},
                                  SSignature{"<\x00\x00\x00"sv, "UTF-32LE", 0},
                                  SSignature{"\xFE\xFF"sv, "UTF-16BE", 2},
                                  SSignature{"\xFF\xFE"sv, "UTF-16LE", 2},
                                  SSignature{"\x00<"sv, "UTF-16BE", 0},
                                  SSignature{"<\x00"sv, "UTF-16LE", 0},
                                  SSignature{"\xEF\xBB\xBF"sv, "UTF-8", 3}};

/// The encoding that an XML declaration at the start of a_text names; empty if there is none.
std::string DeclaredEncoding(std::string_view a_text)
{
    if (!a_text.starts_with("<?xml"))
    {
        return {};
    }
    const std::string_view declaration = a_text.substr(0, a_text.find("?>"));
    std::size_t position = declaration.find("encoding");
    position = declaration.find_first_of("\"'", position);
    if (position == std::string_view::npos)
    {
        return {};
    }
    const std::size_t end = declaration.find(declaration[position], position + 1);
    return end != std::string_view::npos ? std::string(declaration.substr(position + 1, end - position - 1)) : "";
}

/// Takes the byte order mark off a_text and tells its encoding.
std::string DetectEncoding(std::string_view& a_text)
{
    for (const SSignature& signature : k_signatures)
    {
        if (a_text.starts_with(signature.bytes))
        {
            a_text.remove_prefix(signature.markLength);
            return signature.encoding;
        }
    }
    const std::string declared = DeclaredEncoding(a_text);
    return declared.empty() ? "UTF-8" : declared;
}

/// a_text in UTF-8; none if it can't be converted. UTF-8 is passed on as it is, be it valid or not.
std::optional<std::string> ToUtf8(std::string_view a_text, const std::string& a_encoding)
{
    if (g_ascii_strcasecmp(a_encoding.c_str(), "UTF-8") == 0)
    {
        return std::string(a_text);
    }
    gsize length = 0;
    const std::unique_ptr<char, decltype(&g_free)> converted(g_convert(a_text.data(),
                                                                       static_cast<gssize>(a_text.size()), "UTF-8",
                                                                       a_encoding.c_str(), nullptr, &length, nullptr),
                                                             g_free);
    return converted ? std::optional<std::string>(std::in_place, converted.get(), length) : std::nullopt;
}

/// Walks through a text and counts its lines and columns.
class CPosition
{
public:
    explicit CPosition(std::string_view a_text) : m_text(a_text) {}

    /// Only ever forwards.
    void MoveTo(std::size_t a_offset)
    {
        for (; m_offset < std::min(a_offset, m_text.size()); ++m_offset)
        {
            const char byte = m_text[m_offset];
            if (byte == '\n')
            {
                ++m_line;
                m_column = 1;
            }
            else if ((static_cast<unsigned char>(byte) & 0xC0) != 0x80)
            {
                ++m_column;
            }
        }
    }

    [[nodiscard]] int Line() const { return m_line; }
    [[nodiscard]] int Column() const { return m_column; }

private:
    std::string_view m_text;
    std::size_t m_offset = 0;
    int m_line = 1;
    int m_column = 1;
};

/// A character reference can name what isn't a character; all else has been looked at before.
std::string ValidText(std::string a_text, bool a_hasReferences)
{
    if (!a_hasReferences || g_utf8_validate(a_text.data(), static_cast<gssize>(a_text.size()), nullptr))
    {
        return a_text;
    }
    const std::unique_ptr<char, decltype(&g_free)> valid(
        g_utf8_make_valid(a_text.data(), static_cast<gssize>(a_text.size())), g_free);
    return valid.get();
}

/// Makes nodes of a_source's child elements. Returns false, with a_position at the element, if one lies too deep.
bool ReadChildren(const pugi::xml_node& a_source, int a_depth, bool a_hasReferences, CPosition& a_position,
                  std::list<XMLNode>& a_children)
{
    // Not by the parser's iterators, each step of which is several calls.
    for (pugi::xml_node source = a_source.first_child(); source; source = source.next_sibling())
    {
        if (source.type() != pugi::node_element)
        {
            continue;
        }
        // The offset is that of the name; the tag begins one before it.
        a_position.MoveTo(static_cast<std::size_t>(source.offset_debug()) - 1);
        if (a_depth > k_deepestElement)
        {
            return false;
        }
        const int line = a_position.Line();
        const int column = a_position.Column();

        std::string data;
        for (pugi::xml_node child = source.first_child(); child; child = child.next_sibling())
        {
            if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            {
                data += child.value();
            }
        }
        XMLNode::AttributeMap attributes;
        for (pugi::xml_attribute attribute = source.first_attribute(); attribute;
             attribute = attribute.next_attribute())
        {
            attributes.emplace(attribute.name(), ValidText(attribute.value(), a_hasReferences));
        }
        std::list<XMLNode> children;
        if (!ReadChildren(source, a_depth + 1, a_hasReferences, a_position, children))
        {
            return false;
        }
        a_children.emplace_back(source.name(), ValidText(std::move(data), a_hasReferences), std::move(attributes),
                                std::move(children), line, column);
    }
    return true;
}

/// Reads a file, at most a little more than k_largestFile. Returns an error number, 0 for success.
int ReadFile(const std::string& a_path, std::string& a_text)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(a_path.c_str(), "rbe"), std::fclose);
    if (!file)
    {
        return errno;
    }
    std::array<char, 16384> block;
    std::size_t size = block.size();
    while (size == block.size() && a_text.size() <= k_largestFile)
    {
        size = std::fread(block.data(), 1, block.size(), file.get());
        a_text.append(block.data(), size);
    }
    return std::ferror(file.get()) ? errno : 0;
}

/// The first element that the rest of a path leads to; null if there is none.
const XMLNode* Find(const XMLNode& a_node, std::string_view a_path)
{
    const std::size_t start = a_path.find_first_not_of('/');
    if (start == std::string_view::npos)
    {
        return &a_node;
    }
    const std::size_t end = std::min(a_path.find('/', start), a_path.size());
    const std::string_view name = a_path.substr(start, end - start);
    for (const XMLNode& child : a_node.Children())
    {
        if (child.Name() == name)
        {
            if (const XMLNode* found = Find(child, a_path.substr(end)))
            {
                return found;
            }
        }
    }
    return nullptr;
}

} // namespace

bool XMLDocument::Parse(const std::string& a_path)
{
    std::string text;
    if (const int error = ReadFile(a_path, text))
    {
        m_root = XMLNode();
        m_errorText = a_path + ": " + std::strerror(error);
        return Report(false);
    }
    return Report(Load(text, a_path));
}

bool XMLDocument::ParseText(std::string_view a_text, const std::string& a_name)
{
    return Report(Load(a_text, a_name));
}

std::string XMLDocument::FindValue(const std::string& a_path, const std::string& a_fallback) const
{
    const XMLNode* node = Find(m_root, a_path);
    return node && node != &m_root ? node->Data() : a_fallback;
}

bool XMLDocument::Load(std::string_view a_text, const std::string& a_name)
{
    m_root = XMLNode();
    m_errorText.clear();
    if (a_text.size() > k_largestFile)
    {
        m_errorText = a_name + ": larger than 64 MiB";
        return false;
    }
    const std::string encoding = DetectEncoding(a_text);
    const std::optional<std::string> text = ToUtf8(a_text, encoding);
    if (!text)
    {
        m_errorText = a_name + ": can't be converted from the encoding " + encoding;
        return false;
    }

    CPosition position(*text);
    const auto fail = [&](const char* a_reason)
    {
        m_errorText =
            a_name + ":" + std::to_string(position.Line()) + ":" + std::to_string(position.Column()) + ": " + a_reason;
        return false;
    };

    // This refuses zero bytes too, at which the parser would stop as if the file ended there.
    const char* invalid = nullptr;
    if (!g_utf8_validate(text->data(), static_cast<gssize>(text->size()), &invalid))
    {
        position.MoveTo(static_cast<std::size_t>(invalid - text->data()));
        return fail("no valid UTF-8 character");
    }

    pugi::xml_document document;
    const pugi::xml_parse_result result = document.load_buffer(
        text->data(), text->size(), pugi::parse_default | pugi::parse_ws_pcdata, pugi::encoding_utf8);
    if (!result)
    {
        position.MoveTo(static_cast<std::size_t>(result.offset));
        return fail(result.description());
    }

    std::list<XMLNode> children;
    const bool hasReferences = text->find("&#") != std::string::npos;
    if (!ReadChildren(document, 1, hasReferences, position, children))
    {
        return fail("elements are nested more than 256 deep");
    }
    m_root = XMLNode({}, {}, {}, std::move(children));
    return true;
}

bool XMLDocument::Report(bool a_success) const
{
    if (!a_success)
    {
        Patterns::StaticSingleton<Logging::CLogger>::ref().Log(Logging::elMessage, "XMLDocument", "%s", m_errorText);
    }
    return a_success;
}

XMLNode* XMLDocument::Section(const std::string& a_name)
{
    return const_cast<XMLNode*>(std::as_const(*this).Section(a_name));
}

const XMLNode* XMLDocument::Section(const std::string& a_name) const
{
    if (const XMLNode* root = m_root.Child(a_name))
    {
        return root;
    }
    for (const XMLNode& root : m_root.Children())
    {
        if (const XMLNode* section = root.Child(a_name))
        {
            return section;
        }
    }
    return nullptr;
}

} // namespace Core::IO
