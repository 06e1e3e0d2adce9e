#include <array>
#include <map>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/platform/CodePage.h"

#include "Fixture.h"

using QsPlatform::AnsiRoundTripLength;
using QsPlatform::DecodeAnsi;
using QsPlatform::DecodeAnsiToWide;
using QsPlatform::EncodeAnsi;
using QsPlatform::IsLeadByte;

namespace {

bool IsTrailByte(unsigned byte) {
    return byte >= 0x40 && byte <= 0xFE && byte != 0x7F;
}

std::string Bytes(std::initializer_list<unsigned> bytes) {
    std::string text;
    for (const unsigned byte : bytes)
        text += static_cast<char>(byte);
    return text;
}

/// What the system answers, unit by unit and byte by byte.
struct Oracle {
    std::map<unsigned, char16_t> singles;
    std::map<unsigned, char16_t> pairs;  // by lead byte and trail byte
    std::vector<std::string> encoded;    // by unit

    Oracle() : encoded(0x10000, "?") {
        for (unsigned unit = 0; unit < 0x80; ++unit)
            Set(static_cast<char16_t>(unit), Bytes({unit}));
        for (const std::string& line : Fixture::Lines("code_page_936.txt"))
            Read(line);
    }

    /// A text byte by byte, the plain way.
    std::u16string Decode(const std::string& bytes) const {
        std::u16string text;
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            const unsigned byte = static_cast<unsigned char>(bytes[i]);
            if (byte < 0x80) {
                text += static_cast<char16_t>(byte);
            } else if (byte == 0x80 || byte == 0xFF) {
                text += singles.at(byte);
            } else if (i + 1 == bytes.size() || bytes[i + 1] == 0) {
                text += u'?';
            } else {
                const auto pair = pairs.find(byte << 8 | static_cast<unsigned char>(bytes[++i]));
                text += pair == pairs.end() ? u'?' : pair->second;
            }
        }
        return text;
    }

    std::string Encode(const std::u16string& text) const {
        std::string bytes;
        for (const char16_t unit : text)
            bytes += encoded[unit];
        return bytes;
    }

private:
    void Set(char16_t unit, const std::string& bytes) { encoded[unit] = bytes; }

    void Read(const std::string& line) {
        const std::size_t first = line.find(' ');
        const std::size_t second = line.find(' ', first + 1);
        const std::string kind = line.substr(0, first);
        const unsigned number = Fixture::Hexadecimal(line.substr(first + 1, second - first - 1));
        const std::string value = line.substr(second + 1);
        if (kind == "single") {
            singles[number] = static_cast<char16_t>(Fixture::Hexadecimal(value));
            Set(singles[number], Bytes({number}));
        } else if (kind == "pairs") {
            ReadPairs(number, value);
        } else {
            const unsigned code = Fixture::Hexadecimal(value);
            Set(static_cast<char16_t>(number), code > 0xFF ? Bytes({code >> 8, code & 0xFF}) : Bytes({code}));
        }
    }

    void ReadPairs(unsigned lead, const std::string& units) {
        std::size_t at = 0;
        for (unsigned trail = 0; trail <= 0xFF; ++trail) {
            if (!IsTrailByte(trail))
                continue;
            const auto unit = static_cast<char16_t>(Fixture::Hexadecimal(units.substr(at, 4)));
            pairs[lead << 8 | trail] = unit;
            Set(unit, Bytes({lead, trail}));
            at += 4;
        }
    }
};

const Oracle& TheOracle() {
    static const Oracle oracle;
    return oracle;
}

}  // namespace

TEST(CodePage, FixtureIsWhole) {
    EXPECT_EQ(TheOracle().singles.size(), 2U);
    EXPECT_EQ(TheOracle().pairs.size(), 126U * 190U);
}

TEST(CodePage, EveryByteAloneDecodesAsTheSystemDoes) {
    for (unsigned byte = 0; byte <= 0xFF; ++byte)
        EXPECT_EQ(DecodeAnsi(Bytes({byte})), TheOracle().Decode(Bytes({byte}))) << byte;
}

TEST(CodePage, EveryBytePairDecodesAsTheSystemDoes) {
    for (unsigned first = 0; first <= 0xFF; ++first)
        for (unsigned second = 0; second <= 0xFF; ++second)
            ASSERT_EQ(DecodeAnsi(Bytes({first, second})), TheOracle().Decode(Bytes({first, second})))
                << first << " " << second;
}

TEST(CodePage, EveryUnitEncodesAsTheSystemDoes) {
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const std::u16string text(1, static_cast<char16_t>(unit));
        ASSERT_EQ(EncodeAnsi(text), TheOracle().Encode(text)) << unit;
    }
}

TEST(CodePage, CellsOutsideOfThePageArePrivateUnits) {
    EXPECT_EQ(DecodeAnsi("\xAA\xA1"), u"\xE000");
    EXPECT_EQ(DecodeAnsi("\xFE\xFE"), TheOracle().Decode("\xFE\xFE"));
    EXPECT_EQ(DecodeAnsi("\xA2\xE3"), u"\xE76C");
    EXPECT_EQ(DecodeAnsi("\xFF"), u"\xF8F5");
    EXPECT_EQ(EncodeAnsi(u"\xE000"), "\xAA\xA1");
    EXPECT_EQ(EncodeAnsi(u"\xF8F5"), "\xFF");
}

