// The kernel's error numbers in the words of the contract, and a file descriptor that closes itself.
#pragma once

#include <utility>

#include "QsUtils/platform/FileFailure.h"

namespace QsPlatform {

/// What an error number of a call on a file means; a missing entry is told as `missing`.
FileFailure FailureOf(int error, FileFailure missing) noexcept;

/// Whether an error number says that the disk has no room or fails, or that the process has no memory or no
/// further open files: nothing is wrong with the one file that was to be written.
bool IsWantOfRoom(int error) noexcept;

class FileDescriptor {
public:
    explicit FileDescriptor(int number = -1) noexcept : m_number(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        Reset(std::exchange(other.m_number, -1));
        return *this;
    }
    ~FileDescriptor() { Reset(-1); }

    int Number() const noexcept { return m_number; }
    bool IsOpen() const noexcept { return m_number >= 0; }
    /// Closes the file and holds another one, or none.
    void Reset(int number) noexcept;

private:
    int m_number;
};

}  // namespace QsPlatform
