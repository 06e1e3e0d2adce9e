// What `CString::Format` hands to the compiled formatter: each argument with its kind.
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
    enum class Kind : std::uint8_t { Int32, UInt32, Int64, UInt64, Double, Character, Text, Pointer };

    Kind kind = Kind::Int32;
    union {
        std::int64_t integer = 0;
        std::uint64_t natural;
        double real;
        const void* pointer;
    };
    std::u16string_view text;
    std::u16string converted;  // holds the text when the caller's was in another encoding
};

template <typename T>
concept CharacterUnit = std::same_as<T, char> || std::same_as<T, char16_t> || std::same_as<T, wchar_t>;

}  // namespace QsText
