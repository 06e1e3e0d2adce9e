// The text of a profile (INI) file: its encoding, its lines, and what a line says.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace QsPlatform {

enum class ProfileEncoding { Ansi, Utf8, Utf16Little, Utf16Big };

/// A line as offsets into the file: its text is [begin, end), and the next line begins at `next`.
struct ProfileLine {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t next = 0;
};

/// The bytes of a profile file, seen as lines. It keeps a view only. The byte-order mark tells the encoding;
/// a file without one is in the ANSI code page. Lines end with LF, CR LF or CR. In the code page a lead byte
/// takes the next byte along, also the end of a line.
class ProfileText {
public:
    explicit ProfileText(std::string_view bytes) noexcept;

    ProfileEncoding Encoding() const noexcept { return m_encoding; }
    /// Where the first line begins: behind the byte-order mark.
    std::size_t Begin() const noexcept { return m_begin; }
    /// The line that begins at `from`, which is the first one's begin or a line's `next`; false at the end.
    bool LineAt(std::size_t from, ProfileLine& line) const noexcept;
    /// Where the first unit stands in [from, end) that is no white space; `end` when there is none.
    std::size_t SkipSpace(std::size_t from, std::size_t end) const noexcept;
    /// Where `character`, an ASCII one, stands first in [from, end); `end` when it doesn't.
    std::size_t Find(char16_t character, std::size_t from, std::size_t end) const noexcept;
    /// The ASCII character that stands at an offset; `NotAscii` for any other.
    char16_t CharacterAt(std::size_t at) const noexcept;
    /// The offset behind the unit at `at`.
    std::size_t After(std::size_t at) const noexcept { return at + Width(at); }

    std::u16string Decode(std::size_t from, std::size_t end) const;

    static constexpr char16_t NotAscii = 0xFFFF;

private:
    std::size_t Width(std::size_t at) const noexcept;

    std::string_view m_bytes;
    ProfileEncoding m_encoding = ProfileEncoding::Ansi;
    std::size_t m_begin = 0;
};

/// A text in the encoding of a file, without byte-order mark. What the code page lacks becomes "?".
std::string EncodeProfileText(ProfileEncoding encoding, std::u16string_view text);

/// What a line says.
struct ProfileEntry {
    enum class Kind {
        Blank,
        Section,  ///< [name], the rest of the line is ignored
        Value,    ///< name=value
        Name,     ///< a name without "=", as which comments count too
    };
    Kind kind = Kind::Blank;
    std::u16string_view name;
    std::u16string_view value;  ///< as it stands, quotes included
};

/// The views are into `line`. Names and values lose the white space around them and end at a NUL.
ProfileEntry ParseProfileLine(std::u16string_view line) noexcept;

/// A name as questions give it: up to its NUL, without white space around it.
std::u16string_view TrimProfileName(std::u16string_view name) noexcept;

/// Whether two names are one: only ASCII letters have no case.
bool SameProfileName(std::u16string_view a, std::u16string_view b) noexcept;

/// The first value of that name as it stands in the file, quotes included; none when the key isn't there or
/// has no "=". The names come without white space around them. One pass over the bytes.
std::optional<std::u16string> FindProfileValue(const ProfileText& text, std::u16string_view section,
                                               std::u16string_view key);

}  // namespace QsPlatform
