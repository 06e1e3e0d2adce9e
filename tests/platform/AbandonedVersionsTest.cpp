#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/platform/AbandonedVersions.h"

#include "tests/support/TemporaryFolder.h"

namespace {

using namespace QsPlatform;
namespace fs = std::filesystem;

/// No system gives a process such a number.
constexpr std::uint32_t Gone = 0x7FFFFFF3;

std::string NameOf(std::uint32_t machine, std::uint32_t process) {
    char name[64];
    std::snprintf(name, sizeof name, ".qsutils-%x-%x-1f-0.tmp", static_cast<unsigned>(machine),
                  static_cast<unsigned>(process));
    return name;
}

TEST(AbandonedVersions, AProcessThatRunsIsNotGone) {
    EXPECT_FALSE(IsProcessGone(ThisProcess()));
    EXPECT_TRUE(IsProcessGone(Gone));
}

TEST(AbandonedVersions, ThoseOfGoneProcessesOfThisMachineGo) {
    const TemporaryFolder folder;
    const fs::path plain = folder.Write(NameOf(ThisMachine(), Gone), "half");
    const fs::path marked = folder.Write(NameOf(ThisMachine(), Gone - 1), "half");
    fs::permissions(marked, fs::perms::owner_write, fs::perm_options::remove);
    folder.Write(NameOf(ThisMachine(), Gone - 2) + "/a file in a folder", "half");
    RemoveAbandonedVersions(FromNativePath(folder.Path()));
    EXPECT_FALSE(fs::exists(plain));
    EXPECT_FALSE(fs::exists(marked));
    EXPECT_EQ(folder.Entries(), 0);
}

TEST(AbandonedVersions, ThoseOfRunningProcessesAndOfOtherMachinesStay) {
    const TemporaryFolder folder;
    folder.Write(NameOf(ThisMachine(), ThisProcess()), "being written");
    folder.Write(NameOf(ThisMachine() ^ 1U, Gone), "being written there");
    folder.Write(NameOf(ThisMachine() ^ 1U, Gone - 1) + "/a file in a folder", "being written there");
    RemoveAbandonedVersions(FromNativePath(folder.Path()));
    EXPECT_EQ(folder.Entries(), 3);
}

TEST(AbandonedVersions, WhatHasAnotherNameStays) {
    const TemporaryFolder folder;
    const std::string abandoned = NameOf(ThisMachine(), Gone);
    const std::string machine = abandoned.substr(9, abandoned.find('-', 9) - 9);
    const std::string names[] = {"x" + abandoned,
                                 abandoned + "x",
                                 ".qsutils-" + machine + "-7ffffff3.tmp",
                                 ".qsutils-" + machine + "--0.tmp",
                                 ".qsutils--7ffffff3-0.tmp",
                                 ".qsutils-" + machine + "-7ffffffg-0.tmp",
                                 ".qsutils-" + machine + "-07ffffff3-0.tmp",
                                 ".qsutils-behind",
                                 "house.qsutils-new"};
    for (const std::string& name : names)
        folder.Write(name, "stays");
    folder.Write(".qsutils-" + machine + "--1.tmp/a file in a folder", "stays");
    RemoveAbandonedVersions(FromNativePath(folder.Path()));
    for (const std::string& name : names)
        EXPECT_TRUE(folder.Has(name)) << name;
    EXPECT_EQ(folder.Entries(), 10);
}

TEST(AbandonedVersions, AFolderThatIsNotThereIsNoMatter) {
    const TemporaryFolder folder;
    RemoveAbandonedVersions(folder.Text("none"));
    EXPECT_EQ(folder.Entries(), 0);
}

}  // namespace
