#include "QsUtils/codes/ItemCodeKeys.h"

#include <algorithm>

#include "QsUtils/codes/CodeCompare.h"

namespace QsCodes {

namespace {

int CompareRanks(std::uint32_t a, std::uint32_t b) {
    return a < b ? -1 : a > b ? 1 : 0;
}

}  // namespace

std::uint32_t ItemCodeKeys::Intern(std::u16string_view text) {
    const auto [place, isNew] = m_pieces.try_emplace(text, static_cast<std::uint32_t>(m_pieces.size()));
    if (isNew) {
        AppendNumberedKey(text, m_pieceKeys.Buffer());
        m_pieceKeys.Close();
    }
    return place->second;
}

void ItemCodeKeys::AddPart(std::u16string_view part) {
    m_details.push_back(Intern(part));
    const std::size_t count = m_details.size();
    m_details.push_back(NoPieces);
    if (part.find(u'-') == std::u16string_view::npos) {
        m_shape.push_back(NoPieces);
        return;
    }
    Pieces pieces(part, u"-");
    std::uint32_t number = 0;
    for (std::u16string_view piece; pieces.Next(piece); ++number)
        m_details.push_back(Intern(piece));
    m_details[count] = number;
    m_shape.push_back(number);
}

void ItemCodeKeys::Add(std::u16string_view code) {
    ItemCodeKey key{static_cast<std::uint32_t>(m_keys.size()), 0, 0, {}};
    m_codes.push_back(code);
    if (code.find(u'/') == std::u16string_view::npos) {
        m_hasWhole = true;
        m_keys.push_back(key);
        return;
    }
    key.details = static_cast<std::uint32_t>(m_details.size());
    m_details.push_back(0);
    m_shape.clear();
    Pieces parts(code, u"/");
    for (std::u16string_view part; parts.Next(part); ++m_details[key.details])
        AddPart(part);
    key.shape = m_shapes.try_emplace(m_shape, static_cast<std::uint32_t>(m_shapes.size() + 1)).first->second;
    m_keys.push_back(key);
}

void ItemCodeKeys::Finish() {
    if (m_hasWhole) {
        ByteKeys whole;
        whole.Reserve(m_codes.size(), 24);
        for (const std::u16string_view code : m_codes) {
            AppendNumberedKey(code, whole.Buffer());
            whole.Close();
        }
        m_whole = RankKeys(whole);
    }
    RankPieces();
}

/// Puts the ranks of the pieces in place of their numbers, in the lists and in the keys.
void ItemCodeKeys::RankPieces() {
    const Ranks pieces = RankKeys(m_pieceKeys);
    for (ItemCodeKey& key : m_keys) {
        if (key.shape == 0)
            continue;
        std::size_t inlined = 0;
        const auto keep = [&](std::uint32_t rank) {
            if (inlined < ItemCodeKey::InlineRanks)
                key.ranks[inlined++] = rank;
        };
        std::uint32_t* at = &m_details[key.details];
        for (std::uint32_t part = *at++; part > 0; --part) {
            *at = pieces.rank[*at];
            const std::uint32_t rank = *at++;
            const std::uint32_t count = *at++;
            if (count == NoPieces) {
                keep(rank);
                continue;
            }
            for (std::uint32_t i = 0; i < count; ++i, ++at) {
                *at = pieces.rank[*at];
                keep(*at);
            }
        }
    }
}

int ItemCodeKeys::Compare(const ItemCodeKey& a, const ItemCodeKey& b) const noexcept {
    if (a.shape == 0 || b.shape == 0)
        return CompareRanks(m_whole.rank[a.index], m_whole.rank[b.index]);
    if (a.shape == b.shape) {
        for (std::size_t i = 0; i < ItemCodeKey::InlineRanks; ++i)
            if (a.ranks[i] != b.ranks[i])
                return a.ranks[i] < b.ranks[i] ? -1 : 1;
        // All alike so far: short codes are then equal, and the list says so as fast as a test would.
    }
    return CompareParts(&m_details[a.details], &m_details[b.details]);
}

/// Compares the parts that two lists begin with and moves both behind them.
int ItemCodeKeys::ComparePart(const std::uint32_t*& a, const std::uint32_t*& b) const noexcept {
    const std::uint32_t rankA = *a++;
    const std::uint32_t rankB = *b++;
    const std::uint32_t countA = *a++;
    const std::uint32_t countB = *b++;
    int order = 0;
    if (countA == NoPieces || countB == NoPieces) {
        order = CompareRanks(rankA, rankB);
    } else {
        for (std::uint32_t i = 0; i < std::min(countA, countB) && order == 0; ++i)
            order = CompareRanks(a[i], b[i]);
    }
    a += countA == NoPieces ? 0 : countA;
    b += countB == NoPieces ? 0 : countB;
    return order;
}

int ItemCodeKeys::CompareParts(const std::uint32_t* a, const std::uint32_t* b) const noexcept {
    std::uint32_t common = std::min(*a++, *b++);
    int order = 0;
    for (; common > 0 && order == 0; --common)
        order = ComparePart(a, b);
    return order;
}

}  // namespace QsCodes
