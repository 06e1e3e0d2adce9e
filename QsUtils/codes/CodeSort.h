// The sorts of item codes. `IQsUtils` documents them.
#pragma once

#include <utility>
#include <vector>

#include "QsUtils/text/CString.h"

namespace QsCodes {

using CodeItems = std::vector<std::pair<CString, void*>>;

void SortDeItemCodes(CodeItems& items);
void SortQdItemCodes(CodeItems& items);
void SortItemCodes(CodeItems& items);

}  // namespace QsCodes
