#include <gtest/gtest.h>

#include "Chapters.h"
#include "Summary.h"
#include "TestSupport.h"

using namespace Estimate;

namespace {

PricedBill PricedSample() {
    return PriceBill(std::string(Headings) +
                     "010515001001,a,,t,1.5,100\n4-91,筋,,kg,250,5\n"
                     "010401001001,b,,m3,2,10\n4-1,砖,,10m3,Q/10,40\n4-91,筋,,kg,50.5,5\n"
                     "010402001001,c,,m3,3,10\n4-91,筋,,t,1,5\n4-91,筋,,kg,1,5.5\n4-91,筋x,,kg,1,5\n"
                     "010801001001,d,,樘,4,10\n");
}

}  // namespace

TEST(Summary, Chapters) {
    const PricedBill priced = PricedSample();
    const std::vector<Chapter> chapters = ChaptersOf(priced.bill);
    ASSERT_EQ(chapters.size(), 3u);
    EXPECT_EQ(chapters[0].code, "0104");
    EXPECT_EQ(chapters[0].fen, 5000);
    EXPECT_EQ(chapters[0].count, 2u);
    ASSERT_EQ(chapters[0].sections.size(), 2u);
    EXPECT_EQ(chapters[0].sections[1].code, "010402");
    EXPECT_EQ(chapters[0].sections[1].fen, 3000);
    EXPECT_EQ(chapters[1].code, "0105");
    EXPECT_EQ(chapters[2].first, 3u);
    std::int64_t sum = 0;
    for (const Chapter& chapter : chapters)
        sum += chapter.fen;
    EXPECT_EQ(sum, priced.bill.fen);
}

TEST(Summary, IndicatorUnits) {
    const PricedBill priced = PricedSample();
    const std::vector<IndicatorSum> sums = IndicatorsOf(priced.bill);
    ASSERT_EQ(sums.size(), 3u);
    EXPECT_EQ(sums[0].unit, "m3");
    EXPECT_DOUBLE_EQ(sums[0].billQuantity, 5);
    EXPECT_DOUBLE_EQ(sums[0].quotaQuantity, 2);
    EXPECT_EQ(sums[1].unit, "吨");
    EXPECT_DOUBLE_EQ(sums[1].billQuantity, 1.5);
    EXPECT_DOUBLE_EQ(sums[1].quotaQuantity, 1.3025);
    EXPECT_EQ(sums[2].unit, "樘");
    EXPECT_DOUBLE_EQ(sums[2].billQuantity, 4);
}

TEST(Summary, ResourcesWithOneIdentityMeet) {
    const PricedBill priced = PricedSample();
    const std::vector<Resource> resources = ResourcesOf(priced.bill);
    ASSERT_EQ(resources.size(), 5u);  // name, unit and price tell four of code 4-91 apart
    EXPECT_EQ(resources[0].code, "4-1");
    const Resource* merged = nullptr;
    for (const Resource& resource : resources) {
        EXPECT_EQ(resource.digest.size(), 32u);
        if (resource.rows == 2)
            merged = &resource;
    }
    ASSERT_NE(merged, nullptr);
    EXPECT_EQ(DecimalText(merged->quantity), "300.50");
    EXPECT_EQ(merged->fen, 150'250);
    EXPECT_EQ(merged->price, 5'000'000);
}

TEST(Summary, ChapterNames) {
    EXPECT_EQ(ChapterName("0104"), "砌筑工程");
    EXPECT_EQ(ChapterName("010515"), "钢筋工程");
    EXPECT_EQ(ChapterName("0117"), "措施项目");
    EXPECT_EQ(ChapterName("0304"), "通用安装工程");
    EXPECT_EQ(ChapterName("010599"), "");
    EXPECT_EQ(ChapterName("9999"), "");
    for (const char* code : {"0101", "0102", "0103", "0105", "0106", "0107", "0108", "0109", "0110", "0111",
                             "0112", "0113", "0114", "0115", "0116", "010101", "011604", "011707", "010101"})
        EXPECT_NE(ChapterName(code), "") << code;
}

TEST(Summary, AnEmptyBill) {
    const PricedBill priced = PriceBill(Headings);
    EXPECT_TRUE(ChaptersOf(priced.bill).empty());
    EXPECT_TRUE(IndicatorsOf(priced.bill).empty());
    EXPECT_TRUE(ResourcesOf(priced.bill).empty());
}
