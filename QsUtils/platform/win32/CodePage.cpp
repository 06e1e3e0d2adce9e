#include "QsUtils/platform/CodePage.h"

#include <algorithm>
#include <cstddef>

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

constexpr UINT Page = 936;

/// Where a text that is too long for one call may be cut: not between the two bytes of a pair.
std::size_t WholePairs(std::string_view narrow) {
    std::size_t at = 0;
    while (at < MostUnits) {
        const bool isPair = IsLeadByte(static_cast<unsigned char>(narrow[at])) && narrow[at + 1] != '\0';
        at += isPair ? 2 : 1;
    }
    return at;
}

/// Decodes into `to`, which has room for a unit a byte; gives how many units there are.
std::size_t Decode(std::string_view narrow, wchar_t* to) {
    wchar_t* const begin = to;
    while (!narrow.empty()) {
        const std::size_t part = narrow.size() <= MostUnits + 1 ? narrow.size() : WholePairs(narrow);
        const int size = static_cast<int>(part);
        to += ::MultiByteToWideChar(Page, 0, narrow.data(), size, to, size);
        narrow.remove_prefix(part);
    }
    return static_cast<std::size_t>(to - begin);
}

/// Encodes into `to`, which has room for two bytes a unit; gives how many there are.
std::size_t Encode(const wchar_t* from, std::size_t count, char* to) {
    char* const begin = to;
    while (count > 0) {
        const int part = static_cast<int>(std::min(count, MostUnits));
        to += ::WideCharToMultiByte(Page, 0, from, part, to, 2 * part, nullptr, nullptr);
        from += part;
        count -= static_cast<std::size_t>(part);
    }
    return static_cast<std::size_t>(to - begin);
}

/// Texts up to this length are encoded on the stack: the result is then made once, in its own size.
constexpr std::size_t ShortText = 128;

std::string EncodeAll(const wchar_t* text, std::size_t count) {
    if (count <= ShortText) {
        char buffer[2 * ShortText];
        return std::string(buffer, Encode(text, count, buffer));
    }
    std::string narrow(2 * count, '\0');
    narrow.resize(Encode(text, count, narrow.data()));
    return narrow;
}

}  // namespace

std::u16string DecodeAnsi(std::string_view narrow) {
    std::u16string text(narrow.size(), u'\0');
    text.resize(Decode(narrow, SystemUnits(text.data())));
    return text;
}

std::wstring DecodeAnsiToWide(std::string_view narrow) {
    std::wstring text(narrow.size(), L'\0');
    text.resize(Decode(narrow, text.data()));
    return text;
}

std::string EncodeAnsi(std::u16string_view wide) {
    return EncodeAll(SystemUnits(wide.data()), wide.size());
}

std::string EncodeAnsi(std::wstring_view wide) {
    return EncodeAll(wide.data(), wide.size());
}

std::size_t AnsiRoundTripLength(std::u16string_view wide) {
    // Every unit becomes one byte or one whole pair, and those become one unit each again.
    return wide.size();
}

}  // namespace QsPlatform
