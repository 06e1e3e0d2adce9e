// Which budgets are open in other programs, and what kind a budget is.
#pragma once

#include "QsUtils/text/CString.h"
#include "QsUtils/ui/YsType.h"

namespace QsUi {

// `IQsUtils` documents the operations of the same names. Any thread may call any of them.

int IsYsOpen(const CString& key, const CString& item);
CString YsTypeToString(eYsType type);
eYsType StringToYsType(const CString& text);

/// Whether `item` is among the items of `list`, each of which ends with "&"; what follows the last "&" is
/// none, and an item may be empty.
bool IsListed(const CString& list, const CString& item);

}  // namespace QsUi
