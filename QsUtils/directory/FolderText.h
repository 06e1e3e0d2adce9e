// Texts of folders.
#pragma once

#include <utility>

#include "QsUtils/text/CString.h"

namespace QsDirectory {

/// The folder with exactly one backslash at its end, however many it has: callers append file names.
inline CString WithBackslash(CString folder) {
    folder.TrimRight(u'\\');
    return std::move(folder) + u'\\';
}

}  // namespace QsDirectory
