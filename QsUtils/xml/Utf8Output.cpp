#include "QsUtils/xml/Utf8Output.h"

#include <xercesc/dom/DOMLSException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLDOMMsg.hpp>

namespace QsXml {

namespace {

constexpr bool IsHighSurrogate(char32_t unit) {
    return (unit & 0xFFFFFC00) == 0xD800;
}
constexpr bool IsLowSurrogate(char32_t unit) {
    return (unit & 0xFFFFFC00) == 0xDC00;
}

/// Production [2] of XML 1.0, but for pairs of surrogates.
constexpr bool IsXmlCharacter(char32_t unit) {
    if (unit < 0x20)
        return unit == U'\t' || unit == U'\n' || unit == U'\r';
    return unit < 0xD800 || (unit >= 0xE000 && unit != 0xFFFE && unit != 0xFFFF);
}

template <typename Unit>
char32_t At(std::basic_string_view<Unit> text, std::size_t i) {
    return static_cast<char32_t>(text[i]);
}

template <typename Unit>
bool IsPair(std::basic_string_view<Unit> text, std::size_t i) {
    return IsHighSurrogate(At(text, i)) && i + 1 < text.size() && IsLowSurrogate(At(text, i + 1));
}

template <typename Unit>
void Check(std::basic_string_view<Unit> text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsXmlCharacter(At(text, i)))
            continue;
        if (!IsPair(text, i))
            throw xercesc::DOMLSException(xercesc::DOMLSException::SERIALIZE_ERR,
                                          xercesc::XMLDOMMsg::INVALID_CHARACTER_ERR,
                                          xercesc::XMLPlatformUtils::fgMemoryManager);
        ++i;
    }
}

std::string_view NoEscape(char32_t) {
    return {};
}

std::string_view AttributeEscape(char32_t unit) {
    switch (unit) {
        case U'&':
            return "&amp;";
        case U'<':
            return "&lt;";
        case U'"':
            return "&quot;";
        case U'\n':
            return "&#xA;";
        case U'\r':
            return "&#xD;";
        case U'\t':
            return "&#x9;";
        default:
            return {};
    }
}

std::string_view TextEscape(char32_t unit) {
    switch (unit) {
        case U'&':
            return "&amp;";
        case U'<':
            return "&lt;";
        case U'>':
            return "&gt;";
        case U'\r':
            return "&#xD;";
        default:
            return {};
    }
}

/// The bytes of a character above U+007F; returns how many.
std::size_t Encode(char32_t character, char* bytes) {
    const auto continuation = [](char32_t bits) { return static_cast<char>(0x80 | (bits & 0x3F)); };
    if (character < 0x800) {
        bytes[0] = static_cast<char>(0xC0 | character >> 6);
        bytes[1] = continuation(character);
        return 2;
    }
    if (character < 0x10000) {
        bytes[0] = static_cast<char>(0xE0 | character >> 12);
        bytes[1] = continuation(character >> 6);
        bytes[2] = continuation(character);
        return 3;
    }
    bytes[0] = static_cast<char>(0xF0 | character >> 18);
    bytes[1] = continuation(character >> 12);
    bytes[2] = continuation(character >> 6);
    bytes[3] = continuation(character);
    return 4;
}

}  // namespace

void Utf8Output::Plain(std::string_view ascii) {
    MakeRoom(ascii.size());
    m_used += ascii.copy(m_buffer + m_used, ascii.size());
}

void Utf8Output::Flush() {
    m_target.writeChars(reinterpret_cast<const XMLByte*>(m_buffer), m_used, nullptr);
    m_used = 0;
}

/// `escape` gives what stands for a unit below U+0080, or an empty text.
template <typename Unit, typename Escape>
void Utf8Output::Write(std::basic_string_view<Unit> text, Escape escape) {
    constexpr std::size_t longest = 8;  // of an escape or a character
    for (std::size_t i = 0; i < text.size(); ++i) {
        MakeRoom(longest);
        char32_t character = At(text, i);
        if (character < 0x80) {
            const std::string_view escaped = escape(character);
            if (escaped.empty())
                m_buffer[m_used++] = static_cast<char>(character);
            else
                m_used += escaped.copy(m_buffer + m_used, escaped.size());
            continue;
        }
        if (IsPair(text, i))
            character = 0x10000 + ((character - 0xD800) << 10) + (At(text, ++i) - 0xDC00);
        else if (character > 0x10FFFF)
            character = 0xFFFD;
        m_used += Encode(character, m_buffer + m_used);
    }
}

template <typename Unit>
void Utf8Output::Name(std::basic_string_view<Unit> name) {
    Write(name, NoEscape);
}

template <typename Unit>
void Utf8Output::AttributeValue(std::basic_string_view<Unit> value) {
    Check(value);
    Write(value, AttributeEscape);
}

template <typename Unit>
void Utf8Output::CharacterData(std::basic_string_view<Unit> text) {
    Check(text);
    Write(text, TextEscape);
}

template void Utf8Output::Name(std::wstring_view);
template void Utf8Output::Name(std::u16string_view);
template void Utf8Output::AttributeValue(std::wstring_view);
template void Utf8Output::AttributeValue(std::u16string_view);
template void Utf8Output::CharacterData(std::wstring_view);

}  // namespace QsXml
