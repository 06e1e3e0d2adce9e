#include "QsUtils/expression/CExpressionAnalyse.h"

#include "QsUtils/expression/CExpressionNode.h"
#include "QsUtils/expression/FormulaValue.h"

namespace ExpressionAnalyse {

namespace {

// What `AnalyseExpression` writes, besides 2, 3 and 4 for brackets that don't come in pairs.
constexpr std::int32_t NoError = 0;
constexpr std::int32_t OperandMissing = 5;

IExpressionNode* Parse(std::u16string_view formula, std::int32_t& error) {
    FormulaText text(formula);
    error = text.BracketError();
    if (error != NoError || text.Length() == 0)
        return nullptr;
    FormulaValue value(text);
    if (!SplitParser<FormulaValue>(text, value).Parse({})) {
        error = OperandMissing;
        return nullptr;
    }
    NodeArena* const arena = NodeArena::Create({text.Units(), text.Length()}, value.Counts());
    return new (static_cast<void*>(arena->RootPlace())) CExpressionNode(0, value.Calculate());
}

}  // namespace

// Out of line, so that the type information of the interfaces has one home and a host's casts meet it.
IExpressionNode::~IExpressionNode() = default;
IExpressionAnalyse::~IExpressionAnalyse() = default;

IExpressionNode* CExpressionAnalyse::AnalyseExpression(const CString& text, std::int32_t* error) {
    std::int32_t result = NoError;
    IExpressionNode* const root = Parse(text.View(), result);
    if (error != nullptr)
        *error = result;
    return root;
}

CString CExpressionAnalyse::ExpressionToString(IExpressionNode* root) {
    return root == nullptr ? CString() : root->ToString();
}

}  // namespace ExpressionAnalyse
