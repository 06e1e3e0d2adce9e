#include "QsUtils/text/Files.h"

#include "QsUtils/platform/ExecutableFolder.h"
#include "QsUtils/platform/Files.h"
#include "QsUtils/platform/FolderEntries.h"
#include "QsUtils/platform/FolderTrees.h"
#include "QsUtils/platform/Folders.h"
#include "QsUtils/platform/ProfileFile.h"

namespace QsText {

namespace {

/// Whether the folder stands at the end; another thread or process may make it at the same moment.
bool EnsureFolder(const CString& path) {
    return QsPlatform::IsFolder(path) || QsPlatform::CreateFolder(path) || QsPlatform::IsFolder(path);
}

/// The search below the head of a name instead of below a folder: only names that begin with it are looked
/// at, and folders among them are entered under the whole text.
CString FindBehindHead(const CString& head, const CString& fileName, const CString& tail) {
    const CString folder = head.Left(head.ReverseFind(u'\\') + 1);
    CString found;
    for (const QsPlatform::FolderEntry& entry : QsPlatform::FindEntries(head + u'*')) {
        if (entry.isDots)
            continue;
        if (entry.isFolder)
            found = QsPlatform::FindInTree(head + entry.name + u'\\', fileName, tail);
        if (!found.IsEmpty())
            break;
        if (entry.name == fileName && (tail.IsEmpty() || folder.Find(u'\\' + tail + u'\\') >= 0))
            found = folder + entry.name;
    }
    return found;
}

}  // namespace

int CreateFolderAllPath(const CString& path) {
    if (QsPlatform::IsFolder(path))
        return 1;
    const int root = path.Find(u'\\');
    if (root >= 0) {
        for (int end = path.Find(u'\\', root + 1); end >= 0; end = path.Find(u'\\', end + 1)) {
            if (!EnsureFolder(path.Left(end)))
                return 0;
        }
    }
    return EnsureFolder(path) ? 1 : 0;
}

void CopyFolderAllFiles(const CString& source, const CString& target, bool clearTarget) {
    if (target.IsEmpty())
        return;
    if (clearTarget) {
        DeleteDirectory(target);
        QsPlatform::CreateFolder(target);
    }
    if (!source.IsEmpty())
        QsPlatform::CopyFolderContents(source, target);
}

bool DeleteDirectory(const CString& path) {
    return QsPlatform::RemoveFolderTree(path);
}

bool IsFileExist(const CString& path) {
    return QsPlatform::IsEntryFound(path);
}

bool IsFileOpen(const CString& path) {
    return QsPlatform::IsEntryFound(path) && QsPlatform::IsHeldElsewhere(path);
}

void FindPath(CString& found, const CString& folder, const CString& fileName, const CString& tail) {
    // Put together before `found` changes, which may be one of the others.
    const CString whole = QsPlatform::AbsolutePath(folder);
    found = whole.Right(1) == u"\\" ? QsPlatform::FindInTree(whole, fileName, tail)
                                    : FindBehindHead(whole, fileName, tail);
}

CString GetInitPath() {
    CString folder = QsPlatform::ExecutableFolder();
    if (!folder.IsEmpty())
        folder += u'\\';
    constexpr int Size = 500;
    const CString value =
        QsPlatform::ReadProfileValue(folder + u"SystemConfig.ini", u"Path", u"InitPath", u"", Size);
    return value.IsEmpty() ? folder + u"工程文件" : value;
}

}  // namespace QsText
