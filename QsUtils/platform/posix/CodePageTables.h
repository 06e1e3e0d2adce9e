// Code page 936 as two flat tables.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace QsPlatform {

/// Both ways of the page, filled once from ICU's converter and constant from then on.
struct CodePageTables {
    /// By unit: the byte, or the pair with its lead byte below and its trail byte above. Never a lead byte
    /// alone.
    std::array<std::uint16_t, 0x10000> encoded;
    /// By lead byte from 0x81 on and trail byte: the unit.
    std::array<std::array<char16_t, 0x100>, 0x7E> pairs;
    /// By byte that is no lead byte: the unit.
    std::array<char16_t, 0x100> singles;
};

/// Whether the tables are filled. Use `CodePage936` instead of these two.
extern constinit std::atomic<bool> codePageFilled;
const CodePageTables& FillCodePage();
extern constinit CodePageTables codePageTables;

/// The tables, made by whichever thread asks first. Where ICU has no such converter, only ASCII is mapped.
inline const CodePageTables& CodePage936() {
    return codePageFilled.load(std::memory_order_acquire) ? codePageTables : FillCodePage();
}

}  // namespace QsPlatform
