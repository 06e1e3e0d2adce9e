#include "QsUtils/platform/FolderDeletion.h"

#include <utility>
#include <vector>

#include "QsUtils/platform/FolderTrees.h"
#include "QsUtils/platform/Folders.h"

namespace QsPlatform {

namespace {

/// Removes what isn't a folder and gives the names of those that are.
std::vector<NativeName> RemoveFiles(FolderCursor& cursor) {
    std::vector<NativeName> folders;
    while (const TreeEntry* const entry = cursor.Next()) {
        if (entry->kind == TreeEntry::Kind::Folder)
            folders.emplace_back(entry->name);
        else
            cursor.Remove(*entry);
    }
    return folders;
}

/// Removes all that can be removed below the folder in which the cursor stands, and comes back to there.
void RemoveContents(FolderCursor& cursor) {
    std::vector<std::vector<NativeName>> left(1, RemoveFiles(cursor));
    while (cursor.IsOpen()) {
        if (left.back().empty()) {
            left.pop_back();
            if (left.empty())
                return;
            const NativeName name = cursor.NameOnWay(cursor.Depth());
            if (cursor.Leave())
                cursor.RemoveEmptyFolder(name);
            continue;
        }
        const NativeName name = std::move(left.back().back());
        left.back().pop_back();
        if (cursor.Enter(name, false))
            left.push_back(RemoveFiles(cursor));
        else
            cursor.RemoveEmptyFolder(name);
    }
}

}  // namespace

void RemoveSubfolder(FolderCursor& cursor, const NativeName& name) {
    if (cursor.Enter(name, false)) {
        RemoveContents(cursor);
        if (!cursor.IsOpen() || !cursor.Leave())
            return;
    }
    cursor.RemoveEmptyFolder(name);
}

bool RemoveFolderTree(const CString& path) {
    if (path.IsEmpty() || IsRootFolder(path))
        return false;
    if (!IsLink(path)) {
        FolderCursor cursor(path);
        if (cursor.IsOpen())
            RemoveContents(cursor);
    }
    return RemoveFolder(path);
}

}  // namespace QsPlatform
