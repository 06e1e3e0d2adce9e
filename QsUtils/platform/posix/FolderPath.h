// Paths of any length, handed to calls that take one of 4096 bytes.
#pragma once

#include <string>

#include "QsUtils/platform/posix/FileErrors.h"
#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// A path as the kernel's ...at calls take it: the descriptor of a folder and what follows from there. Short
/// paths open nothing.
class FolderPath {
public:
    /// Of a path in the library's form, without the backslashes at its end unless it is the root's.
    explicit FolderPath(const CString& path);
    FolderPath(const FolderPath&) = delete;
    FolderPath& operator=(const FolderPath&) = delete;
    ~FolderPath() = default;

    /// Whether any entry can have this path: it isn't empty, holds no NUL, and its long head exists.
    bool IsGood() const noexcept { return m_isGood; }
    /// Whether there were backslashes at its end, which only a folder's path has.
    bool EndsAsFolder() const noexcept { return m_endsAsFolder; }
    /// To be used while the object lives.
    int Base() const noexcept { return m_base.Number(); }
    const char* Rest() const noexcept { return m_rest.c_str(); }

private:
    bool OpenHead();

    std::string m_rest;
    FileDescriptor m_base;
    bool m_isGood = false;
    bool m_endsAsFolder = false;
};

}  // namespace QsPlatform
