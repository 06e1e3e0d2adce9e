// From the rows of a table to a priced bill.
#pragma once

#include <istream>
#include <string>

#include "Bill.h"
#include "CsvRows.h"
#include "Problem.h"
#include "Variables.h"

namespace Estimate {

/// Reads a bill of quantities and prices it row by row. A code of twelve digits makes a row a bill item,
/// every other code a quota item of the bill item above it. A row without code, unit, formula and price is a
/// heading and is passed over.
///
/// A bill item without a price takes the one that its quota items compose. Rows that can't be priced are
/// noted in `problems` and left out, and so are the quota rows below such a bill item. The bill comes back
/// sorted and summed. The result is empty, or says why the table can't be read at all.
std::string ReadBill(std::istream& in, const Variables& variables, Bill& bill, Problems& problems,
                     const ByteProgress& progress = {});

}  // namespace Estimate
