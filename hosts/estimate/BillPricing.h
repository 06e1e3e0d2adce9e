// One bill or project, from its file to its report.
#pragma once

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
    bool json = false;
    bool csv = false;
    bool mark = false;
    bool features = false;
};

/// Prices `options.bill` and writes the report. Returns an `ExitStatus`. Any thread may call it, several at a
/// time with streams of their own.
int PriceBill(const PriceOptions& options, const Streams& streams);

}  // namespace Estimate
