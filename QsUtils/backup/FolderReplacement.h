// A folder replaced whole by a copy of another one.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsBackup {

/// Copies a folder beside the one that it is to replace, and puts the copy in place when it is complete. So
/// at every moment the folder's name stands for the whole old version or the whole new one, or a further call
/// brings one of them back there, also when the process is killed or the disk is full.
///
/// On the way the versions stand beside the folder under its name with an ending:
///
///     .qsutils-new    being copied, incomplete
///     .qsutils-ready  complete, but not in place yet
///     .qsutils-old    the former version, out of the way of the ready one
///     .qsutils-out    no longer needed, being removed
///
/// Nothing raises but memory exhaustion. One object for one folder at a time.
class FolderReplacement {
public:
    /// A path in the library's form, with or without a backslash at its end. A root, "." and ".." are never
    /// replaced. With a folder `aside`, one whose own parent folder takes no new entry is emptied and filled
    /// again: the new version stands aside until that is done, under the digest of the folder's path.
    explicit FolderReplacement(const CString& folder, const CString& aside = CString());

    /// Ends what a killed call has left: a complete new version is put in place, all else is removed. What
    /// somebody has put meanwhile into a folder of that name joins the new version, unless something of the
    /// same name is in it. While the name can't be had, all versions stay for a further call.
    void Recover();

    /// Replaces the folder by a copy of what is in `source`, or makes it; a `source` that isn't there gives
    /// an empty folder. Files that are marked as read-only, and whatever else can't be removed, stay in the
    /// folder in place of what is copied. Takes the read-only mark off everything in `source`.
    ///
    /// A file that can't be read is left out. False when there is no room for the copy, or it can't be put in
    /// place: the folder is then as it was, or is put in place by `Recover`. A file of that name is left
    /// alone, which is no failure.
    bool ReplaceByCopyOf(const CString& source);

private:
    void NameVersions(const CString& beginning);
    FolderReplacement Aside() const;
    enum class Attempt { Replaced, Failed, NoEntryBeside };

    Attempt TryToReplace(const CString& source) const;
    void RecoverVersions() const;
    bool Copy(const CString& source) const;
    bool PutInPlace() const;
    bool PutReadyInPlace() const;
    bool RewriteFromReady() const;
    void DropReady() const;
    void ClearOut() const;

    CString m_folder;  // empty when it can't be replaced
    CString m_aside;   // empty when nothing may stand there
    bool m_isAside = false;
    CString m_new;
    CString m_ready;
    CString m_old;
    CString m_out;
};

}  // namespace QsBackup
