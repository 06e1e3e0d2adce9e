#include "QsUtils/platform/ProfileText.h"

#include <algorithm>

#include "QsUtils/platform/CodePage.h"
#include "QsUtils/platform/Utf8.h"
#include "QsUtils/text/TextSearch.h"

namespace QsPlatform {

namespace {

// What the profile calls take for white space: control Z, the end of a text in the files of older systems,
// is among it, the full-width and the no-break space aren't.
constexpr std::u16string_view Space = u" \t\n\v\f\r\x1A";

constexpr bool IsSpace(char16_t unit) noexcept {
    return Space.find(unit) != std::u16string_view::npos;
}

constexpr bool EndsLine(char16_t unit) noexcept {
    return unit == u'\n' || unit == u'\r';
}

constexpr char16_t Folded(char16_t unit) noexcept {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

std::u16string_view Trimmed(std::u16string_view text) noexcept {
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

constexpr unsigned ByteAt(std::string_view bytes, std::size_t at) noexcept {
    return static_cast<unsigned char>(bytes[at]);
}

constexpr char16_t Utf16Unit(unsigned first, unsigned second, ProfileEncoding encoding) noexcept {
    return static_cast<char16_t>(encoding == ProfileEncoding::Utf16Little ? second << 8 | first
                                                                          : first << 8 | second);
}

std::u16string DecodeUtf16(std::string_view bytes, ProfileEncoding encoding) {
    std::u16string text;
    text.reserve(bytes.size() / 2 + 1);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        text += Utf16Unit(ByteAt(bytes, i), ByteAt(bytes, i + 1), encoding);
    // A byte left over at the end of the file counts as the character of its number.
    if (bytes.size() % 2 != 0)
        text += static_cast<char16_t>(ByteAt(bytes, bytes.size() - 1));
    return text;
}

}  // namespace

ProfileText::ProfileText(std::string_view bytes) noexcept : m_bytes(bytes) {
    if (bytes.starts_with("\xFF\xFE")) {
        m_encoding = ProfileEncoding::Utf16Little;
        m_begin = 2;
    } else if (bytes.starts_with("\xFE\xFF")) {
        m_encoding = ProfileEncoding::Utf16Big;
        m_begin = 2;
    } else if (bytes.starts_with("\xEF\xBB\xBF")) {
        m_encoding = ProfileEncoding::Utf8;
        m_begin = 3;
    }
}

std::size_t ProfileText::Width(std::size_t at) const noexcept {
    if (at + 1 >= m_bytes.size() || m_encoding == ProfileEncoding::Utf8)
        return 1;
    if (m_encoding == ProfileEncoding::Ansi)
        return IsLeadByte(static_cast<unsigned char>(m_bytes[at])) && m_bytes[at + 1] != '\0' ? 2 : 1;
    return 2;
}

char16_t ProfileText::CharacterAt(std::size_t at) const noexcept {
    char16_t unit = static_cast<char16_t>(ByteAt(m_bytes, at));
    if (m_encoding > ProfileEncoding::Utf8 && at + 1 < m_bytes.size())
        unit = Utf16Unit(unit, ByteAt(m_bytes, at + 1), m_encoding);
    return unit < 0x80 ? unit : NotAscii;
}

bool ProfileText::LineAt(std::size_t from, ProfileLine& line) const noexcept {
    if (from >= m_bytes.size())
        return false;
    std::size_t at = from;
    while (at < m_bytes.size() && !EndsLine(CharacterAt(at)))
        at = After(at);
    line = {from, at, at};
    if (at < m_bytes.size()) {
        line.next = After(at);
        const bool pair =
            line.next < m_bytes.size() && CharacterAt(at) == u'\r' && CharacterAt(line.next) == u'\n';
        if (pair)
            line.next = After(line.next);
    }
    return true;
}

std::size_t ProfileText::SkipSpace(std::size_t from, std::size_t end) const noexcept {
    while (from < end && IsSpace(CharacterAt(from)))
        from = After(from);
    return from;
}

std::size_t ProfileText::Find(char16_t character, std::size_t from, std::size_t end) const noexcept {
    while (from < end && CharacterAt(from) != character)
        from = After(from);
    return std::min(from, end);
}

std::u16string ProfileText::Decode(std::size_t from, std::size_t end) const {
    const std::string_view bytes = m_bytes.substr(from, end - from);
    switch (m_encoding) {
        case ProfileEncoding::Ansi:
            return DecodeAnsi(bytes);
        case ProfileEncoding::Utf8:
            return DecodeUtf8(bytes);
        default:
            return DecodeUtf16(bytes, m_encoding);
    }
}

std::string EncodeProfileText(ProfileEncoding encoding, std::u16string_view text) {
    if (encoding == ProfileEncoding::Ansi)
        return EncodeAnsi(text);
    if (encoding == ProfileEncoding::Utf8)
        return EncodeUtf8(text);
    const bool little = encoding == ProfileEncoding::Utf16Little;
    std::string bytes;
    bytes.reserve(text.size() * 2);
    for (const char16_t unit : text) {
        const auto low = static_cast<char>(unit & 0xFF);
        const auto high = static_cast<char>(unit >> 8);
        bytes += little ? low : high;
        bytes += little ? high : low;
    }
    return bytes;
}

ProfileEntry ParseProfileLine(std::u16string_view line) noexcept {
    using Kind = ProfileEntry::Kind;
    line = Trimmed(line);
    if (line.empty())
        return {};
    if (line.front() == u'[') {
        // The last bracket closes, so that a name may hold brackets.
        if (const std::size_t close = line.rfind(u']'); close != std::u16string_view::npos)
            return {Kind::Section, QsText::UpToNul(Trimmed(line.substr(1, close - 1))), {}};
    }
    const std::size_t equals = line.find(u'=');
    if (equals == std::u16string_view::npos)
        return {Kind::Name, QsText::UpToNul(line), {}};
    return {Kind::Value, QsText::UpToNul(Trimmed(line.substr(0, equals))),
            QsText::UpToNul(Trimmed(line.substr(equals + 1)))};
}

std::u16string_view TrimProfileName(std::u16string_view name) noexcept {
    return Trimmed(QsText::UpToNul(name));
}

bool SameProfileName(std::u16string_view a, std::u16string_view b) noexcept {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t x, char16_t y) { return Folded(x) == Folded(y); });
}

std::optional<std::u16string> FindProfileValue(const ProfileText& text, std::u16string_view section,
                                               std::u16string_view key) {
    using Kind = ProfileEntry::Kind;
    bool inside = section.empty();
    ProfileLine line;
    for (std::size_t at = text.Begin(); text.LineAt(at, line); at = line.next) {
        const std::size_t first = text.SkipSpace(line.begin, line.end);
        if (first == line.end)
            continue;
        // Only what may matter is decoded: names of sections, and the keys of the one section.
        const bool bracket = text.CharacterAt(first) == u'[';
        if (!inside && !bracket)
            continue;
        const std::u16string decoded = text.Decode(first, line.end);
        const ProfileEntry entry = ParseProfileLine(decoded);
        if (entry.kind == Kind::Section) {
            if (inside)
                return std::nullopt;
            inside = SameProfileName(entry.name, section);
        } else if (inside && SameProfileName(entry.name, key)) {
            return entry.kind == Kind::Value ? std::optional<std::u16string>(entry.value) : std::nullopt;
        }
    }
    return std::nullopt;
}

}  // namespace QsPlatform
