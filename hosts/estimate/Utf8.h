// UTF-8, the encoding in which this program keeps and prints its texts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <QsUtils/QsUtils.h>

namespace Estimate {

/// Tells whether bytes that arrive in pieces are well-formed UTF-8 (RFC 3629: no overlong forms, no
/// surrogates, nothing above U+10FFFF).
class Utf8Check {
public:
    void Feed(std::string_view bytes) noexcept;
    /// Whether all bytes so far were well-formed and the last character is complete.
    bool IsValid() const noexcept { return m_valid && m_missing == 0; }

private:
    void Feed(std::uint8_t byte) noexcept;

    bool m_valid = true;
    int m_missing = 0;          // continuation bytes still to come
    std::uint8_t m_low = 0x80;  // the range of the next one
    std::uint8_t m_high = 0xBF;
};

bool IsUtf8(std::string_view bytes) noexcept;

/// Reads one character at `at` and moves behind it; a malformed byte gives U+FFFD.
char32_t NextCharacter(std::string_view text, std::size_t& at) noexcept;

/// Malformed bytes, which only a command line can bring, become U+FFFD.
CString FromUtf8(std::string_view text);
std::string ToUtf8(std::u16string_view text);
inline std::string ToUtf8(const CString& text) {
    return ToUtf8(text.View());
}

}  // namespace Estimate
