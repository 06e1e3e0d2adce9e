// Formatting by the rules of printf.
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/text/CString.h"

namespace {

template <typename... Arguments>
CString Formatted(const CString& format, const Arguments&... arguments) {
    CString text = u"before";
    text.Format(format, arguments...);
    return text;
}

/// Whether the format is refused and the text left as it was.
template <typename... Arguments>
bool IsRefused(const CString& format, const Arguments&... arguments) {
    CString text = u"before";
    try {
        text.Format(format, arguments...);
    } catch (const CAtlException& error) {
        return error.m_hr == CAtlException::InvalidArgument && text == u"before";
    }
    return false;
}

TEST(CStringFormat, WritesTextsOfAllKinds) {
    EXPECT_EQ(Formatted(u"%s", CString(u"砖")), u"砖");
    EXPECT_EQ(Formatted(u"%s", u"砖"), u"砖");
    EXPECT_EQ(Formatted(u"%s", L"砖"), u"砖");
    EXPECT_EQ(Formatted(u"%s", "\xD7\xA9"), u"砖");
    EXPECT_EQ(Formatted(u"%s", std::wstring(L"砖")), u"砖");
    EXPECT_EQ(Formatted(u"%s", std::u16string(u"砖")), u"砖");
    EXPECT_EQ(Formatted(u"%s", std::u16string_view(u"砖")), u"砖");
    EXPECT_EQ(Formatted(u"%s", CString(u"砖").GetString()), u"砖");
    EXPECT_EQ(Formatted(L"%s=%d", L"a", 1), u"a=1");
    EXPECT_EQ(Formatted(u"%ls %hs %ls", L"a", "b", u"c"), u"a b c");
    EXPECT_EQ(Formatted(u"%s", CString(u"a\0b", 3)).GetLength(), 3);
    EXPECT_EQ(Formatted(CString(u"a\0%d", 4), 5), CString(u"a\0005", 3));
}

TEST(CStringFormat, NullTextsAreEmpty) {
    EXPECT_EQ(Formatted(u"<%s>", static_cast<const char16_t*>(nullptr)), u"<>");
    EXPECT_EQ(Formatted(u"<%s>", static_cast<const wchar_t*>(nullptr)), u"<>");
    EXPECT_EQ(Formatted(u"<%s>", static_cast<const char*>(nullptr)), u"<>");
    EXPECT_EQ(Formatted(u"<%s>", nullptr), u"<>");
}

TEST(CStringFormat, FitsTextsIntoFields) {
    EXPECT_EQ(Formatted(u"<%5s>", u"ab"), u"<   ab>");
    EXPECT_EQ(Formatted(u"<%-5s>", u"ab"), u"<ab   >");
    EXPECT_EQ(Formatted(u"<%1s>", u"ab"), u"<ab>");
    EXPECT_EQ(Formatted(u"<%.1s>", u"ab"), u"<a>");
    EXPECT_EQ(Formatted(u"<%.s>", u"ab"), u"<>");
    EXPECT_EQ(Formatted(u"<%*s>", 4, u"ab"), u"<  ab>");
    EXPECT_EQ(Formatted(u"<%*s>", -4, u"ab"), u"<ab  >");
    EXPECT_EQ(Formatted(u"<%.*s>", 1, u"ab"), u"<a>");
    EXPECT_EQ(Formatted(u"<%.*s>", -1, u"ab"), u"<ab>");
    EXPECT_EQ(Formatted(u"<%*.*s>", 3, 1, u"ab"), u"<  a>");
    EXPECT_EQ(Formatted(u"<%4s>", u"砖墙"), u"<  砖墙>");
    EXPECT_EQ(Formatted(u"<%05s>", u"ab"), u"<   ab>");
}

TEST(CStringFormat, WritesCharacters) {
    EXPECT_EQ(Formatted(u"%c%c%c", u'a', L'砖', 'c'), u"a砖c");
    EXPECT_EQ(Formatted(u"%c", 0x7816), u"砖");
    EXPECT_EQ(Formatted(u"<%3c|%-3c>", u'a', u'b'), u"<  a|b  >");
    EXPECT_EQ(Formatted(u"<%c>", u'\0').GetLength(), 3);
    EXPECT_EQ(Formatted(u"%d", u'a'), u"97");
    if constexpr (sizeof(wchar_t) == 4) {
        EXPECT_EQ(Formatted(u"%c", static_cast<wchar_t>(0x1F3E0)), u"\U0001F3E0");
    }
}

TEST(CStringFormat, WritesIntegers) {
    EXPECT_EQ(Formatted(u"%d %i %u", -1, INT_MIN, UINT_MAX), u"-1 -2147483648 4294967295");
    EXPECT_EQ(Formatted(u"%x %X %o", 255, 255, 8), u"ff FF 10");
    EXPECT_EQ(Formatted(u"%#x %#o %#x", 255, 8, 0), u"0xff 010 0");
    EXPECT_EQ(Formatted(u"%u %x", -1, -1), u"4294967295 ffffffff");
    EXPECT_EQ(Formatted(u"%d", UINT_MAX), u"-1");
    EXPECT_EQ(Formatted(u"%I64d %lld %ld %I32d", LLONG_MIN, LLONG_MAX, 5L, 7),
              u"-9223372036854775808 9223372036854775807 5 7");
    EXPECT_EQ(Formatted(u"%I64u %llx", ULLONG_MAX, -1LL), u"18446744073709551615 ffffffffffffffff");
    EXPECT_EQ(Formatted(u"%d", LLONG_MAX), u"9223372036854775807");
    EXPECT_EQ(Formatted(u"%hd %hu %hx", 70000, -1, 0x12345), u"4464 65535 2345");
    EXPECT_EQ(Formatted(u"%+d % d %05d %-5d| %5d %.3d %8.3d", 1, 2, 3, 4, 5, 6, 7),
              u"+1  2 00003 4    |     5 006      007");
    EXPECT_EQ(Formatted(u"<%.0d|%+.0d|% 4.0d|%.0x|%#.0o>", 0, 0, 0, 0, 0), u"<|+|    ||0>");
    EXPECT_EQ(Formatted(u"%+u % x", 1, 2), u"1 2");
    EXPECT_EQ(Formatted(u"%d %d", true, static_cast<short>(-3)), u"1 -3");
    enum Plain { Two = 2 };
    enum class Scoped : long long { Big = 1LL << 40 };
    EXPECT_EQ(Formatted(u"%d %d", Two, Scoped::Big), u"2 1099511627776");
}

TEST(CStringFormat, WritesDoubles) {
    EXPECT_EQ(Formatted(u"%f %.2f %.0f", 1.5, 2.675, 2.5), u"1.500000 2.67 2");
    EXPECT_EQ(Formatted(u"%.2f %.1f %.0f", 0.125, 0.25, 0.5), u"0.12 0.2 0");
    EXPECT_EQ(Formatted(u"%.2f", -0.0), u"-0.00");
    EXPECT_EQ(Formatted(u"%e %E %g %G", 12345.678, 0.0, 1e-5, 1e20),
              u"1.234568e+04 0.000000E+00 1e-05 1E+20");
    EXPECT_EQ(Formatted(u"%08.2f|%+.1f|% .1f|%-8.1f|%*.*f", 3.14159, 1.0, 1.0, 1.0, 7, 3, 2.0),
              u"00003.14|+1.0| 1.0|1.0     |  2.000");
    EXPECT_EQ(Formatted(u"%f %F", 1.5f, 1.5L), u"1.500000 1.500000");
    EXPECT_EQ(Formatted(u"%lf", 1.0), u"1.000000");
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Formatted(u"%f %F %f", Infinity, -Infinity, std::nan("")), u"inf -INF nan");
    EXPECT_EQ(Formatted(u"<%6f|%06f>", Infinity, Infinity), u"<   inf|   inf>");
}

