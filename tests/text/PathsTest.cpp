#include <optional>
#include <random>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/frame/IQsUtils.h"
#include "QsUtils/text/Paths.h"

#include "tests/support/Rounds.h"
#include "tests/text/PlainPaths.h"

namespace {

CString RandomText(std::mt19937& random, std::initializer_list<const char16_t*> pieces, unsigned most) {
    CString text;
    for (auto count = random() % (most + 1); count > 0; --count)
        text += pieces.begin()[random() % pieces.size()];
    return text;
}

/// The result, or none when the error is raised.
template <typename Operation>
std::optional<CString> Result(Operation operation, const CString& path) {
    try {
        return operation(path);
    } catch (const std::out_of_range&) {
        return std::nullopt;
    }
}

TEST(VersionBig, TheBiggerNumberDecides) {
    EXPECT_EQ(IQsUtils::VersionBig(u"8.0", u"7.9", false), 1);
    EXPECT_EQ(IQsUtils::VersionBig(u"7.2", u"7.10", false), -1);
    EXPECT_EQ(IQsUtils::VersionBig(u"7.1.0.0", u"7.1.0.0", false), 0);
    EXPECT_EQ(IQsUtils::VersionBig(u"7.1.5", u"7.1.9", false), 0);
    EXPECT_EQ(IQsUtils::VersionBig(u"1.2.3", u"1.2.4", false), 0);
    EXPECT_EQ(IQsUtils::VersionBig(u"1.2.3", u"1.2.4", true), -1);
    EXPECT_EQ(IQsUtils::VersionBig(u"7.1.5.1", u"7.1.5.9", true), 0);
    EXPECT_EQ(IQsUtils::VersionBig(u"7.01", u"7.1", true), 0);
    EXPECT_EQ(IQsUtils::VersionBig(u"7.1.x", u"7.1.0", true), 0);
}

TEST(VersionBig, AnEmptyTextIsSmaller) {
    EXPECT_EQ(IQsUtils::VersionBig(u"", u"", true), 0);
    EXPECT_EQ(IQsUtils::VersionBig(u"", u"1.0", true), -1);
    EXPECT_EQ(IQsUtils::VersionBig(u"1.0", u"", true), 1);
    EXPECT_EQ(IQsUtils::VersionBig(u"", u"-1", true), -1);
}

TEST(VersionBig, APartThatIsMissing) {
    EXPECT_EQ(IQsUtils::VersionBig(u"7", u"7.0", false), -1);
    EXPECT_EQ(IQsUtils::VersionBig(u"7", u"0.7", false), 0);
    EXPECT_EQ(IQsUtils::VersionBig(u"1.2", u"1.2.0", true), 1);
    EXPECT_EQ(IQsUtils::VersionBig(u"1.2", u"1.2.0", false), 0);
    EXPECT_EQ(IQsUtils::VersionBig(u"1.2", u"1.2.2", true), 0);
    EXPECT_EQ(IQsUtils::VersionBig(u"7", u"8", true), -1);
}

TEST(VersionBig, AnswersAsThePlainOne) {
    std::mt19937 random(1);
    const auto version = [&] {
        return RandomText(random, {u"0", u"1", u"2", u"10", u".", u".", u" ", u"-", u"x", u"99999999999"}, 7);
    };
    for (int round = 0; round < Rounds(1'000'000); ++round) {
        const CString a = version();
        const CString b = version();
        for (const bool third : {false, true})
            ASSERT_EQ(IQsUtils::VersionBig(a, b, third), PlainPaths::VersionBig(a, b, third))
                << a << " and " << b << ", " << third;
    }
}

TEST(PickFileNameFromPath, TakesFolderAndExtensionAway) {
    EXPECT_EQ(IQsUtils::PickFileNameFromPath(u"C:\\a\\b.tar.gz"), u"b.tar");
    EXPECT_EQ(IQsUtils::PickFileNameFromPath(u"C:\\a.b\\c"), u"c");
    EXPECT_EQ(IQsUtils::PickFileNameFromPath(u"name"), u"name");
    EXPECT_EQ(IQsUtils::PickFileNameFromPath(u"C:\\a\\.ini"), u"");
    EXPECT_EQ(IQsUtils::PickFileNameFromPath(u"C:\\a.b\\"), u"");
    EXPECT_EQ(IQsUtils::PickFileNameFromPath(u""), u"");
    EXPECT_EQ(IQsUtils::PickFileNameFromPath(u"a/b.c"), u"a/b");
    EXPECT_EQ(IQsUtils::PickFileNameFromPath(u"定额.库.ec"), u"定额.库");
}

TEST(RemoveRelativeDirectory, TakesUpsAndWhatTheyUndoOut) {
    EXPECT_EQ(IQsUtils::RemoveRelativeDirectoryFromPath(u"C:\\a\\b\\..\\c"), u"C:\\a\\c");
    EXPECT_EQ(IQsUtils::RemoveRelativeDirectoryFromPath(u"a\\..\\b"), u"b");
    EXPECT_EQ(IQsUtils::RemoveRelativeDirectoryFromPath(u"a\\b\\c\\..\\..\\d"), u"a\\d");
    EXPECT_EQ(IQsUtils::RemoveRelativeDirectoryFromPath(u"C:\\a\\..\\b\\"), u"C:\\b\\");
    EXPECT_EQ(IQsUtils::RemoveRelativeDirectoryFromPath(u"..\\a"), u"..\\a");
    EXPECT_EQ(IQsUtils::RemoveRelativeDirectoryFromPath(u"a\\..\\..\\b"), u"..\\b");
    EXPECT_EQ(IQsUtils::RemoveRelativeDirectoryFromPath(u"\\opt\\a\\..\\b"), u"\\opt\\b");
}

TEST(RemoveRelativeDirectory, WhatHoldsNoneComesBack) {
    for (const char16_t* path :
         {u"", u"C:\\a\\b", u"a\\..", u"a\\.", u"..", u".", u"a\\\\b\\", u"\\", u"a.b\\c"})
        EXPECT_EQ(IQsUtils::RemoveRelativeDirectoryFromPath(path), path);
}

TEST(RemoveRelativeDirectory, RefusesASinglePointAndAnUpAtTheEnd) {
    for (const char16_t* path : {u"a\\.\\b", u".\\a", u".\\", u"a\\..\\", u"a\\b\\..\\..\\", u"a\\..\\b\\.."})
        EXPECT_THROW(IQsUtils::RemoveRelativeDirectoryFromPath(path), std::out_of_range) << CString(path);
    EXPECT_EQ(IQsUtils::RemoveRelativeDirectoryFromPath(u"..\\..\\"), u"..\\..\\");
    try {
        IQsUtils::RemoveRelativeDirectoryFromPath(u"a\\.\\b");
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ(error.what(), "invalid vector<T> subscript");
    }
}

TEST(RemoveRelativeDirectory, AnswersAsThePlainOne) {
    std::mt19937 random(2);
    for (int round = 0; round < Rounds(1'000'000); ++round) {
        const CString path =
            RandomText(random, {u"a", u"b", u"..", u".", u"\\", u"\\", u"\\", u"..\\", u"C:\\"}, 9);
        ASSERT_EQ(Result(IQsUtils::RemoveRelativeDirectoryFromPath, path),
                  Result(PlainPaths::RemoveRelativeDirectoryFromPath, path))
            << path;
        ASSERT_EQ(Result(QsText::RemoveRelativeDirectory, path),
                  Result(PlainPaths::RemoveRelativeDirectory, path))
            << path;
    }
}

TEST(RemoveRelativeDirectory, OfAVeryLongPath) {
    CString path = u"C:";
    for (int i = 0; i < 200'000; ++i)
        path += u"\\a";
    for (int i = 0; i < 199'999; ++i)
        path += u"\\..";
    EXPECT_EQ(IQsUtils::RemoveRelativeDirectoryFromPath(path + u"\\b"), u"C:\\a\\b");
}

}  // namespace
