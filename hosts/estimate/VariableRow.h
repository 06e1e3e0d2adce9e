// A variable as it was written.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>

#include "Columns.h"
#include "Place.h"

namespace Estimate {

namespace VariableColumn {

enum Column : std::size_t { Name, Value, Remark };

inline constexpr std::string_view NameHeadings[] = {"name",     "variable", "变量", "变量名",
                                                    "变量名称", "名称",     "代码"};
inline constexpr std::string_view ValueHeadings[] = {"value", "值", "变量值", "数值"};
inline constexpr std::string_view RemarkHeadings[] = {"remark", "note", "说明", "备注"};

inline constexpr std::array Specs = {ColumnSpec{Text::ColumnName, NameHeadings},
                                     ColumnSpec{Text::ColumnValue, ValueHeadings},
                                     ColumnSpec{Text::ColumnRemark, RemarkHeadings, false}};

}  // namespace VariableColumn

using VariableFields = std::array<std::string_view, VariableColumn::Specs.size()>;

struct VariableRow {
    Place place;
    VariableFields fields{};  ///< by `VariableColumn`, in UTF-8, without white space around them
    Message fault;            ///< what is wrong with the row as a whole; empty when nothing is
};

/// The views of a row are valid during the call.
using VariableRowHandler = std::function<void(const VariableRow&)>;

}  // namespace Estimate
