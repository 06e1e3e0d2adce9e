// A double with a fixed number of decimals.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace QsText {

/// Writes a finite double exactly rounded to at most six decimals, ties to even, a negative zero with its
/// sign; "inf", "-inf", "nan" or "-nan" otherwise. With `trimZeros` zeros at the end of the decimals go, and
/// the point with the last of them. No allocation.
class FixedDecimal {
public:
    static constexpr int MostDecimals = 6;

    FixedDecimal(double value, int decimals, bool trimZeros = false) noexcept;

    std::u16string_view View() const noexcept { return {m_text.data() + m_begin, m_end - m_begin}; }

private:
    bool WriteExactly(double value, int decimals) noexcept;
    void WriteLong(double value, int decimals) noexcept;
    void Trim() noexcept;

    // The largest double has 309 digits before its point.
    std::array<char16_t, 328> m_text;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
};

}  // namespace QsText
