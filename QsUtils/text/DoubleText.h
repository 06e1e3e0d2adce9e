// A double by the rules of printf.
#pragma once

#include <string>

namespace QsText {

/// How a double is to be written.
struct DoubleStyle {
    char16_t type = u'f';    // one of f F e E g G
    int precision = 6;       // not negative
    char16_t plus = u'\0';   // what stands in front of a positive number: "+", a blank or nothing
    bool alternate = false;  // the point stays without decimals, and "g" keeps its zeros
    int zeroWidth = 0;       // zeros behind the sign fill up to this width; not for infinity and NaN
};

/// The text of a double, exactly rounded, ties to even, whatever the locale. Infinity and NaN are "inf" and
/// "nan", in capitals for a capital type.
std::u16string WriteDouble(double value, const DoubleStyle& style);

}  // namespace QsText
