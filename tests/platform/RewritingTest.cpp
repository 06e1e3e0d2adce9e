#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/platform/Files.h"

#include "tests/support/TemporaryFolder.h"

namespace {

using namespace QsPlatform;
namespace fs = std::filesystem;

TEST(Rewriting, TheTargetTakesTheBytesOfTheSource) {
    const TemporaryFolder folder;
    for (const std::size_t before : {0U, 5U, 70'000U, 600'000U}) {
        for (const std::size_t after : {0U, 5U, 70'000U, 600'000U}) {
            folder.Write("source", std::string(after, 'a'));
            folder.Write("target", std::string(before, 'b'));
            EXPECT_TRUE(IsRewritable(folder.Text("target")));
            EXPECT_EQ(RewriteFile(folder.Text("source"), folder.Text("target")), Rewriting::Done);
            EXPECT_EQ(folder.Read("target"), std::string(after, 'a')) << before;
            EXPECT_EQ(folder.Entries(), 2);
        }
    }
}

TEST(Rewriting, WhatMayNotBeWrittenStaysAsItWas) {
    const TemporaryFolder folder;
    folder.Write("source", "source");
    folder.Write("target", "target");
    folder.Write("folder/x", "x");
    EXPECT_EQ(RewriteFile(folder.Text("none"), folder.Text("target")), Rewriting::NotBegun);
    EXPECT_EQ(RewriteFile(folder.Text("folder"), folder.Text("target")), Rewriting::NotBegun);
    EXPECT_EQ(RewriteFile(folder.Text("source"), folder.Text("none")), Rewriting::NotBegun);
    EXPECT_EQ(RewriteFile(folder.Text("source"), folder.Text("folder")), Rewriting::NotBegun);
    EXPECT_EQ(RewriteFile(folder.Text("target"), folder.Text("target")), Rewriting::NotBegun);
    fs::permissions(folder.File("target"), fs::perms::owner_write, fs::perm_options::remove);
    EXPECT_FALSE(IsRewritable(folder.Text("target")));
    EXPECT_EQ(RewriteFile(folder.Text("source"), folder.Text("target")), Rewriting::NotBegun);
    EXPECT_EQ(folder.Read("target"), "target");
    EXPECT_FALSE(folder.Has("none"));
    fs::permissions(folder.File("target"), fs::perms::owner_write, fs::perm_options::add);
}

}  // namespace
