// The prepared form of item codes under `CompareStringW` with the separator "/".
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "QsUtils/codes/SortKeys.h"

namespace QsCodes {

/// One code of a sort. Codes of one shape, that is with like counts of parts and of pieces in each part,
/// compare by their ranks in turn; the others by the list of their parts.
struct ItemCodeKey {
    static constexpr std::size_t InlineRanks = 5;

    std::uint32_t index;    // of the item
    std::uint32_t shape;    // 0 for a code without "/"
    std::uint32_t details;  // where the list of parts begins
    std::array<std::uint32_t, InlineRanks> ranks;
};

/// Makes the keys of all codes of a sort and compares them as `CompareStringW(a, b, L'/')` compares the
/// codes. Each distinct piece of text is looked at once and known by its rank from then on. The texts must
/// stay where they are until `Finish`.
class ItemCodeKeys {
public:
    void Add(std::u16string_view code);
    void Finish();

    /// Whether no code has a "/", so that the ranks of the whole texts say all.
    bool AreWholeTexts() const noexcept { return m_shapes.empty(); }
    const Ranks& WholeRanks() const noexcept { return m_whole; }

    std::vector<ItemCodeKey>& Keys() noexcept { return m_keys; }
    int Compare(const ItemCodeKey& a, const ItemCodeKey& b) const noexcept;

private:
    // In the list of parts: the number of parts, then for each part its rank, its number of pieces between
    // "-" (NoPieces when it has no "-") and their ranks.
    static constexpr std::uint32_t NoPieces = UINT32_MAX;

    std::uint32_t Intern(std::u16string_view text);
    void AddPart(std::u16string_view part);
    void RankPieces();
    int ComparePart(const std::uint32_t*& a, const std::uint32_t*& b) const noexcept;
    int CompareParts(const std::uint32_t* a, const std::uint32_t* b) const noexcept;

    std::vector<ItemCodeKey> m_keys;
    std::vector<std::u16string_view> m_codes;
    std::vector<std::uint32_t> m_details;
    std::unordered_map<std::u16string_view, std::uint32_t> m_pieces;
    ByteKeys m_pieceKeys;
    std::unordered_map<std::u32string, std::uint32_t> m_shapes;
    std::u32string m_shape;
    std::vector<std::uint32_t> m_ranks;
    Ranks m_whole;
    bool m_hasWhole = false;
};

}  // namespace QsCodes
