#include "QsUtils/expression/CExpressionAnalyse.h"

#include "QsUtils/expression/CExpressionNode.h"
#include "QsUtils/expression/FormulaParser.h"

namespace ExpressionAnalyse {

IExpressionNode* CExpressionAnalyse::AnalyseExpression(const CString& text, std::int32_t* error) {
    std::int32_t result = ParseError_None;
    IExpressionNode* const root = ParseFormula(text.View(), result);
    if (error != nullptr)
        *error = result;
    return root;
}

CString CExpressionAnalyse::ExpressionToString(IExpressionNode* root) {
    return root == nullptr ? CString() : root->ToString();
}

}  // namespace ExpressionAnalyse
