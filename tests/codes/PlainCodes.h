// The orders of item codes and the partition sort written down as plainly as they can be: each compare takes
// its texts apart afresh, and the sort recurses.
#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "QsUtils/QsUtils.h"

namespace PlainCodes {

using Items = std::vector<std::pair<CString, void*>>;

struct Token {
    bool isNumber;
    CString text;
    int value;
};

inline bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

inline std::vector<Token> Tokenise(const CString& text) {
    std::vector<Token> tokens;
    for (int i = 0; i < text.GetLength();) {
        const bool isNumber = IsDigit(text[i]);
        CString run;
        while (i < text.GetLength() && IsDigit(text[i]) == isNumber)
            run += text[i++];
        long long value = 0;
        for (int k = 0; isNumber && k < run.GetLength(); ++k)
            value = std::min(value * 10 + (run[k] - u'0'), 2147483647LL);
        tokens.push_back({isNumber, run, static_cast<int>(value)});
    }
    return tokens;
}

inline int CompareDECode(CString a, CString b) {
    if (a.GetLength() >= 500 || b.GetLength() >= 500)
        return -1;
    if (a == b)
        return 0;
    if (a.IsEmpty())
        return -1;
    if (b.IsEmpty())
        return 1;
    IQsUtils::ChangeSBCtoDBC(a);
    IQsUtils::ChangeSBCtoDBC(b);
    const std::vector<Token> left = Tokenise(a);
    const std::vector<Token> right = Tokenise(b);
    for (std::size_t i = 0; i < std::min(left.size(), right.size()); ++i) {
        const Token& x = left[i];
        const Token& y = right[i];
        if (x.isNumber != y.isNumber)
            return x.isNumber ? -1 : 1;
        if (x.isNumber) {
            if (x.value != y.value)
                return x.value < y.value ? -1 : 1;
            continue;
        }
        if (x.text == y.text)
            continue;
        for (int k = 0; k < std::min(x.text.GetLength(), y.text.GetLength()); ++k)
            if (x.text[k] != y.text[k])
                return x.text[k] < y.text[k] ? -1 : 1;
        return x.text.GetLength() < y.text.GetLength() ? -1 : 1;
    }
    return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
}

inline int CompareNumbers(const CString& a, const CString& b) {
    if (a.IsEmpty() || b.IsEmpty() || !IsDigit(a[0]) || !IsDigit(b[0]))
        return a.Compare(b);
    const double x = IQsUtils1::GetFormatedRateOfTransPrice(a);
    const double y = IQsUtils1::GetFormatedRateOfTransPrice(b);
    return x < y ? -1 : x > y ? 1 : a.Compare(b);
}

inline int CompareParts(const CString& a, const CString& b, wchar_t sep) {
    if (a.Compare(b) == 0)
        return 0;
    if (a.Find(sep) < 0 || b.Find(sep) < 0)
        return CompareNumbers(a, b);
    CStringArray left;
    CStringArray right;
    IQsUtils::Split(a, left, sep);
    IQsUtils::Split(b, right, sep);
    for (int i = 0; i < std::min(left.GetSize(), right.GetSize()); ++i) {
        const int order =
            sep == L'/' ? CompareParts(left[i], right[i], L'-') : CompareNumbers(left[i], right[i]);
        if (order != 0)
            return order;
    }
    return 0;
}

template <typename Compare>
void Sort(Items& items, int left, int right, Compare compare) {
    const CString pivot = items[static_cast<std::size_t>((left + right) / 2)].first;
    const auto at = [&items](int index) -> std::pair<CString, void*>& {
        return items[static_cast<std::size_t>(index)];
    };
    int i = left;
    int j = right;
    do {
        while (compare(at(i).first, pivot) < 0 && i < right)
            ++i;
        while (compare(at(j).first, pivot) > 0 && j > left)
            --j;
        if (i > j)
            break;
        if (i != j)
            std::swap(at(i), at(j));
        ++i;
        --j;
    } while (i <= j);
    if (left < j)
        Sort(items, left, j, compare);
    if (right > i)
        Sort(items, i, right, compare);
}

template <typename Compare>
void Sort(Items& items, Compare compare) {
    if (items.size() >= 2)
        Sort(items, 0, static_cast<int>(items.size()) - 1, compare);
}

inline void SortDe(Items& items) {
    Sort(items, [](const CString& a, const CString& b) { return CompareDECode(a, b); });
}
inline void SortQd(Items& items) {
    Sort(items, [](const CString& a, const CString& b) { return IQsUtils::CompareQDCode(a, b); });
}
inline void SortItems(Items& items) {
    Sort(items, [](const CString& a, const CString& b) { return CompareParts(a, b, L'/'); });
}

}  // namespace PlainCodes
