// Prices the rows of a bill one by one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Bill.h"
#include "BillRow.h"
#include "Columns.h"
#include "Problem.h"
#include "Variables.h"

namespace Estimate {

/// A bill item without a price takes the one that its quota items compose. Rows that can't be priced are
/// noted and left out, and so are the quota rows below such a bill item.
class BillBuilder {
public:
    /// All arguments outlive the builder; `columns` tells the numbers of columns for messages.
    BillBuilder(const Columns& columns, const Variables& variables, Bill& bill, Problems& problems)
        : m_columns(columns), m_variables(variables), m_bill(bill), m_problems(problems) {}

    void Take(const BillRow& row);
    /// Sorts the bill and sums it up. To be called once, behind the last row.
    void Finish();

private:
    void Note(Severity severity, const Place& place, std::size_t column, Message reason);
    void Reject(const BillRow& row, std::size_t column, Message reason);
    void RejectRow(const Place& place, Message reason);
    void TakeItem(const BillRow& row);
    void TakeQuota(const BillRow& row);
    void CheckQuotaCode(const BillRow& row);
    void ReadItem(const BillRow& row, Item& item, const CString* amount);
    std::string_view ReadUnit(std::string_view unit);
    void ReadQuantity(const BillRow& row, Item& item, const CString* amount);
    std::optional<std::int64_t> ReadPrice(const BillRow& row, bool mayBeEmpty);
    void SetAmount(Item& item);
    void CloseItem();
    void ComposePrice(BillItem& item);
    void WarnOfDuplicates();

    const Columns& m_columns;
    const Variables& m_variables;
    Bill& m_bill;
    Problems& m_problems;
    std::optional<BillItem> m_item;  // the one whose quota rows are being read
    std::optional<Place> m_itemPlace;
    std::optional<Place> m_badQuota;
    std::size_t m_quotaRows = 0;
    CString m_amount;
    std::string m_lastUnitText;
    std::string_view m_lastUnit;
    std::optional<int> m_lastDecimals;
    bool m_rowIsBad = false;
};

}  // namespace Estimate
