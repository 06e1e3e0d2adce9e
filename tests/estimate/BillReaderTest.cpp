#include <gtest/gtest.h>

#include "TestSupport.h"
#include "Utf8.h"

using namespace Estimate;

namespace {

std::string Reason(const std::string& rows) {
    return PriceBill(Headings + rows).OnlyProblem();
}

constexpr const char* OneItem = "010401001001,砖基础,,m3,10,100\n";

}  // namespace

TEST(BillReader, PricesItemsAndQuotas) {
    const PricedBill priced = PriceBill(
        "code,name,features,unit,formula,price\n"
        "010401001001,砖基础,1.砖,m3,LW*0.25*2,452.68\n"
        "4-1,砖基础 M7.5,,10m3,Q/10,4526.80\n"
        "4-78,防潮层,,100m2,LW*0.24/100,1684.55\n",
        "name,value\nLW,36.24\n");
    EXPECT_EQ(priced.refusal, "");
    EXPECT_TRUE(priced.problems.found.empty());
    ASSERT_EQ(priced.bill.items.size(), 1u);
    const BillItem& item = priced.bill.items[0];
    EXPECT_EQ(item.name, "砖基础");
    EXPECT_EQ(item.features, "1.砖");
    EXPECT_EQ(item.place.line, 2u);
    EXPECT_EQ(DecimalText(item.quantity), "18.12");
    EXPECT_EQ(item.fen, 820'256);  // 18.12 * 452.68 = 8202.5616
    EXPECT_FALSE(item.composed);
    ASSERT_EQ(priced.bill.quotas.size(), 2u);
    EXPECT_EQ(DecimalText(priced.bill.quotas[0].quantity), "1.812");
    EXPECT_EQ(priced.bill.quotas[0].fen, 820'256);
    EXPECT_EQ(DecimalText(priced.bill.quotas[1].quantity), "0.0870");  // 0.086976
    EXPECT_EQ(priced.bill.quotas[1].fen, 14'656);
    EXPECT_EQ(item.quotaFen, 834'912);
    EXPECT_EQ(priced.bill.fen, 820'256);
}

TEST(BillReader, QIsTheRoundedQuantity) {
    const PricedBill priced =
        PriceBill(std::string(Headings) + "010401001001,a,,m3,1.005,1\n4-1,b,,m3,Q*100,1\n");
    EXPECT_EQ(DecimalText(priced.bill.items[0].quantity), "1.01");
    EXPECT_EQ(DecimalText(priced.bill.quotas[0].quantity), "101.00");
}

TEST(BillReader, AMissingPriceIsComposed) {
    const PricedBill priced =
        PriceBill(std::string(Headings) + "010401001001,a,,m3,3,\n4-1,b,,m3,Q,20\n4-2,c,,m3,2,20\n");
    EXPECT_TRUE(priced.bill.items[0].composed);
    EXPECT_EQ(PriceText(priced.bill.items[0].price, false), "33.33");  // 100.00 / 3
    EXPECT_EQ(priced.bill.items[0].fen, 9999);
}

TEST(BillReader, CodeOrder) {
    const PricedBill priced =
        PriceBill(std::string(Headings) +
                  "011101001001,c,,m2,1,1\nB1-10,x,,m2,1,1\nB1-9,y,,m2,1,1\n4-1,z,,m2,1,1\n"
                  "010401001002,b,,m3,1,1\n2-10,p,,m2,1,1\n2-9,q,,m2,1,1\n"
                  "010401001001,a,,m3,1,1\n");
    std::string order;
    for (const BillItem& item : priced.bill.items) {
        order.append(item.name).append(":");
        for (std::size_t i = 0; i < item.quotaCount; ++i)
            order.append(priced.bill.quotas[item.firstQuota + i].code).append(",");
    }
    EXPECT_EQ(order, "a:b:2-9,2-10,c:4-1,B1-9,B1-10,");
}

TEST(BillReader, Gbk) {
    const CString text = FromUtf8("项目编码,项目名称,单位,工程量,单价\n010401001001,砖基础,m3,2,3\n");
    const PricedBill priced = PriceBill(IQsUtils::UnicodeToAnsi(text.ToWide()));
    ASSERT_EQ(priced.bill.items.size(), 1u);
    EXPECT_EQ(priced.bill.items[0].name, "砖基础");
    EXPECT_EQ(priced.bill.fen, 600);
}

TEST(BillReader, MarkQuotesAndLines) {
    const PricedBill priced = PriceBill(
        "\xEF\xBB\xBF项目编码,名称,项目特征,单位,工程量,单价\r\n"
        "\"010401001001\",\"砖,基础\",\"1.砖:\"\"MU10\"\"\r\n2.砂浆\",m3,\"1,000\",1\r\n"
        "010401001002,b,,m3,2,\"1,234.50\"\r\n");
    EXPECT_EQ(priced.OnlyProblem(), "2:5:\"1,000\" is neither a number nor a known variable");
    ASSERT_EQ(priced.bill.items.size(), 1u);
    EXPECT_EQ(priced.bill.items[0].place.line, 4u);
    EXPECT_EQ(priced.bill.fen, 246'900);
    const PricedBill features =
        PriceBill("编码,名称,特征,单位,工程量,单价\n010401001001,a,\"1.x\n2.\"\"y\"\"\",m3,1,1\n");
    EXPECT_EQ(features.bill.items.at(0).features, "1.x\n2.\"y\"");
}

TEST(BillReader, HeadingsInsideAreSkipped) {
    const PricedBill priced =
        PriceBill(std::string("某办公楼\n") + Headings + ",土石方工程,,,,\n" + OneItem + "\n,,,,,\n");
    EXPECT_TRUE(priced.problems.found.empty());
    EXPECT_EQ(priced.bill.items.size(), 1u);
    EXPECT_EQ(priced.bill.items[0].place.line, 4u);
}

TEST(BillReader, TablesThatCannotBeRead) {
    EXPECT_EQ(PriceBill("").refusal, "no row names the columns: code, name, unit, formula, price");
    EXPECT_EQ(PriceBill("code,name,unit,price\n").refusal, "no row names the columns: formula");
    EXPECT_EQ(PriceBill("\"code").refusal, "a quote opened in this row is never closed");
    EXPECT_NE(PriceBill("\xFF\xFE"
                        "c")
                  .refusal,
              "");
}

TEST(BillReader, ReasonsOfBillRows) {
    EXPECT_EQ(Reason("010401001001,,,m3,1,1\n"), "2:2:the name is empty");
    EXPECT_EQ(Reason("010401001001,a,,,1,1\n"), "2:4:the unit is empty");
    EXPECT_EQ(Reason("010401001001,a,,m3,,1\n"), "2:5:the formula is empty");
    EXPECT_EQ(Reason("010401001001,a,,m3,X,1\n"), "2:5:\"X\" is neither a number nor a known variable");
    EXPECT_EQ(Reason("010401001001,a,,m3,Q,1\n"), "2:5:there is no project amount that Q could stand for");
    EXPECT_EQ(Reason("010401001001,a,,m3,1000000000,1\n"), "2:5:the quantity is a thousand million or more");
    EXPECT_EQ(Reason("010401001001,a,,m3,1,x\n"), "2:6:the unit price is no number: \"x\"");
    EXPECT_EQ(Reason("010401001001,a,,m3,1,1000000000\n"),
              "2:6:the unit price is a thousand million yuan or more");
    EXPECT_EQ(Reason("010401001001,a,,m3,999999999,11\n"),
              "2:6:the amount is ten thousand million yuan or more");
    EXPECT_EQ(Reason("010401001001,a,,m3,1,\n"),
              "2:6:the unit price is empty, and no quota rows compose one");
    EXPECT_EQ(Reason("010401001001,a,,m3,0,\n4-1,b,,m3,1,1\n"),
              "2:6:no price can be composed for a quantity of 0");
    EXPECT_EQ(Reason("010401001001,a,,m3,0.01,\n4-1,b,,m3,9000000,1000\n"),
              "2:6:the composed price is a thousand million yuan or more");
    EXPECT_EQ(Reason("01040100101,a,,m3,1,1\n").substr(0, 33), "2 problems");
    EXPECT_EQ(Reason("010401001001,a,,m3,1,1,extra\n"),
              "2:0:the row has 7 fields and the headings 6; a text with a comma stands in quotes");
}

TEST(BillReader, ReasonsOfQuotaRows) {
    EXPECT_EQ(Reason("4-1,a,,m3,1,1\n"), "2:0:no bill item stands above the quota row");
    EXPECT_EQ(Reason(std::string(OneItem) + "4-1,a,,m3,1,\n"), "3:6:the unit price is empty");
    EXPECT_EQ(Reason(std::string(OneItem) + ",a,,m3,1,1\n"), "3:1:the code is empty");
    EXPECT_EQ(Reason(std::string(OneItem) + std::string(65, 'A') + ",a,,m3,1,1\n"),
              "3:1:the code has more than 64 bytes");
    EXPECT_EQ(
        Reason(std::string(OneItem) + "01040100100,a,,m3,1,1\n"),
        "3:1:a bill code has 12 digits, nine of the national code and three of sequence; this one has 11");
    EXPECT_EQ(Reason(std::string(OneItem) + "4-1,a,,m3,(1*2),1\n").substr(0, 11), "3:5:at 3: a");
}

TEST(BillReader, AShortRowLacksItsLastFields) {
    const PricedBill priced = PriceBill(std::string(Headings) + "010401001001,a\n");
    EXPECT_EQ(priced.problems.badRows, 1u);
    EXPECT_EQ(priced.problems.found.size(), 2u);  // unit and formula; the price would be composed
}

TEST(BillReader, TheOthersArePriced) {
    const PricedBill priced = PriceBill(std::string(Headings) +
                                        "010401001001,a,,m3,1,x\n4-1,b,,m3,1,1\n010401001002,c,,m3,2,3\n"
                                        "4-2,d,,m3,bad,1\n4-3,e,,m3,1,1\n");
    EXPECT_EQ(priced.problems.badRows, 3u);
    ASSERT_EQ(priced.problems.found.size(), 3u);
    EXPECT_EQ(priced.problems.found[1].reason, "the bill item above it, on line 2, can't be priced");
    ASSERT_EQ(priced.bill.items.size(), 1u);
    EXPECT_EQ(priced.bill.items[0].quotaCount, 1u);
    EXPECT_EQ(priced.bill.fen, 600);
}

TEST(BillReader, ABadQuotaRowLeavesNoComposedPrice) {
    const PricedBill priced =
        PriceBill(std::string(Headings) + "010401001001,a,,m3,1,\n4-1,b,,m3,1,1\n4-2,c,,m3,bad,1\n" +
                  "4-3,d,,m3,1,1\n");
    EXPECT_TRUE(priced.bill.items.empty());
    EXPECT_TRUE(priced.bill.quotas.empty());
    EXPECT_EQ(priced.problems.badRows, 4u);
    EXPECT_EQ(priced.problems.found.back().reason,
              "the unit price is empty, and its quota row on line 4 can't be priced");
}

TEST(BillReader, TheRowBehindABadItemIsNotBad) {
    const PricedBill priced =
        PriceBill(std::string(Headings) + "010401001001,a,,m3,1,\n010401001002,b,,m3,2,3\n");
    EXPECT_EQ(priced.problems.badRows, 1u);
    ASSERT_EQ(priced.bill.items.size(), 1u);
    EXPECT_EQ(priced.bill.items[0].name, "b");
}

TEST(BillReader, WarningsDoNotMakeARowBad) {
    const PricedBill priced = PriceBill(std::string(Headings) + "010401001001,a,,m3,10-2-3,1\n" + OneItem);
    EXPECT_EQ(priced.problems.badRows, 0u);
    ASSERT_EQ(priced.problems.found.size(), 2u);
    EXPECT_EQ(priced.problems.found[0].severity, Severity::Warning);
    EXPECT_EQ(priced.problems.found[1].reason, "the bill code 010401001001 stands on line 2 already");
    EXPECT_EQ(priced.problems.found[1].place.line, 3u);
    EXPECT_EQ(priced.bill.items.size(), 2u);
}

TEST(BillReader, AnOpenQuoteEndsTheTable) {
    const PricedBill priced =
        PriceBill(std::string(Headings) + OneItem + "010401001002,\"b,,m3,2,3\n010401001003,c\n");
    EXPECT_EQ(priced.refusal, "");
    EXPECT_EQ(priced.OnlyProblem(), "3:0:a quote opened in this row is never closed");
    EXPECT_EQ(priced.problems.badRows, 1u);
    EXPECT_EQ(priced.bill.items.size(), 1u);
}

TEST(BillReader, DeductionsHaveNegativeQuantities) {
    const PricedBill priced =
        PriceBill(std::string(Headings) + "010401001001,a,,m3,-2,10.5\n4-1,b,,m3,2*Q,1\n");
    EXPECT_EQ(priced.bill.fen, -2100);
    EXPECT_EQ(priced.bill.quotas[0].fen, -400);
}
