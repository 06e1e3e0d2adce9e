// The table that says at what rates a project takes the extra costs of its library.
#pragma once

#include <istream>
#include <string>
#include <vector>

#include "ExtraCosts.h"
#include "Problem.h"

namespace Estimate {

/// Reads a table with the columns name, rate (in percent) and, if it likes, code. Rows that name nothing of
/// the library's, that hold no rate from 0 to 1000 % or that say a thing twice are noted in `problems` and
/// left out. The result is empty, or says why the table can't be read at all.
Message ReadExtraCostRates(std::istream& in, const LibraryCharges& charges, std::vector<ExtraCostRate>& rates,
                           Problems& problems);

}  // namespace Estimate
