// Code page 936 as two flat tables.
#pragma once

#include <array>
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

/// The tables, made by whichever thread asks first. Where ICU has no such converter, only ASCII is mapped.
const CodePageTables& CodePage936();

}  // namespace QsPlatform
