#include "Report.h"

#include <cmath>

#include <QsUtils/QsUtils.h>

#include "Units.h"
#include "Utf8.h"

namespace Estimate {

void Summarize(Report& report) {
    report.chapters = ChaptersOf(report.bill);
    report.indicators = IndicatorsOf(report.bill);
    report.resources = ResourcesOf(report.bill);
    report.quotaFen = 0;
    for (const BillItem& item : report.bill.items)
        AddTo(report.quotaFen, item.quotaFen);
}

std::int64_t TotalFen(const Report& report) {
    std::int64_t fen = report.bill.fen;
    if (report.extraCosts)
        AddTo(fen, report.extraCosts->fen);
    return fen;
}

std::string CapitalText(std::int64_t fen) {
    return ToUtf8(IQsUtils::NumToRMBStr(ToDouble({fen, 2})));
}

std::int64_t FenPerArea(std::int64_t fen, double area) {
    return area > 0 ? RoundToDecimals(ToDouble({fen, 2}) / area, 2).value_or(0) : 0;
}

std::string QuantityText(double quantity, std::string_view unit) {
    const int decimals = UnitDecimals(unit);
    if (const auto units = RoundToDecimals(quantity, decimals))
        return DecimalText({*units, decimals});
    return ToUtf8(IQsUtils::DoubleToCString(quantity, decimals, false));
}

}  // namespace Estimate
