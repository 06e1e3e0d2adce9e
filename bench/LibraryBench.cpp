// All families, sections, items and offered quota libraries of an installation, per section; beside one half
// as large, and beside a bare walk over the same folders.
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "QsUtils/QsUtils.h"

#include "tests/support/TemporaryFolder.h"

namespace {

constexpr int Sections = 20;

/// An installation whose libraries are those of `families` families as long as a `Libraries` of that number
/// stands.
class LibraryInstallation {
public:
    LibraryInstallation() {
        std::filesystem::copy_file(LIBRARY_COMPANION,
                                   m_folder.Path() / std::filesystem::path(LIBRARY_COMPANION).filename());
        for (const int families : {100, 200}) {
            for (int family = 0; family < families; ++family)
                MakeFamily(std::to_string(families) + "/family" + std::to_string(family));
        }
        DirectoryManager::UseInstallation(FromNativePath(m_folder.Path()));
    }
    std::filesystem::path Root() const { return m_folder.File("libraries"); }
    std::filesystem::path Tree(int families) const { return m_folder.File(std::to_string(families)); }

private:
    void MakeFamily(const std::string& family) const {
        for (int number = 0; number < Sections; ++number) {
            const std::filesystem::path section =
                m_folder.File(family) / ("section" + std::to_string(number));
            for (const char* item : {"item1", "item2"})
                std::filesystem::create_directories(section / "items" / item);
            for (const char* file : {"1.dek", "2.dek", "3.dek"})
                std::ofstream(section / file).flush();
        }
    }

    TemporaryFolder m_folder;
};

const LibraryInstallation& Installation() {
    static const LibraryInstallation installation;
    return installation;
}

class Libraries {
public:
    explicit Libraries(int families) : m_tree(Installation().Tree(families)) {
        std::filesystem::rename(m_tree, Installation().Root());
    }
    Libraries(const Libraries&) = delete;
    Libraries& operator=(const Libraries&) = delete;
    ~Libraries() { std::filesystem::rename(Installation().Root(), m_tree); }

private:
    std::filesystem::path m_tree;
};

std::size_t ListAll() {
    LibraryManager::ILibraryManager& manager = *LibraryManager::GetLibraryManager();
    std::vector<CString> families;
    std::vector<CString> sections;
    std::vector<CString> names;
    manager.GetLibraryFamilies(families);
    for (const CString& family : families) {
        manager.GetFamilySections(sections, family);
        for (const CString& section : sections) {
            manager.GetSectionItems(names, family, section);
            manager.GetQuotaLibraryNames(names, family, section, u"");
        }
    }
    return names.size();
}

void ListAllOf(benchmark::State& state, int families) {
    const Libraries libraries(families);
    const std::size_t sections = static_cast<std::size_t>(families) * Sections;
    for (auto _ : state) {
        if (ListAll() != sections * 5)
            state.SkipWithError("not all libraries");
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(sections));
}

void WalkAll(benchmark::State& state) {
    const Libraries libraries(200);
    for (auto _ : state) {
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(Installation().Root()))
            count += entry.is_directory() ? 1 : 0;
        benchmark::DoNotOptimize(count);
    }
    state.SetItemsProcessed(state.iterations() * 200 * Sections);
}

BENCHMARK_CAPTURE(ListAllOf, twoHundred, 200)->Name("Libraries/List/ours")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ListAllOf, oneHundred, 100)->Name("Libraries/List/half")->Unit(benchmark::kMillisecond);
BENCHMARK(WalkAll)->Name("Libraries/List/walk")->Unit(benchmark::kMillisecond);

}  // namespace
