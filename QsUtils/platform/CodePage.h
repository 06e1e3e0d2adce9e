// The ANSI code page, 936 on every system: contract.
#pragma once

#include <string>
#include <string_view>

namespace QsPlatform {

/// Decodes all bytes of `narrow`, NULs among them, as the system's `MultiByteToWideChar` does with code page
/// 936 and no flags: a byte pair outside of the page that Windows maps to a private-use unit becomes that
/// unit, a broken pair becomes "?". Never fails; an empty text gives an empty text. Any thread may call it.
std::u16string DecodeAnsi(std::string_view narrow);

/// The same as a wide text, whose characters have the numbers of the units.
std::wstring DecodeAnsiToWide(std::string_view narrow);

/// Encodes all units of `wide`, NULs among them, as `WideCharToMultiByte` does with code page 936 and no
/// flags: best fit where Windows has one, "?" for a unit that the page lacks, "??" for a surrogate pair.
/// Never fails. Any thread may call it.
std::string EncodeAnsi(std::u16string_view wide);

/// The same for a wide text; a character above 0xFFFF counts as the surrogate pair that it would be.
std::string EncodeAnsi(std::wstring_view wide);

/// How many units `DecodeAnsi(EncodeAnsi(wide))` has.
std::size_t AnsiRoundTripLength(std::u16string_view wide);

/// Whether `byte` begins a byte pair of code page 936: 0x81 to 0xFE, nothing else.
constexpr bool IsLeadByte(unsigned char byte) noexcept {
    return byte >= 0x81 && byte <= 0xFE;
}

}  // namespace QsPlatform
