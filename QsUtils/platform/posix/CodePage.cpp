#include "QsUtils/platform/CodePage.h"

#include <cstddef>

#include "QsUtils/platform/posix/CodePageTables.h"

namespace QsPlatform {

namespace {

/// Decodes into `to`, which has room for a unit a byte; gives how many units there are.
template <typename Unit>
std::size_t Decode(std::string_view narrow, Unit* to) {
    if (narrow.empty())
        return 0;
    const CodePageTables& page = CodePage936();
    Unit* const begin = to;
    const auto* from = reinterpret_cast<const unsigned char*>(narrow.data());
    const auto* const last = from + narrow.size() - 1;
    // Ahead of the last byte, a lead byte can look at its trail byte without asking for the end.
    while (from < last) {
        const unsigned char byte = *from++;
        if (byte < 0x80) {
            *to++ = static_cast<Unit>(byte);
            continue;
        }
        const unsigned char trail = *from;
        // The system never takes a NUL for a trail byte. A branch and not a sum of conditions, so that the
        // next byte is fetched before this one has come.
        if (IsLeadByte(byte) && trail != 0) [[likely]] {
            *to++ = static_cast<Unit>(page.pairs[byte - 0x81U][trail]);
            ++from;
        } else {
            *to++ = static_cast<Unit>(page.singles[byte]);
        }
    }
    if (from == last)
        *to++ = static_cast<Unit>(page.singles[*from]);
    return static_cast<std::size_t>(to - begin);
}

/// Encodes into `to`, which has room for two bytes a unit, or two a wide character; gives how many there are.
template <typename Unit>
std::size_t Encode(std::basic_string_view<Unit> wide, char* to) {
    const CodePageTables& page = CodePage936();
    char* const begin = to;
    for (const Unit each : wide) {
        const auto character = static_cast<std::uint32_t>(each);
        if (character < 0x80) {
            *to++ = static_cast<char>(character);
        } else if (character <= 0xFFFF) {
            const std::uint16_t code = page.encoded[character];
            *to++ = static_cast<char>(code & 0xFF);
            if (code > 0xFF)
                *to++ = static_cast<char>(code >> 8);
        } else {
            *to++ = '?';
            // A surrogate pair has two marks; what is no character at all has one.
            if (character <= 0x10FFFF)
                *to++ = '?';
        }
    }
    return static_cast<std::size_t>(to - begin);
}

/// Texts up to this length are encoded on the stack: the result is then made once, in its own size.
constexpr std::size_t ShortText = 128;

template <typename Unit>
std::string EncodeAll(std::basic_string_view<Unit> wide) {
    if (wide.size() <= ShortText) {
        char buffer[2 * ShortText];
        return std::string(buffer, Encode(wide, buffer));
    }
    std::string narrow(2 * wide.size(), '\0');
    narrow.resize(Encode(wide, narrow.data()));
    return narrow;
}

template <typename Text>
Text DecodeAll(std::string_view narrow) {
    Text wide(narrow.size(), 0);
    wide.resize(Decode(narrow, wide.data()));
    return wide;
}

}  // namespace

std::u16string DecodeAnsi(std::string_view narrow) {
    return DecodeAll<std::u16string>(narrow);
}

std::wstring DecodeAnsiToWide(std::string_view narrow) {
    return DecodeAll<std::wstring>(narrow);
}

std::string EncodeAnsi(std::u16string_view wide) {
    return EncodeAll(wide);
}

std::string EncodeAnsi(std::wstring_view wide) {
    return EncodeAll(wide);
}

std::size_t AnsiRoundTripLength(std::u16string_view wide) {
    // Every unit becomes one byte or one whole pair, and those become one unit each again.
    return wide.size();
}

}  // namespace QsPlatform
