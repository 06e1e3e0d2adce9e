// The operations on trees of folders, step by step and by recursion, for trees without loops.
#pragma once

#include <filesystem>

#include "QsUtils/platform/Files.h"
#include "QsUtils/platform/FolderEntries.h"
#include "QsUtils/platform/Folders.h"
#include "QsUtils/text/CString.h"

namespace PlainTrees {

inline bool DeleteDirectory(const CString& path) {
    if (path.IsEmpty())
        return false;
    for (const QsPlatform::FolderEntry& entry : QsPlatform::FindEntries(path + u"\\*.*")) {
        const CString below = path + u'\\' + entry.name;
        if (entry.isDots)
            continue;
        if (entry.isFolder && !QsPlatform::IsLink(below))
            DeleteDirectory(below);
        else if (!QsPlatform::RemoveFile(below))
            QsPlatform::RemoveFolder(below);
    }
    return QsPlatform::RemoveFolder(path);
}

inline void CopyFolderAllFiles(const CString& source, const CString& target, bool clearTarget) {
    if (clearTarget) {
        DeleteDirectory(target);
        QsPlatform::CreateFolder(target);
    }
    for (const QsPlatform::FolderEntry& entry : QsPlatform::FindEntries(source + u"\\*.*")) {
        if (entry.isDots)
            continue;
        const CString from = source + u'\\' + entry.name;
        const CString to = target + u'\\' + entry.name;
        if (entry.isFolder) {
            QsPlatform::CreateFolder(to);
            CopyFolderAllFiles(from, to, true);
        }
        QsPlatform::MakeWritable(from);
        QsPlatform::CopyOneFile(from, to);
    }
}

inline void FindPath(CString& found, const CString& folder, const CString& fileName, const CString& tail) {
    found = CString();
    const auto entries = QsPlatform::FindEntries(folder + u"*");
    for (const QsPlatform::FolderEntry& entry : entries) {
        if (entry.isDots)
            continue;
        if (entry.isFolder)
            FindPath(found, folder + entry.name + u"\\", fileName, tail);
        if (!found.IsEmpty())
            break;
        const CString path = folder + entry.name;
        if (entry.name == fileName && (tail.IsEmpty() || path.Find(u"\\" + tail + u"\\") >= 0))
            found = path;
    }
}

}  // namespace PlainTrees
