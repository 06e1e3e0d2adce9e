// The values that users typed last, by input field.
#pragma once

#include <list>
#include <map>

#include "QsUtils/text/CString.h"

namespace QsConfig {

/// The entries of each section that has been asked for, most recent first.
using HistoryMap = std::map<CString, std::list<CString>>;

/// `IQsUtils1::GetHistory` with what is kept and the profile file given.
void GetHistory(HistoryMap& kept, const CString& path, const CString& section, std::list<CString>& history);

/// `IQsUtils1::WriteHistory` likewise. Calls for one file must not meet.
void WriteHistory(HistoryMap& kept, const CString& path, const CString& section, const CString& value);

}  // namespace QsConfig
