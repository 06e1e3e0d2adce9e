#include <gtest/gtest.h>

#include "TextWidth.h"
#include "Utf8.h"

using namespace Estimate;

TEST(TextWidth, ChineseTakesTwoCells) {
    EXPECT_EQ(DisplayWidth("abc"), 3u);
    EXPECT_EQ(DisplayWidth("土方"), 4u);
    EXPECT_EQ(DisplayWidth("C30混凝土"), 9u);
    EXPECT_EQ(DisplayWidth("（元）、。"), 10u);
    EXPECT_EQ(DisplayWidth("m²"), 2u);
    EXPECT_EQ(DisplayWidth("㎡"), 2u);
    EXPECT_EQ(DisplayWidth("𠀀"), 2u);
    EXPECT_EQ(DisplayWidth("e\u0301"), 1u);
    EXPECT_EQ(DisplayWidth("\uFEFFa\u200B\x01"), 1u);
    EXPECT_EQ(DisplayWidth(""), 0u);
}

TEST(TextWidth, Padding) {
    EXPECT_EQ(Padded("土", 4), "土  ");
    EXPECT_EQ(Padded("土", 4, Align::Right), "  土");
    EXPECT_EQ(Padded("土方", 3), "土方");
}

TEST(TextWidth, Shortening) {
    EXPECT_EQ(Shortened("加气混凝土砌块墙", 16), "加气混凝土砌块墙");
    EXPECT_EQ(Shortened("加气混凝土砌块墙", 15), "加气混凝土砌..");
    EXPECT_EQ(Shortened("加气混凝土砌块墙", 14), "加气混凝土砌..");
    EXPECT_EQ(Shortened("加气混凝土砌块墙", 13), "加气混凝土..");
    EXPECT_EQ(Shortened("a\nb\tc\x7F", 10), "a b c ");
    EXPECT_EQ(Shortened("abcdef", 2), "..");
    for (std::size_t width = 2; width < 40; ++width) {
        const std::string text = Shortened("墙a面b一c般d抹灰，外墙 20mm 厚水泥砂浆", width);
        EXPECT_LE(DisplayWidth(text), width);
        EXPECT_TRUE(IsUtf8(text));
    }
}
