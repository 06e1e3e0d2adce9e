// Names of entries: their order, and the patterns that find them.
#pragma once

#include <string>
#include <string_view>

namespace QsPlatform {

/// Whether a name stands before another in a folder: ascending by upper-cased code unit as on NTFS, names
/// that differ in nothing but case by code unit.
bool StandsBefore(std::u16string_view a, std::u16string_view b) noexcept;

/// Whether a name is "." or "..".
inline bool IsDots(std::u16string_view name) noexcept {
    return name == u"." || name == u"..";
}

/// Whether the text holds "*" or "?".
inline bool HasWildcards(std::u16string_view text) noexcept {
    return text.find_first_of(u"*?") != text.npos;
}

/// The last part of a search, without regard to case. "*" stands for any number of units and "?" for one.
/// Points before a "*" may be missing at the end of a name: "a.*" finds "a", "*.*" every name. Points and
/// blanks at the end of the mask don't count: "*." finds every name. All other units are literal.
class NameMask {
public:
    explicit NameMask(std::u16string_view mask);
    /// In a time of at most the product of both lengths.
    bool Matches(std::u16string_view name) const noexcept;

private:
    bool MatchesNothingFrom(std::size_t at) const noexcept;

    std::u16string m_mask;  // in upper case, no "*" behind another
};

}  // namespace QsPlatform
