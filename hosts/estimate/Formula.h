// The value of a quantity formula.
#pragma once

#include <string>
#include <vector>

#include <QsUtils/QsUtils.h>

#include "FormulaText.h"
#include "Variables.h"

namespace Estimate {

struct FormulaResult {
    bool valid = false;
    double value = 0;
    std::vector<FormulaRemark> remarks;  ///< holds an error exactly when not valid
};

/// Parses `formula`, binds its variables and the project amount Q, and calculates it. `amount` is the number
/// that Q stands for; null where there is none. Angles are in radians. A value that isn't finite, a division
/// by zero, and an operand that is neither a number nor a known variable are errors.
FormulaResult Evaluate(const CString& formula, const Variables& variables, const CString* amount = nullptr);

}  // namespace Estimate
