// A formula's text made ready for parsing: without blanks, with its operators and brackets noted.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "QsUtils/expression/Scratch.h"

namespace ExpressionAnalyse {

enum class MarkKind : std::uint8_t { Sum, Product, Open, Close, End };

/// An operator or a bracket in the text; the last mark stands at the end of the text.
struct Mark {
    static constexpr std::uint32_t None = UINT32_MAX;

    std::uint32_t position;     // code units
    std::uint32_t partner;      // of an opening bracket in properly nested text: the mark that closes it
    std::uint32_t lastProduct;  // the last product operator among the marks before, or None
    MarkKind kind;
    std::uint8_t bracket;  // 0, 1, 2 for round, square, curly
};

/// How many brackets of each kind are open in front of a place; negative behind more closings.
using OpenCounts = std::array<std::int32_t, 3>;

/// The text with "×" and "÷" replaced and blanks removed, and its marks. Made in one pass.
class FormulaText {
public:
    explicit FormulaText(std::u16string_view text);
    FormulaText(const FormulaText&) = delete;
    FormulaText& operator=(const FormulaText&) = delete;

    /// 0, or 2, 3, 4 when the numbers of round, square or curly brackets differ.
    int BracketError() const noexcept;

    char16_t* Units() noexcept { return m_units.Data(); }
    std::uint32_t Length() const noexcept { return m_length; }

    const Mark* Marks() const noexcept { return m_marks.Data(); }
    /// Without the one at the end.
    std::uint32_t MarkCount() const noexcept { return m_markCount; }
    std::uint32_t OpenBracketCount() const noexcept { return m_openBrackets; }

    bool HasBrackets() const noexcept { return m_hasBrackets; }
    /// Whether each closing bracket closes the last one opened, of its own kind.
    bool IsProperlyNested() const noexcept { return m_isNested; }
    /// The open brackets in front of a mark; only for a text with brackets, and counted when first asked for.
    const OpenCounts& CountsAt(std::uint32_t mark) {
        if (!m_isCounted)
            CountBrackets();
        return m_counts.Data()[mark];
    }

private:
    // Inline room for the formulas that people write by hand.
    static constexpr std::size_t InlineUnits = 192;
    static constexpr std::size_t InlineMarks = InlineUnits + 1;
    static constexpr std::size_t InlineCounts = 64;

    void AddOpening(std::uint32_t index, int bracket) noexcept;
    void AddClosing(std::uint32_t index, int bracket) noexcept;
    void CountBrackets();

    Scratch<char16_t, InlineUnits> m_units;
    Scratch<Mark, InlineMarks> m_marks;
    Scratch<OpenCounts, InlineCounts> m_counts;
    std::uint32_t m_length = 0;
    std::uint32_t m_markCount = 0;
    std::uint32_t m_openBrackets = 0;
    std::uint32_t m_innermost = Mark::None;  // the open brackets, linked through their partners
    OpenCounts m_leftOpen{};                 // in the end
    bool m_hasBrackets = false;
    bool m_isNested = true;
    bool m_isCounted = false;
};

}  // namespace ExpressionAnalyse
