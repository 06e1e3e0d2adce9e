#include "TextWidth.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "Utf8.h"

namespace Estimate {
namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// Ascending. The scattered symbols below U+2E80 that are wide only as emoji don't occur in bills.
constexpr std::array WideRanges = {
    Range{0x1100, 0x115F},   Range{0x231A, 0x231B},   Range{0x2329, 0x232A},   Range{0x23E9, 0x23EC},
    Range{0x25FD, 0x25FE},   Range{0x2614, 0x2615},   Range{0x2648, 0x2653},   Range{0x26AA, 0x26AB},
    Range{0x2795, 0x2797},   Range{0x2B1B, 0x2B1C},   Range{0x2E80, 0x303E},   Range{0x3041, 0x4DBF},
    Range{0x4E00, 0xA4CF},   Range{0xA960, 0xA97C},   Range{0xAC00, 0xD7A3},   Range{0xF900, 0xFAFF},
    Range{0xFE10, 0xFE19},   Range{0xFE30, 0xFE6F},   Range{0xFF01, 0xFF60},   Range{0xFFE0, 0xFFE6},
    Range{0x16FE0, 0x18DFF}, Range{0x1AFF0, 0x1B2FF}, Range{0x1F200, 0x1F64F}, Range{0x1F680, 0x1F6FF},
    Range{0x1F900, 0x1FAFF}, Range{0x20000, 0x3FFFD}};
constexpr std::array Empty = {Range{0x0000, 0x001F}, Range{0x007F, 0x009F}, Range{0x00AD, 0x00AD},
                              Range{0x0300, 0x036F}, Range{0x200B, 0x200F}, Range{0x20D0, 0x20FF},
                              Range{0x302A, 0x302D}, Range{0xFE00, 0xFE0F}, Range{0xFE20, 0xFE2F},
                              Range{0xFEFF, 0xFEFF}};

template <typename Ranges>
bool IsIn(const Ranges& ranges, char32_t character) {
    const auto above = std::ranges::upper_bound(ranges, character, {}, &Range::first);
    return above != ranges.begin() && character <= std::prev(above)->last;
}

std::size_t WidthOf(char32_t character) {
    if (character >= 0x20 && character < 0x7F)
        return 1;
    return IsIn(Empty, character) ? 0 : IsIn(WideRanges, character) ? 2 : 1;
}

}  // namespace

std::size_t DisplayWidth(std::string_view text) {
    std::size_t width = 0;
    for (std::size_t at = 0; at < text.size();)
        width += WidthOf(NextCharacter(text, at));
    return width;
}

std::string Padded(std::string_view text, std::size_t width, Align align) {
    const std::size_t own = DisplayWidth(text);
    const std::string blanks(width > own ? width - own : 0, ' ');
    return align == Align::Left ? std::string(text) + blanks : blanks + std::string(text);
}

std::string Shortened(std::string_view text, std::size_t width) {
    std::string plain(text);
    for (char& byte : plain)
        if ((byte >= 0 && byte < ' ') || byte == '\x7F')
            byte = ' ';
    if (DisplayWidth(plain) <= width)
        return plain;
    constexpr std::string_view mark = "..";
    std::size_t used = mark.size();
    std::size_t end = 0;
    for (std::size_t at = 0; at < plain.size(); end = at) {
        used += WidthOf(NextCharacter(plain, at));
        if (used > width)
            break;
    }
    return plain.substr(0, end).append(mark);
}

}  // namespace Estimate
