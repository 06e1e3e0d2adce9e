// Files by name, with "-" for the standard streams.
#pragma once

#include <cstdint>
#include <functional>
#include <istream>
#include <memory>
#include <ostream>
#include <string>

namespace Estimate {

struct InputFile {
    std::unique_ptr<std::istream> stream;  ///< seekable; null when the file can't be read
    std::uint64_t size = 0;                ///< in bytes
    std::string name;                      ///< for messages
};

/// Opens a file; "-" reads standard input to its end.
InputFile OpenInput(const std::string& path, std::istream& standardInput);

/// Lets `write` fill a file. It is put in place only when all is written, so that a failure leaves what was
/// there before. The result is empty, or says what failed.
std::string WriteOutput(const std::string& path, const std::function<void(std::ostream&)>& write);

}  // namespace Estimate
