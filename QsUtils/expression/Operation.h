// What the nodes of a formula do with their children's values.
#pragma once

#include <cmath>
#include <cstdint>
#include <string_view>

namespace ExpressionAnalyse {

enum class Operation : std::uint8_t {
    Unread,  // the node's text has not been looked at since it was set
    Other,   // the text names none
    Add,
    Subtract,
    Multiply,
    Divide,
    ExclusiveOr,
    Fabs,
    Sin,
    Cos,
    Tan,
    Ln,
    Sqrt,
    Exp
};

/// The operation that a text names, in any case; `Other` for a text that names none.
Operation OperationOf(std::u16string_view text) noexcept;

/// A double as a 32-bit int, truncated; one that doesn't fit gives the smallest int, as the processor does.
inline std::int32_t TruncatedToInt(double value) noexcept {
    constexpr double Beyond = 2147483648.0;
    return value > -Beyond - 1 && value < Beyond ? static_cast<std::int32_t>(value) : INT32_MIN;
}

/// The value of a two-operand operator; `unchanged` for an operation that is none. A division by at most 1e-7
/// in magnitude is 0, and "^" is the exclusive-or of both sides truncated to 32-bit ints.
inline double OperatorValue(Operation operation, double a, double b, double unchanged) noexcept {
    constexpr double LeastDivisor = 1e-7;
    switch (operation) {
        case Operation::Add:
            return b + a;
        case Operation::Subtract:
            return a - b;
        case Operation::Multiply:
            return b * a;
        case Operation::Divide:
            return std::fabs(b) <= LeastDivisor ? 0.0 : a / b;
        case Operation::ExclusiveOr:
            return TruncatedToInt(a) ^ TruncatedToInt(b);
        default:
            return unchanged;
    }
}

/// The value of a function, by the C library's; `unchanged` for an operation that is none.
double FunctionValue(Operation operation, double a, double unchanged) noexcept;

/// The value of an operand's text: the number that it begins with, or 0; a hundredth of the number in front
/// of its first "%", or else a thousandth of the one in front of its first "‰".
double OperandValue(std::u16string_view text) noexcept;

}  // namespace ExpressionAnalyse
