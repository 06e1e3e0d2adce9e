#include "QsUtils/codes/SortKeys.h"

#include <algorithm>
#include <bit>

#include "QsUtils/platform/WordCompare.h"
#include "QsUtils/text/Numbers.h"

namespace QsCodes {

namespace {

using View = std::u16string_view;

void AppendByte(std::string& key, unsigned int byte) {
    key.push_back(static_cast<char>(static_cast<unsigned char>(byte)));
}

/// The lowest `bytes` bytes of a number, the highest of them first.
void AppendBigEndian(std::string& key, std::uint64_t number, int bytes) {
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
        AppendByte(key, static_cast<unsigned int>(number >> shift));
}

/// A number in one byte when it is small, else behind a byte that tells its length. No byte is 0, 1 or FF at
/// the first place, so that the end of a key and the end of a text stay below every number.
void AppendNumber(std::string& key, std::uint32_t number) {
    constexpr unsigned int First = 2;
    constexpr unsigned int Small = 0xF0;
    if (number < Small - First) {
        AppendByte(key, number + First);
        return;
    }
    const int bytes = static_cast<int>(std::bit_width(number) + 7) / 8;
    AppendByte(key, Small + static_cast<unsigned int>(bytes));
    AppendBigEndian(key, number, bytes);
}

/// A unit in one byte when it is ASCII, else in three. The first byte is never 0 or 1.
void AppendUnit(std::string& key, char16_t unit) {
    constexpr unsigned int First = 2;
    constexpr unsigned int Wide = 0x80;
    if (unit < Wide - First) {
        AppendByte(key, unit + First);
        return;
    }
    AppendByte(key, Wide);
    AppendBigEndian(key, unit, 2);
}

/// A key with its first sixteen bytes at hand, which settle nearly every compare.
struct KeyHead {
    std::uint64_t high, low;
    std::uint32_t index;
};

std::uint64_t Word(std::string_view key, std::size_t at) {
    std::uint64_t word = 0;
    for (std::size_t i = at; i < at + 8; ++i)
        word = word << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0u);
    return word;
}

}  // namespace

void ByteKeys::Reserve(std::size_t count, std::size_t bytes) {
    m_ends.reserve(count);
    m_bytes.reserve(count * bytes);
}

Ranks RankKeys(const ByteKeys& keys) {
    const std::size_t count = keys.Count();
    std::vector<KeyHead> heads;
    heads.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::string_view key = keys.Key(i);
        heads.push_back({Word(key, 0), Word(key, 8), static_cast<std::uint32_t>(i)});
    }
    // Negative, 0 or positive. Keys whose heads are alike may still differ behind them or in their length.
    const auto compare = [&keys](const KeyHead& a, const KeyHead& b) {
        if (a.high != b.high)
            return a.high < b.high ? -1 : 1;
        if (a.low != b.low)
            return a.low < b.low ? -1 : 1;
        return keys.Key(a.index).compare(keys.Key(b.index));
    };
    std::sort(heads.begin(), heads.end(), [&compare](const KeyHead& a, const KeyHead& b) {
        const int order = compare(a, b);
        return order != 0 ? order < 0 : a.index < b.index;
    });

    Ranks ranks;
    ranks.rank.resize(count);
    ranks.order.reserve(count);
    std::uint32_t rank = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0) {
            const bool differs = compare(heads[i - 1], heads[i]) != 0;
            rank += differs ? 1 : 0;
            ranks.distinct = ranks.distinct && differs;
        }
        ranks.rank[heads[i].index] = rank;
        ranks.order.push_back(heads[i].index);
    }
    return ranks;
}

void AppendQuotaKey(View code, std::string& key) {
    constexpr unsigned int EndOfText = 1;
    constexpr unsigned int NumberFirst = 1;
    constexpr unsigned int TextFirst = 2;
    // Numbers and texts alternate, so that the kind of the first token is the kind of them all.
    if (!code.empty())
        AppendByte(key, QsText::IsDigit(code.front()) ? NumberFirst : TextFirst);
    while (!code.empty()) {
        const bool isNumber = QsText::IsDigit(code.front());
        std::size_t length = 1;
        while (length < code.size() && QsText::IsDigit(code[length]) == isNumber)
            ++length;
        if (isNumber) {
            AppendNumber(key, static_cast<std::uint32_t>(QsText::ReadInt(code.substr(0, length))));
        } else {
            for (const char16_t unit : code.substr(0, length))
                AppendUnit(key, unit);
            AppendByte(key, EndOfText);
        }
        code.remove_prefix(length);
    }
}

void AppendBillKey(View code, std::string& key) {
    AppendNumber(key, static_cast<std::uint32_t>(code.size()));
    QsPlatform::AppendWordKey(code, key);
}

void AppendNumberedKey(View text, std::string& key) {
    constexpr unsigned int BelowNumbers = 1;
    constexpr unsigned int Numbers = 2;
    constexpr unsigned int AboveNumbers = 3;
    if (!text.empty()) {
        const bool isNumber = QsText::IsDigit(text.front());
        AppendByte(key, isNumber ? Numbers : text.front() < u'0' ? BelowNumbers : AboveNumbers);
        // The bits of doubles that are not negative order as the doubles do.
        if (isNumber)
            AppendBigEndian(key, std::bit_cast<std::uint64_t>(QsText::ReadDouble(text)), 8);
    }
    for (const char16_t unit : text)
        AppendUnit(key, unit);
}

}  // namespace QsCodes
