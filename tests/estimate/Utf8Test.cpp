#include <random>

#include <gtest/gtest.h>

#include "Utf8.h"

using namespace Estimate;

namespace {

/// One character at a time, straight from the table of well-formed sequences.
bool PlainIsUtf8(const std::string& bytes) {
    std::size_t at = 0;
    const auto byte = [&](std::size_t i) {
        return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0u;
    };
    while (at < bytes.size()) {
        const unsigned lead = byte(at);
        const std::size_t length = lead < 0x80 ? 1 : lead < 0xC0 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        if (length == 0 || lead > 0xF7 || at + length > bytes.size())
            return false;
        unsigned value = length == 1 ? lead : lead & (0x7Fu >> length);
        for (std::size_t i = 1; i < length; ++i) {
            if ((byte(at + i) & 0xC0) != 0x80)
                return false;
            value = value << 6 | (byte(at + i) & 0x3F);
        }
        constexpr unsigned least[] = {0, 0, 0x80, 0x800, 0x10000};
        if (value < least[length] || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF))
            return false;
        at += length;
    }
    return true;
}

std::string Encoded(char32_t character) {
    std::u16string units;
    if (character < 0x10000) {
        units.push_back(static_cast<char16_t>(character));
    } else {
        units.push_back(static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)));
        units.push_back(static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF)));
    }
    return ToUtf8(std::u16string_view(units));
}

}  // namespace

TEST(Utf8, EveryCharacterComesBack) {
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        if (character >= 0xD800 && character <= 0xDFFF)
            continue;
        const std::string bytes = Encoded(character);
        ASSERT_TRUE(PlainIsUtf8(bytes)) << static_cast<unsigned>(character);
        ASSERT_TRUE(IsUtf8(bytes)) << static_cast<unsigned>(character);
        std::size_t at = 0;
        ASSERT_TRUE(NextCharacter(bytes, at) == character) << bytes;
        ASSERT_EQ(at, bytes.size());
        ASSERT_EQ(ToUtf8(FromUtf8(bytes)), bytes);
    }
}

TEST(Utf8, MalformedBytesAreFound) {
    for (const char* bytes :
         {"\x80", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
          "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "\xE4\xB8", "a\xE4", "\xE4\xB8\x41"})
        EXPECT_FALSE(IsUtf8(bytes)) << bytes;
}

TEST(Utf8, AgreesWithThePlainCheckOnRandomBytes) {
    std::mt19937 random(7);
    constexpr unsigned char often[] = {0x41, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF,
                                       0xC2, 0xE0, 0xE4, 0xED, 0xF0, 0xF4};
    std::size_t valid = 0;
    for (int i = 0; i < 1'000'000; ++i) {
        std::string bytes(random() % 7, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random() % 8 == 0 ? random() % 256 : often[random() % std::size(often)]);
        ASSERT_EQ(IsUtf8(bytes), PlainIsUtf8(bytes));
        Utf8Check pieces;
        for (const char& byte : bytes)
            pieces.Feed({&byte, 1});
        ASSERT_EQ(pieces.IsValid(), IsUtf8(bytes));
        valid += IsUtf8(bytes) ? 1 : 0;
        ASSERT_TRUE(IsUtf8(ToUtf8(FromUtf8(bytes))));
    }
    EXPECT_GT(valid, 10'000u);
}

TEST(Utf8, LoneSurrogatesBecomeTheReplacementCharacter) {
    EXPECT_EQ(ToUtf8(CString(std::u16string(1, char16_t{0xD800}))), "\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(CString(std::u16string{char16_t{0xDC00}, u'a'})),
              "\xEF\xBF\xBD"
              "a");
    EXPECT_EQ(FromUtf8("a\xFFz"), u"a\uFFFDz");
}
