// One file copied from one place to another.
#pragma once

#include <cstddef>
#include <string>

#include "QsUtils/platform/Files.h"
#include "QsUtils/platform/FolderCopying.h"

namespace QsPlatform {

/// An entry as the kernel's ...at calls name it.
struct FilePlace {
    int base;
    std::string path;
};

/// Through which files are copied that the kernel doesn't copy by itself.
constexpr std::size_t CopyBufferSize = std::size_t{1} << 18;

struct CopyOptions {
    bool followsSource = true;         ///< a source that is a link is copied as the file that it leads to
    bool makesSourceWritable = false;  ///< unless it is a link
    bool copiesMark = true;            ///< otherwise a new file is writable whatever its source is
    bool isTargetUnseen = false;  ///< nobody sees the target's folder yet, and nothing of the name is in it
};

/// As `RewriteFile` does.
Rewriting RewriteBy(const FilePlace& source, const FilePlace& target, char* buffer);

/// As `CopyOneFile` does; `buffer` has `CopyBufferSize` bytes.
CopyOutcome CopyBetween(const FilePlace& source, FilePlace target, const CopyOptions& options, char* buffer);

}  // namespace QsPlatform
