// What a library charges on top of a bill, and the table of the rates.
#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ExtraCostTable.h"
#include "ExtraCosts.h"
#include "TestSupport.h"
#include "tests/support/Rounds.h"

using namespace Estimate;

namespace {

LibraryCharges Charges() {
    return {"x.zkx",
            "北京",
            {"20m", "40m"},
            {{"降效", ExtraCostKind::Item},
             {"交叉", ExtraCostKind::Item},
             {"运输", ExtraCostKind::Project},
             {"文明", ExtraCostKind::Composite},
             {"搭拆", ExtraCostKind::Composite},
             {"怪", ExtraCostKind::Unknown}}};
}

/// 100.10, 33.33 and 200.00 yuan.
Bill ThreeItems() {
    PricedBill priced = PriceBill(std::string(Headings) +
                                  "010401001001,a,,m3,1,100.10\n010401002001,b,,m3,1,33.33\n"
                                  "010501001001,c,,m3,2,100\n");
    EXPECT_EQ(priced.problems.found.size(), 0u);
    return std::move(priced.bill);
}

struct Rates {
    std::vector<ExtraCostRate> rates;
    Problems problems;
    Estimate::Message refusal;
};

Rates ReadRates(const std::string& table, const LibraryCharges& charges = Charges()) {
    Rates read;
    std::istringstream in(table);
    read.refusal = ReadExtraCostRates(in, charges, read.rates, read.problems);
    return read;
}

/// "name code base rate amount" of each extra cost, the sum of its kind behind those of the kind.
std::vector<std::string> Lines(const ExtraCosts& costs) {
    std::vector<std::string> lines;
    for (const ExtraCostGroup& group : costs.groups) {
        for (const ExtraCost& cost : group.costs)
            lines.push_back(cost.name + " " + cost.code + " " + FenText(cost.baseFen) + " " +
                            (cost.rate ? PriceText(*cost.rate, false) : "-") + " " + FenText(cost.fen));
        lines.push_back(std::string(KindName(group.kind)) + " " + FenText(group.fen));
    }
    lines.push_back(FenText(costs.fen));
    return lines;
}

std::vector<std::string> Charged(const std::string& rows) {
    const Rates read = ReadRates("name,rate,code\n" + rows);
    EXPECT_EQ(read.refusal, "");
    EXPECT_EQ(read.problems.found.size(), 0u);
    const Bill bill = ThreeItems();
    return Lines(ChargeExtraCosts(bill, Charges(), read.rates));
}

using Texts = std::vector<std::string>;

std::string OnlyProblem(const Rates& read) {
    if (read.problems.found.size() != 1)
        return std::to_string(read.problems.found.size()) + " problems";
    return EnglishText("r.csv", read.problems.found.front());
}

std::int64_t PlainShare(std::int64_t fen, std::int64_t rate) {
    const std::int64_t product = std::llabs(fen) * rate;
    const std::int64_t share = product / 100'000'000 + (product % 100'000'000 >= 50'000'000 ? 1 : 0);
    return fen < 0 ? -share : share;
}

}  // namespace

TEST(ExtraCosts, EachKindHasItsBase) {
    EXPECT_EQ(Charged("20m,1,\n降效,2.5,\n运输,10,\n文明,3,\n"),
              (Texts{"20m  333.43 1.00 3.33", "over-height 3.33",                          //
                     "交叉  333.43 - 0.00", "降效  333.43 2.50 8.33", "item 8.33",         //
                     "运输  333.43 10.00 33.34", "project 33.34",                          //
                     "搭拆  378.43 - 0.00", "文明  378.43 3.00 11.35", "composite 11.35",  //
                     "怪  0.00 - 0.00", "unknown 0.00",                                    //
                     "56.35"}));
}

TEST(ExtraCosts, CompositesArentChargedOnEachOther) {
    EXPECT_EQ(Charged("搭拆,50,\n文明,10,\n"),
              (Texts{"交叉  333.43 - 0.00", "降效  333.43 - 0.00", "item 0.00",                    //
                     "运输  333.43 - 0.00", "project 0.00",                                        //
                     "搭拆  333.43 50.00 166.72", "文明  333.43 10.00 33.34", "composite 200.06",  //
                     "怪  0.00 - 0.00", "unknown 0.00", "200.06"}));
}

TEST(ExtraCosts, ItemsAreRoundedOneByOne) {
    // 1.001, 0.3333 and 2.00: the sum of the rounded ones, not the rounded sum.
    EXPECT_EQ(Charged("交叉,0.5,\n")[0], "交叉  333.43 0.50 1.67") << "0.50 and 0.17 and 1.00";
    EXPECT_EQ(Charged("交叉,1.505,\n")[0], "交叉  333.43 1.505 5.02") << "1.51 and 0.50 and 3.01";
}

