// The system's error codes in the words of the contract, and a handle that closes itself.
#pragma once

#include "QsUtils/platform/FileFailure.h"
#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

/// What an error code of a call on a file means; a missing entry is told as `missing`.
FileFailure FailureOf(DWORD error, FileFailure missing) noexcept;

/// Whether an error code says that the disk has no room or fails, or that the process has no memory or no
/// further open files: nothing is wrong with the one file that was to be written.
bool IsWantOfRoom(DWORD error) noexcept;

class FileHandle {
public:
    explicit FileHandle(HANDLE handle) noexcept : m_handle(handle) {}
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    ~FileHandle() {
        if (IsOpen())
            ::CloseHandle(m_handle);
    }

    HANDLE Get() const noexcept { return m_handle; }
    bool IsOpen() const noexcept { return m_handle != INVALID_HANDLE_VALUE; }

private:
    HANDLE m_handle;
};

}  // namespace QsPlatform
