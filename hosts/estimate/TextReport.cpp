#include <algorithm>
#include <array>
#include <initializer_list>

#include "Chapters.h"
#include "Report.h"
#include "TextWidth.h"

namespace Estimate {
namespace {

constexpr std::size_t NameWidth = 40;
constexpr std::size_t TitleWidth = 80;
constexpr std::size_t CodeWidth = 16;
constexpr std::size_t UnitWidth = 10;

/// Lines of cells, each column as wide as its widest cell.
template <std::size_t N>
class Table {
public:
    using Cells = std::array<std::string, N>;

    Table(Cells headings, std::array<Align, N> aligns) : m_headings(std::move(headings)), m_aligns(aligns) {
        Measure(m_headings);
    }

    void Measure(const Cells& cells) {
        for (std::size_t i = 0; i < N; ++i)
            m_widths[i] = std::max(m_widths[i], DisplayWidth(cells[i]));
    }
    void Write(std::ostream& out, const Cells& cells) const {
        std::string line;
        for (std::size_t i = 0; i < N; ++i)
            line.append(i == 0 ? "" : "  ").append(Padded(cells[i], m_widths[i], m_aligns[i]));
        line.resize(line.find_last_not_of(' ') + 1);
        out << line << '\n';
    }
    void WriteHeadings(std::ostream& out) const {
        Write(out, m_headings);
        WriteRule(out);
    }
    void WriteRule(std::ostream& out) const { out << std::string(Width(), '-') << '\n'; }
    std::size_t Width() const {
        std::size_t width = 2 * (N - 1);
        for (const std::size_t column : m_widths)
            width += column;
        return width;
    }

private:
    Cells m_headings;
    std::array<Align, N> m_aligns;
    std::array<std::size_t, N> m_widths{};
};

constexpr Align L = Align::Left;
constexpr Align R = Align::Right;

using ItemTable = Table<6>;

ItemTable::Cells ItemCells(const Item& item, std::string_view indent) {
    return {std::string(indent) + Shortened(item.code, CodeWidth),
            std::string(indent) + Shortened(item.name, NameWidth),
            Shortened(item.unit, UnitWidth),
            DecimalText(item.quantity),
            PriceText(item.price, true),
            GroupedText({item.fen, 2})};
}

ItemTable::Cells SubtotalCells(std::string_view name, std::int64_t fen) {
    return {"", std::string(name), "", "", "", GroupedText({fen, 2})};
}

template <typename Visit>
void VisitItem(const Bill& bill, const BillItem& item, const Visit& visit) {
    visit(item, "");
    for (std::size_t i = 0; i < item.quotaCount; ++i)
        visit(bill.quotas[item.firstQuota + i], "  ");
}

void WriteFeatures(std::ostream& out, const BillItem& item) {
    std::string_view rest = item.features;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
        if (end > 0)
            out << "              # " << Shortened(rest.substr(0, end), 96) << '\n';
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

void WriteItems(std::ostream& out, const Report& report) {
    ItemTable table({"项目编码", "项目名称", "单位", "工程量", "单价(元)", "合价(元)"}, {L, L, L, R, R, R});
    for (const BillItem& item : report.bill.items)
        VisitItem(report.bill, item,
                  [&](const Item& each, std::string_view indent) { table.Measure(ItemCells(each, indent)); });
    table.Measure(SubtotalCells("合计", report.bill.fen));
    table.WriteHeadings(out);
    for (const Chapter& chapter : report.chapters) {
        out << chapter.code << ' ' << ChapterName(chapter.code) << '\n';
        for (std::size_t i = chapter.first; i < chapter.first + chapter.count; ++i) {
            const BillItem& item = report.bill.items[i];
            table.Write(out, ItemCells(item, ""));
            if (report.features)
                WriteFeatures(out, item);
            for (std::size_t q = 0; q < item.quotaCount; ++q)
                table.Write(out, ItemCells(report.bill.quotas[item.firstQuota + q], "  "));
        }
        table.Write(out, SubtotalCells("小计", chapter.fen));
        table.WriteRule(out);
    }
    table.Write(out, SubtotalCells("合计", report.bill.fen));
}

std::string Share(std::int64_t part, std::int64_t whole) {
    if (whole == 0)
        return "-";
    return DecimalText(
        {RoundToDecimals(100.0 * static_cast<double>(part) / static_cast<double>(whole), 2).value_or(0), 2});
}

using ChapterTable = Table<5>;

ChapterTable::Cells ChapterCells(std::string_view indent, std::string_view code, std::string_view name,
                                 std::int64_t fen, const Report& report) {
    return {std::string(indent).append(code), std::string(indent).append(name), GroupedText({fen, 2}),
            Share(fen, report.bill.fen),
            report.area > 0 ? GroupedText({FenPerArea(fen, report.area), 2}) : std::string()};
}

void WriteChapters(std::ostream& out, const Report& report) {
    ChapterTable table({"编码", "分部分项", "合价(元)", "占比(%)", report.area > 0 ? "元/m2" : ""},
                       {L, L, R, R, R});
    const auto visit = [&](const auto& take) {
        for (const Chapter& chapter : report.chapters) {
            take(ChapterCells("", chapter.code, ChapterName(chapter.code), chapter.fen, report));
            for (const Section& section : chapter.sections)
                take(ChapterCells("  ", section.code, ChapterName(section.code), section.fen, report));
        }
        take(ChapterCells("", "", "合计", report.bill.fen, report));
    };
    visit([&](const ChapterTable::Cells& cells) { table.Measure(cells); });
    out << "\n分部小计\n\n";
    table.WriteHeadings(out);
    visit([&](const ChapterTable::Cells& cells) { table.Write(out, cells); });
}

void WriteIndicators(std::ostream& out, const Report& report) {
    Table<3> table({"单位", "清单工程量", "定额工程量"}, {L, R, R});
    const auto visit = [&](const auto& take) {
        for (const IndicatorSum& sum : report.indicators)
            take({Shortened(sum.unit, UnitWidth), QuantityText(sum.billQuantity, sum.unit),
                  QuantityText(sum.quotaQuantity, sum.unit)});
    };
    visit([&](const Table<3>::Cells& cells) { table.Measure(cells); });
    out << "\n按指标单位汇总的工程量\n\n";
    table.WriteHeadings(out);
    visit([&](const Table<3>::Cells& cells) { table.Write(out, cells); });
}

void WriteResources(std::ostream& out, const Report& report) {
    using ResourceTable = Table<8>;
    ResourceTable table({"编码", "定额、材料名称", "单位", "数量", "单价(元)", "合价(元)", "次数", "标识"},
                        {L, L, L, R, R, R, R, L});
    const auto visit = [&](const auto& take) {
        for (const Resource& each : report.resources)
            take({Shortened(each.code, CodeWidth), Shortened(each.name, NameWidth),
                  Shortened(each.unit, UnitWidth), DecimalText(each.quantity), PriceText(each.price, true),
                  GroupedText({each.fen, 2}), std::to_string(each.rows), each.digest.substr(0, 8)});
    };
    visit([&](const ResourceTable::Cells& cells) { table.Measure(cells); });
    out << "\n定额、材料汇总\n\n";
    table.WriteHeadings(out);
    visit([&](const ResourceTable::Cells& cells) { table.Write(out, cells); });
}

using ExtraCostTable = Table<6>;

void WriteExtraCosts(std::ostream& out, const ExtraCosts& extraCosts) {
    ExtraCostTable table({"系数", "增加费名称", "编码", "计算基础(元)", "费率(%)", "金额(元)"},
                         {L, L, L, R, R, R});
    const auto visit = [&](const auto& take) {
        for (const ExtraCostGroup& group : extraCosts.groups) {
            for (const ExtraCost& cost : group.costs)
                take({std::string(KindText(group.kind)), Shortened(cost.name, NameWidth), cost.code,
                      GroupedText({cost.baseFen, 2}), cost.rate ? PriceText(*cost.rate, true) : "",
                      cost.rate ? GroupedText({cost.fen, 2}) : ""});
            take({"", "小计", "", "", "", GroupedText({group.fen, 2})});
        }
        take({"", "合计", "", "", "", GroupedText({extraCosts.fen, 2})});
    };
    visit([&](const ExtraCostTable::Cells& cells) { table.Measure(cells); });
    out << "\n增加费  " << Shortened(extraCosts.family + " " + extraCosts.library, TitleWidth) << "\n\n";
    table.WriteHeadings(out);
    visit([&](const ExtraCostTable::Cells& cells) { table.Write(out, cells); });
}

void WriteTotals(std::ostream& out, const Report& report) {
    std::size_t bad = 0;
    for (const Problems& problems : report.problems)
        bad += problems.badRows;
    out << "\n清单项目  " << report.bill.items.size() << " 项，定额 " << report.bill.quotas.size() << " 条";
    if (bad > 0)
        out << "，未计价 " << bad << " 行";
    out << "\n定额合计  " << GroupedText({report.quotaFen, 2}) << " 元\n";
    out << "清单合计  " << GroupedText({report.bill.fen, 2}) << " 元\n";
    if (report.extraCosts) {
        out << "增加费    " << GroupedText({report.extraCosts->fen, 2}) << " 元\n";
        out << "总价      " << GroupedText({TotalFen(report), 2}) << " 元\n";
    }
    if (report.area > 0)
        out << "单方造价  " << GroupedText({FenPerArea(TotalFen(report), report.area), 2}) << " 元/m2\n";
    out << "大写金额  " << CapitalText(TotalFen(report)) << '\n';
}

}  // namespace

void WriteText(std::ostream& out, const Report& report) {
    out << "工程量清单计价表\n\n";
    if (!report.name.empty())
        out << "工程名称  " << Shortened(report.name, TitleWidth) << "\n\n";
    WriteItems(out, report);
    WriteChapters(out, report);
    WriteIndicators(out, report);
    WriteResources(out, report);
    if (report.extraCosts)
        WriteExtraCosts(out, *report.extraCosts);
    WriteTotals(out, report);
}

}  // namespace Estimate
