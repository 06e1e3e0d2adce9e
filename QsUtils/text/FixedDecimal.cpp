#include "QsUtils/text/FixedDecimal.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace QsText {

namespace {

__extension__ using Wide = unsigned __int128;

constexpr std::array<std::uint64_t, 7> Powers = {1, 10, 100, 1000, 10000, 100000, 1000000};

constexpr int MantissaBits = 52;
constexpr std::uint64_t MantissaMask = (std::uint64_t{1} << MantissaBits) - 1;

/// A finite double as mantissa times 2 to the power `exponent`.
struct Parts {
    std::uint64_t mantissa;
    int exponent;
};

Parts Split(double value) noexcept {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const int biased = static_cast<int>((bits >> MantissaBits) & 0x7FF);
    if (biased == 0)
        return {bits & MantissaMask, -1074};
    return {(bits & MantissaMask) | (MantissaMask + 1), biased - 1075};
}

/// `number` divided by 2 to the power `shift` (1 to 127), rounded half to even.
Wide ShiftRounded(Wide number, int shift) noexcept {
    const Wide quotient = number >> shift;
    const Wide rest = number - (quotient << shift);
    const Wide half = Wide{1} << (shift - 1);
    return quotient + (rest > half || (rest == half && (quotient & 1) != 0) ? 1 : 0);
}

}  // namespace

FixedDecimal::FixedDecimal(double value, int decimals, bool trimZeros) noexcept {
    if (!WriteExactly(value, decimals))
        WriteLong(value, decimals);
    if (trimZeros && decimals > 0)
        Trim();
}

/// The usual amounts: the value times 10^decimals is a whole number below 2^64, made in one exact product.
bool FixedDecimal::WriteExactly(double value, int decimals) noexcept {
    const auto [mantissa, exponent] = Split(value);
    if (exponent > 10)
        return false;
    Wide scaled = Wide{mantissa} * Powers[static_cast<std::size_t>(decimals)];
    if (exponent > 0)
        scaled <<= exponent;
    else if (exponent < 0)
        scaled = exponent > -128 ? ShiftRounded(scaled, -exponent) : 0;  // a product has at most 73 bits
    if ((scaled >> 64) != 0)
        return false;

    auto rest = static_cast<std::uint64_t>(scaled);
    std::size_t at = m_text.size();
    m_end = at;
    const auto digit = [&] {
        m_text[--at] = static_cast<char16_t>(u'0' + rest % 10);
        rest /= 10;
    };
    for (int i = 0; i < decimals; ++i)
        digit();
    if (decimals > 0)
        m_text[--at] = u'.';
    do {
        digit();
    } while (rest != 0);
    if (std::signbit(value))
        m_text[--at] = u'-';
    m_begin = at;
    return true;
}

void FixedDecimal::WriteLong(double value, int decimals) noexcept {
    std::array<char, 328> narrow;
    const auto end =
        std::to_chars(narrow.data(), narrow.data() + narrow.size(), value, std::chars_format::fixed, decimals)
            .ptr;
    m_begin = 0;
    m_end = 0;
    for (const char* it = narrow.data(); it != end; ++it)
        m_text[m_end++] = static_cast<char16_t>(*it);
}

void FixedDecimal::Trim() noexcept {
    if (View().find(u'.') == std::u16string_view::npos)
        return;
    while (m_text[m_end - 1] == u'0')
        --m_end;
    if (m_text[m_end - 1] == u'.')
        --m_end;
}

}  // namespace QsText