TEST(CStringFormat, WritesPointers) {
    int object = 0;
    const CString text = Formatted(u"%p", &object);
    EXPECT_EQ(text.Left(2), u"0x");
    EXPECT_EQ(std::stoull(std::string(text.View().begin(), text.View().end()), nullptr, 16),
              reinterpret_cast<std::uintptr_t>(&object));
    const CString other = u"x";
    EXPECT_EQ(Formatted(u"%p", other.GetString()),
              Formatted(u"%p", static_cast<const void*>(other.GetString())));
    EXPECT_EQ(Formatted(u"%p", L"x").Left(2), u"0x");
    EXPECT_EQ(Formatted(u"%p", nullptr), Formatted(u"%p", static_cast<void*>(nullptr)));
}

TEST(CStringFormat, TakesPercentsAndLeftoverArguments) {
    EXPECT_EQ(Formatted(u"100%%"), u"100%");
    EXPECT_EQ(Formatted(u"%%d %d", 1), u"%d 1");
    EXPECT_EQ(Formatted(u""), u"");
    EXPECT_EQ(Formatted(u"no fields", 1, u"x"), u"no fields");
    EXPECT_EQ(Formatted(u"{} {0}"), u"{} {0}");
}

TEST(CStringFormat, RefusesWhatDoesNotFit) {
    EXPECT_TRUE(IsRefused(u"%"));
    EXPECT_TRUE(IsRefused(u"a%", 1));
    EXPECT_TRUE(IsRefused(u"%d"));
    EXPECT_TRUE(IsRefused(u"%d %d", 1));
    EXPECT_TRUE(IsRefused(u"%5", 1));
    EXPECT_TRUE(IsRefused(u"%-", 1));
    EXPECT_TRUE(IsRefused(u"%.", 1));
    EXPECT_TRUE(IsRefused(u"%l", 1));
    EXPECT_TRUE(IsRefused(u"%I64", 1));
    EXPECT_TRUE(IsRefused(u"%y", 1));
    EXPECT_TRUE(IsRefused(u"%n", 1));
    EXPECT_TRUE(IsRefused(u"%5%", 1));
    EXPECT_TRUE(IsRefused(u"%1$d", 1));
    EXPECT_TRUE(IsRefused(u"%\u0164", 1));  // its low byte is that of "d"
    EXPECT_TRUE(IsRefused(u"%d", 1.0));
    EXPECT_TRUE(IsRefused(u"%d", u"x"));
    EXPECT_TRUE(IsRefused(u"%f", 1));
    EXPECT_TRUE(IsRefused(u"%f", u"x"));
    EXPECT_TRUE(IsRefused(u"%s", 1));
    EXPECT_TRUE(IsRefused(u"%s", 1.0));
    EXPECT_TRUE(IsRefused(u"%s", u'x'));
    EXPECT_TRUE(IsRefused(u"%c", u"x"));
    EXPECT_TRUE(IsRefused(u"%x", static_cast<const void*>(u"x")));
    EXPECT_TRUE(IsRefused(u"%s", static_cast<const void*>(u"x")));
    EXPECT_TRUE(IsRefused(u"%p", 1));
    EXPECT_TRUE(IsRefused(u"%*d", u"x", 1));
    EXPECT_TRUE(IsRefused(u"%*d", 1));
    EXPECT_TRUE(IsRefused(u"%*d", 1.0, 1));
    EXPECT_TRUE(IsRefused(u"%.-1d", 1));
}

