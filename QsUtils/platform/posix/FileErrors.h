// The kernel's error numbers in the words of the contract, and a file descriptor that closes itself.
#pragma once

#include "QsUtils/platform/FileFailure.h"

namespace QsPlatform {

/// What an error number of a call on a file means; a missing entry is told as `missing`.
FileFailure FailureOf(int error, FileFailure missing) noexcept;

class FileDescriptor {
public:
    explicit FileDescriptor(int number) noexcept : m_number(number) {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor();

    int Number() const noexcept { return m_number; }
    bool IsOpen() const noexcept { return m_number >= 0; }

private:
    int m_number;
};

}  // namespace QsPlatform
