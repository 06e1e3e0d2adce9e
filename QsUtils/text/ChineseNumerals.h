// Amounts and ints in Chinese numerals. `IQsUtils` documents `NumToRMBStr` and `TransIntToUpper`.
#pragma once

#include <string_view>

#include "QsUtils/text/CString.h"

namespace QsText {

CString NumToRMBStr(double value);
CString TransIntToUpper(int value);

/// The whole number that `digits` writes, in capital numerals without a word for the currency. Blanks count
/// as places and are not written. More than 24 units give "数值过大!", a unit that is neither blank nor digit
/// gives "输入含非数字字符!", and nothing but zeros and blanks gives "零".
CString CapitalNumber(std::u16string_view digits);

}  // namespace QsText
