// The value of a formula, without a tree.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "QsUtils/expression/FormulaText.h"
#include "QsUtils/expression/NodeArena.h"
#include "QsUtils/expression/SplitParser.h"

namespace ExpressionAnalyse {

/// Takes the parts of a formula as they come, in prefix order, and calculates them from the last to the first
/// on a stack of values. Of two sides the larger comes second and is calculated first, so that the stack
/// stays as low as the logarithm of their number.
class FormulaValue {
public:
    struct Place {};

    explicit FormulaValue(const FormulaText& text);

    Place LeftOf(Place) const noexcept { return {}; }
    Place RightOf(Place) const noexcept { return {}; }
    Place AddOperator(Place, Operation operation, bool rightFirst);
    Place AddFunction(Place, const FunctionName& function, bool negative, bool isEmpty);
    Place AddBracket(Place, std::int32_t bracket, bool negative, bool isEmpty);
    void AddOperand(Place, std::u16string_view text, bool negative);

    double Calculate() const noexcept;
    /// How many nodes the parts make as a tree.
    NodeCounts Counts() const noexcept { return m_counts; }

private:
    // Inline room for the formulas that people write by hand.
    static constexpr std::size_t InlineParts = 96;
    static constexpr std::size_t InlineNumbers = 48;

    void AddCode(unsigned int code) { m_codes.Data()[m_codeCount++] = static_cast<std::uint8_t>(code); }
    void AddNumber(double value, bool negative);

    Scratch<std::uint8_t, InlineParts> m_codes;
    Scratch<double, InlineNumbers> m_numbers;
    std::size_t m_codeCount = 0;
    std::size_t m_numberCount = 0;
    NodeCounts m_counts;
};

}  // namespace ExpressionAnalyse
