#include "QsUtils/platform/Utf8.h"

#include <cstddef>

namespace QsPlatform {

namespace {

constexpr bool IsHighSurrogate(char32_t unit) {
    return (unit & 0xFFFFFC00) == 0xD800;
}
constexpr bool IsLowSurrogate(char32_t unit) {
    return (unit & 0xFFFFFC00) == 0xDC00;
}

void AppendByte(std::string& bytes, char32_t value) {
    bytes += static_cast<char>(static_cast<unsigned char>(value));
}

void AppendContinuation(std::string& bytes, char32_t value) {
    AppendByte(bytes, 0x80 | (value & 0x3F));
}

void AppendEncoded(std::string& bytes, char32_t character) {
    if (character < 0x80) {
        AppendByte(bytes, character);
        return;
    }
    if (character < 0x800) {
        AppendByte(bytes, 0xC0 | character >> 6);
    } else {
        if (character < 0x10000) {
            AppendByte(bytes, 0xE0 | character >> 12);
        } else {
            AppendByte(bytes, 0xF0 | character >> 18);
            AppendContinuation(bytes, character >> 12);
        }
        AppendContinuation(bytes, character >> 6);
    }
    AppendContinuation(bytes, character);
}

struct Sequence {
    std::size_t length;
    char32_t head;      // the bits of the first byte
    char32_t smallest;  // below it the sequence is longer than it need be
};

/// What the first byte announces; length 0 when no sequence begins with it.
constexpr Sequence SequenceOf(unsigned char first) {
    if (first < 0x80)
        return {1, first, 0};
    if (first >= 0xC2 && first <= 0xDF)
        return {2, first & 0x1Fu, 0x80};
    if ((first & 0xF0) == 0xE0)
        return {3, first & 0x0Fu, 0x800};
    if (first >= 0xF0 && first <= 0xF4)
        return {4, first & 0x07u, 0x10000};
    return {0, 0, 0};
}

/// Decodes the character at the head of `bytes`; gives the bytes it has, 0 when it is broken.
std::size_t DecodeCharacter(std::string_view bytes, char32_t& character) {
    const Sequence sequence = SequenceOf(static_cast<unsigned char>(bytes.front()));
    if (sequence.length == 0 || sequence.length > bytes.size())
        return 0;
    character = sequence.head;
    for (std::size_t i = 1; i < sequence.length; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if ((byte & 0xC0) != 0x80)
            return 0;
        character = character << 6 | (byte & 0x3Fu);
    }
    return character >= sequence.smallest && character <= 0x10FFFF ? sequence.length : 0;
}

}  // namespace

std::string EncodeUtf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size() * 3);
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t character = text[i];
        if (IsHighSurrogate(character) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]))
            character = 0x10000 + ((character - 0xD800) << 10) + (static_cast<char32_t>(text[++i]) - 0xDC00);
        AppendEncoded(bytes, character);
    }
    return bytes;
}

std::u16string DecodeUtf8(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        char32_t character = 0;
        std::size_t length = DecodeCharacter(bytes, character);
        if (length == 0) {
            character = 0xFFFD;
            length = 1;
        }
        if (character < 0x10000) {
            text += static_cast<char16_t>(character);
        } else {
            text += static_cast<char16_t>(0xD7C0 + (character >> 10));
            text += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
        }
        bytes.remove_prefix(length);
    }
    return text;
}

}  // namespace QsPlatform
