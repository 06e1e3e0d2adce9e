// The analyser behind `IExpressionAnalyse`.
#pragma once

#include "QsUtils/expression/ExpressionAnalyse.h"

namespace ExpressionAnalyse {

/// Holds no data: all that a parse needs is on its own stack and in the tree it returns.
class CExpressionAnalyse final : public IExpressionAnalyse {
public:
    IExpressionNode* AnalyseExpression(const CString& text, std::int32_t* error) override;
    CString ExpressionToString(IExpressionNode* root) override;
};

}  // namespace ExpressionAnalyse
