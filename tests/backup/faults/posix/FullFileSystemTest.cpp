// A file system that really gets full: a small one of memory, mounted where only a child of the test sees it.
#include <filesystem>
#include <fstream>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include "tests/backup/BackedUpProject.h"
#include "tests/backup/faults/Operations.h"
#include "tests/support/posix/InChild.h"

namespace {

namespace fs = std::filesystem;

enum Result : int {
    AllWhole,
    NothingMounted,
    DataBaseTorn,
    DrawingsTorn,
    SavedTorn,
    NeverFull,
    NeverDone,
    Raised
};

void WriteText(const char* path, const std::string& text) {
    const int file = ::open(path, O_WRONLY | O_CLOEXEC);
    static_cast<void>(::write(file, text.data(), text.size()));
    ::close(file);
}

/// What is mounted from now on is seen by this process alone.
bool TakeOwnMounts() {
    const std::string user = std::to_string(::geteuid());
    const std::string group = std::to_string(::getegid());
    if (::unshare(CLONE_NEWNS) != 0) {
        if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
            return false;
        WriteText("/proc/self/setgroups", "deny");
        WriteText("/proc/self/uid_map", "0 " + user + " 1");
        WriteText("/proc/self/gid_map", "0 " + group + " 1");
    }
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

bool MountSmall(const fs::path& folder) {
    fs::create_directories(folder);
    return ::mount("small", folder.c_str(), "tmpfs", 0, "size=512k") == 0;
}

/// Leaves so many pages free.
void Fill(const fs::path& folder, std::size_t pages) {
    struct statvfs status {};
    ::statvfs(folder.c_str(), &status);
    const std::size_t bytes = status.f_bfree > pages ? (status.f_bfree - pages) * status.f_bsize : 0;
    std::ofstream(folder / "filler", std::ios::binary) << std::string(bytes, 'f');
}

TreeOfFiles Drawings(char version) {
    TreeOfFiles tree;
    for (int i = 0; i < 12; ++i)
        tree[std::to_string(i)] = std::string(4000, version);
    return tree;
}

/// The operation with less and less room, down to none.
Result TryWithLittleRoom(const BackedUpProject& project, Operation operation) {
    const fs::path backUps = project.BackUp().parent_path();
    const fs::path folder = project.Folder().Path();
    if (!TakeOwnMounts() || !MountSmall(folder) || !MountSmall(backUps))
        return NothingMounted;
    const std::string dataBases[] = {std::string(9000, 'o'), std::string(30'000, 'w')};
    const TreeOfFiles saved = Drawings('s');
    const TreeOfFiles live = Drawings('l');
    bool wasFull = false;
    bool wasDone = false;
    for (std::size_t pages = 0; pages < 60; ++pages) {
        for (const fs::path& place : {folder, backUps})
            for (const auto& entry : fs::directory_iterator(place))
                fs::remove_all(entry.path());
        WriteBytes(project.DataBase(), dataBases[0]);
        WriteTree(project.Graphics(), live);
        WriteBytes(project.WorkingDataBase(), dataBases[1]);
        WriteTree(project.SavedGraphics(), saved);
        WriteBytes(project.Versions(), "[GraphicFileInfo]\r\nRunVer=2\r\nBackUpVer=1\r\n");
        Fill(folder, pages);
        Fill(backUps, pages);
        Carry(operation, project.Path());
        for (const fs::path& dataBase : {project.DataBase(), project.WorkingDataBase()})
            if (BytesOf(dataBase) != dataBases[0] && BytesOf(dataBase) != dataBases[1])
                return DataBaseTorn;
        const TreeOfFiles drawings = TreeAt(project.Graphics());
        const TreeOfFiles kept = TreeAt(project.SavedGraphics());
        if (drawings != live && drawings != saved)
            return DrawingsTorn;
        if (kept != live && kept != saved)
            return SavedTorn;
        (drawings == kept ? wasDone : wasFull) = true;
        // There is room again; what has been saved or opened is what is left in the end.
        for (const fs::path& place : {folder, backUps})
            fs::remove(place / "filler");
        Carry(Operation::Discard, project.Path());
        if (TreeAt(project.Graphics()) != drawings && operation != Operation::Discard)
            return DrawingsTorn;
    }
    return !wasFull ? NeverFull : !wasDone ? NeverDone : AllWhole;
}

class FullFileSystem : public ::testing::TestWithParam<Operation> {};

TEST_P(FullFileSystem, LeavesWholeVersions) {
    const BackedUpProject project;
    fs::create_directories(project.BackUp().parent_path());
    const int result = InChild([&]() -> int {
        try {
            return TryWithLittleRoom(project, GetParam());
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
            return Raised;
        }
    });
    if (result == NothingMounted)
        GTEST_SKIP() << "this user may not mount anything here";
    EXPECT_EQ(result, AllWhole);
}

INSTANTIATE_TEST_SUITE_P(Operations, FullFileSystem,
                         ::testing::Values(Operation::Open, Operation::Save, Operation::Discard));

}  // namespace
