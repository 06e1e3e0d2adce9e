// Profile (INI) files: contract.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "QsUtils/platform/FileFailure.h"
#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// A profile file read once, for many questions. Constant from then on, so any thread may ask it.
class ProfileDocument {
public:
    /// Reads the file at `path`, a path in the library's form. A file that can't be read has no values.
    explicit ProfileDocument(const CString& path);
    /// The bytes of a file.
    static ProfileDocument FromBytes(std::string bytes);

    /// The value of `key` in `section`, as `GetPrivateProfileStringW` gives it with a buffer of `size` units:
    /// at most `size` - 1 of them, a surrogate pair being cut where it must be.
    ///
    /// Names have no case in ASCII, and white space around them doesn't count. Of several sections or keys of
    /// one name only the first is looked at. One pair of like quotes around a value is taken off. A key
    /// that isn't there, or has no "=", gives `fallback` without its trailing blanks and with its quotes off
    /// as well; an empty value gives the empty text. Lines before all sections belong to section "".
    CString Text(const CString& section, const CString& key, const CString& fallback, int size) const;

private:
    ProfileDocument() = default;

    std::string m_bytes;
};

/// The same for one question: the file is read anew by every call, so that a change by another process shows.
CString ReadProfileValue(const CString& path, const CString& section, const CString& key,
                         const CString& fallback, int size);

/// Sets the value of `key` in `section`; false when it can't be done, and then the file is as it was. The
/// file is replaced whole. Everything but the one line stays, byte for byte: comments, blank lines, spelling,
/// the ends of lines, the encoding and its mark. A new key stands behind the last line of its section, a new
/// section at the end. A new file is in the ANSI code page with CR LF; its folder must be there. A value that
/// is there already leaves the file untouched.
///
/// A value loses white space around it and ends before a NUL or the end of a line; what the encoding of the
/// file lacks becomes "?". Names that could not be found again in the file are refused: a key with "=", a
/// name with an end of line, or with characters that the encoding lacks. Calls for one file must not meet:
/// the last one to write wins.
bool WriteProfileValue(const CString& path, const CString& section, const CString& key, const CString& value);

/// Keys and their values, in the order in which they are to be set.
using ProfileValues = std::vector<std::pair<CString, CString>>;

/// The same for several values of one section: the file is replaced once, with all of them or none. When that
/// can't be done, `failure`, if given, says why; refused names are `Other`.
bool WriteProfileValues(const CString& path, const CString& section, const ProfileValues& values,
                        FileFailure* failure = nullptr);

/// What the file becomes, for `WriteProfileValue`: the bytes with the value set, which may be the same; none
/// when the names are refused.
std::optional<std::string> SetProfileValue(std::string_view bytes, std::u16string_view section,
                                           std::u16string_view key, std::u16string_view value);

}  // namespace QsPlatform
