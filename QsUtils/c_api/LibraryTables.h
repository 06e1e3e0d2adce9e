// The tables that the library manager fills for the C interface.
#pragma once

#include <map>
#include <vector>

#include "QsUtils/c_api/Libraries.h"
#include "QsUtils/directory/LibraryVisitor.h"
#include "QsUtils/library/LibraryManager.h"
#include "QsUtils/text/CString.h"

struct QsRuleMap {
    std::map<CString, BillLibraryRule> rules;
};

struct QsLibraryEntryList {
    std::vector<LibraryEntryInfo> entries;
};

namespace QsCApi {

/// Between the rules of the two languages.
BillLibraryRule RuleOf(const QsBillLibraryRule& rule);
QsBillLibraryRule RuleOf(const BillLibraryRule& rule);

}  // namespace QsCApi