TEST(CodePage, EuroSignIsOneByte) {
    EXPECT_EQ(DecodeAnsi("\x80"), u"€");
    EXPECT_EQ(EncodeAnsi(u"€"), "\x80");
}

TEST(CodePage, BestFitIsSilent) {
    EXPECT_EQ(EncodeAnsi(u"m²"), "m2");
    EXPECT_EQ(EncodeAnsi(u"m³"), "m3");
    EXPECT_EQ(EncodeAnsi(u"ª"), "a");
    EXPECT_EQ(EncodeAnsi(u"¥"), "\xA3\xA4");
    EXPECT_EQ(DecodeAnsi(EncodeAnsi(u"¥£¢")), u"￥￡￠");
    EXPECT_EQ(DecodeAnsi(EncodeAnsi(u"É")), u"é");
    EXPECT_EQ(EncodeAnsi(u"\xAD"), "-");
    EXPECT_EQ(EncodeAnsi(u"㎡"), "\xA9\x4F");
    EXPECT_EQ(EncodeAnsi(u"㎥½©•\xA0"), "?????");
}

TEST(CodePage, ASurrogatePairIsTwoMarks) {
    EXPECT_EQ(EncodeAnsi(u"a\xD83D\xDE00z"), "a??z");
    EXPECT_EQ(EncodeAnsi(u"\xD83D"), "?");
    EXPECT_EQ(EncodeAnsi(u"\xDE00"
                         u"b"),
              "?b");
    EXPECT_EQ(EncodeAnsi(std::wstring_view(L"a\U0001F600z")), "a??z");
}

TEST(CodePage, ABrokenPairIsOneMark) {
    EXPECT_EQ(DecodeAnsi("\x81"
                         "0a"),
              u"?a");
    EXPECT_EQ(DecodeAnsi("\x81\x7F"
                         "a"),
              u"?a");
    EXPECT_EQ(DecodeAnsi("\x81\xFF"
                         "a"),
              u"?a");
    EXPECT_EQ(DecodeAnsi("a\x81"), u"a?");
    EXPECT_EQ(DecodeAnsi("\x80\x81"), u"€?");
    EXPECT_EQ(DecodeAnsi("\xFF\x81\x40"), u"\xF8F5\u4E02");
    EXPECT_EQ(DecodeAnsi("\x81\x81\x81"), u"亖?");
    EXPECT_EQ(DecodeAnsi("\x81\x20\x81"), u"??");
}

TEST(CodePage, ANulIsAUnitAndNoTrailByte) {
    using namespace std::string_literals;
    EXPECT_EQ(DecodeAnsi("a\0b"s), u"a\0b"s);
    EXPECT_EQ(DecodeAnsi("\x81\0b"s), u"?\0b"s);
    EXPECT_EQ(EncodeAnsi(u"a\0b"s), "a\0b"s);
}

TEST(CodePage, EmptyStaysEmpty) {
    EXPECT_EQ(DecodeAnsi(""), u"");
    EXPECT_EQ(DecodeAnsiToWide(""), L"");
    EXPECT_EQ(EncodeAnsi(std::u16string_view()), "");
    EXPECT_EQ(EncodeAnsi(std::wstring_view()), "");
    EXPECT_EQ(AnsiRoundTripLength(u""), 0U);
}

TEST(CodePage, LeadBytesAre81ToFE) {
    for (unsigned byte = 0; byte <= 0xFF; ++byte)
        EXPECT_EQ(IsLeadByte(static_cast<unsigned char>(byte)), byte >= 0x81 && byte <= 0xFE) << byte;
}

TEST(CodePage, RandomBytesDecodeAsUnitByUnit) {
    std::mt19937 random(936);
    for (int round = 0; round < 200'000; ++round) {
        std::string bytes(random() % (round % 100 == 0 ? 400 : 12), '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random() % 3 == 0 ? random() % 0x80 : random());
        const std::u16string expected = TheOracle().Decode(bytes);
        ASSERT_EQ(DecodeAnsi(bytes), expected);
        ASSERT_EQ(DecodeAnsiToWide(bytes), std::wstring(expected.begin(), expected.end()));
    }
}

TEST(CodePage, RandomUnitsEncodeAsUnitByUnit) {
    std::mt19937 random(936);
    for (int round = 0; round < 200'000; ++round) {
        std::u16string text(random() % (round % 100 == 0 ? 400 : 12), u'\0');
        for (char16_t& unit : text)
            unit = static_cast<char16_t>(random() % 3 == 0 ? random() % 0x80 : random());
        const std::string expected = TheOracle().Encode(text);
        ASSERT_EQ(EncodeAnsi(text), expected);
        ASSERT_EQ(EncodeAnsi(std::wstring_view(std::wstring(text.begin(), text.end()))), expected);
        ASSERT_EQ(AnsiRoundTripLength(text), DecodeAnsi(expected).size());
    }
}

TEST(CodePage, ManyThreadsGetTheSameAnswer) {
    std::array<std::string, 8> answers;
    std::vector<std::thread> threads;
    for (std::string& answer : answers)
        threads.emplace_back([&answer] { answer = EncodeAnsi(u"现浇混凝土C30"); });
    for (std::thread& thread : threads)
        thread.join();
    for (const std::string& answer : answers)
        EXPECT_EQ(answer, TheOracle().Encode(u"现浇混凝土C30"));
}
