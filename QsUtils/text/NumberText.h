// Texts that are numbers. `IQsUtils` and `IQsUtils1` document the operations of the same names.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsText {

bool ParseToInteger(const CString& text, int& value);
bool ParseToDouble(const CString& text, double& value);
bool bIsNum(const CString& text);
CString DoubleToCString(double value, int decimals, bool trimZeros);

bool IsValidRateOfTransPrice(const CString& text);
double GetFormatedRateOfTransPrice(const CString& text);

}  // namespace QsText
