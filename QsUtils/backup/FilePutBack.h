// A file put back over another one, also where nothing can be made beside it.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsBackup {

/// Replaces a file whole, as `CopyOneFile` does. Where the folder takes no new entry, though the file may be
/// written, it is written in place: a copy then stands aside until it is done, and with it `Recover` brings
/// the file back if the process is killed meanwhile. Nothing raises but memory exhaustion. One object for one
/// file at a time.
class FilePutBack {
public:
    /// Paths of the file and of a folder for the copy, which is named after the file's path.
    FilePutBack(const CString& target, const CString& aside);

    /// Ends what a killed call has left.
    void Recover() const;

    /// The target stays as it was when there is no room, it is marked as read-only, or `source` isn't there.
    void CopyFrom(const CString& source) const;

private:
    CString m_target;
    CString m_aside;
};

}  // namespace QsBackup
