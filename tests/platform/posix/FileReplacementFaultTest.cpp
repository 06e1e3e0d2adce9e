// What a replaced file keeps, and what is left after each call of the kernel has failed.
#include <atomic>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <string>

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "QsUtils/platform/FileContent.h"
#include "QsUtils/platform/FileReplacement.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/support/posix/InChild.h"

using QsPlatform::FileFailure;
using QsPlatform::FileReplacement;

namespace {

namespace fs = std::filesystem;

/// The error that the next call of each kind fails with; 0 lets it pass. Threads of other tests call them
/// too.
struct Faults {
    std::atomic<int> fsync{0};
    std::atomic<int> rename{0};
    std::atomic<int> fchmod{0};
} faults;

template <typename F>
F* Next(const char* name) {
    return reinterpret_cast<F*>(::dlsym(RTLD_NEXT, name));
}

bool Fails(std::atomic<int>& fault) {
    const int error = fault.exchange(0);
    if (error != 0)
        errno = error;
    return error != 0;
}

}  // namespace

// The program's own functions stand in front of the system's.
extern "C" {
int fsync(int file) {
    return Fails(faults.fsync) ? -1 : Next<int(int)>("fsync")(file);
}
int rename(const char* from, const char* to) noexcept {
    return Fails(faults.rename) ? -1 : Next<int(const char*, const char*)>("rename")(from, to);
}
int fchmod(int file, mode_t mode) noexcept {
    return Fails(faults.fchmod) ? -1 : Next<int(int, mode_t)>("fchmod")(file, mode);
}
}

namespace {

bool Replace(const CString& path, std::string_view bytes, FileFailure* failure = nullptr) {
    FileReplacement file(path);
    const bool done = file.Write(bytes.data(), bytes.size()) && file.Commit();
    if (failure != nullptr)
        *failure = file.Failure();
    return done;
}

mode_t ModeOf(const fs::path& path) {
    struct stat status {};
    ::stat(path.c_str(), &status);
    return status.st_mode & 07777;
}

class FileFault : public ::testing::Test {
protected:
    void SetUp() override { m_folder.Write("a", "old"); }
    void ExpectOldFileAlone() const {
        EXPECT_EQ(m_folder.Read("a"), "old");
        EXPECT_EQ(m_folder.Entries(), 1);
    }

