#include "BillReader.h"

#include "BillBuilder.h"
#include "InputText.h"

namespace Estimate {
namespace {

/// A field more than the headings have means a comma that was meant to be text.
Message WidthFault(const CsvRow& row, const Columns& columns) {
    for (std::size_t i = columns.Width(); i < row.fields.size(); ++i)
        if (!row.fields[i].empty())
            return Say<Text::RowTooWide>(row.fields.size(), columns.Width());
    return {};
}

BillRow RowOf(const CsvRow& fields, const Columns& columns) {
    using namespace BillColumn;
    BillRow row;
    row.place.line = fields.line;
    for (std::size_t i = 0; i < row.fields.size(); ++i)
        row.fields[i] = columns.Field(fields, i);
    if (row.fields[Code].empty() && row.fields[Unit].empty() && row.fields[Formula].empty() &&
        row.fields[Price].empty())
        return row;
    row.kind = IsBillCode(row.fields[Code]) ? RowKind::Item : RowKind::Quota;
    row.fault = WidthFault(fields, columns);
    return row;
}

}  // namespace

Message ReadBillRows(std::istream& in, Columns& columns, const BillRowHandler& handler,
                     const ByteProgress& progress) {
    const InputText text = DetectText(in);
    if (!text.refusal.empty())
        return text.refusal;
    const auto take = [&](const CsvRow& row) {
        if (columns.IsKnown())
            handler(RowOf(row, columns));
        else
            columns.TryHeadings(row);
    };
    const CsvBreak end = ReadCsv(in, text.encoding, take, progress);
    if (!columns.IsKnown())
        return end.reason.empty() ? Say<Text::ColumnsMissing>(columns.Missing()) : end.reason;
    if (!end.reason.empty()) {
        BillRow remains;
        remains.place.line = end.line;
        remains.fault = end.reason;
        handler(remains);
    }
    return {};
}

Message ReadBill(std::istream& in, const Variables& variables, Bill& bill, Problems& problems,
                 const ByteProgress& progress) {
    Columns columns(BillColumn::Specs);
    BillBuilder builder(columns, variables, bill, problems);
    const auto take = [&](const BillRow& row) { builder.Take(row); };
    Message refusal = ReadBillRows(in, columns, take, progress);
    if (refusal.empty())
        builder.Finish();
    return refusal;
}

}  // namespace Estimate
