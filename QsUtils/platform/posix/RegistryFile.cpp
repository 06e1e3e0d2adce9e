#include "QsUtils/platform/posix/RegistryFile.h"

#include <charconv>
#include <cstddef>
#include <cstdint>

namespace QsPlatform {

namespace {

constexpr std::string_view FirstLine = "WINE REGISTRY Version 2";

bool IsBlank(char byte) {
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

std::string_view WithoutLeadingBlanks(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    return text;
}

/// Takes `prefix` off; false when the text has another beginning.
bool Take(std::string_view& text, std::string_view prefix) {
    if (!text.starts_with(prefix))
        return false;
    text.remove_prefix(prefix.size());
    return true;
}

/// Takes a number of so many digits at most off; false when there is none.
bool TakeNumber(std::string_view& text, int base, std::size_t digits, std::uint32_t& number) {
    const std::string_view head = text.substr(0, digits);
    const auto [end, error] = std::from_chars(head.data(), head.data() + head.size(), number, base);
    if (error != std::errc())
        return false;
    text.remove_prefix(static_cast<std::size_t>(end - head.data()));
    return true;
}

/// The unit that stands behind a backslash.
char16_t TakeEscaped(std::string_view& text) {
    static constexpr std::string_view Letters = "abefnrtv";
    static constexpr std::string_view Controls = "\a\b\x1B\f\n\r\t\v";
    std::uint32_t number = 0;
    if (TakeNumber(text, 8, 3, number))
        return static_cast<char16_t>(number);
    const char letter = text.front();
    text.remove_prefix(1);
    if (letter == 'x' && TakeNumber(text, 16, 4, number))
        return static_cast<char16_t>(number);
    const std::size_t at = Letters.find(letter);
    return static_cast<unsigned char>(at == Letters.npos ? letter : Controls[at]);
}

/// Takes a text off that `end` closes; false when nothing closes it.
bool TakeText(std::string_view& text, char end, std::u16string& units) {
    while (!text.empty()) {
        const char byte = text.front();
        text.remove_prefix(1);
        if (byte == end)
            return true;
        if (byte != '\\')
            units += static_cast<unsigned char>(byte);
        else if (!text.empty())
            units += TakeEscaped(text);
    }
    return false;
}

char16_t Lower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

bool SameName(std::u16string_view a, std::u16string_view b) {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (Lower(a[i]) != Lower(b[i]))
            return false;
    }
    return true;
}

/// The lines of a file, without their ends.
class Lines {
public:
    explicit Lines(std::string_view file) : m_rest(file) {}

    bool Next(std::string_view& line) {
        if (m_rest.empty())
            return false;
        const std::size_t end = m_rest.find('\n');
        line = m_rest.substr(0, end);
        m_rest.remove_prefix(end == m_rest.npos ? m_rest.size() : end + 1);
        while (line.ends_with('\r'))
            line.remove_suffix(1);
        return true;
    }

private:
    std::string_view m_rest;
};

/// Bytes as "01,02", which a backslash at the end of a line continues on the next one.
bool TakeBytes(std::string_view text, Lines& lines, std::string& bytes) {
    for (;;) {
        text = WithoutLeadingBlanks(text);
        std::uint32_t byte = 0;
        if (text.empty())
            return true;
        if (text == "\\") {
            if (!lines.Next(text))
                return true;
        } else if (TakeNumber(text, 16, 2, byte)) {
            bytes += static_cast<char>(byte);
            text = WithoutLeadingBlanks(text);
            Take(text, ",");
        } else {
            return false;
        }
    }
}

bool TakeQuoted(std::string_view text, std::string& bytes) {
    std::u16string units;
    if (!TakeText(text, '"', units))
        return false;
    units += u'\0';
    for (const char16_t unit : units) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return true;
}

/// The data behind "=", as Wine writes it: "text", str(type):"text", dword:number, hex:bytes,
/// hex(type):bytes.
bool TakeData(std::string_view text, Lines& lines, std::string& bytes) {
    std::uint32_t number = 0;
    if (Take(text, "\""))
        return TakeQuoted(text, bytes);
    if (Take(text, "dword:")) {
        if (!TakeNumber(text, 16, 8, number))
            return false;
        for (int shift = 0; shift < 32; shift += 8)
            bytes += static_cast<char>(number >> shift & 0xFF);
        return true;
    }
    const bool isText = Take(text, "str");
    if (!isText && !Take(text, "hex"))
        return false;
    if (Take(text, "(") && (!TakeNumber(text, 16, 8, number) || !Take(text, ")")))
        return false;
    if (!Take(text, ":"))
        return false;
    return isText ? Take(text, "\"") && TakeQuoted(text, bytes) : TakeBytes(text, lines, bytes);
}

}  // namespace

std::optional<std::string> FindDefaultValue(std::string_view file, std::u16string_view key) {
    Lines lines(file);
    std::string_view line;
    if (!lines.Next(line) || line != FirstLine)
        return std::nullopt;
    std::optional<std::string> value;
    bool isInKey = false;
    while (lines.Next(line)) {
        line = WithoutLeadingBlanks(line);
        if (Take(line, "[")) {
            std::u16string name;
            isInKey = TakeText(line, ']', name) && SameName(name, key);
        } else if (isInKey && Take(line, "@")) {
            line = WithoutLeadingBlanks(line);
            std::string bytes;
            if (Take(line, "=") && TakeData(WithoutLeadingBlanks(line), lines, bytes))
                value = std::move(bytes);
        }
    }
    return value;
}

}  // namespace QsPlatform
