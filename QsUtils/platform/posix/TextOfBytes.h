// Texts in the memory order of Windows.
#pragma once

#include <string_view>

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// The UTF-16LE text at the beginning of `bytes`, up to its first NUL or to the end; half a unit there is
/// dropped.
inline CString TextOfBytes(std::string_view bytes) {
    std::u16string text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += sizeof(char16_t)) {
        const auto unit = static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                                static_cast<unsigned char>(bytes[i + 1]) << 8);
        if (unit == u'\0')
            break;
        text += unit;
    }
    return CString(std::move(text));
}

}  // namespace QsPlatform