TEST(ExtraCosts, AnItemTakesTheRateOfTheLongestCode) {
    const Texts lines = Charged("降效,1,\n降效,2,0104\n降效,4,010401002001\n降效,8,0109\n");
    EXPECT_EQ(Texts(lines.begin() + 1, lines.begin() + 6),
              (Texts{"降效  200.00 1.00 2.00", "降效 0104 100.10 2.00 2.00",
                     "降效 010401002001 33.33 4.00 1.33", "降效 0109 0.00 8.00 0.00", "item 5.33"}));
}

TEST(ExtraCosts, AnItemHasOneHeight) {
    const Texts lines = Charged("40m,10,0105\n20m,1,\n40m,20,0104\n");
    EXPECT_EQ(Texts(lines.begin(), lines.begin() + 4),
              (Texts{"20m  0.00 1.00 0.00", "40m 0104 133.43 20.00 26.69", "40m 0105 200.00 10.00 20.00",
                     "over-height 46.69"}));
}

TEST(ExtraCosts, ARateOfNothingIsOne) {
    EXPECT_EQ(Charged("运输,0,\n")[3], "运输  333.43 0.00 0.00");
}

TEST(ExtraCosts, OfAnEmptyBillTheyAreNothing) {
    const Bill bill;
    EXPECT_EQ(Lines(ChargeExtraCosts(bill, Charges(), {})).back(), "0.00");
    EXPECT_TRUE(ChargeExtraCosts(bill, {}, {}).groups.empty());
}

TEST(ExtraCosts, KindsAreCalledAsTheFilesCallThem) {
    EXPECT_EQ(KindText(ExtraCostKind::Item), "子目系数");
    EXPECT_EQ(KindText(ExtraCostKind::Project), "工程系数");
    EXPECT_EQ(KindText(ExtraCostKind::Composite), "综合系数");
    EXPECT_EQ(KindText(ExtraCostKind::OverHeight), "超高增加");
    EXPECT_EQ(KindText(ExtraCostKind::Unknown), "未知系数");
}

TEST(ExtraCosts, AnUnknownLibraryHasNone) {
    EXPECT_FALSE(ChargesOf("no such library.zkx", "no family").has_value());
    EXPECT_FALSE(ChargesOf("", "").has_value());
}

TEST(ExtraCostTable, Headings) {
    for (const char* headings : {"name,rate", "增加费名称,费率(%)", "费用名称,说明,费率（%）,适用编码",
                                 "title,,\n\nName,Percent,Item Code"})
        EXPECT_EQ(ReadRates(headings).refusal, "") << headings;
    EXPECT_EQ(ReadRates("name,code\n").refusal, "no row names the columns: rate");
    EXPECT_EQ(ReadRates("").refusal, "no row names the columns: name, rate");
}

