#include <filesystem>

#include <gtest/gtest.h>

#include "QsUtils/config/CExtraCostRead.h"
#include "QsUtils/frame/IQsUtils1.h"

#include "tests/support/TemporaryFolder.h"

namespace {

CString Found(CExtraCostRead& reader, const CString& folder, const CString& name, const CString& tail = {}) {
    CString path = u"overwritten";
    reader.FindPath(path, folder, name, tail);
    return path;
}

TEST(RememberedFindPath, AFindIsNotLookedForAgain) {
    const TemporaryFolder folder;
    folder.Write("a/x.ec", "");
    const CString at = FromNativePath(folder.Path()) + u'\\';
    CExtraCostRead reader;
    EXPECT_EQ(Found(reader, at, u"x.ec"), at + u"a\\x.ec");
    std::filesystem::remove(folder.File("a/x.ec"));
    EXPECT_EQ(Found(reader, at, u"x.ec"), at + u"a\\x.ec");
    CExtraCostRead another;
    EXPECT_EQ(Found(another, at, u"x.ec"), u"");
}

TEST(RememberedFindPath, WhatIsMissingIsLookedForAgain) {
    const TemporaryFolder folder;
    const CString at = FromNativePath(folder.Path()) + u'\\';
    CExtraCostRead reader;
    EXPECT_EQ(Found(reader, at, u"x"), u"");
    folder.Write("x", "");
    EXPECT_EQ(Found(reader, at, u"x"), at + u"x");
}

TEST(RememberedFindPath, FolderNameAndTailAreTheKey) {
    const TemporaryFolder folder;
    folder.Write("a/x", "");
    folder.Write("b/x", "");
    folder.Write("b/y", "");
    const CString at = FromNativePath(folder.Path()) + u'\\';
    CExtraCostRead reader;
    EXPECT_EQ(Found(reader, at, u"x"), at + u"a\\x");
    EXPECT_EQ(Found(reader, at, u"x", u"b"), at + u"b\\x");
    EXPECT_EQ(Found(reader, at + u"b\\", u"x"), at + u"b\\x");
    EXPECT_EQ(Found(reader, at, u"y"), at + u"b\\y");
    EXPECT_EQ(Found(reader, at, u"x"), at + u"a\\x");
}

// The key joins with "@" what may hold one: such questions share an answer.
TEST(RememberedFindPath, KeysThatReadAlikeAreOne) {
    const TemporaryFolder folder;
    folder.Write("x@y/f", "");
    folder.Write("y@f", "");
    const CString at = FromNativePath(folder.Path()) + u'\\';
    CExtraCostRead reader;
    EXPECT_EQ(Found(reader, at, u"f", u"x@y"), at + u"x@y\\f");
    EXPECT_EQ(Found(reader, at, u"f@x", u"y"), at + u"x@y\\f");
}

TEST(RememberedFindPath, ArgumentsMayBeOneText) {
    const TemporaryFolder folder;
    folder.Write("x", "");
    CString path = FromNativePath(folder.Path()) + u'\\';
    const CString expected = path + u"x";
    CExtraCostRead reader;
    reader.FindPath(path, path, u"x", u"");
    EXPECT_EQ(path, expected);
}

TEST(RememberedFindPath, TheFacadeHasOneMemory) {
    const TemporaryFolder folder;
    folder.Write("x", "");
    const CString at = FromNativePath(folder.Path()) + u'\\';
    CString path;
    IQsUtils1::FindPath(path, at, u"x", u"");
    std::filesystem::remove(folder.File("x"));
    IQsUtils1::FindPath(path, at, u"x", u"");
    EXPECT_EQ(path, at + u"x");
}

}  // namespace
