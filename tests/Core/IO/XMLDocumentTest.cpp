#include "Core/IO/XMLDocument.h"

#include "support/LogGuard.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace
{

using namespace std::string_view_literals;
using Core::IO::XMLDocument;
using Core::IO::XMLNode;

std::string Nested(int a_depth)
{
    std::string text;
    for (int i = 0; i < a_depth; ++i)
    {
        text += "<a>";
    }
    for (int i = 0; i < a_depth; ++i)
    {
        text += "</a>";
    }
    return text;
}

TEST(XMLDocumentTest, ANodeHasItsTextAttributesAndChildren)
{
    XMLDocument document;
    ASSERT_TRUE(document.ParseText("<?xml version=\"1.0\"?>\n"
                                   "<!-- not a node -->\n"
                                   "<Layouts>\n"
                                   "  <Layout id=\"a\" text=\"x &amp;&#xE4;\">one<!-- no --> <b>inner</b> "
                                   "<![CDATA[<two>]]>&lt;3\r\n</Layout>\n"
                                   "\t<Layout id='b'/><Other> </Other>\n"
                                   "</Layouts>",
                                   "layouts"));
    EXPECT_EQ(document.ErrorText(), "");
    EXPECT_EQ(document.RootNode()->Name(), "");
    ASSERT_EQ(document.RootNode()->Children().size(), 1U);
    const XMLNode* layouts = document.RootNode()->Child("Layouts");
    ASSERT_TRUE(layouts);
    ASSERT_EQ(layouts->Children().size(), 3U);

    const XMLNode* first = layouts->Child("Layout");
    ASSERT_TRUE(first);
    EXPECT_EQ(first->Data(), "one  <two><3\n");
    EXPECT_EQ(first->Attributes(), (XMLNode::AttributeMap{{"id", "a"}, {"text", "x &\u00E4"}}));
    EXPECT_EQ(first->Attribute("id", "none"), "a");
    EXPECT_EQ(first->Attribute("Id", "none"), "none");
    EXPECT_EQ(first->Child("b")->Data(), "inner");
    EXPECT_EQ(first->Child("B"), nullptr);
    EXPECT_EQ(layouts->Child("Other")->Data(), " ");
    EXPECT_EQ(layouts->Children().back().Name(), "Other");
}

TEST(XMLDocumentTest, ANodeKnowsWhereItsTagStarts)
{
    XMLDocument document;
    ASSERT_TRUE(document.ParseText("\xEF\xBB\xBF<a>\r\n\u00E4\u20AC <b x='1\r\n2'\n/><c/>\n  <d/></a>", "name"));
    const XMLNode* a = document.RootNode()->Child("a");
    struct SCase
    {
        const XMLNode* node;
        int line;
        int column;
    };
    for (const SCase& example :
         {SCase{a, 1, 1}, SCase{a->Child("b"), 2, 4}, SCase{a->Child("c"), 4, 3}, SCase{a->Child("d"), 5, 3}})
    {
        ASSERT_TRUE(example.node);
        EXPECT_EQ(example.node->Line(), example.line) << example.node->Name();
        EXPECT_EQ(example.node->Column(), example.column) << example.node->Name();
    }
}

TEST(XMLDocumentTest, NodesThatSayTheSameHaveTheSameHash)
{
    const auto hash = [](const std::string& a_text)
    {
        XMLDocument document;
        EXPECT_TRUE(document.ParseText(a_text, "text"));
        return document.RootNode()->ContentHash();
    };
    const std::vector<std::string> texts{
        "<a><b x='1' y='2'>t</b><b/></a>", "<a><c x='1' y='2'>t</c><b/></a>", "<a><b x='2' y='1'>t</b><b/></a>",
        "<a><b x='1' z='2'>t</b><b/></a>", "<a><b x='1' y='2'>T</b><b/></a>", "<a><b x='1' y='2'>t<b/></b></a>",
        "<a><b/><b x='1' y='2'>t</b></a>", "<a><b x='1'>t</b><b y='2'/></a>",
    };
    std::set<std::size_t> hashes;
    for (const std::string& text : texts)
    {
        hashes.insert(hash(text));
    }
    EXPECT_EQ(hashes.size(), texts.size());
    EXPECT_EQ(hash("<a><b\n  y='2'\n  x='1'>t</b><!-- elsewhere --><b/></a>"), hash(texts[0]));
}

TEST(XMLDocumentTest, FindValueFollowsAPathToItsFirstElement)
{
    XMLDocument document;
    ASSERT_TRUE(document.ParseText("<Gfx><General><ClipText>Yes</ClipText><Empty/></General>"
                                   "<General><ClipText>No</ClipText><TouchArea>8</TouchArea></General></Gfx>",
                                   "config"));
    EXPECT_EQ(document.FindValue("/Gfx/General/ClipText", "d"), "Yes");
    EXPECT_EQ(document.FindValue("Gfx/General/ClipText/", "d"), "Yes");
    EXPECT_EQ(document.FindValue("/Gfx/General/TouchArea", "d"), "8");
    EXPECT_EQ(document.FindValue("/Gfx/General/Empty", "d"), "");
    EXPECT_EQ(document.FindValue("/Gfx/General/Cliptext", "d"), "d");
    EXPECT_EQ(document.FindValue("/General/ClipText", "d"), "d");
    EXPECT_EQ(document.FindValue("/", "d"), "d");
    EXPECT_EQ(document.FindValue("", "d"), "d");
}

TEST(XMLDocumentTest, ACopyOutlivesItsDocument)
{
    XMLNode copy;
    {
        XMLDocument document;
        ASSERT_TRUE(document.ParseText("<a><b><c id='1'>text</c></b></a>", "name"));
        copy = *document.RootNode()->Child("a");
    }
    XMLNode other = copy;
    copy = XMLNode(*copy.Child("b"));
    ASSERT_TRUE(copy.Child("c"));
    EXPECT_EQ(copy.Child("c")->Data(), "text");
    EXPECT_EQ(other.Child("b")->Child("c")->Attribute("id", ""), "1");
}

TEST(XMLDocumentTest, FilesThatCannotBeReadLeaveAnEmptyDocument)
{
    const GfxTest::CTemporaryDirectory directory;
    XMLDocument document;
    ASSERT_TRUE(document.Parse(directory.Write("good.xml", "<a/>")));
    GfxTest::ExpectLog("3 (XMLDocument) : " + directory.Path() + "none.xml: No such file or directory");
    EXPECT_FALSE(document.Parse(directory.Path() + "none.xml"));
    EXPECT_EQ(document.ErrorText(), directory.Path() + "none.xml: No such file or directory");
    EXPECT_TRUE(document.RootNode()->Children().empty());

    GfxTest::ExpectLog(directory.Path() + ": Is a directory");
    EXPECT_FALSE(document.Parse(directory.Path()));

    GfxTest::ExpectLog("empty.xml:1:1: No document element found");
    EXPECT_FALSE(document.Parse(directory.Write("empty.xml", "")));
    EXPECT_EQ(GfxTest::CountLogs("(XMLDocument)"), 3);
}

TEST(XMLDocumentTest, MalformedTextIsReportedWithItsPlace)
{
    struct SCase
    {
        std::string_view text;
        const char* place;
    };
    const SCase cases[] = {
        {"<a>\n  <b></c>\n</a>", "1:2:8: "},
        {"<a>\n<b x=1/></a>", "2:2:6: "},
        {"<a>", "3:1:3: "},
        {"no element", "4:1:11: "},
        {"<a>\n\xE4</a>", "5:2:1: no valid UTF-8 character"},
        {"<a/>\n\u00E4\0<b/>"sv, "6:2:2: no valid UTF-8 character"},
        {"\0"sv, "7:1:1: "},
        {"<a><![CDATA[", "8:1:12: "},
        {"<?xml version='1.0' encoding='no-such'?><a/>", "9: can't be converted from the encoding no-such"},
        {"\xFF\xFE<\0a"sv, "10: can't be converted from the encoding UTF-16LE"},
    };
    int number = 0;
    for (const SCase& example : cases)
    {
        XMLDocument document;
        ASSERT_TRUE(document.ParseText("<before/>", "name"));
        GfxTest::ExpectLog(example.place);
        EXPECT_FALSE(document.ParseText(example.text, std::to_string(++number))) << example.place;
        EXPECT_TRUE(document.ErrorText().starts_with(example.place)) << document.ErrorText();
        EXPECT_TRUE(document.RootNode()->Children().empty());
    }
    EXPECT_EQ(GfxTest::CountLogs("(XMLDocument)"), number);
}

TEST(XMLDocumentTest, OtherEncodingsBecomeUtf8)
{
    const std::string_view texts[] = {
        "<a>\xC3\xA4</a>"sv,
        "\xEF\xBB\xBF<a>\xC3\xA4</a>"sv,
        "\xFF\xFE<\0a\0>\0\xE4\0<\0/\0a\0>\0"sv,
        "\xFE\xFF\0<\0a\0>\0\xE4\0<\0/\0a\0>"sv,
        "<\0a\0>\0\xE4\0<\0/\0a\0>\0"sv,
        "\0\0\xFE\xFF\0\0\0<\0\0\0a\0\0\0>\0\0\0\xE4\0\0\0<\0\0\0/\0\0\0a\0\0\0>"sv,
        "<?xml version='1.0' encoding='utf-8'?><a>\xC3\xA4</a>"sv,
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xE4</a>"sv,
        "<?xml version='1.0' encoding='windows-1252'?><a>\xE4</a>"sv,
    };
    for (const std::string_view text : texts)
    {
        XMLDocument document;
        EXPECT_TRUE(document.ParseText(text, "name"));
        EXPECT_EQ(document.FindValue("/a", ""), "\u00E4");
    }
}

TEST(XMLDocumentTest, ReferencesToNoCharacterGiveValidText)
{
    XMLDocument document;
    ASSERT_TRUE(document.ParseText("<a x='&#xD800;'>1&#xDFFF;2&#x110000;</a>", "name"));
    const std::string data = document.FindValue("/a", "");
    EXPECT_TRUE(data.starts_with("1\uFFFD")) << data;
    EXPECT_EQ(data.find_first_of("\xED\xF4"), std::string::npos) << data;
    EXPECT_EQ(document.RootNode()->Child("a")->Attribute("x", "").find('\xED'), std::string::npos);
}

TEST(XMLDocumentTest, DepthAndSizeAreBounded)
{
    XMLDocument document;
    EXPECT_TRUE(document.ParseText(Nested(256), "deep"));
    GfxTest::ExpectLog("deeper:1:769: elements are nested more than 256 deep");
    EXPECT_FALSE(document.ParseText(Nested(257), "deeper"));
    EXPECT_TRUE(document.RootNode()->Children().empty());
    GfxTest::ExpectLog("deepest:1:769: ");
    EXPECT_FALSE(document.ParseText(Nested(1'000'000), "deepest"));

    GfxTest::ExpectLog("large: larger than 64 MiB");
    EXPECT_FALSE(document.ParseText(std::string((64 << 20) + 1, ' '), "large"));
}

} // namespace
