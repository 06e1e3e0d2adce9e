// A row of a bill as it was written, before anything is calculated.
#pragma once

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <string_view>

#include "BillColumns.h"
#include "Place.h"

namespace Estimate {

enum class RowKind {
    Item,     ///< a bill item
    Quota,    ///< a quota row of the bill item above it
    Heading,  ///< a text between them, which isn't priced
};

using BillFields = std::array<std::string_view, BillColumn::Specs.size()>;

struct BillRow {
    RowKind kind = RowKind::Heading;
    Place place;
    BillFields fields{};  ///< by `BillColumn`, in UTF-8, without white space around them
    Message fault;        ///< what is wrong with the row as a whole; empty when nothing is
};

/// The views of a row are valid during the call.
using BillRowHandler = std::function<void(const BillRow&)>;

inline constexpr std::size_t BillCodeLength = 12;

inline bool IsDigits(std::string_view text) {
    return std::ranges::all_of(text, [](char byte) { return byte >= '0' && byte <= '9'; });
}
inline bool IsBillCode(std::string_view code) {
    return code.size() == BillCodeLength && IsDigits(code);
}

}  // namespace Estimate
