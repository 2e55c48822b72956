#include "Core/LexicalCast.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

using Core::LexicalCast;

const std::string k_texts[] = {
    "",
    "0",
    "12",
    "12 ",
    " 12",
    "1 2",
    "+5",
    "-5",
    "+-5",
    "-+5",
    "++5",
    "--5",
    "+",
    "-",
    "-0",
    "+0",
    "007",
    "00000000000000000000012",
    "0x10",
    "0b1",
    "1e3",
    "1.5",
    "1,000",
    "12abc",
    "abc",
    "2147483647",
    "2147483648",
    "-2147483648",
    "-2147483649",
    "99999999999999999999999",
    "5\n",
    "\n5",
    "5\t",
    "\v",
    "a\fb",
    "a\rb",
    "Top Left",
    "Top,Left",
    "Gr\u00FC\u00DFe",
    "a\u00A0b",
    "\x85",
    "\xA0",
    std::string("5\0", 2),
    std::string("\0005", 2),
    std::string("a\0b", 3),
};

TEST(LexicalCastTest, TheShortWaysAgreeWithTheStream)
{
    for (const std::string& text : k_texts)
    {
        EXPECT_EQ(LexicalCast<int>(text, -77), (Core::detail::LexicalCastByStream<int>(text, -77)))
            << '"' << text << '"';
        EXPECT_EQ(LexicalCast<std::string>(text, "none"),
                  (Core::detail::LexicalCastByStream<std::string, std::string>(text, "none")))
            << '"' << text << '"';
    }
}

TEST(LexicalCastTest, OnlyAWholeTextConverts)
{
    EXPECT_EQ((LexicalCast<int, std::string>("12", 5)), 12);
    EXPECT_EQ((LexicalCast<int, std::string>("12 ", 5)), 5);
    EXPECT_EQ((LexicalCast<int, std::string>("", 5)), 5);
    EXPECT_EQ((LexicalCast<int, std::string>("0x10", 5)), 5);
    EXPECT_EQ((LexicalCast<int, std::string>("2147483648", 5)), 5);
    EXPECT_EQ((LexicalCast<std::string, std::string>("Top,Left", "none")), "Top,Left");
    EXPECT_EQ((LexicalCast<std::string, std::string>("Top Left", "none")), "none");
    EXPECT_EQ((LexicalCast<float, std::string>("-1.25e2", 5)), -125.0F);
    EXPECT_EQ((LexicalCast<float, std::string>("1.5f", 5)), 5.0F);
    EXPECT_EQ((LexicalCast<float, std::string>(" 1.5", 5)), 5.0F);
}

TEST(LexicalCastTest, OtherTypesGoThroughTheStreamWithItsPrecision)
{
    EXPECT_EQ((LexicalCast<int>("14", 5)), 14);
    EXPECT_EQ((LexicalCast<std::string, int>(-3, "")), "-3");
    EXPECT_EQ((LexicalCast<int, double>(1234567890.0, 5)), 1234567890);
    EXPECT_EQ((LexicalCast<int, double>(12345678901.0, 5)), 5);
}

} // namespace