TEST(CStringFormat, RefusesFieldsBeyondAMillion) {
    EXPECT_TRUE(IsRefused(u"%1000001d", 1));
    EXPECT_TRUE(IsRefused(u"%99999999999999999999d", 1));
    EXPECT_TRUE(IsRefused(u"%.1000001f", 1.0));
    EXPECT_TRUE(IsRefused(u"%*d", INT_MIN, 1));
    EXPECT_TRUE(IsRefused(u"%*d", INT_MAX, 1));
    EXPECT_TRUE(IsRefused(u"%.*f", LLONG_MIN, 1.0));
    EXPECT_TRUE(IsRefused(u"%*d", ULLONG_MAX - 1'000'001, 1));
    EXPECT_EQ(Formatted(u"%1000000d", 1).GetLength(), 1'000'000);
    EXPECT_EQ(Formatted(u"%.1000000d", 1).GetLength(), 1'000'000);
    EXPECT_EQ(Formatted(u"%.1000000f", 0.1).GetLength(), 1'000'002);
}

TEST(CStringFormat, TheTextItselfMayBeAmongTheArguments) {
    CString text = u"a text that is longer than seven units";
    text.Format(u"<%s|%s>", text, text.GetString());
    EXPECT_EQ(text, u"<a text that is longer than seven units|a text that is longer than seven units>");
    text = u"ab";
    text.Format(u"%s%s", text, text);
    EXPECT_EQ(text, u"abab");
    text = u"%d";
    text.Format(text, 5);
    EXPECT_EQ(text, u"5");
    text.AppendFormat(u"-%s", text);
    EXPECT_EQ(text, u"5-5");
    EXPECT_THROW(text.AppendFormat(u"%d", u"x"), CAtlException);
    EXPECT_EQ(text, u"5-5");
}

