// Several bills or projects, priced at the same time.
#pragma once

#include <string>
#include <vector>

#include "BillPricing.h"

namespace Estimate {

/// Prices each bill on a thread of its own, `jobs` of them at a time, and writes their reports and problems
/// in the order of the bills, whatever the number of jobs: texts under a line with the file's name, JSON as
/// one array. A bill that can't be read is left out. Returns the highest `ExitStatus`.
int PriceBills(const PriceOptions& options, const std::vector<std::string>& bills, unsigned jobs,
               const Streams& streams);

}  // namespace Estimate
