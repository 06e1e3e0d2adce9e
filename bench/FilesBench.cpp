// Folders searched and copied, beside the system's own programs. What a round leaves is kept until the end: a
// file system is slow to give new files room that has just been freed, and that would be what is measured.
#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>

#include <QsUtils/QsUtils.h>
#include <benchmark/benchmark.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;

/// Runs a program without a shell, and its output goes nowhere.
template <typename... Arguments>
void Run(const char* program, const Arguments&... arguments) {
    const pid_t child = ::vfork();
    if (child == 0) {
        ::execlp(program, program, arguments..., nullptr);
        ::_exit(127);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (status != 0)
        throw std::runtime_error(program);
}

void WriteFile(const fs::path& path, std::size_t size) {
    std::ofstream(path, std::ios::binary) << std::string(size, 'x');
}

/// 100,000 empty files in 1,100 folders.
const TemporaryFolder& Library() {
    static const TemporaryFolder folder;
    if (folder.Entries() > 0)
        return folder;
    for (int i = 0; i < 100; ++i) {
        for (int j = 0; j < 10; ++j) {
            const fs::path sub = folder.File("family" + std::to_string(i) + "/section" + std::to_string(j));
            fs::create_directories(sub);
            for (int k = 0; k < 100; ++k)
                WriteFile(sub / ("library " + std::to_string(k) + ".ec"), 0);
        }
    }
    return folder;
}

void FindPathOurs(benchmark::State& state) {
    const CString folder = FromNativePath(Library().Path()) + u'\\';
    CString found;
    for (auto _ : state) {
        IQsUtils::FindPath(found, folder, u"no such library.ec", u"");
        benchmark::DoNotOptimize(found);
    }
}
BENCHMARK(FindPathOurs)->Name("Files/FindPath/ours")->Unit(benchmark::kMillisecond)->UseRealTime();

void FindPathFind(benchmark::State& state) {
    const std::string folder = Library().Path().string();
    for (auto _ : state)
        Run("find", folder.c_str(), "-name", "no such library.ec");
}
BENCHMARK(FindPathFind)->Name("Files/FindPath/find")->Unit(benchmark::kMillisecond)->UseRealTime();

void FindPathIterator(benchmark::State& state) {
    for (auto _ : state) {
        std::int64_t found = 0;
        for (const auto& entry : fs::recursive_directory_iterator(Library().Path()))
            found += entry.path().filename() == "no such library.ec";
        benchmark::DoNotOptimize(found);
    }
}
BENCHMARK(FindPathIterator)->Name("Files/FindPath/iterator")->Unit(benchmark::kMillisecond)->UseRealTime();

void RememberedOurs(benchmark::State& state) {
    const CString folder = FromNativePath(Library().Path()) + u'\\';
    CString found;
    for (auto _ : state) {
        IQsUtils1::FindPath(found, folder, u"library 99.ec", u"");
        benchmark::DoNotOptimize(found);
    }
}
BENCHMARK(RememberedOurs)->Name("Files/RememberedFindPath/ours");

void RememberedMap(benchmark::State& state) {
    const CString folder = FromNativePath(Library().Path()) + u'\\';
    std::map<CString, CString> known = {{folder + u"@library 99.ec@", folder + u"library 99.ec"}};
    CString found;
    for (auto _ : state) {
        const CString key = folder + u"@" + u"library 99.ec" + u"@";
        found = known.find(key)->second;
        benchmark::DoNotOptimize(found);
    }
}
BENCHMARK(RememberedMap)->Name("Files/RememberedFindPath/map");

/// 5,000 files of some kilobytes in 50 folders.
const TemporaryFolder& Project() {
    static const TemporaryFolder folder;
    std::mt19937 random(1);
    for (int i = 0; folder.Entries() < 50; ++i) {
        const fs::path sub = folder.File("part" + std::to_string(i));
        fs::create_directory(sub);
        for (int k = 0; k < 100; ++k)
            WriteFile(sub / (std::to_string(k) + ".xml"), 500 + random() % 3500);
    }
    return folder;
}

constexpr int CopyRounds = 5;

void CopyNewOurs(benchmark::State& state) {
    static const TemporaryFolder targets;
    static int count = 0;
    const CString source = FromNativePath(Project().Path());
    for (auto _ : state)
        IQsUtils::CopyFolderAllFiles(source, targets.Text(std::to_string(++count)), true);
}
BENCHMARK(CopyNewOurs)
    ->Name("Files/CopyNew/ours")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(CopyRounds);

void CopyNewCp(benchmark::State& state) {
    static const TemporaryFolder targets;
    static int count = 0;
    for (auto _ : state)
        Run("cp", "-r", Project().Path().c_str(), targets.File(std::to_string(++count)).c_str());
}
BENCHMARK(CopyNewCp)
    ->Name("Files/CopyNew/cp")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(CopyRounds);

void CopyRefreshedOurs(benchmark::State& state) {
    static const TemporaryFolder target;
    const CString source = FromNativePath(Project().Path());
    IQsUtils::CopyFolderAllFiles(source, target.Text("copy"), true);
    for (auto _ : state)
        IQsUtils::CopyFolderAllFiles(source, target.Text("copy"), true);
}
BENCHMARK(CopyRefreshedOurs)
    ->Name("Files/CopyRefreshed/ours")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(CopyRounds);

void CopyRefreshedCp(benchmark::State& state) {
    static const TemporaryFolder target;
    const std::string copy = target.File("copy").string();
    Run("cp", "-r", Project().Path().c_str(), copy.c_str());
    for (auto _ : state) {
        Run("rm", "-rf", copy.c_str());
        Run("cp", "-r", Project().Path().c_str(), copy.c_str());
    }
}
BENCHMARK(CopyRefreshedCp)
    ->Name("Files/CopyRefreshed/cp")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(CopyRounds);

/// A folder with one file of 64 MB.
const TemporaryFolder& Drawing() {
    static const TemporaryFolder folder;
    if (folder.Entries() == 0)
        WriteFile(folder.File("drawing"), std::size_t{64} << 20);
    return folder;
}

void CopyLargeOurs(benchmark::State& state) {
    static const TemporaryFolder targets;
    const CString source = FromNativePath(Drawing().Path());
    for (auto _ : state) {
        IQsUtils::CopyFolderAllFiles(source, targets.Text("copy"), true);
        state.PauseTiming();
        fs::remove_all(targets.File("copy"));
        state.ResumeTiming();
    }
}
BENCHMARK(CopyLargeOurs)->Name("Files/CopyLarge/ours")->Unit(benchmark::kMillisecond)->UseRealTime();

void CopyLargeCp(benchmark::State& state) {
    static const TemporaryFolder targets;
    for (auto _ : state) {
        Run("cp", "-r", Drawing().Path().c_str(), targets.File("copy").c_str());
        state.PauseTiming();
        fs::remove_all(targets.File("copy"));
        state.ResumeTiming();
    }
}
BENCHMARK(CopyLargeCp)->Name("Files/CopyLarge/cp")->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