std::u16string Widened(std::string_view text) {
    return {text.begin(), text.end()};
}

bool RuntimeFollowsTheStandard() {
    // Texts, so that the compiler doesn't find fault with the formats.
    const std::string unsignedWithBlank = "% u";
    const std::string octalWithoutDigits = "%#.0o";
    char text[8];
    std::snprintf(text, sizeof text, unsignedWithBlank.c_str(), 1U);
    if (std::string_view(text) != "1")
        return false;
    std::snprintf(text, sizeof text, octalWithoutDigits.c_str(), 0U);
    return std::string_view(text) == "0";
}

/// The runtime's formatter as peer: the tests run in the "C" locale.
TEST(CStringFormat, AgreesWithTheRuntimeOnRandomNumberFormats) {
    if (!RuntimeFollowsTheStandard())
        GTEST_SKIP()
            << "mingw's formatter puts blanks before unsigned numbers and no digit for \"%#.0o\" of 0";
    std::mt19937_64 random(20);
    const auto pick = [&random](std::size_t count) { return random() % count; };
    for (int round = 0; round < 1'000'000; ++round) {
        std::string spec = "%";
        for (const char flag : {'-', '+', ' ', '#', '0'})
            if (pick(4) == 0)
                spec += flag;
        if (pick(2) == 0)
            spec += std::to_string(pick(25));
        if (pick(2) == 0)
            spec += "." + std::to_string(pick(20));
        const bool real = pick(2) == 0;
        const char type = real ? "fFeEgG"[pick(6)] : "diuxXo"[pick(6)];
        char expected[512];
        CString text;
        if (real) {
            double value = static_cast<double>(static_cast<std::int64_t>(random() >> pick(64))) /
                           std::pow(10.0, pick(12));
            if (pick(20) == 0)
                value = pick(2) == 0 ? 0.0 : -0.0;
            if (pick(50) == 0)
                value = std::numeric_limits<double>::infinity();
            std::snprintf(expected, sizeof expected, (spec + type).c_str(), value);
            text.Format(CString(Widened(spec + type)), value);
        } else {
            const auto value = static_cast<long long>(random()) >> pick(64);
            std::snprintf(expected, sizeof expected, (spec + "ll" + type).c_str(), value);
            text.Format(CString(Widened(spec + "I64" + type)), value);
        }
        ASSERT_EQ(text.View(), Widened(expected)) << spec << type;
    }
}

/// Exact rounding, also of ties, over the whole range of double.
TEST(CStringFormat, RoundsAsTheStandardSays) {
    std::mt19937_64 random(754);
    for (int round = 0; round < 1'000'000; ++round) {
        double value = 0;
        if (round % 3 == 0)  // a tie at some decimal
            value = std::ldexp(static_cast<double>(random() >> 40) + 0.5, -static_cast<int>(random() % 30));
        else if (round % 3 == 1)
            value = static_cast<double>(random() % 100'000'000) / 1000.0 + 0.0005;
        else
            value = std::bit_cast<double>(random());
        if (!std::isfinite(value))
            continue;
        const int precision = static_cast<int>(random() % 20);
        char expected[400];
        const auto end =
            std::to_chars(expected, expected + sizeof expected, value, std::chars_format::fixed, precision);
        CString text;
        text.Format(u"%.*f", precision, value);
        ASSERT_EQ(text.View(), Widened({expected, end.ptr})) << value << " " << precision;
    }
}

}  // namespace
