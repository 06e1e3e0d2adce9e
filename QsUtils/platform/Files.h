// Files removed, copied and probed: contract. Paths are in the library's form. Any thread may call anything;
// nothing raises but memory exhaustion.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// Removes a file. A file that is marked as read-only (on Linux: without its owner's right to write) is
/// refused, whoever asks, and so is a folder. A link is removed itself.
bool RemoveFile(const CString& path);

/// Takes the read-only mark off a file or a folder. A link has none of its own and is left alone, together
/// with what it leads to.
bool MakeWritable(const CString& path);

/// Copies one file over another, or to a new name in a folder that exists. At every moment `target` names the
/// whole old file or the whole new one, or none when there was none, also when the process is killed; a file
/// that is replaced was flushed to the disk before. The read-only mark and the write time go along; on Linux
/// a new file has the permissions of the old one as far as the user's mask lets it, and a replaced one keeps
/// its owner and permissions but for the mark. Links are followed on both sides, so that a link at `target`
/// stays one.
///
/// False, with `target` as it was, when the source is no plain file, when the target is a folder, is marked
/// as read-only or is the source itself, and when the disk is full. `lacksRoom`, if given, says whether that
/// was the reason; a disk that fails counts as full, and so does want of memory or of open files.
bool CopyOneFile(const CString& source, const CString& target, bool* lacksRoom = nullptr);

/// Whether the path names a file that isn't marked as read-only and that the user may write.
bool IsRewritable(const CString& path);

enum class Rewriting {
    NotBegun,    ///< the target is as it was
    Unfinished,  ///< the target may hold part of either file
    Done,
};

/// Writes a file over another one that `IsRewritable` and isn't the same, in place and flushed: for a folder
/// in which no new version can be made. Marks and times go along as with `CopyOneFile`. Room for a larger
/// file is looked for before, where the file system can.
Rewriting RewriteFile(const CString& source, const CString& target);

/// Whether anybody else, this process included, holds the file open; also true when it can't be opened for
/// reading and writing for any other reason: it is marked as read-only, the user has no right, it isn't there
/// or is a folder. On Windows it is held exclusively for a moment; on Linux nobody notices.
bool IsHeldElsewhere(const CString& path);

}  // namespace QsPlatform
