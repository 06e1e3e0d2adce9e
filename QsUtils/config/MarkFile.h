// The marks that items of a bill can bear, as a configuration file lists them.
#pragma once

#include <array>
#include <cstddef>
#include <list>
#include <utility>

#include "QsUtils/text/CString.h"

namespace QsConfig {

/// Marks as pairs of code and name, in the order of the file.
using MarkList = std::list<std::pair<CString, CString>>;

/// The groups of marks, by the names of their elements.
inline constexpr std::array<const char16_t*, 5> MarkGroups = {u"MesureItem", u"FeeTax", u"FeeSummary",
                                                              u"OtherItemSummary", u"OtherItemPJTemPrice"};

/// One list for each group, in the order of `MarkGroups`.
using MarkLists = std::array<MarkList*, MarkGroups.size()>;

/// Appends the marks of bill mode or quota mode in the file at `path` to their lists. Nothing is added when
/// the file can't be read or parsed or lacks the mode. Any thread may call it.
void ReadMarks(const CString& path, bool billMode, const MarkLists& lists);

}  // namespace QsConfig
