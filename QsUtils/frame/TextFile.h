// Narrow text as the files of the library hold it.
#pragma once

#include <string>
#include <string_view>

namespace QsFrame {

/// The text with a carriage return in front of every line feed, also of one that has one already: what a text
/// stream makes of it on the system that the files are for.
inline std::string WithReturns(std::string_view text) {
    std::string lines;
    lines.reserve(text.size() + 2);
    for (const char byte : text) {
        if (byte == '\n')
            lines += '\r';
        lines += byte;
    }
    return lines;
}

}  // namespace QsFrame
