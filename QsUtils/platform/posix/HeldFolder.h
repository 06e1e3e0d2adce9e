// An open folder that several may hold.
#pragma once

#include "QsUtils/platform/FolderCursor.h"
#include "QsUtils/platform/posix/FileErrors.h"

namespace QsPlatform {

class HeldFolder {
public:
    explicit HeldFolder(FileDescriptor folder) noexcept : m_folder(std::move(folder)) {}

    int Number() const noexcept { return m_folder.Number(); }

private:
    FileDescriptor m_folder;
};

}  // namespace QsPlatform
