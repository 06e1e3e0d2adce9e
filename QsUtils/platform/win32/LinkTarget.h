// Links among the entries of a folder.
#pragma once

#include <string>

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

/// Whether a reparse tag is that of a symbolic link or a junction; other entries with a tag are what they
/// seem.
constexpr bool IsLinkTag(DWORD tag) noexcept {
    return tag == IO_REPARSE_TAG_SYMLINK || tag == IO_REPARSE_TAG_MOUNT_POINT;
}

bool IsLinkPath(const std::wstring& path);

/// Where a link leads to; the path itself when the system doesn't tell.
std::wstring FollowLink(const std::wstring& path);

}  // namespace QsPlatform
