// One answer on every system: each test asks a great many questions and expects the digest of all answers,
// which is the same wherever it runs. A system that answers otherwise is wrong in its platform layer, or the
// difference is explained in docs/platforms.md.
#include <bit>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>

#include <gtest/gtest.h>

#include "QsUtils/platform/CodePage.h"
#include "QsUtils/platform/WordCompare.h"
#include "QsUtils/text/CString.h"
#include "QsUtils/text/NumberText.h"
#include "QsUtils/text/Numbers.h"

namespace {

/// The FNV-1a digest, 64 bits (Fowler, Noll, Vo).
class Digest {
public:
    template <typename Unit>
    Digest& operator<<(std::basic_string_view<Unit> text) {
        *this << static_cast<std::uint64_t>(text.size());
        for (const Unit unit : text)
            *this << static_cast<std::uint64_t>(static_cast<std::make_unsigned_t<Unit>>(unit));
        return *this;
    }
    Digest& operator<<(std::u16string_view text) {
        *this << static_cast<std::uint64_t>(text.size());
        for (const char16_t unit : text)
            *this << static_cast<std::uint64_t>(unit);
        return *this;
    }
    Digest& operator<<(std::uint64_t value) {
        for (int byte = 0; byte < 8; ++byte)
            m_value = (m_value ^ (value >> (8 * byte) & 0xFF)) * 0x100000001B3;
        return *this;
    }
    Digest& operator<<(int value) { return *this << static_cast<std::uint64_t>(value); }
    std::uint64_t Value() const { return m_value; }

private:
    std::uint64_t m_value = 0xCBF29CE484222325;
};

/// Random texts from the units of an alphabet, or from all units.
class Texts {
public:
    explicit Texts(std::u16string_view alphabet) : m_alphabet(alphabet) {}

    std::u16string Next(std::size_t longest) {
        std::u16string text(m_random() % (longest + 1), u'\0');
        for (char16_t& unit : text)
            unit = m_alphabet[m_random() % m_alphabet.size()];
        return text;
    }
    std::uint64_t Bits() { return m_random(); }

private:
    std::mt19937_64 m_random{20090};
    std::u16string_view m_alphabet;
};

constexpr std::u16string_view codeUnits = u"0123456789ABCDabcd-.·/ 补换（）()#*+";
constexpr std::u16string_view numberUnits = u"0011223456789..+-eE \t\u3000\u00A0x";

TEST(SameAnswers, EveryUnitInTheCodePage) {
    Digest digest;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const std::u16string text = {static_cast<char16_t>(unit), u'x'};
        digest << std::string_view(QsPlatform::EncodeAnsi(std::u16string_view(text)));
    }
    EXPECT_EQ(digest.Value(), 6559798213501183012U);
}

TEST(SameAnswers, EveryBytePairOfTheCodePage) {
    Digest digest;
    for (unsigned pair = 0; pair <= 0xFFFF; ++pair) {
        const std::string text = {static_cast<char>(pair >> 8), static_cast<char>(pair & 0xFF), 'x'};
        digest << std::u16string_view(QsPlatform::DecodeAnsi(text));
    }
    EXPECT_EQ(digest.Value(), 5409054363346001405U);
}

TEST(SameAnswers, OrderOfCodes) {
    Digest digest;
    Texts texts(codeUnits);
    for (int round = 0; round < 400'000; ++round) {
        const std::u16string a = texts.Next(8);
        std::u16string b = texts.Next(8);
        if (round % 2 == 0)
            b = a + b.substr(0, 1);
        digest << QsPlatform::CompareWords(a, b);
    }
    EXPECT_EQ(digest.Value(), 1259250936035682108U);
}

TEST(SameAnswers, CaseOfEveryUnit) {
    Digest digest;
    for (unsigned unit = 1; unit <= 0xFFFF; ++unit) {
        const CString text(static_cast<char16_t>(unit));
        digest << CString(text).MakeUpper().View() << CString(text).MakeLower().View()
               << text.CompareNoCase(u"q") << text.CompareNoCase(u"_");
    }
    EXPECT_EQ(digest.Value(), 1604918084320397524U);
}

TEST(SameAnswers, WhiteSpace) {
    Digest digest;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        CString text = CString(static_cast<char16_t>(unit)) + u"7";
        digest << QsText::ReadInt(text.View()) << text.Trim().View();
    }
    EXPECT_EQ(digest.Value(), 181452891408633759U);
}

TEST(SameAnswers, ReadingOfNumbers) {
    Digest digest;
    Texts texts(numberUnits);
    for (int round = 0; round < 500'000; ++round) {
        const std::u16string text = texts.Next(14);
        digest << QsText::ReadInt(text) << std::bit_cast<std::uint64_t>(QsText::ReadDouble(text));
    }
    EXPECT_EQ(digest.Value(), 8451447485417726201U);
}

TEST(SameAnswers, PrintingOfNumbers) {
    Digest digest;
    Texts texts(numberUnits);
    for (int round = 0; round < 300'000; ++round) {
        const std::uint64_t bits = texts.Bits();
        const double value = round % 2 == 0
                                 ? std::bit_cast<double>(bits)
                                 : static_cast<double>(static_cast<std::int64_t>(bits) >> 24) / 8000;
        const int decimals = static_cast<int>(texts.Bits() % 9);
        digest << QsText::DoubleToCString(value, decimals, round % 3 == 0).View();
        CString text;
        text.Format(u"%d|%*.*e|%I64d|%g", static_cast<int>(bits), 12, decimals, value, bits, value);
        digest << text.View();
    }
    EXPECT_EQ(digest.Value(), 14560377751989436111U);
}

}  // namespace
