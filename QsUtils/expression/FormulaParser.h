// The parser of quantity formulas.
#pragma once

#include <cstdint>
#include <string_view>

namespace ExpressionAnalyse {

class CExpressionNode;

/// What `IExpressionAnalyse::AnalyseExpression` writes as error.
enum ParseError : std::int32_t {
    ParseError_None = 0,
    ParseError_RoundBrackets = 2,
    ParseError_SquareBrackets = 3,
    ParseError_CurlyBrackets = 4,
    ParseError_OperandMissing = 5
};

/// Parses a formula into the nodes of a new arena. Null for an error and for a text without content.
CExpressionNode* ParseFormula(std::u16string_view formula, std::int32_t& error);

}  // namespace ExpressionAnalyse
