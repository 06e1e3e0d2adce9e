#include "QsUtils/codes/CodeSort.h"

#include <cstdint>

#include "QsUtils/codes/CodeCompare.h"
#include "QsUtils/codes/ItemCodeKeys.h"
#include "QsUtils/codes/PartitionSort.h"
#include "QsUtils/codes/SortKeys.h"

namespace QsCodes {

namespace {

/// A code in the partition: its rank, or the mark of a quota code that is too long to have one.
struct RankedItem {
    std::uint32_t rank;
    std::uint32_t index;
};

constexpr std::uint32_t TooLong = UINT32_MAX;

/// Puts the items into the order of `index(0)`, `index(1)` and so on.
template <typename Index>
void Rearrange(CodeItems& items, Index index) {
    CodeItems sorted;
    sorted.reserve(items.size());
    for (std::size_t i = 0; i < items.size(); ++i)
        sorted.push_back(std::move(items[index(i)]));
    items.swap(sorted);
}

/// Runs the partition on ranks, which order as the codes do. Without equal ranks its outcome is the one
/// sorted order, whatever its steps, and is at hand already.
template <typename Below, typename Above>
void SortByRank(CodeItems& items, const Ranks& ranks, bool consistent, Below below, Above above) {
    if (consistent && ranks.distinct) {
        Rearrange(items, [&](std::size_t i) { return ranks.order[i]; });
        return;
    }
    std::vector<RankedItem> ranked(items.size());
    for (std::size_t i = 0; i < items.size(); ++i)
        ranked[i] = {ranks.rank[i], static_cast<std::uint32_t>(i)};
    PartitionSort(ranked.data(), static_cast<std::ptrdiff_t>(ranked.size()), below, above);
    Rearrange(items, [&](std::size_t i) { return ranked[i].index; });
}

void SortByRank(CodeItems& items, const Ranks& ranks) {
    SortByRank(
        items, ranks, true, [](const RankedItem& a, const RankedItem& b) { return a.rank < b.rank; },
        [](const RankedItem& a, const RankedItem& b) { return a.rank > b.rank; });
}

}  // namespace

void SortDeItemCodes(CodeItems& items) {
    if (items.size() < 2)
        return;
    ByteKeys keys;
    keys.Reserve(items.size(), 12);
    std::vector<std::uint32_t> tooLong;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const std::u16string_view code = items[i].first.View();
        if (code.size() < QuotaCodeLimit)
            AppendQuotaKey(code, keys.Buffer());
        else
            tooLong.push_back(static_cast<std::uint32_t>(i));
        keys.Close();
    }
    Ranks ranks = RankKeys(keys);
    if (tooLong.empty()) {
        SortByRank(items, ranks);
        return;
    }
    for (const std::uint32_t index : tooLong)
        ranks.rank[index] = TooLong;
    // A compare with a code that is too long always answers "below", from either side.
    SortByRank(
        items, ranks, false,
        [](const RankedItem& a, const RankedItem& b) {
            return a.rank == TooLong || b.rank == TooLong || a.rank < b.rank;
        },
        [](const RankedItem& a, const RankedItem& b) {
            return a.rank != TooLong && b.rank != TooLong && a.rank > b.rank;
        });
}

void SortQdItemCodes(CodeItems& items) {
    if (items.size() < 2)
        return;
    ByteKeys keys;
    keys.Reserve(items.size(), 16);
    for (const auto& item : items) {
        AppendBillKey(item.first.View(), keys.Buffer());
        keys.Close();
    }
    SortByRank(items, RankKeys(keys));
}

void SortItemCodes(CodeItems& items) {
    if (items.size() < 2)
        return;
    ItemCodeKeys keys;
    for (const auto& item : items)
        keys.Add(item.first.View());
    keys.Finish();
    if (keys.AreWholeTexts()) {
        SortByRank(items, keys.WholeRanks());
        return;
    }
    std::vector<ItemCodeKey>& sorted = keys.Keys();
    PartitionSort(
        sorted.data(), static_cast<std::ptrdiff_t>(sorted.size()),
        [&keys](const ItemCodeKey& a, const ItemCodeKey& b) { return keys.Compare(a, b) < 0; },
        [&keys](const ItemCodeKey& a, const ItemCodeKey& b) { return keys.Compare(a, b) > 0; });
    Rearrange(items, [&](std::size_t i) { return sorted[i].index; });
}

}  // namespace QsCodes
