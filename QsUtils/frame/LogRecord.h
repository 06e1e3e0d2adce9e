// Lines that a host appends to files of its own.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsFrame {

/// `IQsUtils1` documents it.
void RecordLogInfo(const CString& text, const CString& filePath);

}  // namespace QsFrame
