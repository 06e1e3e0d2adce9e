// The case that file names are compared without.
#pragma once

namespace QsPlatform {

/// As below, for units from U+0080 on.
char16_t UpperCaseBeyondAscii(char16_t unit) noexcept;

/// The upper case of a unit as NTFS sees it, the same on every system and under every locale; the unit itself
/// when it has none. Surrogates have none.
inline char16_t UpperCase(char16_t unit) noexcept {
    if (unit < 0x80)
        return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 0x20) : unit;
    return UpperCaseBeyondAscii(unit);
}

}  // namespace QsPlatform
