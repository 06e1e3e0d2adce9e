// One bill or project, from its file to its report.
#pragma once

#include <optional>
#include <string>

#include "Commands.h"

namespace Estimate {

/// What the command line says.
struct PriceOptions {
    std::string bill;
    std::string variables;
    std::string output;
    std::string area;
    std::string name;
    std::optional<std::string> library;  ///< whose extra costs are charged
    std::string family;
    std::string rates;  ///< the table of their rates; may be empty
    bool json = false;
    bool csv = false;
    bool mark = false;
    bool features = false;
};

/// Prices `options.bill` and writes the report. Returns an `ExitStatus`. Any thread may call it, several at a
/// time with streams of their own.
int PriceBill(const PriceOptions& options, const Streams& streams);

}  // namespace Estimate
