#include <gtest/gtest.h>

#include "BillColumns.h"
#include "Columns.h"
#include "EnglishText.h"

using namespace Estimate;

namespace {

CsvRow RowOf(const std::vector<std::string>& fields) {
    return {1, {fields.data(), fields.size()}};
}

}  // namespace

TEST(Columns, ChineseAndEnglishHeadings) {
    for (const std::vector<std::string>& headings :
         {std::vector<std::string>{"code", "name", "features", "unit", "formula", "price"},
          {"Item_Code", "NAME", "Description", "Unit", "Quantity", "Unit Price"},
          {"项目编码", "项目名称", "项目特征描述", "计量单位", "工程量表达式", "综合单价"},
          {" 编 码 ", "名称", "特征", "单位", "工程量", "单价(元)"},
          {"编号", "名称", "项目\n特征", "单位", "计算式", "综合单价（元）"}}) {
        Columns columns(BillColumn::Specs);
        EXPECT_TRUE(columns.TryHeadings(RowOf(headings))) << headings[0];
        for (std::size_t i = 0; i < headings.size(); ++i)
            EXPECT_EQ(columns.Number(i), i + 1) << headings[i];
    }
}

TEST(Columns, AnyOrderAndFurtherColumns) {
    Columns columns(BillColumn::Specs);
    ASSERT_TRUE(columns.TryHeadings(RowOf({"序号", "单价", "工程量", "单位", "名称", "编码"})));
    EXPECT_EQ(columns.Number(BillColumn::Code), 6u);
    EXPECT_EQ(columns.Number(BillColumn::Features), 0u);
    EXPECT_EQ(columns.Width(), 6u);
    const std::vector<std::string> row = {"1", " 2.5\t", "　3　"};
    EXPECT_EQ(columns.Field(RowOf(row), BillColumn::Price), "2.5");
    EXPECT_EQ(columns.Field(RowOf(row), BillColumn::Formula), "3");
    EXPECT_EQ(columns.Field(RowOf(row), BillColumn::Code), "");
    EXPECT_EQ(columns.Field(RowOf(row), BillColumn::Features), "");
}

TEST(Columns, TellsWhatIsMissing) {
    Columns columns(BillColumn::Specs);
    EXPECT_EQ(columns.Missing(), "code, name, unit, formula, price");
    EXPECT_FALSE(columns.TryHeadings(RowOf({"工程量清单"})));
    EXPECT_FALSE(columns.TryHeadings(RowOf({"编码", "名称", "单位"})));
    EXPECT_FALSE(columns.TryHeadings(RowOf({"x"})));
    EXPECT_EQ(columns.Missing(), "formula, price");
}

TEST(Columns, TrimsEveryWhiteSpace) {
    EXPECT_EQ(Trimmed(" \t\u3000\u00A0 a b \r\n\u3000"), "a b");
    EXPECT_EQ(Trimmed(" \u3000 "), "");
}
