#include <cstdint>
#include <random>

#include <gtest/gtest.h>

#include "EnglishText.h"
#include "Utf8.h"
#include "XmlText.h"

using Estimate::WhyNoXml;

namespace {

/// The production as it is printed.
bool IsCharOfXml(char32_t c) {
    return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) || (c >= 0xE000 && c <= 0xFFFD) ||
           (c >= 0x10000 && c <= 0x10FFFF);
}

char32_t RandomCharacter(std::mt19937& random) {
    const auto between = [&](std::uint32_t first, std::uint32_t last) {
        return static_cast<char32_t>(first + random() % (last - first + 1));
    };
    switch (random() % 8) {
        case 0:
            return between(0, 0x1F);
        case 1:
            return between(0xFFF0, 0x1000F);
        case 2:
            return between(0x10000, 0x10FFFF);
        case 3:
            return between(0x4E00, 0x9FFF);
        case 4:
            return between(0x7E, 0xBE);
        default:
            return between(0x20, 0x7E);
    }
}

void AppendUnits(char32_t character, std::u16string& units) {
    if (character > 0xFFFF) {
        units.push_back(static_cast<char16_t>(0xD7C0 + (character >> 10)));
        character = 0xDC00 | (character & 0x3FF);
    }
    units.push_back(static_cast<char16_t>(character));
}

}  // namespace

TEST(XmlText, Reasons) {
    EXPECT_EQ(WhyNoXml(""), "");
    EXPECT_EQ(WhyNoXml("砖基础 <&>\"' \t\r\n\x7F\xC2\x85"), "");
    EXPECT_EQ(WhyNoXml("a\x01"), "XML can't hold the character U+0001");
    EXPECT_EQ(WhyNoXml(std::string("a\0b", 3)), "XML can't hold the character U+0000");
    EXPECT_EQ(WhyNoXml("砖\x1F"), "XML can't hold the character U+001F");
    EXPECT_EQ(WhyNoXml("\xEF\xBF\xBE"), "XML can't hold the character U+FFFE");
    EXPECT_EQ(WhyNoXml("\xEF\xBF\xBF"), "XML can't hold the character U+FFFF");
    EXPECT_EQ(WhyNoXml("\xF0\x9F\xBF\xBF"), "");  // U+1FFFF is a noncharacter that XML takes
    EXPECT_EQ(WhyNoXml("\xED\xA0\x80"), "the text isn't Unicode");  // half a pair
    EXPECT_EQ(WhyNoXml("\xFF"), "the text isn't Unicode");
}

TEST(XmlText, AsTheProductionSays) {
    std::mt19937 random(41);
    for (int i = 0; i < 1'000'000; ++i) {
        std::u16string units;
        bool good = true;
        for (std::size_t left = random() % 6; left > 0; --left) {
            const char32_t character = RandomCharacter(random);
            good = good && IsCharOfXml(character);
            AppendUnits(character, units);
        }
        ASSERT_EQ(WhyNoXml(Estimate::ToUtf8(CString(units))).empty(), good) << i;
    }
}
