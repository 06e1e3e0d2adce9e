// The desktop's file of folders: what the shell would make of it, as far as a folder can be read from it.
#include <optional>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/platform/posix/UserDirs.h"

#include "tests/support/Rounds.h"

namespace {

/// Documents by a file; "-" when it has none.
std::string Documents(const std::string& file, const std::string& home = "/home/u") {
    return QsPlatform::UserDirectory(file, "XDG_DOCUMENTS_DIR", home).value_or("-");
}

/// By one line of the file.
std::string Of(const std::string& value) {
    return Documents("XDG_DOCUMENTS_DIR=" + value + "\n");
}

TEST(UserDirs, AsDesktopsWriteIt) {
    EXPECT_EQ(Documents("# This file is written by xdg-user-dirs-update\n"
                        "XDG_DESKTOP_DIR=\"$HOME/Desktop\"\n"
                        "XDG_DOCUMENTS_DIR=\"$HOME/文档\"\n"
                        "XDG_MUSIC_DIR=\"$HOME/Music\"\n"),
              "/home/u/文档");
}

TEST(UserDirs, Values) {
    EXPECT_EQ(Of("\"/data/docs\""), "/data/docs");
    EXPECT_EQ(Of("\"$HOME\""), "/home/u");
    EXPECT_EQ(Of("\"$HOME/\""), "/home/u/");
    EXPECT_EQ(Of("\"${HOME}/docs\""), "/home/u/docs");
    EXPECT_EQ(Of("$HOME/docs"), "/home/u/docs");
    EXPECT_EQ(Of("/data/docs"), "/data/docs");
    EXPECT_EQ(Of("'/data/my docs'"), "/data/my docs");
    EXPECT_EQ(Of("/data/my\\ docs"), "/data/my docs");
    EXPECT_EQ(Of("\"/data/my\"' 'docs"), "/data/my docs");
    EXPECT_EQ(Of("\"/a\\\"b\\\\c\\$d\\`e\\f\""), "/a\"b\\c$d`e\\f");
    EXPECT_EQ(Of("'/a\\b$HOME'"), "/a\\b$HOME");
    EXPECT_EQ(Of("\"/data/it's\""), "/data/it's");
    EXPECT_EQ(Of("/data/a#b"), "/data/a#b");
    EXPECT_EQ(Of("\"/data/docs\"  # mine"), "/data/docs");
    EXPECT_EQ(Of("\"/data/docs\"\t\r"), "/data/docs");
    EXPECT_EQ(Of("\"/data/*\""), "/data/*");
}

TEST(UserDirs, WhatIsNoFolderIsPassedOver) {
    for (const char* value : {"",
                              "\"\"",
                              "docs",
                              "\"docs\"",
                              "\"./docs\"",
                              "\"~/docs\"",
                              "\"$HOMEPAGE/docs\"",
                              "\"$OTHER/docs\"",
                              "\"$HOME2\"",
                              "'$HOME/docs'",
                              "\"/open",
                              "'/open",
                              "/data/$(pwd)",
                              "\"/data/`pwd`\"",
                              "/a b",
                              "/a;b",
                              "/a&",
                              "/a|b",
                              "/a>b",
                              "/a*",
                              "/a?",
                              "/a[b]",
                              "\"/a\" b",
                              "/a\\",
                              "$",
                              "\"$\"",
                              "${HOME",
                              "${HOME:-x}"})
        EXPECT_EQ(Of(value), "-") << value;
    EXPECT_EQ(Documents(std::string("XDG_DOCUMENTS_DIR=\"/a\0b\"\n", 25)), "-");
}

TEST(UserDirs, TheLastGoodLineCounts) {
    EXPECT_EQ(Documents("XDG_DOCUMENTS_DIR=/one\nXDG_DOCUMENTS_DIR=/two"), "/two");
    EXPECT_EQ(Documents("XDG_DOCUMENTS_DIR=/one\nXDG_DOCUMENTS_DIR=two\n"), "/one");
    EXPECT_EQ(Documents("XDG_DOCUMENTS_DIR=/one\n#XDG_DOCUMENTS_DIR=/two\n"), "/one");
}

TEST(UserDirs, OnlyTheVariableItself) {
    EXPECT_EQ(Documents("  XDG_DOCUMENTS_DIR=/one"), "/one");
    for (const char* line : {"XDG_DOCUMENTS_DIR =/x", "XXDG_DOCUMENTS_DIR=/x", "XDG_DOCUMENTS_DIRS=/x",
                             "xdg_documents_dir=/x", "export XDG_DOCUMENTS_DIR=/x", "XDG_DOCUMENTS_DIR",
                             "XDG_DOCUMENTS_DIR= /x", "XDG_MUSIC_DIR=/x", ""})
        EXPECT_EQ(Documents(line), "-") << line;
}

TEST(UserDirs, WithoutAHomeOnlyAbsoluteFoldersCount) {
    EXPECT_EQ(Documents("XDG_DOCUMENTS_DIR=\"$HOME/docs\"", ""), "-");
    EXPECT_EQ(Documents("XDG_DOCUMENTS_DIR=\"/docs\"", ""), "/docs");
}

/// Nothing but a text without NULs that begins with a slash ever comes out, whatever goes in.
TEST(UserDirs, AnyBytes) {
    std::mt19937 random(2024);
    const std::string alphabet = "XDG_DOCUMENTS_DIR=$HOME{}\"'\\/ab #`;\n\r\t";
    const int rounds = Rounds(200'000);
    for (int round = 0; round < rounds; ++round) {
        std::string file;
        for (int line = 0; line < 2; ++line) {
            file += "XDG_DOCUMENTS_DIR=";
            for (std::size_t length = random() % 24; length > 0; --length)
                file +=
                    random() % 32 == 0 ? static_cast<char>(random()) : alphabet[random() % alphabet.size()];
            file += '\n';
        }
        const auto folder = QsPlatform::UserDirectory(file, "XDG_DOCUMENTS_DIR", "/h");
        if (folder) {
            ASSERT_TRUE(folder->starts_with('/')) << file;
            ASSERT_EQ(folder->find('\0'), std::string::npos) << file;
        }
    }
}

}  // namespace
