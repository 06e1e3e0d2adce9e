// The file in which desktops keep where a user's folders lie.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace QsPlatform {

/// The value that a file of assignments in the shell's language gives a variable: the last one counts. Read
/// is what the desktop's tools write and what people make of it by hand: a single word with quotes of both
/// kinds, backslashes, and `home`, unless it is empty, for HOME. Nothing when the variable isn't set, or when
/// the value isn't an absolute path; a line that asks for more of a shell is passed over, as one without the
/// variable is.
///
/// Source of the form: user-dirs.dirs as freedesktop.org describes it.
std::optional<std::string> UserDirectory(std::string_view file, std::string_view variable,
                                         std::string_view home);

}  // namespace QsPlatform
