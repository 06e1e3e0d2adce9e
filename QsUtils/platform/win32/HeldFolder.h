// A folder in which entries are named.
#pragma once

#include <string>
#include <utility>

#include "QsUtils/platform/FolderCursor.h"

namespace QsPlatform {

class HeldFolder {
public:
    /// A path that every call takes, whatever its length, with a backslash at its end.
    explicit HeldFolder(std::wstring path) noexcept : m_path(std::move(path)) {}

    std::wstring Entry(NativeView name) const { return m_path + std::wstring(name); }

private:
    std::wstring m_path;
};

}  // namespace QsPlatform
