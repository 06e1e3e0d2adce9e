/// @file
/// What `CString::Format` hands to the compiled formatter: each argument with its kind.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

class CString;

namespace QsText {

/// One argument of a format, by value or as a view of the caller's text. It lives as long as the call.
struct FormatArgument {
    enum class Kind : std::uint8_t {
        Int32,
        UInt32,
        Int64,
        UInt64,
        Double,
        Character,
        Text,
        Converted,
        Pointer
    };

    Kind kind = Kind::Int32;
    union {
        std::int64_t integer = 0;
        std::uint64_t natural;
        double real;
        const void* pointer;  // also of a text: where it stands
    };
    std::u16string_view text;
    std::u16string converted;  // holds the text when the caller's was in another encoding

    void SetText(std::u16string_view units) noexcept {
        kind = Kind::Text;
        text = units;
        pointer = units.data();
    }
    void SetConverted() noexcept {
        kind = Kind::Converted;
        pointer = nullptr;
    }
    bool IsText() const noexcept { return kind == Kind::Text || kind == Kind::Converted; }
    /// Not kept as a view, because a short text moves with its object.
    std::u16string_view Text() const noexcept {
        return kind == Kind::Converted ? std::u16string_view(converted) : text;
    }
};

template <typename T>
concept CharacterUnit = std::same_as<T, char> || std::same_as<T, char16_t> || std::same_as<T, wchar_t>;

}  // namespace QsText