    TemporaryFolder m_folder;
};

TEST_F(FileFault, KeepsPermissionsAndOwner) {
    for (const mode_t mode : {0600U, 0644U, 0640U, 0777U, 02755U}) {
        ASSERT_EQ(::chmod(m_folder.File("a").c_str(), mode), 0);
        EXPECT_TRUE(Replace(m_folder.Text("a"), "new"));
        EXPECT_EQ(ModeOf(m_folder.File("a")), mode);
    }
    if (::chown(m_folder.File("a").c_str(), 12345, 23456) == 0) {
        EXPECT_TRUE(Replace(m_folder.Text("a"), "new"));
        struct stat status {};
        ASSERT_EQ(::stat(m_folder.File("a").c_str(), &status), 0);
        EXPECT_EQ(status.st_uid, 12345U);
        EXPECT_EQ(status.st_gid, 23456U);
    }
}

TEST_F(FileFault, ANewFileHasTheModeOfTheUser) {
    const mode_t before = ::umask(027);
    EXPECT_TRUE(Replace(m_folder.Text("b"), "new"));
    ::umask(before);
    EXPECT_EQ(ModeOf(m_folder.File("b")), 0640U);
}

TEST_F(FileFault, FollowsLinks) {
    m_folder.Write("sub/file", "old");
    fs::create_symlink("sub/file", m_folder.File("near"));
    fs::create_symlink(m_folder.File("near"), m_folder.File("far"));
    fs::create_symlink("sub/new", m_folder.File("dangling"));
    EXPECT_TRUE(Replace(m_folder.Text("far"), "new"));
    EXPECT_TRUE(Replace(m_folder.Text("dangling"), "made"));
    EXPECT_TRUE(fs::is_symlink(m_folder.File("far")));
    EXPECT_TRUE(fs::is_symlink(m_folder.File("near")));
    EXPECT_TRUE(fs::is_symlink(m_folder.File("dangling")));
    EXPECT_EQ(m_folder.Read("sub/file"), "new");
    EXPECT_EQ(m_folder.Read("sub/new"), "made");
    EXPECT_EQ(m_folder.Entries(), 5);
}

TEST_F(FileFault, ACircleOfLinksLeadsNowhere) {
    fs::create_symlink("one", m_folder.File("two"));
    fs::create_symlink("two", m_folder.File("one"));
    EXPECT_FALSE(Replace(m_folder.Text("one"), "new"));
    EXPECT_EQ(m_folder.Entries(), 3);
}

TEST_F(FileFault, PipesAreLeftAlone) {
    ASSERT_EQ(::mkfifo(m_folder.File("pipe").c_str(), 0600), 0);
    EXPECT_EQ(FileReplacement(m_folder.Text("pipe")).Failure(), FileFailure::NotAFile);
    FileFailure failure = FileFailure::None;
    EXPECT_FALSE(QsPlatform::ReadWholeFile(m_folder.Text("pipe"), &failure));
    EXPECT_EQ(failure, FileFailure::NotAFile);
    EXPECT_EQ(m_folder.Entries(), 2);
    EXPECT_FALSE(QsPlatform::ReadWholeFile(u"\\dev\\zero"));
}

TEST_F(FileFault, FilesWithoutASizeAreReadToTheirEnd) {
    const auto bytes = QsPlatform::ReadWholeFile(u"\\proc\\self\\maps");
    ASSERT_TRUE(bytes);
    EXPECT_NE(bytes->find("stack"), std::string::npos);
}

TEST_F(FileFault, AFailedFlushLeavesTheOldFile) {
    for (const auto& [error, told] :
         {std::pair(EIO, FileFailure::Other), std::pair(ENOSPC, FileFailure::DiskFull),
          std::pair(EDQUOT, FileFailure::DiskFull)}) {
        FileFailure failure = FileFailure::None;
        faults.fsync = error;
        EXPECT_FALSE(Replace(m_folder.Text("a"), "new", &failure));
        EXPECT_EQ(faults.fsync, 0);
        EXPECT_EQ(failure, told);
        ExpectOldFileAlone();
    }
}

TEST_F(FileFault, AFailedRenameLeavesTheOldFile) {
    for (const auto& [error, told] :
         {std::pair(EACCES, FileFailure::NoRight), std::pair(EROFS, FileFailure::NoRight),
          std::pair(ENOENT, FileFailure::MissingFolder)}) {
        FileFailure failure = FileFailure::None;
        faults.rename = error;
        EXPECT_FALSE(Replace(m_folder.Text("a"), "new", &failure));
        EXPECT_EQ(faults.rename, 0);
        EXPECT_EQ(failure, told);
        ExpectOldFileAlone();
    }
}

TEST_F(FileFault, AFileWhosePermissionsCantBeKeptIsNotReplaced) {
    faults.fchmod = EPERM;
    EXPECT_FALSE(Replace(m_folder.Text("a"), "new"));
    EXPECT_EQ(faults.fchmod, 0);
    ExpectOldFileAlone();
}

TEST_F(FileFault, AFullDiskLeavesTheOldFile) {
    // A limit on the size of files fails as a full disk does: after a part has been written.
    const int outcome = InChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{10'000, 10'000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        FileReplacement file(m_folder.Text("a"));
        const std::string bytes(7'000, 'x');
        if (!file.Write(bytes.data(), bytes.size()))
            return 1;
        if (file.Write(bytes.data(), bytes.size()))
            return 2;
        if (file.Commit())
            return 3;
        return file.Failure() == FileFailure::DiskFull ? 0 : 4;
    });
    EXPECT_EQ(outcome, 0);
    ExpectOldFileAlone();
}

TEST_F(FileFault, WithoutRightsNothingIsReplaced) {
    constexpr uid_t nobody = 65534;
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can become somebody else";
    const auto asNobody = [&](const char* name) {
        return InChild([&] {
            if (::setgid(nobody) != 0 || ::setuid(nobody) != 0)
                return 100;
            FileFailure failure = FileFailure::None;
            Replace(m_folder.Text(name), "new", &failure);
            return static_cast<int>(failure);
        });
    };
    const int noRight = static_cast<int>(FileFailure::NoRight);
    EXPECT_EQ(asNobody("a"), noRight);    // neither the file nor the folder
    EXPECT_EQ(asNobody("new"), noRight);  // not the folder
    ::chmod(m_folder.Path().c_str(), 0777);
    EXPECT_EQ(asNobody("a"), noRight);  // not the file
    ExpectOldFileAlone();
    ::chmod(m_folder.File("a").c_str(), 0666);
    EXPECT_EQ(asNobody("a"), 0);
    EXPECT_EQ(m_folder.Read("a"), "new");
    EXPECT_EQ(m_folder.Entries(), 1);
}

TEST_F(FileFault, AKilledProcessLeavesTheOldFileOrTheNewOne) {
    const std::string oldBytes(300'000, 'o');
    const std::string newBytes(400'000, 'n');
    int replaced = 0;
    for (int i = 0; i < 60; ++i) {
        m_folder.Write("a", oldBytes);
        const pid_t child = ::fork();
        if (child == 0) {
            Replace(m_folder.Text("a"), newBytes);
            ::_exit(0);
        }
        ::usleep(static_cast<useconds_t>(i * 40));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const std::string found = m_folder.Read("a");
        ASSERT_TRUE(found == oldBytes || found == newBytes) << i;
        replaced += found == newBytes ? 1 : 0;
    }
    RecordProperty("replaced", replaced);
}

}  // namespace
