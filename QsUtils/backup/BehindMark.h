// The mark on saved drawings that aren't those of the last save.
#pragma once

#include <set>

#include "QsUtils/backup/ProjectPlaces.h"
#include "QsUtils/platform/Mutex.h"
#include "QsUtils/text/CString.h"

namespace QsBackup {

/// Tells that the saved drawings may be behind what the version file says: older than the last save, or those
/// of another project of the same name. As long as it stands, saved drawings are never put in place of live
/// ones, and each save renews them.
///
/// It is the entry "BackUpGraphicFile.qsutils-behind" beside the saved drawings, whatever that is: a folder
/// of its own or, when a full disk takes no further entry, the version file under that name. Without that
/// file both versions are alike, which is what the mark asks of them. When not even that can be done the
/// process remembers it. Nothing raises but memory exhaustion.
class BehindMark {
public:
    explicit BehindMark(const ProjectPlaces& places);

    bool IsSet() const;
    void Set() const;
    void Remove() const;
    /// Sets on the disk what only the process remembers, in case that there is room by now.
    void Settle() const;

private:
    CString m_mark;
    CString m_versions;
};

/// Marks that found no place on the disk. Any thread may ask.
class RememberedMarks {
public:
    void Add(const CString& mark);
    void Remove(const CString& mark);
    bool Has(const CString& mark) const;

private:
    mutable QsPlatform::Mutex m_lock;
    std::set<CString> m_marks;
};

/// Those of the process; they stand with the module's other static objects.
RememberedMarks& Marks();

}  // namespace QsBackup
