// Names of entries changed in one step: contract. Any thread may call anything; nothing raises but memory
// exhaustion.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// Gives an entry, whatever it is, another name in the same file system; a link goes itself. False when that
/// can't be done, also when anything has the new name already; nothing has then changed. On Windows a folder
/// can't go while a file in it is open; that is tried for a third of a second, because what looks through
/// fresh files holds them no longer.
bool MoveEntry(const CString& from, const CString& to);

/// Gives a file another name in the same file system, in place of the file or the link that has it. False,
/// with nothing changed, when that can't be done.
bool MoveFileOver(const CString& from, const CString& to);

/// Lets two entries of one file system change names, so that at no moment one of the names is missing. False,
/// with nothing changed, when that can't be done; not every system and file system has such a step.
bool ExchangeEntries(const CString& a, const CString& b);

/// Brings to the disk what has been written so far to the file system of a folder. False when that can't be
/// done; not every system lets every user do it.
bool FlushFileSystem(const CString& folder);

}  // namespace QsPlatform
