#include "QsUtils/platform/ExecutableFolder.h"

#include <algorithm>

#include "QsUtils/platform/Process.h"

namespace QsPlatform {

namespace {

/// What the products' own buffers for a path hold, with its NUL. A longer path would be theirs cut short.
constexpr int PathBuffer = 260;

}  // namespace

CString ExecutableFolder() {
    const CString path = ExecutablePath();
    if (path.GetLength() >= PathBuffer)
        return CString();
    return path.Left(std::max(path.ReverseFind(u'\\'), 0));
}

}  // namespace QsPlatform
