// Formulas as texts: spelling, and ways of writing that the analyser calculates in its own way.
#pragma once

#include <string>
#include <vector>

#include <QsUtils/QsUtils.h>

#include "Problem.h"

namespace Estimate {

/// The formula with full-width letters, digits, operators and brackets in their plain forms, as an input
/// method leaves them.
CString PlainFormula(const CString& formula);

/// The function that the analyser takes the operand for, since it begins with its name; empty when none.
CString FunctionPrefix(const CString& operand);

struct FormulaRemark {
    Severity severity = Severity::Error;
    Message reason;
};

/// What a reader used to school arithmetic wouldn't expect. Errors: a product or quotient inside brackets,
/// which the analyser takes apart at the inner operator. Warnings, one of a kind: a subtraction followed by a
/// further "+" or "-", where everything behind the first minus is subtracted, and "^", which multiplies.
/// Linear in the length; positions in the reasons count characters of the formula from 1.
std::vector<FormulaRemark> RemarksOn(const CString& formula);

}  // namespace Estimate
