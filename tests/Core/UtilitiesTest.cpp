#include "Core/Utilities.h"

#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

using namespace Core::Utilities;
using Pieces = std::vector<std::string>;

TEST(UtilitiesTest, AFileExistsAndAFolderOrAnEmptyNameDoesNot)
{
    const GfxTest::CTemporaryDirectory directory;
    const std::string path = directory.Write("folder/file.xml", "");
    EXPECT_TRUE(FileExists(path));
    EXPECT_FALSE(FileExists(path + "x"));
    EXPECT_FALSE(FileExists(path + "/below"));
    EXPECT_FALSE(FileExists(directory.Path() + "folder"));
    EXPECT_FALSE(FileExists(""));
}

TEST(UtilitiesTest, SplittingGivesAllPieces)
{
    struct SCase
    {
        const char* text;
        const char* delimiter;
        Pieces pieces;
        Pieces nonEmptyPieces;
    };
    const SCase cases[] = {
        {"a:b", ":", {"a", "b"}, {"a", "b"}},
        {"window:panel:label", ":", {"window", "panel", "label"}, {"window", "panel", "label"}},
        {":a::b:", ":", {"", "a", "", "b", ""}, {"a", "b"}},
        {":", ":", {"", ""}, {}},
        {"a->b", "->", {"a", "b"}, {"a", "b"}},
        {"aaaaa", "aa", {"", "", "a"}, {"a"}},
    };
    for (const SCase& example : cases)
    {
        Pieces pieces = {"old"};
        EXPECT_NE(SplitString(example.text, example.delimiter, pieces, 0), 0) << example.text;
        EXPECT_EQ(pieces, example.pieces) << example.text;
        EXPECT_NE(SplitString(example.text, example.delimiter, pieces, 1), 0) << example.text;
        EXPECT_EQ(pieces, example.nonEmptyPieces) << example.text;
    }
}

TEST(UtilitiesTest, ATextWithoutTheDelimiterIsNotSplit)
{
    Pieces pieces = {"old"};
    EXPECT_EQ(SplitString("abc", ":", pieces, 0), 0);
    EXPECT_EQ(SplitString("", ":", pieces, 0), 0);
    EXPECT_EQ(SplitString("abc", "", pieces, 0), 0);
    EXPECT_EQ(SplitString("a", "a:", pieces, 0), 0);
    EXPECT_EQ(pieces, Pieces{"old"});
}

TEST(UtilitiesTest, APieceCanBeSplitIntoItsOwnVector)
{
    Pieces pieces = {"a>b>c"};
    EXPECT_NE(SplitString(pieces[0], ">", pieces, 0), 0);
    EXPECT_EQ(pieces, (Pieces{"a", "b", "c"}));
}

TEST(UtilitiesTest, LowerCaseAndTrimmingTouchAsciiOnly)
{
    EXPECT_EQ(StringToLower("Less THAN [@] \u00C4\xC0"), "less than [@] \u00C4\xC0");
    EXPECT_EQ(trim(" \t\r\n\v\f a b \n"), "a b");
    EXPECT_EQ(trim("\u00A0a\u0085"), "\u00A0a\u0085");
    EXPECT_EQ(trim(" \n "), "");
    EXPECT_EQ(trim(""), "");
}

} // namespace
