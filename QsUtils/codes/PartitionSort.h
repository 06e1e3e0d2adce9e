// The partition sort that fixes the order of items whose codes compare equal.
#pragma once

#include <array>
#include <cstddef>
#include <utility>

namespace QsCodes {

/// Sorts `items[0, count)` by a partition around a copy of the middle item, and then both sides. `below(x,
/// p)` and `above(x, p)` tell whether an item belongs before or behind the pivot; they need not be consistent
/// with each other or transitive: the scans are bounded by the range, so the sort ends with any answers, and
/// the permutation is a function of the answers alone. The sides are disjoint, so that their turn changes
/// nothing; taking the smaller first bounds the pending ranges by the logarithm of `count`.
template <typename Item, typename Below, typename Above>
void PartitionSort(Item* items, std::ptrdiff_t count, Below below, Above above) {
    struct Range {
        std::ptrdiff_t left, right;
    };
    std::array<Range, 64> pending;
    std::size_t depth = 0;
    Range range{0, count - 1};
    for (;;) {
        if (range.left >= range.right) {
            if (depth == 0)
                return;
            range = pending[--depth];
            continue;
        }
        const Item pivot = items[(range.left + range.right) / 2];
        std::ptrdiff_t i = range.left;
        std::ptrdiff_t j = range.right;
        do {
            while (i < range.right && below(items[i], pivot))
                ++i;
            while (j > range.left && above(items[j], pivot))
                --j;
            if (i > j)
                break;
            if (i != j)
                std::swap(items[i], items[j]);
            ++i;
            --j;
        } while (i <= j);

        Range smaller{range.left, j};
        Range larger{i, range.right};
        if (smaller.right - smaller.left > larger.right - larger.left)
            std::swap(smaller, larger);
        pending[depth++] = larger;
        range = smaller;
    }
}

}  // namespace QsCodes
