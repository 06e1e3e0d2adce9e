#include "QsUtils/text/TextSearch.h"

#include <algorithm>

namespace QsText {

namespace {

/// Parts of up to this length are compared at every position: that is linear too, and quicker.
constexpr std::size_t ShortPart = 16;

/// Where the lexicographically largest suffix of a text begins, and the period of that suffix.
struct Suffix {
    std::size_t begin;
    std::size_t period;
};

template <typename Less>
Suffix LargestSuffix(std::u16string_view text, Less less) noexcept {
    Suffix suffix{0, 1};
    std::size_t candidate = 1;
    std::size_t same = 0;
    while (candidate + same < text.size()) {
        const char16_t a = text[candidate + same];
        const char16_t b = text[suffix.begin + same];
        if (less(a, b)) {
            candidate += same + 1;
            same = 0;
            suffix.period = candidate - suffix.begin;
        } else if (a == b) {
            if (++same == suffix.period) {
                candidate += same;
                same = 0;
            }
        } else {
            suffix = {candidate, 1};
            ++candidate;
            same = 0;
        }
    }
    return suffix;
}

/// Of the two orders' largest suffixes the shorter one is a critical factorisation.
Suffix CriticalFactorisation(std::u16string_view part) noexcept {
    const Suffix up = LargestSuffix(part, [](char16_t a, char16_t b) { return a < b; });
    const Suffix down = LargestSuffix(part, [](char16_t a, char16_t b) { return a > b; });
    return up.begin > down.begin ? up : down;
}

/// M. Crochemore, D. Perrin, "Two-way string-matching", Journal of the ACM 38 (1991): at most two comparisons
/// a unit and no memory of its own.
std::size_t FindTwoWay(std::u16string_view text, std::u16string_view part, std::size_t start) noexcept {
    const auto [cut, suffixPeriod] = CriticalFactorisation(part);
    const bool periodic = part.substr(0, cut) == part.substr(suffixPeriod, cut);
    const std::size_t period = periodic ? suffixPeriod : std::max(cut, part.size() - cut) + 1;

    // How much of the part's head is known to match, because the last shift was by its period.
    std::size_t known = 0;
    for (std::size_t at = start; at <= text.size() - part.size();) {
        std::size_t right = std::max(cut, known);
        while (right < part.size() && part[right] == text[at + right])
            ++right;
        if (right < part.size()) {
            at += right - cut + 1;
            known = 0;
            continue;
        }
        std::size_t left = cut;
        while (left > known && part[left - 1] == text[at + left - 1])
            --left;
        if (left <= known)
            return at;
        at += period;
        known = periodic ? part.size() - period : 0;
    }
    return std::u16string_view::npos;
}

}  // namespace

std::size_t FindText(std::u16string_view text, std::u16string_view part, std::size_t start) noexcept {
    if (start > text.size() || part.size() > text.size() - start)
        return std::u16string_view::npos;
    return part.size() <= ShortPart ? text.find(part, start) : FindTwoWay(text, part, start);
}

}  // namespace QsText
