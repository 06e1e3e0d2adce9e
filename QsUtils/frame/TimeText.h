// Moments as logs write them.
#pragma once

#include <string>

#include "QsUtils/platform/LocalTime.h"

namespace QsFrame {

/// Appends a number of `width` decimals at least, with zeros in front. By hand: it is most of what a line of
/// the log costs besides the file.
inline void AppendDecimals(std::string& text, int number, int width) {
    char digits[16];
    char* first = digits + sizeof digits;
    for (int left = number; left > 0 || width > 0; left /= 10, --width)
        *--first = static_cast<char>('0' + left % 10);
    text.append(first, digits + sizeof digits);
}

/// Appends "2026-01-31 09:05:59".
inline void AppendMoment(std::string& text, const QsPlatform::LocalTime& time) {
    AppendDecimals(text, time.year, 4);
    AppendDecimals(text += '-', time.month, 2);
    AppendDecimals(text += '-', time.day, 2);
    AppendDecimals(text += ' ', time.hour, 2);
    AppendDecimals(text += ':', time.minute, 2);
    AppendDecimals(text += ':', time.second, 2);
}

}  // namespace QsFrame
