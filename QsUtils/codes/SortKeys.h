// Keys made once for each code of a sort, so that the compares of the sort don't look at the texts again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace QsCodes {

/// Keys of bytes, all in one buffer, that order as unsigned bytes with a proper prefix first.
class ByteKeys {
public:
    /// Room for `count` keys of about `bytes` bytes each.
    void Reserve(std::size_t count, std::size_t bytes);
    /// The buffer: append the next key's bytes and call `Close`.
    std::string& Buffer() noexcept { return m_bytes; }
    void Close() { m_ends.push_back(m_bytes.size()); }

    std::size_t Count() const noexcept { return m_ends.size(); }
    std::string_view Key(std::size_t index) const noexcept {
        const std::size_t begin = index == 0 ? 0 : m_ends[index - 1];
        return std::string_view(m_bytes).substr(begin, m_ends[index] - begin);
    }

private:
    std::string m_bytes;
    std::vector<std::size_t> m_ends;
};

/// The dense ranks of keys, from 0: equal keys have equal ranks, and a lower key a lower rank.
struct Ranks {
    std::vector<std::uint32_t> rank;   // of each key
    std::vector<std::uint32_t> order;  // the keys' indices, ascending; of equal keys the lower index first
    bool distinct = true;              // no two keys are equal
};

Ranks RankKeys(const ByteKeys& keys);

/// Appends the key of a quota code of less than `QuotaCodeLimit` units: it orders as `CompareDECode`.
void AppendQuotaKey(std::u16string_view code, std::string& key);
/// Appends the key of a bill code: it orders as `CompareQDCode`.
void AppendBillKey(std::u16string_view code, std::string& key);
/// Appends the key of a text under `CompareStringW` without a separator.
void AppendNumberedKey(std::u16string_view text, std::string& key);

}  // namespace QsCodes
