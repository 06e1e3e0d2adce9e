// The rows of a CSV text, each with the line on which it begins.
#pragma once

#include <cstdint>
#include <functional>
#include <istream>
#include <span>
#include <string>

#include "InputText.h"

namespace Estimate {

struct CsvRow {
    std::size_t line = 0;                 ///< counted from 1; a quoted field may reach over several
    std::span<const std::string> fields;  ///< in UTF-8; valid during the call
};

using RowHandler = std::function<void(const CsvRow&)>;
/// Told how many bytes have been read, now and then.
using ByteProgress = std::function<void(std::uint64_t)>;

/// Why and at which row a text broke off; the reason is empty when it didn't.
struct CsvBreak {
    std::size_t line = 0;
    Message reason;
};

/// Hands every row that isn't blank to `handler`, in order. Commas separate fields, quotes enclose them, and
/// lines end with LF, CR LF or CR; white space around a field doesn't belong to it. An exception of the
/// handler passes through. The text breaks off at a quote without its end and at a failing input.
CsvBreak ReadCsv(std::istream& in, Encoding encoding, const RowHandler& handler,
                 const ByteProgress& progress = {});

}  // namespace Estimate
