#include "QsUtils/platform/ExecutableFolder.h"

#include <algorithm>
#include <array>
#include <mutex>

#include "QsUtils/platform/Folders.h"
#include "QsUtils/platform/FullPath.h"
#include "QsUtils/platform/Mutex.h"
#include "QsUtils/platform/Process.h"
#include "QsUtils/platform/UserFolders.h"

namespace QsPlatform {

namespace {

// The folder that was chosen, if any. A plain buffer and not a text: it stands before any code runs, and has
// nothing to free.
constinit Mutex choosing;
constinit std::array<char16_t, PathBuffer> chosen{};

CString WithBackslash(CString folder) {
    return folder.TrimRight(u'\\') + u'\\';
}

CString ChosenDirectory() {
    const std::lock_guard guard(choosing);
    return CString(chosen.data());
}

}  // namespace

CString ExecutableDirectory() {
    CString directory = ChosenDirectory();
    if (!directory.IsEmpty())
        return directory;
    const CString path = ExecutablePath();
    if (path.IsEmpty() || path.GetLength() >= PathBuffer)
        return CString();
    return WithBackslash(path.Left(std::max(path.ReverseFind(u'\\'), 0)));
}

CString ExecutableFolder() {
    return ExecutableDirectory().TrimRight(u'\\');
}

bool SetExecutableFolder(const CString& folder) {
    // A NUL would end the path for the system alone.
    const CString full = folder.Find(u'\0') < 0 ? FullPath(folder) : CString();
    const CString directory = WithBackslash(full);
    if (full.IsEmpty() || directory.GetLength() >= PathBuffer || !IsFolder(directory))
        return false;
    const std::lock_guard guard(choosing);
    const auto end = std::copy(directory.View().begin(), directory.View().end(), chosen.begin());
    std::fill(end, chosen.end(), u'\0');
    return true;
}

}  // namespace QsPlatform
