// Why a file could not be read or replaced.
#pragma once

namespace QsPlatform {

enum class FileFailure {
    None,
    MissingFile,     ///< the folder is there, or not, but the file isn't
    MissingFolder,   ///< the folder that the file would stand in isn't there
    NoRight,         ///< the system doesn't allow it, or the medium takes no writing
    ReadOnlyTarget,  ///< the file to be replaced is marked as read-only
    InUse,           ///< another program holds the file
    NotAFile,        ///< the name is that of a folder, a pipe or a device
    DiskFull,        ///< no room on the disk, or more than this user may have
    TooLarge,        ///< more bytes than the reader takes
    Other,
};

}  // namespace QsPlatform
