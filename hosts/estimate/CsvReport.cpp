#include <string>
#include <string_view>

#include "Chapters.h"
#include "CsvWriter.h"
#include "Report.h"

namespace Estimate {
namespace {

void WriteItem(CsvWriter& csv, std::string_view kind, const Item& item, std::string_view features) {
    csv.Write({kind, item.code, item.name, features, item.unit, item.formula, DecimalText(item.quantity),
               PriceText(item.price, false), FenText(item.fen), ""});
}

void WriteItems(CsvWriter& csv, const Bill& bill) {
    for (const BillItem& item : bill.items) {
        WriteItem(csv, "bill", item, item.features);
        for (std::size_t i = 0; i < item.quotaCount; ++i)
            WriteItem(csv, "quota", bill.quotas[item.firstQuota + i], "");
    }
}

void WriteSums(CsvWriter& csv, const Report& report) {
    for (const Chapter& chapter : report.chapters) {
        csv.Write({"chapter", chapter.code, ChapterName(chapter.code), "", "", "", "", "",
                   FenText(chapter.fen), ""});
        for (const Section& section : chapter.sections)
            csv.Write({"section", section.code, ChapterName(section.code), "", "", "", "", "",
                       FenText(section.fen), ""});
    }
    for (const IndicatorSum& sum : report.indicators) {
        csv.Write({"indicator", "bill", "", "", sum.unit, "", QuantityText(sum.billQuantity, sum.unit), "",
                   "", ""});
        csv.Write({"indicator", "quota", "", "", sum.unit, "", QuantityText(sum.quotaQuantity, sum.unit), "",
                   "", ""});
    }
    for (const Resource& each : report.resources)
        csv.Write({"resource", each.code, each.name, "", each.unit, "", DecimalText(each.quantity),
                   PriceText(each.price, false), FenText(each.fen), each.digest});
}

void WriteExtraCosts(CsvWriter& csv, const ExtraCosts& extraCosts) {
    for (const ExtraCostGroup& group : extraCosts.groups) {
        for (const ExtraCost& cost : group.costs)
            csv.Write({"extra cost", cost.code, cost.name, KindText(group.kind), "%", "",
                       cost.rate ? PriceText(*cost.rate, false) : "", FenText(cost.baseFen),
                       cost.rate ? FenText(cost.fen) : "", KindName(group.kind)});
        csv.Write({"extra costs", "", KindText(group.kind), "", "", "", "", "", FenText(group.fen),
                   KindName(group.kind)});
    }
}

void WriteTotals(CsvWriter& csv, const Report& report) {
    csv.Write({"total", "quota", "", "", "", "", "", "", FenText(report.quotaFen), ""});
    csv.Write({"total", "bill", "", "", "", "", "", "", FenText(report.bill.fen), ""});
    if (report.extraCosts) {
        csv.Write({"total", "extra costs", "", "", "", "", "", "", FenText(report.extraCosts->fen), ""});
        csv.Write({"total", "with extra costs", "", "", "", "", "", "", FenText(TotalFen(report)), ""});
    }
    if (report.area > 0)
        csv.Write({"total", "per m2", "", "", "", "", "", "",
                   FenText(FenPerArea(TotalFen(report), report.area)), ""});
    csv.Write({"capital", "", CapitalText(TotalFen(report)), "", "", "", "", "", "", ""});
    for (const Problems& file : report.problems)
        for (const Problem& problem : file.found)
            csv.Write({"problem", "", "", "", "", "", "", "", "",
                       ProblemText(file.file, problem, Language::English)});
}

}  // namespace

void WriteCsv(std::ostream& out, const Report& report) {
    CsvWriter csv(out);
    csv.Write({"kind", "code", "name", "features", "unit", "formula", "quantity", "price", "amount", "note"});
    WriteItems(csv, report.bill);
    WriteSums(csv, report);
    if (report.extraCosts)
        WriteExtraCosts(csv, *report.extraCosts);
    WriteTotals(csv, report);
}

}  // namespace Estimate
