// Roots that only this system has.
#include <gtest/gtest.h>

#include "companion/Paths.h"
#include "companion/System.h"

using Companion::Resolve;
using Companion::RootLength;

TEST(CompanionWindowsPaths, Roots) {
    EXPECT_EQ(RootLength(L"C:\\a"), 3u);
    EXPECT_EQ(RootLength(L"c:\\"), 3u);
    EXPECT_EQ(RootLength(L"C:a"), 0u);
    EXPECT_EQ(RootLength(L"1:\\a"), 0u);
    EXPECT_EQ(RootLength(L"a\\b"), 0u);
    EXPECT_EQ(RootLength(L"\\a"), 0u);
    EXPECT_EQ(RootLength(L""), 0u);
    EXPECT_EQ(RootLength(L"\\\\server\\share\\a"), 15u);
    EXPECT_EQ(RootLength(L"\\\\server\\share"), 14u);
    EXPECT_EQ(RootLength(L"\\\\?\\C:\\a"), 7u);
    EXPECT_EQ(RootLength(L"\\\\"), 2u);
}

TEST(CompanionWindowsPaths, ResolvingOnOtherDrivesAndServers) {
    EXPECT_EQ(Resolve(L"C:\\a", L"D:/b/../c"), L"D:\\c");
    EXPECT_EQ(Resolve(L"C:\\a", L"//server/share/../b"), L"\\\\server\\share\\b");
    EXPECT_EQ(Resolve(L"\\\\server\\share", L"b"), L"\\\\server\\share\\b");
    EXPECT_EQ(Resolve(L"\\\\server\\share\\a\\", L"..\\.."), L"\\\\server\\share\\");
    EXPECT_EQ(Resolve(L"C:\\a", L"\\b"), L"C:\\a\\b");
}
