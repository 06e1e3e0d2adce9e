#include <string>

#include <gtest/gtest.h>

#include "QsUtils/platform/FileStream.h"

#include "tests/support/TemporaryFolder.h"

using QsPlatform::FileFailure;
using QsPlatform::FileStream;

namespace {

TEST(FileStreamContract, GivesTheBytesInPieces) {
    const TemporaryFolder folder;
    std::string bytes(300'000, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * 31);
    folder.Write("工程 #1.xml", bytes);
    FileStream stream(folder.Text("工程 #1.xml"));
    EXPECT_EQ(stream.Size(), bytes.size());
    std::string read;
    char piece[7777];
    while (const std::size_t count = stream.Read(piece, sizeof(piece)))
        read.append(piece, count);
    EXPECT_EQ(read, bytes);
    EXPECT_EQ(stream.Failure(), FileFailure::None);
    EXPECT_EQ(stream.Read(piece, sizeof(piece)), 0u) << "the end stays the end";
}

TEST(FileStreamContract, AnEmptyFileIsAFile) {
    const TemporaryFolder folder;
    folder.Write("empty", "");
    FileStream stream(folder.Text("empty"));
    char byte = 0;
    EXPECT_EQ(stream.Read(&byte, 1), 0u);
    EXPECT_EQ(stream.Size(), 0u);
    EXPECT_EQ(stream.Failure(), FileFailure::None);
}

TEST(FileStreamContract, WhatIsNoFileIsRefused) {
    const TemporaryFolder folder;
    folder.Write("a", "x");
    char byte = 0;
    FileStream missing(folder.Text("none"));
    EXPECT_EQ(missing.Failure(), FileFailure::MissingFile);
    EXPECT_EQ(missing.Read(&byte, 1), 0u);
    EXPECT_EQ(missing.Size(), 0u);
    EXPECT_EQ(FileStream(FromNativePath(folder.Path())).Failure(), FileFailure::NotAFile);
    EXPECT_NE(FileStream(CString()).Failure(), FileFailure::None);
    EXPECT_EQ(FileStream(folder.Text("a") + CString(u"\0b", 2)).Failure(), FileFailure::MissingFile);
}

}  // namespace
