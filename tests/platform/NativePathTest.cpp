#include <filesystem>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/platform/NativePath.h"

namespace {

/// Whether a path is a text of bytes here, and not of the units that the library has.
constexpr bool PathsAreBytes = sizeof(std::filesystem::path::value_type) == 1;

std::string Bytes(const CString& path) {
    const auto native = ToNativePath(path).native();
    return std::string(native.begin(), native.end());
}

}  // namespace

TEST(NativePath, FoldersComeBack) {
    const CString path = u"\\opt\\造价\\Log.txt";
    EXPECT_EQ(FromNativePath(ToNativePath(path)), path);
    EXPECT_TRUE(ToNativePath(path).filename() == u8"Log.txt");
    EXPECT_TRUE(ToNativePath(path).parent_path().filename() == u8"造价");
}

TEST(NativePath, EmptyStaysEmpty) {
    EXPECT_TRUE(ToNativePath(u"").empty());
    EXPECT_EQ(FromNativePath(std::filesystem::path()), u"");
}

TEST(NativePath, TheFormThatTheSystemWantsIsUtf8WithSlashes) {
    if (!PathsAreBytes)
        GTEST_SKIP() << "the native form is the library's own";
    EXPECT_EQ(Bytes(u"\\opt\\a/b"), "/opt/a/b");
    EXPECT_EQ(Bytes(u"é砖𠀀"), "\xC3\xA9\xE7\xA0\x96\xF0\xA0\x80\x80");
    EXPECT_EQ(FromNativePath("/opt/app/x"), u"\\opt\\app\\x");
    EXPECT_EQ(FromNativePath("\xF0\xA0\x80\x80"), u"𠀀");
}

TEST(NativePath, ALoneSurrogateComesBack) {
    for (const CString& name :
         {CString(u"a\xD840z"), CString(u"\xDC00"), CString(u"\xDC00\xD840"), CString(u"\xD840\xD840\xDC00")})
        EXPECT_EQ(FromNativePath(ToNativePath(name)), name);
    if (PathsAreBytes) {
        EXPECT_EQ(Bytes(u"\xD840"), "\xED\xA1\x80");
    }
}

TEST(NativePath, EveryUnitComesBack) {
    for (unsigned unit = 1; unit <= 0xFFFF; ++unit) {
        if (unit == '/')
            continue;
        const CString name(static_cast<char16_t>(unit), 2);
        ASSERT_EQ(FromNativePath(ToNativePath(name)), name) << unit;
    }
}

TEST(NativePath, RandomNamesComeBack) {
    std::mt19937 random(8);
    for (int round = 0; round < 300'000; ++round) {
        std::u16string name(random() % 10, u'\0');
        for (char16_t& unit : name) {
            const auto kind = random() % 4;
            unit = static_cast<char16_t>(kind == 0   ? 0xD800 + random() % 0x800
                                         : kind == 1 ? 'a' + random() % 26
                                                     : 0x100 + random());
            if (unit == u'/' || unit == 0)
                unit = u'x';
        }
        ASSERT_EQ(FromNativePath(ToNativePath(name)), CString(name));
    }
}

TEST(NativePath, AByteThatFitsNowhereIsTheReplacementCharacter) {
    if (!PathsAreBytes)
        GTEST_SKIP() << "paths are no bytes here";
    const auto decoded = [](const char* bytes) { return FromNativePath(std::filesystem::path(bytes)); };
    EXPECT_EQ(decoded("a\xFFz"), u"a\xFFFDz");
    EXPECT_EQ(decoded("\x80"), u"\xFFFD");
    EXPECT_EQ(decoded("a\xE7\xA0"), u"a\xFFFD\xFFFD");
    EXPECT_EQ(decoded("\xE7\xA0z"), u"\xFFFD\xFFFDz");
    EXPECT_EQ(decoded("\xC1\x81"), u"\xFFFD\xFFFD");
    EXPECT_EQ(decoded("\xE0\x80\x80"), u"\xFFFD\xFFFD\xFFFD");
    EXPECT_EQ(decoded("\xF0\x80\x80\x80"), u"\xFFFD\xFFFD\xFFFD\xFFFD");
    EXPECT_EQ(decoded("\xF4\x90\x80\x80"), u"\xFFFD\xFFFD\xFFFD\xFFFD");
    EXPECT_EQ(decoded("\xF8\x80\x80\x80\x80"), u"\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD");
    EXPECT_EQ(decoded("\xF4\x8F\xBF\xBF"), u"\xDBFF\xDFFF");
    EXPECT_EQ(decoded("\xEF\xBF\xBF"), u"\xFFFF");
}
