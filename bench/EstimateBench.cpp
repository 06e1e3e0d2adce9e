// Several bills priced through the task manager, by two threads beside one.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "hosts/estimate/PriceJobs.h"
#include "tests/estimate/BillGenerator.h"

namespace {

constexpr std::size_t BillCount = 8;
constexpr std::size_t RowCount = 20'000;

/// Bills of a size, in a folder that goes with them.
class Bills {
public:
    Bills() {
        std::string folder = (std::filesystem::temp_directory_path() / "qsutils-bench-XXXXXX").string();
        if (::mkdtemp(folder.data()) == nullptr)
            std::abort();
        m_folder = folder;
        for (std::size_t i = 0; i < BillCount; ++i) {
            const std::filesystem::path path = m_folder / (std::to_string(i) + ".csv");
            std::ofstream file(path, std::ios::binary);
            GenerateBill(file, RowCount);
            m_paths.push_back(path.string());
        }
    }
    Bills(const Bills&) = delete;
    Bills& operator=(const Bills&) = delete;
    ~Bills() { std::filesystem::remove_all(m_folder); }

    const std::vector<std::string>& Paths() const { return m_paths; }

private:
    std::filesystem::path m_folder;
    std::vector<std::string> m_paths;
};

void Price(benchmark::State& state, unsigned jobs) {
    const Bills bills;
    Estimate::PriceOptions options;
    options.json = true;
    for (auto _ : state) {
        std::istringstream in;
        std::ostringstream out;
        std::ostringstream err;
        if (Estimate::PriceBills(options, bills.Paths(), jobs, {in, out, err, false}) != Estimate::AllDone) {
            state.SkipWithError("a bill isn't priced");
            return;
        }
        benchmark::DoNotOptimize(out.str().size());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(BillCount));
}

void PriceOurs(benchmark::State& state) {
    Price(state, 2);
}

void PriceOne(benchmark::State& state) {
    Price(state, 1);
}

BENCHMARK(PriceOurs)->Name("Estimate/Bills/ours")->UseRealTime();
BENCHMARK(PriceOne)->Name("Estimate/Bills/one")->UseRealTime();

}  // namespace
