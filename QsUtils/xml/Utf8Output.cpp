#include "QsUtils/xml/Utf8Output.h"

#include <xercesc/dom/DOMLSException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLDOMMsg.hpp>

namespace QsXml {

namespace {

constexpr bool IsHighSurrogate(char16_t unit) {
    return (unit & 0xFC00) == 0xD800;
}
constexpr bool IsLowSurrogate(char16_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

/// Production [2] of XML 1.0, for the units outside of surrogates.
constexpr bool IsXmlUnit(char16_t unit) {
    if (unit < 0x20)
        return unit == u'\t' || unit == u'\n' || unit == u'\r';
    return unit < 0xD800 || (unit >= 0xE000 && unit <= 0xFFFD);
}

std::string_view NoEscape(char16_t) {
    return {};
}

std::string_view AttributeEscape(char16_t unit) {
    switch (unit) {
        case u'&':
            return "&amp;";
        case u'<':
            return "&lt;";
        case u'"':
            return "&quot;";
        case u'\n':
            return "&#xA;";
        case u'\r':
            return "&#xD;";
        case u'\t':
            return "&#x9;";
        default:
            return {};
    }
}

std::string_view TextEscape(char16_t unit) {
    switch (unit) {
        case u'&':
            return "&amp;";
        case u'<':
            return "&lt;";
        case u'>':
            return "&gt;";
        case u'\r':
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

void Utf8Output::Check(std::u16string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsXmlUnit(text[i]))
            continue;
        if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            ++i;
            continue;
        }
        throw xercesc::DOMLSException(xercesc::DOMLSException::SERIALIZE_ERR,
                                      xercesc::XMLDOMMsg::INVALID_CHARACTER_ERR,
                                      xercesc::XMLPlatformUtils::fgMemoryManager);
    }
}

template <typename Escape>
void Utf8Output::Write(std::u16string_view text, Escape escape) {
    char bytes[256];
    std::size_t used = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (used > sizeof(bytes) - 8) {
            Send(bytes, used);
            used = 0;
        }
        const char16_t unit = text[i];
        if (unit < 0x80) {
            const std::string_view escaped = escape(unit);
            if (escaped.empty())
                bytes[used++] = static_cast<char>(unit);
            else
                used += escaped.copy(bytes + used, escaped.size());
            continue;
        }
        char32_t character = unit;
        if (IsHighSurrogate(unit) && i + 1 < text.size())
            character = 0x10000 + ((character - 0xD800) << 10) + (static_cast<char32_t>(text[++i]) - 0xDC00);
        used += Encode(character, bytes + used);
    }
    Send(bytes, used);
}

void Utf8Output::Name(std::u16string_view name) {
    Write(name, NoEscape);
}

void Utf8Output::AttributeValue(std::u16string_view value) {
    Check(value);
    Write(value, AttributeEscape);
}

void Utf8Output::CharacterData(std::u16string_view text) {
    Write(text, TextEscape);
}

}  // namespace QsXml
