// Changes of a text in place, and joining.
#include <climits>
#include <random>

#include <gtest/gtest.h>

#include "QsUtils/text/CString.h"

namespace {

TEST(CStringEdit, Deletes) {
    CString text = u"abcdef";
    EXPECT_EQ(text.Delete(1), 5);
    EXPECT_EQ(text, u"acdef");
    EXPECT_EQ(text.Delete(1, 2), 3);
    EXPECT_EQ(text, u"aef");
    EXPECT_EQ(text.Delete(1, -2), 3);
    EXPECT_EQ(text.Delete(3, 1), 3);
    EXPECT_EQ(text.Delete(INT_MAX, INT_MAX), 3);
    EXPECT_EQ(text.Delete(2, INT_MAX), 2);
    EXPECT_EQ(text, u"ae");
    EXPECT_EQ(text.Delete(-5, 1), 1);
    EXPECT_EQ(text, u"e");
    EXPECT_EQ(text.Delete(0, 5), 0);
    EXPECT_EQ(text.Delete(0), 0);
}

TEST(CStringEdit, Inserts) {
    CString text = u"ad";
    EXPECT_EQ(text.Insert(1, u"bc"), 4);
    EXPECT_EQ(text, u"abcd");
    EXPECT_EQ(text.Insert(-3, L"<"), 5);
    EXPECT_EQ(text.Insert(99, u'>'), 6);
    EXPECT_EQ(text.Insert(1, '('), 7);
    EXPECT_EQ(text.Insert(INT_MAX, L'!'), 8);
    EXPECT_EQ(text, u"<(abcd>!");
    EXPECT_EQ(text.Insert(3, u""), 8);
    CString self = u"abcdefghij";
    EXPECT_EQ(self.Insert(1, self), 20);
    EXPECT_EQ(self, u"aabcdefghijbcdefghij");
    CString brief = u"ab";
    brief.Insert(1, brief);
    EXPECT_EQ(brief, u"aabb");
}

TEST(CStringEdit, Replaces) {
    CString text = u"aaaa";
    EXPECT_EQ(text.Replace(u"aa", u"b"), 2);
    EXPECT_EQ(text, u"bb");
    EXPECT_EQ(text.Replace(u"x", u"y"), 0);
    EXPECT_EQ(text.Replace(u"", u"y"), 0);
    EXPECT_EQ(text.Replace(u"b", u"bb"), 2);
    EXPECT_EQ(text, u"bbbb");
    EXPECT_EQ(text.Replace(u'b', u'c'), 4);
    EXPECT_EQ(text.Replace(L'c', L'd'), 4);
    EXPECT_EQ(text.Replace('d', 'd'), 0);
    EXPECT_EQ(text, u"dddd");
    EXPECT_EQ(text.Replace(text, text), 1);
    EXPECT_EQ(text, u"dddd");
    EXPECT_EQ(text.Replace(text, u"e"), 1);
    EXPECT_EQ(text.Replace(u"e", text), 1);
    EXPECT_EQ(text, u"e");
    EXPECT_EQ(text.Replace(u"e", u""), 1);
    EXPECT_EQ(text.Replace(u"e", u"x"), 0);
    CString nuls(u"a\0b\0", 4);
    EXPECT_EQ(nuls.Replace(u'\0', u'-'), 2);
    EXPECT_EQ(nuls, u"a-b-");
}

TEST(CStringEdit, Removes) {
    CString text = u"abacad";
    EXPECT_EQ(text.Remove(u'a'), 3);
    EXPECT_EQ(text, u"bcd");
    EXPECT_EQ(text.Remove('x'), 0);
    EXPECT_EQ(text.Remove(L'B'), 0);
    EXPECT_EQ(text.Remove(L'b'), 1);
    EXPECT_EQ(text, u"cd");
}

TEST(CStringEdit, FoldsOnlyAsciiLetters) {
    CString text = u"aZ@[`{éÉ墙";
    EXPECT_EQ(text.MakeUpper(), u"AZ@[`{éÉ墙");
    EXPECT_EQ(text.MakeLower(), u"az@[`{éÉ墙");
    EXPECT_EQ(CString(u"abc").MakeReverse(), u"cba");
    EXPECT_EQ(CString().MakeReverse(), u"");
}

TEST(CStringEdit, TrimsWhiteSpaceOfTheRuntime) {
    const std::u16string spaces = u"\t\n\v\f\r \u00A0\u1680\u2000\u2005\u200A\u2028\u2029\u202F\u205F\u3000";
    EXPECT_EQ(CString(spaces + u"a b" + spaces).Trim(), u"a b");
    EXPECT_EQ(CString(spaces + u"a").TrimLeft(), u"a");
    EXPECT_EQ(CString(u"a" + spaces).TrimRight(), u"a");
    EXPECT_EQ(CString(spaces).Trim(), u"");
    EXPECT_EQ(CString(spaces).TrimLeft(), u"");
    EXPECT_EQ(CString(spaces).TrimRight(), u"");
    for (const char16_t other : std::u16string(u"\x85\uFEFF\u200B\b\xE\x1C\x1F\u180E\u2027\u202A\u3001"))
        EXPECT_EQ(CString(other).Trim().GetLength(), 1) << static_cast<int>(other);
}

TEST(CStringEdit, TrimsSets) {
    EXPECT_EQ(CString(u"xyaxy").Trim(u"xy"), u"a");
    EXPECT_EQ(CString(u"xyaxy").TrimLeft(u"xy"), u"axy");
    EXPECT_EQ(CString(u"xyaxy").TrimRight(L"xy"), u"xya");
    EXPECT_EQ(CString(u"  a ").Trim(u""), u"  a ");
    EXPECT_EQ(CString(u"  a ").TrimLeft(u""), u"  a ");
    EXPECT_EQ(CString(u"  a ").TrimRight(u""), u"  a ");
    EXPECT_EQ(CString(u"007").TrimLeft(u'0'), u"7");
    EXPECT_EQ(CString(u"700").TrimRight('0'), u"7");
    EXPECT_EQ(CString(u"070").Trim(L'0'), u"7");
    EXPECT_EQ(CString(u"xyx").Trim(u"xy"), u"");
    CString self = u"ab";
    EXPECT_EQ(self.Trim(self), u"");
}

TEST(CStringEdit, Appends) {
    CString text = u"a";
    text += u"b";
    text += L"c";
    text += "d";
    text += CString(u"e");
    text += u'f';
    text += L'g';
    text += 'h';
    text.Append(u"ij");
    text.Append(CString(u"klm"), 2);
    text.AppendChar(u'm');
    text += static_cast<const char16_t*>(nullptr);
    text += static_cast<const wchar_t*>(nullptr);
    EXPECT_EQ(text, u"abcdefghijklm");
    text += text;
    EXPECT_EQ(text, u"abcdefghijklmabcdefghijklm");
    text += text.GetString() + 20;
    EXPECT_EQ(text, u"abcdefghijklmabcdefghijklmhijklm");
    text.Append(text);
    EXPECT_EQ(text.GetLength(), 64);
}

TEST(CStringEdit, Joins) {
    const CString a = u"a";
    EXPECT_EQ(a + a, u"aa");
    EXPECT_EQ(a + u"b", u"ab");
    EXPECT_EQ(u"b" + a, u"ba");
    EXPECT_EQ(a + L"b", u"ab");
    EXPECT_EQ(L"b" + a, u"ba");
    EXPECT_EQ(a + "b", u"ab");
    EXPECT_EQ("b" + a, u"ba");
    EXPECT_EQ(a + u'b', u"ab");
    EXPECT_EQ(u'b' + a, u"ba");
    EXPECT_EQ(a + L'b', u"ab");
    EXPECT_EQ(L'b' + a, u"ba");
    EXPECT_EQ(a + 'b', u"ab");
    EXPECT_EQ(a + std::wstring(L"b"), u"ab");
    EXPECT_EQ(std::wstring(L"b") + a, u"ba");
    EXPECT_EQ(a + std::u16string(u"b"), u"ab");
    EXPECT_EQ(a + u"b" + L"c" + a + u'd' + L'e' + 'f' + std::wstring(L"g"), u"abcadefg");
    EXPECT_EQ(a + static_cast<const char16_t*>(nullptr), u"a");
    EXPECT_EQ((a + a) + (a + a), u"aaaa");
    EXPECT_EQ(u"x" + (a + a), u"xaa");
    EXPECT_EQ((CString(u"a\0b", 3) + u"c").GetLength(), 4);
}

/// The members' answers from the plain definitions, unit by unit.
struct Plain {
    static int Clamp(int value, int length) { return value < 0 ? 0 : value > length ? length : value; }
    static std::u16string Mid(const std::u16string& text, int first, int count) {
        std::u16string result;
        for (int i = Clamp(first, INT_MAX); count > 0 && i < static_cast<int>(text.size()); ++i, --count)
            result += text[static_cast<std::size_t>(i)];
        return result;
    }
    static int Find(const std::u16string& text, const std::u16string& part, int start) {
        for (int i = start; start >= 0 && i + static_cast<int>(part.size()) <= static_cast<int>(text.size());
             ++i)
            if (Mid(text, i, static_cast<int>(part.size())) == part)
                return i;
        return -1;
    }
    static std::u16string Delete(const std::u16string& text, int index, int count) {
        const int length = static_cast<int>(text.size());
        const int first = Clamp(index, length);
        const int taken = Clamp(count, length - first);
        return Mid(text, 0, first) + Mid(text, first + taken, length);
    }
    static std::u16string Insert(const std::u16string& text, int index, const std::u16string& part) {
        const int length = static_cast<int>(text.size());
        const int at = Clamp(index, length);
        return Mid(text, 0, at) + part + Mid(text, at, length);
    }
};

TEST(CStringEdit, AgreesWithThePlainDefinitionsOnRandomTexts) {
    std::mt19937 random(2019);
    const auto number = [&random](int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random);
    };
    const auto text = [&](int most) {
        std::u16string units;
        for (int i = number(0, most); i > 0; --i)
            units += u"ab\0c"[number(0, 3)];
        return units;
    };
    for (int round = 0; round < 1'000'000; ++round) {
        const std::u16string units = text(12);
        const std::u16string part = text(3);
        const int first = number(-3, 15);
        const int count = number(-3, 15);
        const int length = static_cast<int>(units.size());
        const CString subject(units);
        ASSERT_EQ(subject.Mid(first, count).View(), Plain::Mid(units, first, count));
        ASSERT_EQ(subject.Left(count).View(), Plain::Mid(units, 0, count));
        ASSERT_EQ(subject.Right(count).View(),
                  Plain::Mid(units, length - Plain::Clamp(count, length), length));
        ASSERT_EQ(subject.Find(CString(part), first), Plain::Find(units, part, first));
        CString changed(units);
        ASSERT_EQ(changed.Delete(first, count), static_cast<int>(Plain::Delete(units, first, count).size()));
        ASSERT_EQ(changed.View(), Plain::Delete(units, first, count));
        changed = units;
        ASSERT_EQ(changed.Insert(first, CString(part)), length + static_cast<int>(part.size()));
        ASSERT_EQ(changed.View(), Plain::Insert(units, first, part));
    }
}

}  // namespace
