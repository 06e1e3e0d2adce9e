// Bills in tables.
#pragma once

#include <istream>
#include <string>

#include "Bill.h"
#include "BillRow.h"
#include "Columns.h"
#include "CsvRows.h"
#include "Problem.h"
#include "Variables.h"

namespace Estimate {

/// Hands the rows of a bill to `handler`, as they are written. A code of twelve digits makes a row a bill
/// item, every other code a quota row of the bill item above it. A row without code, unit, formula and price
/// is a heading. Where the table breaks off, a heading with a fault tells why.
///
/// `columns`, made of the columns of a bill, is known from the first row on. The result is empty, or says why
/// the table can't be read at all.
Message ReadBillRows(std::istream& in, Columns& columns, const BillRowHandler& handler,
                     const ByteProgress& progress = {});

/// Reads a bill of quantities and prices it row by row; see `BillBuilder`. The bill comes back sorted and
/// summed. The result is empty, or says why the table can't be read at all.
Message ReadBill(std::istream& in, const Variables& variables, Bill& bill, Problems& problems,
                 const ByteProgress& progress = {});

}  // namespace Estimate
