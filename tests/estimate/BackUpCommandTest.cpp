// The backup of a project by the command line, in an installation of its own.
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "ArgumentFolder.h"
#include "tests/support/Installation.h"

namespace {

namespace fs = std::filesystem;

class BackUpCommand : public ::testing::Test {
protected:
    void SetUp() override {
        m_folder.Write("办公楼.gcs", "project");
        m_folder.Write("办公楼.mdb", "database");
        m_folder.Write("办公楼/plan.dwg", "plan");
    }
    ProgramResult Run(const char* event, const std::string& project = "办公楼.gcs") const {
        return m_installation.Run({"backup", event, m_folder.Path(project)});
    }
    void ExpectRefused(const ProgramResult& result) const {
        EXPECT_EQ(result.status, 2);
        EXPECT_TRUE(result.err.starts_with("estimate: ")) << result.err;
        EXPECT_EQ(result.out, "");
    }

    const Installation m_installation{ESTIMATE_PROGRAM, ESTIMATE_MODULES};
    const ArgumentFolder m_folder;
};

TEST_F(BackUpCommand, ADayOfWork) {
    const ProgramResult opened = Run("open");
    ASSERT_EQ(opened.status, 0) << opened.err;
    const std::string line = opened.out.substr(0, opened.out.find_first_of("\r\n"));
    const fs::path working = fs::path(std::u8string(line.begin(), line.end()));
    EXPECT_EQ(working.filename(), "BackUpDataBase.mdb");
    ASSERT_TRUE(fs::is_regular_file(working)) << opened.out;
    EXPECT_TRUE(fs::is_regular_file(working.parent_path() / "BackUpGraphicFile" / "plan.dwg"));
    std::ofstream(working, std::ios::binary) << "work";
    m_folder.Write("办公楼/plan.dwg", "changed");
    EXPECT_EQ(Run("changed").status, 0);
    EXPECT_EQ(Run("save").status, 0);
    EXPECT_EQ(m_folder.Read("办公楼.mdb"), "work");
    m_folder.Write("办公楼/plan.dwg", "changed again");
    EXPECT_EQ(Run("discard").status, 0);
    EXPECT_EQ(m_folder.Read("办公楼/plan.dwg"), "changed again");  // nobody said so
    EXPECT_EQ(Run("changed").status, 0);
    EXPECT_EQ(Run("discard").status, 0);
    EXPECT_EQ(m_folder.Read("办公楼/plan.dwg"), "changed");
    EXPECT_EQ(m_folder.Entries(), 3);
}

TEST_F(BackUpCommand, WhatIsNotThereIsRefused) {
    ExpectRefused(Run("open", "none.gcs"));
    for (const char* event : {"save", "discard", "changed"})
        ExpectRefused(Run(event));
}

TEST_F(BackUpCommand, AWorkingCopyThatCouldNotBeMadeIsRefused) {
    const ProgramResult opened = Run("open");
    ASSERT_EQ(opened.status, 0) << opened.err;
    const std::string line = opened.out.substr(0, opened.out.find_first_of("\r\n"));
    const fs::path working = fs::path(std::u8string(line.begin(), line.end()));
    m_folder.Write("other/办公楼.gcs", "another project of the name");
    m_folder.Write("other/办公楼.mdb", "databas2");
    fs::permissions(working, fs::perms::owner_write, fs::perm_options::remove);
    ExpectRefused(Run("open", "other/办公楼.gcs"));
    for (const char* event : {"save", "discard", "changed"})
        for (const char* project : {"办公楼.gcs", "other/办公楼.gcs"})
            ExpectRefused(Run(event, project));
    EXPECT_EQ(m_folder.Read("other/办公楼.mdb"), "databas2");
    fs::permissions(working, fs::perms::owner_write, fs::perm_options::add);
    EXPECT_EQ(Run("open", "other/办公楼.gcs").status, 0);
    ExpectRefused(Run("save"));
    EXPECT_EQ(Run("save", "other/办公楼.gcs").status, 0);
    EXPECT_EQ(m_folder.Read("other/办公楼.mdb"), "databas2");
    EXPECT_EQ(m_folder.Read("办公楼.mdb"), "database");
}

TEST_F(BackUpCommand, WrongUsageCannotRun) {
    EXPECT_EQ(m_installation.Run({"backup"}).status, 2);
    EXPECT_EQ(m_installation.Run({"backup", "open"}).status, 2);
    EXPECT_EQ(m_installation.Run({"backup", "close", "x"}).status, 2);
}

}  // namespace
