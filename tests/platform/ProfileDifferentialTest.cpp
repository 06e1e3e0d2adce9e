// The engine against the plain one, on random files.
#include <optional>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/platform/ProfileFile.h"
#include "QsUtils/platform/ProfileText.h"

#include "tests/platform/PlainProfile.h"
#include "tests/support/Rounds.h"

using QsPlatform::ProfileDocument;
using QsPlatform::SetProfileValue;

namespace {

class RandomFiles {
public:
    explicit RandomFiles(unsigned seed) : m_random(seed) {}

    template <typename T, std::size_t N>
    const T& OneOf(const T (&items)[N]) {
        return items[m_random() % N];
    }

    std::u16string Pieces(unsigned most) {
        static const char16_t* const pieces[] = {
            u"[",  u"]",   u"=",    u"K",       u"k",  u"S",    u"s",     u"L",
            u" ",  u"\t",  u"\n",   u"\r\n",    u"\r", u"\"",   u"'",     u";",
            u"v",  u"工",  u"程",   u"é",       u"\v", u"\x1A", u"[S]\n", u"[s ]\r\n",
            u"K=", u"k =", u"\nK=", u"\n[S]\n", u"x]", u"\n\n", u"[T]\r", u"\n L = w\n"};
        std::u16string text;
        for (auto left = m_random() % most; left > 0; --left)
            text += OneOf(pieces);
        return text;
    }

    std::string File() {
        static const char* const marks[] = {"", "", "", "\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"};
        static const char16_t* const heads[] = {u"", u"[S]\n", u"[S]\n", u"[T]\nK=x\n[s]\n"};
        const std::u16string head = OneOf(heads);
        return PlainProfile::Encode(head + Pieces(30), OneOf(marks));
    }

    /// With bytes that fit nowhere.
    std::string TornFile() {
        std::string bytes = File();
        for (auto left = m_random() % 4; left > 0; --left) {
            const std::size_t at = m_random() % (bytes.size() + 1);
            if (m_random() % 2 == 0 || at == bytes.size())
                bytes.insert(at, 1, static_cast<char>(m_random() % 256));
            else
                bytes[at] = "\0\x81\xFE\xFF\x80\n"[m_random() % 6];
        }
        return bytes;
    }

    std::u16string Section() {
        static const char16_t* const names[] = {u"S", u"s", u"", u"S", u"T", u" S", u"S]", u"x", u"工"};
        return OneOf(names);
    }

    std::u16string Key() {
        static const char16_t* const names[] = {u"K",  u"k",  u"L",  u"K",  u"",
                                                u"K ", u"工", u";v", u"[S", u"K K"};
        return OneOf(names);
    }

    std::u16string Default() {
        static const char16_t* const defaults[] = {u"(default)", u"", u" ", u"d ", u"'d'", u"\"d\" ", u"\""};
        return OneOf(defaults);
    }

    int Size() { return static_cast<int>(m_random() % 3 == 0 ? m_random() % 6 : 128); }

private:
    std::mt19937 m_random;
};

TEST(ProfileDifferential, Reading) {
    RandomFiles random(7);
    int found = 0;
    for (int i = 0; i < Rounds(1'000'000); ++i) {
        const std::string bytes = random.TornFile();
        const std::u16string section = random.Section();
        const std::u16string key = random.Key();
        const std::u16string fallback = random.Default();
        const int size = random.Size();
        found += PlainProfile::Find(bytes, section, key).has_value();
        ASSERT_EQ(ProfileDocument::FromBytes(bytes).Text(section, key, fallback, size),
                  CString(PlainProfile::Text(bytes, section, key, fallback, size)))
            << i << ' ' << ::testing::PrintToString(bytes) << CString(section) << '|' << CString(key);
    }
    EXPECT_GT(found, Rounds(50'000));
}

TEST(ProfileDifferential, Writing) {
    RandomFiles random(8);
    int refused = 0;
    for (int i = 0; i < Rounds(1'000'000); ++i) {
        const std::string bytes = random.File();
        const std::u16string section = PlainProfile::Trim(random.Section());
        const std::u16string key = PlainProfile::Trim(random.Key());
        std::u16string value = random.Pieces(4);
        const std::optional<std::string> edited = SetProfileValue(bytes, section, key, value);
        value = PlainProfile::Trim(value);
        value = PlainProfile::Trim(value.substr(0, value.find_first_of(u"\r\n")));
        if (!edited) {
            ++refused;
            ASSERT_NE(PlainProfile::Find(PlainProfile::Set(bytes, section, key, value), section, key), value);
            continue;
        }
        ASSERT_EQ(*edited, PlainProfile::Set(bytes, section, key, value))
            << i << ::testing::PrintToString(bytes) << CString(section) << '|' << CString(key) << '|'
            << CString(value);
    }
    EXPECT_GT(refused, 0);
}

/// Also where the file is torn: the value is found, nothing else has changed, and the next call does nothing.
TEST(ProfileDifferential, WritingChangesOneValue) {
    RandomFiles random(9);
    for (int i = 0; i < Rounds(300'000); ++i) {
        const std::string bytes = random.TornFile();
        const std::u16string section = random.Section();
        const std::u16string key = random.Key();
        const std::optional<std::string> edited = SetProfileValue(bytes, section, key, u"new");
        if (!edited)
            continue;
        ASSERT_EQ(PlainProfile::Find(*edited, section, key), u"new") << ::testing::PrintToString(bytes);
        ASSERT_EQ(SetProfileValue(*edited, section, key, u"new"), *edited);
        for (int asked = 0; asked < 4; ++asked) {
            const std::u16string otherSection = random.Section();
            const std::u16string otherKey = random.Key();
            const bool same = PlainProfile::Lower(PlainProfile::Trim(otherSection)) ==
                                  PlainProfile::Lower(PlainProfile::Trim(section)) &&
                              PlainProfile::Lower(PlainProfile::Trim(otherKey)) ==
                                  PlainProfile::Lower(PlainProfile::Trim(key));
            if (!same) {
                ASSERT_EQ(PlainProfile::Find(*edited, otherSection, otherKey),
                          PlainProfile::Find(bytes, otherSection, otherKey))
                    << ::testing::PrintToString(bytes) << CString(section) << '|' << CString(key) << '|'
                    << CString(otherSection) << '|' << CString(otherKey);
            }
        }
    }
}

/// Names that are equal by the engine's compare, over all units.
TEST(ProfileDifferential, CaseIsThatOfAsciiLetters) {
    for (unsigned a = 0; a < 0x10000; ++a) {
        const auto unit = static_cast<char16_t>(a);
        for (const unsigned b : {a + 0x20, a - 0x20, a + 1, a ^ 0x100, a ^ 0x8000}) {
            const auto other = static_cast<char16_t>(b);
            ASSERT_EQ(QsPlatform::SameProfileName(std::u16string(1, unit), std::u16string(1, other)),
                      PlainProfile::Lower(std::u16string(1, unit)) ==
                          PlainProfile::Lower(std::u16string(1, other)));
        }
    }
}

}  // namespace
