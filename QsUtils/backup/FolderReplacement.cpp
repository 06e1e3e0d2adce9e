#include "QsUtils/backup/FolderReplacement.h"

#include <optional>
#include <utility>
#include <vector>

#include "QsUtils/material/MaterialDigest.h"
#include "QsUtils/platform/EntryMoves.h"
#include "QsUtils/platform/Files.h"
#include "QsUtils/platform/FolderEntries.h"
#include "QsUtils/platform/FolderListing.h"
#include "QsUtils/platform/FolderTrees.h"
#include "QsUtils/platform/Folders.h"

namespace QsBackup {

namespace {

/// A name of that many units takes an ending on every system, whose names have 255 units or bytes.
constexpr int LongestName = 64;

bool IsThere(const CString& path) {
    return QsPlatform::FindEntry(path).has_value();
}

int NameAt(const CString& path) {
    return path.ReverseFind(u'\\') + 1;
}

/// The path without backslashes at its end; empty for what has no name of its own.
CString Replaceable(CString path) {
    path.TrimRight(u'\\');
    const CString name = path.Mid(NameAt(path));
    const bool isPlace = name.IsEmpty() || name == u"." || name == u".." || name.Right(1) == u":";
    return isPlace ? CString() : path;
}

/// What stands beside a folder. A long name is cut, and its digest tells it from others that begin alike.
CString Beside(const CString& folder) {
    const int at = NameAt(folder);
    CString name = folder.Mid(at);
    if (name.GetLength() > LongestName)
        name = name.Left(LongestName / 2) + u"-" + QsMaterial::StreamMd5(name);
    return folder.Left(at) + name;
}

/// Something may be in use only for a moment, and what then stays would be taken for marked as read-only.
bool RemoveTwice(const CString& folder) {
    bool isRemoved = false;
    for (int tries = 0; tries < 2 && !isRemoved; ++tries)
        isRemoved = QsPlatform::RemoveFolderTree(folder);
    return isRemoved;
}

/// Moves what can't be removed in `from` into `to`, folder by folder, in place of what stands there.
void MoveRemains(const CString& from, const CString& to) {
    std::vector<CString> folders(1);
    while (!folders.empty()) {
        const CString below = std::move(folders.back());
        folders.pop_back();
        for (const QsPlatform::FolderEntry& entry : QsPlatform::FindEntries(from + below + u"\\*")) {
            if (entry.isDots)
                continue;
            const CString path = below + u"\\" + entry.name;
            if (entry.isFolder && !QsPlatform::IsLink(from + path)) {
                QsPlatform::RemoveFile(to + path);
                QsPlatform::CreateFolder(to + path);
                folders.push_back(path);
                continue;
            }
            if (QsPlatform::IsFolder(to + path) && !QsPlatform::IsLink(to + path))
                QsPlatform::RemoveFolderTree(to + path);
            QsPlatform::MoveFileOver(from + path, to + path);
        }
    }
}

/// Moves what is in `from` into `to`, folder by folder, where nothing of its name stands there. False when
/// something else keeps an entry from being moved. What a killed copy has left stays.
bool MoveNewcomers(const CString& from, const CString& to) {
    bool isDone = true;
    std::vector<CString> folders;
    if (!QsPlatform::IsLink(from))
        folders.emplace_back();
    while (!folders.empty()) {
        const CString below = std::move(folders.back());
        folders.pop_back();
        for (const QsPlatform::FolderEntry& entry : QsPlatform::FindEntries(from + below + u"\\*")) {
            const CString path = below + u"\\" + entry.name;
            if (entry.isDots || entry.name.View().starts_with(u".qsutils-") ||
                QsPlatform::MoveEntry(from + path, to + path))
                continue;
            if (entry.isFolder && !QsPlatform::IsLink(from + path) && QsPlatform::IsFolder(to + path))
                folders.push_back(path);
            else
                isDone &= IsThere(to + path);
        }
    }
    return isDone;
}

/// Removes a copy of ours, in which nothing is worth keeping.
void RemoveCopy(const CString& folder) {
    if (QsPlatform::RemoveFolderTree(folder))
        return;
    std::vector<CString> folders(1, folder);
    while (!folders.empty()) {
        const CString path = std::move(folders.back());
        folders.pop_back();
        for (const QsPlatform::FolderEntry& entry : QsPlatform::FindEntries(path + u"\\*")) {
            const CString below = path + u"\\" + entry.name;
            if (entry.isDots)
                continue;
            QsPlatform::MakeWritable(below);
            if (entry.isFolder && !QsPlatform::IsLink(below))
                folders.push_back(below);
        }
    }
    QsPlatform::RemoveFolderTree(folder);
}

}  // namespace

FolderReplacement::FolderReplacement(const CString& folder, const CString& aside)
    : m_folder(Replaceable(folder)), m_aside(aside) {
    NameVersions(Beside(m_folder));
}

void FolderReplacement::NameVersions(const CString& beginning) {
    m_new = beginning + u".qsutils-new";
    m_ready = beginning + u".qsutils-ready";
    m_old = beginning + u".qsutils-old";
    m_out = beginning + u".qsutils-out";
}

FolderReplacement FolderReplacement::Aside() const {
    FolderReplacement aside(m_folder);
    aside.m_isAside = true;
    aside.NameVersions(m_aside + u"\\" + QsMaterial::StreamMd5(m_folder));
    return aside;
}

void FolderReplacement::Recover() {
    if (m_folder.IsEmpty())
        return;
    if (!m_aside.IsEmpty())
        Aside().RecoverVersions();
    RecoverVersions();
}

void FolderReplacement::RecoverVersions() const {
    if (IsThere(m_new))
        RemoveCopy(m_new);
    if (IsThere(m_ready) && !PutReadyInPlace())
        return;  // as long as it waits, nothing goes that could be needed
    ClearOut();
    if (IsThere(m_old)) {
        QsPlatform::MoveEntry(m_old, IsThere(m_folder) ? m_out : m_folder);
        ClearOut();
    }
}

bool FolderReplacement::ReplaceByCopyOf(const CString& source) {
    if (m_folder.IsEmpty() || (IsThere(m_folder) && !QsPlatform::IsFolder(m_folder)))
        return true;
    Recover();
    Attempt attempt = TryToReplace(source);
    if (attempt == Attempt::NoEntryBeside && !m_aside.IsEmpty() && QsPlatform::IsFolder(m_folder))
        attempt = Aside().TryToReplace(source);
    return attempt == Attempt::Replaced;
}

FolderReplacement::Attempt FolderReplacement::TryToReplace(const CString& source) const {
    if (IsThere(m_ready))
        return Attempt::Failed;  // it would come after what is copied now
    bool lacksRoom = false;
    if (!QsPlatform::CreateFolder(m_new, &lacksRoom))
        return lacksRoom ? Attempt::Failed : Attempt::NoEntryBeside;
    if (Copy(source) && PutInPlace())
        return Attempt::Replaced;
    if (IsThere(m_new))
        RemoveCopy(m_new);
    return Attempt::Failed;
}

bool FolderReplacement::Copy(const CString& source) const {
    if (!QsPlatform::CopyToUnseenFolder(source, m_new))
        return false;
    // Once for all files, before the copy gets the name: flushing them one by one takes many times as long.
    QsPlatform::FlushFileSystem(m_new);
    return true;
}

/// One step that exchanges both versions where the system has it. Where it doesn't, the ready version tells a
/// further call what to do about the moment at which neither has the name.
bool FolderReplacement::PutInPlace() const {
    if (m_isAside)
        return QsPlatform::MoveEntry(m_new, m_ready) && RewriteFromReady();
    if (!IsThere(m_folder))
        return QsPlatform::MoveEntry(m_new, m_folder);
    if (QsPlatform::MoveEntry(m_new, m_out)) {
        if (QsPlatform::ExchangeEntries(m_out, m_folder)) {
            ClearOut();
            return true;
        }
        return QsPlatform::MoveEntry(m_out, m_ready) && PutReadyInPlace();
    }
    return QsPlatform::MoveEntry(m_new, m_ready) && PutReadyInPlace();
}

bool FolderReplacement::PutReadyInPlace() const {
    if (m_isAside)
        return RewriteFromReady();
    if (IsThere(m_folder)) {
        // With both versions beside it, it is one that somebody has made since. What is in it is younger than
        // they are, and joins the ready one; what the ready one has under the same name isn't replaced, so
        // that it stays whole.
        const bool isAnew = IsThere(m_old);
        if (!QsPlatform::IsFolder(m_folder) || (isAnew && !MoveNewcomers(m_folder, m_ready)))
            return false;
        if (!QsPlatform::MoveEntry(m_folder, isAnew ? m_out : m_old))
            return RewriteFromReady();
    }
    if (!QsPlatform::MoveEntry(m_ready, m_folder)) {
        QsPlatform::MoveEntry(m_old, m_folder);
        return false;
    }
    ClearOut();
    if (QsPlatform::MoveEntry(m_old, m_out))
        ClearOut();
    return true;
}

/// For a folder that can't be moved, because it is a file system's root or a file in it is open. The ready
/// version stays until all of it has been copied.
bool FolderReplacement::RewriteFromReady() const {
    RemoveTwice(m_folder);
    QsPlatform::CreateFolder(m_folder);
    if (!QsPlatform::IsFolder(m_folder) || !QsPlatform::CopyFolderContents(m_ready, m_folder))
        return false;
    QsPlatform::FlushFileSystem(m_folder);
    DropReady();
    return true;
}

/// What is only half removed must not pass for a ready version.
void FolderReplacement::DropReady() const {
    if (QsPlatform::MoveEntry(m_ready, m_new))
        RemoveCopy(m_new);
}

/// What can't be removed would have stayed in the folder, had its entries been removed there.
void FolderReplacement::ClearOut() const {
    if (!IsThere(m_out) || RemoveTwice(m_out))
        return;
    MoveRemains(m_out, m_folder);
    QsPlatform::RemoveFolderTree(m_out);
}

}  // namespace QsBackup
