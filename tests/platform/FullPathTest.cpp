#include <filesystem>

#include <gtest/gtest.h>

#include "QsUtils/platform/FullPath.h"
#include "QsUtils/platform/NativePath.h"

using QsPlatform::FullPath;

namespace {

CString Here() {
    return FromNativePath(std::filesystem::current_path());
}

CString Root() {
    return FromNativePath(std::filesystem::current_path().root_path());
}

TEST(FullPath, ARelativePathBeginsInTheCurrentFolder) {
    EXPECT_EQ(FullPath(u"a"), Here() + u"\\a");
    EXPECT_EQ(FullPath(u"造价\\a b"), Here() + u"\\造价\\a b");
    EXPECT_EQ(FullPath(u"a\\"), Here() + u"\\a\\");
    EXPECT_EQ(FullPath(u".\\a\\.\\b"), Here() + u"\\a\\b");
    EXPECT_EQ(FullPath(u"missing\\..\\b"), Here() + u"\\b");
}

TEST(FullPath, AnAbsolutePathIsResolvedInTheText) {
    EXPECT_EQ(FullPath(Root()), Root());
    EXPECT_EQ(FullPath(Root() + u"missing\\..\\b"), Root() + u"b");
    EXPECT_EQ(FullPath(Root() + u"a\\\\b"), Root() + u"a\\b");
    EXPECT_EQ(FullPath(Root() + u"..\\..\\b"), Root() + u"b");
    const CString longName(u'x', 300);
    EXPECT_EQ(FullPath(Root() + longName), Root() + longName);
}

TEST(FullPath, OfNothingIsNothing) {
    EXPECT_EQ(FullPath(u""), u"");
}

}  // namespace