TEST(ExtraCostTable, RatesAreInPercent) {
    for (const char* rate : {"3.5", "3.5%", " 3.5 % ", "3.50％", "+3.5"}) {
        const Rates read = ReadRates(std::string("name,rate\n运输,") + rate + "\n");
        ASSERT_EQ(read.rates.size(), 1u) << rate;
        EXPECT_EQ(read.rates[0].rate, 3'500'000) << rate;
        EXPECT_EQ(read.rates[0].kind, ExtraCostKind::Project);
    }
    EXPECT_EQ(ReadRates("name,rate\n运输,\"1,000\"\n").rates.at(0).rate, 1'000'000'000);
    for (const char* rate : {"", "%", "x", "-1", "1000.01", "3.5‰", "3%%", "1e2", "inf", "nan"})
        EXPECT_EQ(OnlyProblem(ReadRates(std::string("name,rate\n运输,") + rate + "\n")),
                  std::string("r.csv:2:2: error: rate: the rate is no number of percent from 0 to 1000: \"") +
                      rate + "\"");
}

TEST(ExtraCostTable, WhatCantBeChargedIsReported) {
    const auto problem = [](const std::string& rows) {
        return OnlyProblem(ReadRates("name,rate,code\n" + rows));
    };
    EXPECT_EQ(problem(",1,\n"), "r.csv:2:1: error: name: the name is empty");
    EXPECT_EQ(problem("无,1,\n"),
              "r.csv:2:1: error: name: the library x.zkx has no extra cost of this name: \"无\"");
    EXPECT_EQ(problem("怪,1,\n"),
              "r.csv:2:1: error: name: the library doesn't say on what \"怪\" is charged");
    for (const char* code : {"A", "01x", "0104010010011", "-1"})
        EXPECT_EQ(problem(std::string("降效,1,") + code + "\n"),
                  std::string("r.csv:2:3: error: code: the code is no beginning of a bill code, up to 12 "
                              "digits: \"") +
                      code + "\"");
    for (const char* name : {"运输", "文明"})
        EXPECT_EQ(problem(std::string(name) + ",1,01\n"),
                  "r.csv:2:3: error: code: this extra cost is charged on the whole, not on some items");
    EXPECT_EQ(problem("降效,1,01\n降效,2,01\n"),
              "r.csv:3:3: error: code: these items have a rate already, on line 2");
    EXPECT_EQ(problem("20m,1,\n40m,2,\n"),
              "r.csv:3:1: error: name: these items have a rate already, on line 2");
    EXPECT_EQ(problem("降效,1,\n交叉,1,\n"), "0 problems");
    EXPECT_EQ(problem("\"降效,1,\n"), "r.csv:2: error: a quote opened in this row is never closed");
    const Rates read = ReadRates("name,rate,code\n无,1,\n降效,1,\n无,2,\n");
    EXPECT_EQ(read.problems.badRows, 2u);
    EXPECT_EQ(read.rates.size(), 1u) << "the others count";
}

TEST(ExtraCostTable, ATypeGoesBeforeAnOption) {
    LibraryCharges charges = Charges();
    charges.overHeight.insert("运输");
    EXPECT_EQ(ReadRates("name,rate\n运输,1\n", charges).rates.at(0).kind, ExtraCostKind::Project);
}

/// Random bills and tables against one look at every rate for every item.
TEST(ExtraCosts, AsByPlainMeans) {
    std::mt19937 random(971);
    const auto below = [&](unsigned count) { return static_cast<int>(random() % count); };
    const LibraryCharges charges = Charges();
    const std::string names[] = {"20m", "40m", "降效", "交叉", "运输", "文明", "搭拆"};
    for (int round = 0; round < Rounds(2000); ++round) {
        Bill bill;
        for (int left = below(12); left > 0; --left) {
            BillItem item;
            std::string code;
            for (int digit = 0; digit < 12; ++digit)
                code += static_cast<char>('0' + below(2));
            item.code = bill.texts.Keep(code);
            item.fen = below(2'000'000) - 200'000;
            bill.fen += item.fen;
            bill.items.push_back(item);
        }
        std::string table = "name,rate,code\n";
        std::map<std::string, std::map<std::string, std::int64_t>> plain;  // rates by charge and code
        std::size_t bad = 0;
        for (int left = below(10); left > 0; --left) {
            const std::string& name = names[below(7)];
            const bool isHeight = name.ends_with("m");
            std::string code;
            if (isHeight || name == "降效" || name == "交叉") {
                for (int length = below(4); length > 0; --length)
                    code += static_cast<char>('0' + below(2));
            }
            const std::int64_t rate = below(30'000'000);
            table += name + "," + DecimalText({rate, 6}) + "," + code + "\n";
            bad += plain[isHeight ? "" : name].emplace(code, rate).second ? 0 : 1;
        }
        const auto onItems = [&](const std::string& charge) {
            std::int64_t sum = 0;
            for (const BillItem& item : bill.items) {
                std::optional<std::pair<std::string, std::int64_t>> best;
                for (const auto& [code, rate] : plain[charge])
                    if (item.code.starts_with(code) && (!best || code.size() >= best->first.size()))
                        best = {code, rate};
                sum += best ? PlainShare(item.fen, best->second) : 0;
            }
            return sum;
        };
        std::int64_t sum = onItems("") + onItems("降效") + onItems("交叉");
        sum += PlainShare(bill.fen, plain["运输"][""]);
        const std::int64_t base = bill.fen + sum;
        sum += PlainShare(base, plain["文明"][""]) + PlainShare(base, plain["搭拆"][""]);
        const Rates read = ReadRates(table);
        ASSERT_EQ(read.problems.found.size(), bad) << table;
        const ExtraCosts costs = ChargeExtraCosts(bill, charges, read.rates);
        ASSERT_EQ(costs.fen, sum) << table;
        std::int64_t ofGroups = 0;
        for (const ExtraCostGroup& group : costs.groups) {
            std::int64_t ofCosts = 0;
            for (const ExtraCost& cost : group.costs)
                ofCosts += cost.fen;
            ASSERT_EQ(group.fen, ofCosts);
            ofGroups += group.fen;
        }
        ASSERT_EQ(costs.fen, ofGroups);
    }
}
