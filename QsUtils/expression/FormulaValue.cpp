#include "QsUtils/expression/FormulaValue.h"

#include <array>

namespace ExpressionAnalyse {

namespace {

// A code is an operation, or 0 for the next number, with these flags.
constexpr unsigned int Number = 0;
constexpr unsigned int OperationBits = 0x1F;
constexpr unsigned int Negative = 0x20;
constexpr unsigned int RightFirst = 0x40;
constexpr unsigned int Group = 0x1F;  // in place of an operation

constexpr bool IsOperator(Operation operation) {
    return operation >= Operation::Add && operation <= Operation::Divide;
}

}  // namespace

FormulaValue::FormulaValue(const FormulaText& text) {
    // An operator makes two operands of one, a pair of brackets at most one group, and the shortest name of a
    // function has two letters.
    const std::size_t operators = text.MarkCount() - 2 * std::size_t{text.OpenBracketCount()};
    m_codes.Reserve(2 * operators + 1 + text.OpenBracketCount() + text.Length() / 2);
    m_numbers.Reserve(operators + 1);
}

FormulaValue::Place FormulaValue::AddOperator(Place, Operation operation, bool rightFirst) {
    ++m_counts.branches;
    AddCode(static_cast<unsigned int>(operation) | (rightFirst ? RightFirst : 0));
    return {};
}

FormulaValue::Place FormulaValue::AddFunction(Place, const FunctionName& function, bool negative,
                                              bool isEmpty) {
    ++m_counts.branches;
    AddCode(static_cast<unsigned int>(function.operation) | (negative ? Negative : 0));
    if (isEmpty)
        AddNumber(0.0, false);
    return {};
}

FormulaValue::Place FormulaValue::AddBracket(Place, std::int32_t, bool negative, bool isEmpty) {
    ++m_counts.branches;
    // A group has its content's value: only its sign is worth a code.
    if (negative)
        AddCode(Group | Negative);
    if (isEmpty)
        AddNumber(0.0, false);
    return {};
}

void FormulaValue::AddOperand(Place, std::u16string_view text, bool negative) {
    ++m_counts.operands;
    AddNumber(OperandValue(text), negative);
}

void FormulaValue::AddNumber(double value, bool negative) {
    AddCode(Number);
    m_numbers.Data()[m_numberCount++] = negative ? value * -1.0 : value;
}

double FormulaValue::Calculate() const noexcept {
    std::array<double, 64> values;
    std::size_t top = 0;
    const double* number = m_numbers.Data() + m_numberCount;
    for (const std::uint8_t* code = m_codes.Data() + m_codeCount; code-- != m_codes.Data();) {
        if (*code == Number) {
            values[top++] = *--number;
            continue;
        }
        const auto operation = static_cast<Operation>(*code & OperationBits);
        if (IsOperator(operation)) {
            const double first = values[--top];
            const double second = values[top - 1];
            const bool rightFirst = (*code & RightFirst) != 0;
            values[top - 1] =
                OperatorValue(operation, rightFirst ? second : first, rightFirst ? first : second, 0.0);
            continue;
        }
        double& value = values[top - 1];
        if ((*code & OperationBits) != Group)
            value = FunctionValue(operation, value, 0.0);
        if ((*code & Negative) != 0)
            value *= -1.0;
    }
    return values[0];
}

}  // namespace ExpressionAnalyse
