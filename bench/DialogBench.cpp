// Templates listed and the picker opened, 20,000 of them in 100 folders.
#include <QApplication>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "QsUtils/platform/FolderEntries.h"
#include "QsUtils/ui/TemplateFiles.h"
#include "QsUtils/ui/qt/module/PickerView.h"

#include "tests/support/TemporaryFolder.h"

namespace {

constexpr std::size_t Folders = 100;
constexpr std::size_t FilesInFolder = 200;

const TemporaryFolder& Templates() {
    static const TemporaryFolder folder;
    if (folder.Entries() > 0)
        return folder;
    for (std::size_t sub = 0; sub < Folders; ++sub) {
        for (std::size_t file = 0; file < FilesInFolder; ++file)
            folder.Write("模板" + std::to_string(sub) + "/一般计税" + std::to_string(file) + ".fyt", "");
    }
    return folder;
}

void ListOurs(benchmark::State& state) {
    const CString folder = FromNativePath(Templates().Path()) + u"\\";
    for (auto _ : state)
        benchmark::DoNotOptimize(QsUi::FindTemplateFiles(folder, u".fyt").size());
}

/// All paths that end so, as they come.
void ListIterator(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<std::filesystem::path> paths;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(Templates().Path())) {
            if (!entry.is_directory() && entry.path().native().ends_with(".fyt"))
                paths.push_back(entry.path());
        }
        benchmark::DoNotOptimize(paths.size());
    }
}

void PlainScan(const CString& folder, std::vector<CString>& paths) {
    for (const QsPlatform::FolderEntry& entry : QsPlatform::FindEntries(folder + u"*.*")) {
        if (entry.isFolder && !entry.isDots)
            PlainScan(folder + entry.name + u"\\", paths);
        else if (!entry.isFolder && entry.name.Right(4) == u".fyt")
            paths.push_back(folder + entry.name);
    }
}

void ListPlain(benchmark::State& state) {
    const CString folder = FromNativePath(Templates().Path()) + u"\\";
    for (auto _ : state) {
        std::vector<CString> paths;
        PlainScan(folder, paths);
        benchmark::DoNotOptimize(paths.size());
    }
}

class Rows final : public QsUi::IPickerDialog {
public:
    explicit Rows(std::size_t count) : m_count(count) {}
    std::size_t RowCount() const noexcept override { return m_count; }
    std::u16string_view Cell(std::size_t, int column) const noexcept override {
        return column == 0 ? u"一般计税" : u"墨衡造价V7.1\\模板\\费用汇总模板\\一般计税.fyt";
    }
    std::optional<QsUi::InformationMessage> Confirm(std::size_t) noexcept override { return std::nullopt; }

private:
    std::size_t m_count;
};

/// From nothing to a painted window.
void Open(benchmark::State& state, std::size_t count) {
    Rows rows(count);
    for (auto _ : state) {
        QsQt::PickerView view(rows, nullptr);
        view.show();
        QApplication::processEvents();
        view.grab();
    }
}

void OpenOurs(benchmark::State& state) {
    Open(state, Folders * FilesInFolder);
}

void OpenShort(benchmark::State& state) {
    Open(state, FilesInFolder);
}

BENCHMARK(ListOurs)->Name("Templates/List/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(ListIterator)->Name("Templates/List/iterator")->Unit(benchmark::kMillisecond);
BENCHMARK(ListPlain)->Name("Templates/List/plain")->Unit(benchmark::kMillisecond);
BENCHMARK(OpenOurs)->Name("Templates/OpenPicker/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(OpenShort)->Name("Templates/OpenPicker/short")->Unit(benchmark::kMillisecond);

}  // namespace

int main(int count, char** arguments) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication application(count, arguments);
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
