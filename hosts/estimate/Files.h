// Files by name, with "-" for the standard streams.
#pragma once

#include <cstdint>
#include <functional>
#include <istream>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include <QsUtils/QsUtils.h>

#include "Message.h"

namespace Estimate {

struct InputFile {
    std::unique_ptr<std::istream> stream;  ///< seekable; null when the file can't be read
    std::uint64_t size = 0;                ///< in bytes
    Message name;                          ///< for messages
};

/// Opens a file; "-" reads standard input to its end.
InputFile OpenInput(const std::string& path, std::istream& standardInput);

/// The path as the library takes it; none for a name that its form of a path can't say, since it holds the
/// library's separator or bytes that are no text.
std::optional<std::wstring> LibraryPath(const std::string& path);

/// A path of the library's in the system's form, in UTF-8.
std::string ShownPath(const CString& path);

/// Lets the library take this folder for the installation in place of the program's own; false when it isn't
/// a folder that can be one.
bool UseInstallation(const std::string& folder);

/// Lets `write` fill a file. It is put in place only when all is written, so that a failure leaves what was
/// there before. The result is empty, or says what failed.
Message WriteOutput(const std::string& path, const std::function<void(std::ostream&)>& write);

}  // namespace Estimate
