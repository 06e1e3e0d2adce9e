// The sorts of item codes, beside the plain partition sort and beside ICU's numeric collation.
#include <algorithm>
#include <memory>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>
#include <unicode/coll.h>
#include <unicode/unistr.h>

#include "QsUtils/QsUtils.h"

#include "tests/codes/PlainCodes.h"

namespace {

using PlainCodes::Items;

constexpr std::size_t Million = 1000000;

Items Made(CString (*make)(std::mt19937&)) {
    std::mt19937 random(1);
    Items items;
    items.reserve(Million);
    for (std::size_t i = 0; i < Million; ++i)
        items.emplace_back(make(random), nullptr);
    return items;
}

CString QuotaCode(std::mt19937& random) {
    CString code;
    code.Format(u"A%u-%u", random() % 20, random() % 100000);
    return code;
}

CString BillCode(std::mt19937& random) {
    CString code;
    code.Format(u"%04u%02u%03u%03u", 101 + random() % 15, 1 + random() % 20, 1 + random() % 60,
                1 + random() % 500);
    return code;
}

CString ItemCode(std::mt19937& random) {
    CString code;
    code.Format(u"%u-%u/%u/%u", random() % 20, random() % 200, random() % 100, random() % 50);
    return code;
}

template <typename Sort>
void Run(benchmark::State& state, CString (*make)(std::mt19937&), Sort sort) {
    const Items made = Made(make);
    Items items;
    for (auto _ : state) {
        state.PauseTiming();
        items = made;
        state.ResumeTiming();
        sort(items);
    }
}

void SortWithIcu(Items& items) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(icu::Locale("zh"), status));
    collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    std::sort(items.begin(), items.end(), [&](const auto& a, const auto& b) {
        return collator->compare(a.first.GetString(), a.first.GetLength(), b.first.GetString(),
                                 b.first.GetLength(), status) < 0;
    });
}

BENCHMARK_CAPTURE(Run, de, QuotaCode, IQsUtils::SortDeItemCodes)
    ->Name("Codes/SortDeItemCodes/ours")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Run, dePlain, QuotaCode, PlainCodes::SortDe)
    ->Name("Codes/SortDeItemCodes/plain")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Run, deIcu, QuotaCode, SortWithIcu)
    ->Name("Codes/SortDeItemCodes/icu")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Run, qd, BillCode, IQsUtils::SortQdItemCodes)
    ->Name("Codes/SortQdItemCodes/ours")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Run, qdPlain, BillCode, PlainCodes::SortQd)
    ->Name("Codes/SortQdItemCodes/plain")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Run, qdIcu, BillCode, SortWithIcu)
    ->Name("Codes/SortQdItemCodes/icu")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Run, items, ItemCode, IQsUtils::SortItemCodes)
    ->Name("Codes/SortItemCodes/ours")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Run, itemsPlain, ItemCode, PlainCodes::SortItems)
    ->Name("Codes/SortItemCodes/plain")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Run, itemsIcu, ItemCode, SortWithIcu)
    ->Name("Codes/SortItemCodes/icu")
    ->Unit(benchmark::kMillisecond);

}  // namespace
