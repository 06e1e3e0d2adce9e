#include <set>

#include <gtest/gtest.h>

#include "BillGenerator.h"
#include "TestSupport.h"
#include "Utf8.h"

using namespace Estimate;

TEST(GeneratedBill, ManyRowsArePricedInOrder) {
    std::ostringstream csv;
    GenerateBill(csv, 50'000);
    const PricedBill priced = PriceBill(csv.str());
    EXPECT_EQ(priced.refusal, "");
    EXPECT_TRUE(priced.problems.found.empty());
    ASSERT_EQ(priced.bill.items.size(), 10'000u);
    EXPECT_EQ(priced.bill.quotas.size(), 40'000u);
    std::int64_t sum = 0;
    std::set<std::size_t> lines;
    for (std::size_t i = 0; i < priced.bill.items.size(); ++i) {
        const BillItem& item = priced.bill.items[i];
        if (i > 0) {
            ASSERT_LT(priced.bill.items[i - 1].code, item.code);
        }
        sum += item.fen;
        lines.insert(item.place.line);
        for (std::size_t q = 0; q < item.quotaCount; ++q) {
            const QuotaItem& quota = priced.bill.quotas[item.firstQuota + q];
            // Each quota row still stands below its own bill item.
            ASSERT_GT(quota.place.line, item.place.line);
            ASSERT_LE(quota.place.line, item.place.line + 4);
            if (q > 0) {
                ASSERT_LE(IQsUtils::CompareDECode(FromUtf8(priced.bill.quotas[item.firstQuota + q - 1].code),
                                                  FromUtf8(quota.code)),
                          0);
            }
        }
    }
    EXPECT_EQ(sum, priced.bill.fen);
    EXPECT_EQ(lines.size(), 10'000u);
}
