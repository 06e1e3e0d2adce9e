// How one entry is copied from a held folder into another: contract of what `CopyFolderContents` stands on.
// Any thread may call it.
#pragma once

#include <cstddef>
#include <memory>

#include "QsUtils/platform/FolderCursor.h"

namespace QsPlatform {

/// Takes the read-only mark off an entry that is no link.
void MakeEntryWritable(const HeldFolder& folder, const NativeName& name);

/// Whether a folder is filled under another name and gets its own one when it is whole, which is cheaper than
/// giving each file its name. Not where anybody who looks into a file keeps its folder from being renamed.
bool FillsFoldersUnseen() noexcept;

/// A name under which a folder is filled.
NativeName UnseenName();

/// Gives a folder its own name; false when that is taken.
bool RenameFolder(const HeldFolder& parent, const NativeName& from, const NativeName& to);
enum class CopyOutcome {
    Copied,
    LeftOut,  ///< the source can't be read, or the target's name is taken by what can't be replaced
    NoRoom,   ///< no room on the disk, which includes a disk that fails; no memory, no further open files
};

struct CopiedFile {
    NativeName name;
    bool isLink = false;
};

/// Copies files one after the other, through memory of its own.
class FileCopier {
public:
    /// Copies are marked as read-only where their sources are and stay so; or never.
    explicit FileCopier(bool copiesMarks);
    FileCopier(const FileCopier&) = delete;
    FileCopier& operator=(const FileCopier&) = delete;
    ~FileCopier();

    /// Copies a file under its name, as `CopyOneFile` does. What isn't a link loses its read-only mark first.
    /// Files of an `isUnseen` target, which has no name of its own yet and was empty, are written straight to
    /// their names.
    CopyOutcome Copy(const HeldFolder& source, const CopiedFile& file, const HeldFolder& target,
                     bool isUnseen);

private:
    bool m_copiesMarks;
    std::unique_ptr<char[]> m_buffer;
};

}  // namespace QsPlatform
