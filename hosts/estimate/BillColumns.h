// The columns of a bill of quantities.
#pragma once

#include <array>
#include <string_view>

#include "Columns.h"

namespace Estimate::BillColumn {

enum Column : std::size_t { Code, Name, Features, Unit, Formula, Price };

inline constexpr std::string_view CodeHeadings[] = {"code",     "itemcode", "编码",     "项目编码",
                                                    "清单编码", "定额编号", "定额编码", "编号"};
inline constexpr std::string_view NameHeadings[] = {"name", "itemname", "名称", "项目名称"};
inline constexpr std::string_view FeatureHeadings[] = {"features", "description", "特征", "项目特征",
                                                       "项目特征描述"};
inline constexpr std::string_view UnitHeadings[] = {"unit", "单位", "计量单位"};
inline constexpr std::string_view FormulaHeadings[] = {"formula",      "quantity", "工程量", "工程量表达式",
                                                       "工程量计算式", "计算式",   "表达式"};
inline constexpr std::string_view PriceHeadings[] = {"price", "unitprice", "单价", "综合单价", "价格"};

inline constexpr std::array Specs = {ColumnSpec{Text::ColumnCode, CodeHeadings},
                                     ColumnSpec{Text::ColumnName, NameHeadings},
                                     ColumnSpec{Text::ColumnFeatures, FeatureHeadings, false},
                                     ColumnSpec{Text::ColumnUnit, UnitHeadings},
                                     ColumnSpec{Text::ColumnFormula, FormulaHeadings},
                                     ColumnSpec{Text::ColumnPrice, PriceHeadings}};

}  // namespace Estimate::BillColumn
