#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "CsvRows.h"
#include "Report.h"
#include "TestSupport.h"
#include "TextWidth.h"

using namespace Estimate;

namespace {

Report ReportOf(const std::string& rows) {
    PricedBill priced = PriceBill(Headings + rows);
    Report report;
    report.bill = std::move(priced.bill);
    priced.problems.file = Estimate::Message::Same("b.csv");
    report.problems.push_back(std::move(priced.problems));
    Summarize(report);
    return report;
}

Report SampleReport() {
    return ReportOf(
        "010401001001,\"砖\n基础\",\"1.砖:\"\"MU10\"\"\n2.砂浆\",m3,2+3,1234.56\n4-1,砖基础,,10m3,Q/10,40\n"
        "010801001001,木门,,樘,2,10.125\n4-9,坏,,m3,?,1\n");
}

template <typename Write>
std::string Written(const Write& write, const Report& report) {
    std::ostringstream out;
    write(out, report);
    return out.str();
}

}  // namespace

TEST(Report, Text) {
    Report report = SampleReport();
    const std::string text = Written(WriteText, report);
    EXPECT_TRUE(Has(text, "0104 砌筑工程\n"));
    EXPECT_TRUE(Has(text, "010401001001  砖 基础   m3"));
    EXPECT_TRUE(Has(text, "清单合计  6,193.05 元\n"));
    EXPECT_TRUE(Has(text, "大写金额  陆仟壹佰玖拾叁元零伍分\n"));
    EXPECT_TRUE(Has(text, "清单项目  2 项，定额 1 条，未计价 1 行\n"));
    EXPECT_FALSE(Has(text, "MU10"));
    EXPECT_FALSE(Has(text, "元/m2"));
    report.features = true;
    report.area = 10;
    const std::string more = Written(WriteText, report);
    EXPECT_TRUE(Has(more, "# 1.砖:\"MU10\"\n"));
    EXPECT_TRUE(Has(more, "# 2.砂浆\n"));
    EXPECT_TRUE(Has(more, "单方造价  619.31 元/m2\n"));
}

TEST(Report, ColumnsLineUp) {
    const Report report = SampleReport();
    std::istringstream text(Written(WriteText, report));
    std::size_t rule = 0;
    std::size_t items = 0;
    for (std::string line; std::getline(text, line) && !Has(line, "分部小计");) {
        if (line.starts_with("----"))
            rule = line.size();
        else if (rule > 0 && (line.ends_with(".00") || line.ends_with(".80") || line.ends_with(".25"))) {
            // Amounts end where the rule ends.
            EXPECT_EQ(DisplayWidth(line), rule) << line;
            ++items;
        }
    }
    EXPECT_GE(items, 3u);
}

TEST(Report, JsonIsValidAndComplete) {
    Report report = SampleReport();
    report.area = 10;
    const auto json = nlohmann::json::parse(Written(WriteJson, report));
    ASSERT_EQ(json["items"].size(), 2u);
    EXPECT_EQ(json["items"][0]["code"], "010401001001");
    EXPECT_EQ(json["items"][0]["name"], "砖\n基础");
    EXPECT_EQ(json["items"][0]["features"], "1.砖:\"MU10\"\n2.砂浆");
    EXPECT_EQ(json["items"][0]["formula"], "2+3");
    EXPECT_EQ(json["items"][0]["quantity"], 5.0);
    EXPECT_EQ(json["items"][0]["price"], 1234.56);
    EXPECT_EQ(json["items"][0]["amount"], 6172.80);
    EXPECT_EQ(json["items"][0]["quotas"][0]["quantity"], 0.5);
    EXPECT_EQ(json["items"][1]["price"], 10.125);
    EXPECT_EQ(json["items"][1]["composed"], false);
    EXPECT_EQ(json["chapters"][0]["sections"][0]["name"], "砖砌体");
    EXPECT_EQ(json["indicators"][0]["unit"], "m3");
    EXPECT_EQ(json["indicators"][0]["quotaQuantity"], 5.0);
    EXPECT_EQ(json["resources"][0]["rows"], 1);
    EXPECT_EQ(json["problems"][0]["line"], 7);
    EXPECT_EQ(json["problems"][0]["column"], 5);
    EXPECT_EQ(json["problems"][0]["severity"], "error");
    EXPECT_EQ(json["total"]["amount"], 6193.05);
    EXPECT_EQ(json["total"]["amountPerArea"], 619.31);
    EXPECT_EQ(json["total"]["capital"], "陆仟壹佰玖拾叁元零伍分");
}

TEST(Report, JsonOfAnEmptyBillIsValid) {
    const auto json = nlohmann::json::parse(Written(WriteJson, ReportOf("")));
    EXPECT_TRUE(json["items"].empty());
    EXPECT_EQ(json["total"]["capital"], "零元整");
}

TEST(Report, CsvReadsBack) {
    std::istringstream in(Written(WriteCsv, SampleReport()));
    std::vector<std::vector<std::string>> rows;
    ReadCsv(in, Encoding::Utf8,
            [&](const CsvRow& row) { rows.emplace_back(row.fields.begin(), row.fields.end()); });
    ASSERT_EQ(rows.size(), 17u);
    for (const auto& row : rows)
        EXPECT_EQ(row.size(), 10u);
    using Row = std::vector<std::string>;
    EXPECT_EQ(rows[1], (Row{"bill", "010401001001", "砖\n基础", "1.砖:\"MU10\"\n2.砂浆", "m3", "2+3", "5.00",
                            "1234.56", "6172.80", ""}));
    EXPECT_EQ(rows[2], (Row{"quota", "4-1", "砖基础", "", "10m3", "Q/10", "0.500", "40.00", "20.00", ""}));
    EXPECT_EQ(rows[3], (Row{"bill", "010801001001", "木门", "", "樘", "2", "2", "10.125", "20.25", ""}));
    EXPECT_EQ(rows.back()[0], "problem");
    EXPECT_TRUE(Has(rows.back()[9], "b.csv:7:5: error: formula: "));
}

TEST(Report, SumsThatOutgrowTheirTable) {
    EXPECT_EQ(QuantityText(1.23456, "m2"), "1.23");
    EXPECT_EQ(QuantityText(5e9, "m2"), "5000000000.00");
    EXPECT_EQ(FenPerArea(10'000, 3), 3333);
    EXPECT_EQ(FenPerArea(10'000, 0), 0);
}
